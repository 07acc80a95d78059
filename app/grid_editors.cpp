#include "app/grid_editors.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyle>

#include <algorithm>

namespace merov::app
{
namespace
{

using fix::EntryField;
using fix::GridColumn;

constexpr int FieldMargins = 16; // frame, margins and cursor of a masked field, pixels

EntryField FieldOf(GridColumn column)
{
    return column == GridColumn::Altitude ? EntryField::CellAltitude : EntryField::CellCorrection;
}

platform::MaskedEdit* MakeMasked(GridColumn column, const QString& accessibleName)
{
    const EntryField field = FieldOf(column);
    auto* edit = new platform::MaskedEdit;
    const std::string_view name = fix::ControlName(field);
    edit->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    edit->setAccessibleName(accessibleName);
    edit->KeyMap = [field](int place, QChar key) {
        return key.unicode() < 0x80 ? QChar(fix::MapKey(field, place, key.toLatin1())) : key;
    };
    return edit;
}

/// The line in which a picker of times is typed.
QLineEdit& LineOf(const platform::TimePicker& picker)
{
    return *picker.findChild<QLineEdit*>();
}

} // namespace

GridEditors::GridEditors()
    : time_(new platform::TimePicker), body_(new QComboBox),
      altitude_(MakeMasked(GridColumn::Altitude, QStringLiteral("Instrument altitude"))),
      correction_(MakeMasked(GridColumn::Correction, QStringLiteral("Instrument correction, minutes")))
{
    time_->setObjectName(QStringLiteral("dtpObsTime"));
    time_->setAccessibleName(QStringLiteral("Time of observation"));
    time_->setToolTip(QStringLiteral("! GMT"));
    body_->setObjectName(QStringLiteral("cboBody"));
    body_->setAccessibleName(QStringLiteral("Observed body"));
    body_->setToolTip(QStringLiteral("first letters or <=  => to select"));
    for (const std::string_view code : ephemeris::BodyCodes())
        body_->addItem(QString::fromLatin1(code.data(), static_cast<qsizetype>(code.size())));
    altitude_->setToolTip(QStringLiteral("[TAB] next cell/row"));
}

QWidget* GridEditors::Control(GridColumn column) const
{
    switch (column) {
    case GridColumn::Time:
        return time_;
    case GridColumn::Body:
        return body_;
    default:
        return &Masked(column);
    }
}

int GridEditors::Width(GridColumn column) const
{
    const QFontMetrics letters(Control(column)->font());
    switch (column) {
    case GridColumn::Time:
    case GridColumn::Body:
        return Control(column)->sizeHint().width();
    default:
        return letters.horizontalAdvance(QStringLiteral("00°00'.00")) + FieldMargins;
    }
}

void GridEditors::InstallMasks()
{
    for (const GridColumn column : {GridColumn::Altitude, GridColumn::Correction})
        Masked(column).SetMask(QString::fromStdString(fix::EntryMask(FieldOf(column))));
}

void GridEditors::Blank()
{
    altitude_->clear();
    correction_->clear();
}

std::string GridEditors::Text(GridColumn column) const
{
    switch (column) {
    case GridColumn::Time:
        return ephemeris::FormatDateTime(time_->Value(), fix::GridTimePicture);
    case GridColumn::Body:
        return body_->currentText().toStdString();
    default:
        return Masked(column).Text().toStdString();
    }
}

void GridEditors::Restore(GridColumn column, const std::string& cellText)
{
    if (column == GridColumn::Altitude || column == GridColumn::Correction) StartMasked(column, cellText);
    if (column != GridColumn::Time) return;
    if (const auto time = ephemeris::ParseDateTime(cellText)) time_->SetValue(*time);
}

void GridEditors::TypeDay(QChar key)
{
    std::string text = Text(GridColumn::Time);
    text.front() = key.toLatin1();
    const auto typed = ephemeris::ParseDateTime(text);
    if (typed) time_->SetValue(*typed);
    time_->setSelectedSection(QDateTimeEdit::DaySection);
    if (!typed || key == u'0') return;
    const auto dayFigures = static_cast<int>(LineOf(*time_).text().indexOf(u' '));
    LineOf(*time_).setSelection(1, dayFigures - 1);
}

void GridEditors::StartBody(const std::string& code)
{
    body_->setCurrentIndex(std::max(numeric::FindSorted(code, ephemeris::BodyCodes()), 0));
}

void GridEditors::TypeBody(QChar key)
{
    if (body_->findText(key, Qt::MatchStartsWith) < 0) return;
    // From the top, and forgetting letters that were typed for another cell a moment ago.
    body_->setCurrentIndex(0);
    body_->view()->keyboardSearch(QString());
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
    QCoreApplication::sendEvent(body_, &press);
}

void GridEditors::StartMasked(GridColumn column, const std::string& cellText)
{
    platform::MaskedEdit& edit = Masked(column);
    edit.clear();
    if (!cellText.empty()) edit.setText(QString::fromStdString(cellText));
    edit.setCursorPosition(0);
}

void GridEditors::TypeMasked(GridColumn column, QChar key)
{
    platform::MaskedEdit& edit = Masked(column);
    edit.clear();
    const bool types = key != u'9';
    if (types) edit.setText(key + edit.Text().mid(1));
    edit.setCursorPosition(types ? 1 : 0);
}

platform::MaskedEdit& GridEditors::Masked(GridColumn column) const
{
    return column == GridColumn::Altitude ? *altitude_ : *correction_;
}

} // namespace merov::app
