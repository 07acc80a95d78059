#include "app/eta_fields.h"
#include "app/mirrored_edit.h"

#include "app/entry_frame.h"
#include "app/sailing_fields.h"
#include "platform/masked_edit.h"
#include "platform/spin_button.h"

#include <QApplication>
#include <QFontMetrics>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

namespace merov::app
{
namespace
{

using sailing::EtaField;

// Widths by the font's figures.
constexpr int DistanceFigures = 9;
constexpr int SpeedFigures = 5;

constexpr int EraserPicture = 16; // pixels
constexpr int LeastEntryHeight = 26;
constexpr int AroundText = 8;

constexpr std::array<EtaField, sailing::EtaFieldCount> AllFields = {EtaField::Distance, EtaField::MinSpeed,
                                                                    EtaField::MaxSpeed, EtaField::Interval};

/// Where typing starts in a field that takes the focus: at what is there, so that 12 over "_10.0" doesn't
/// become 120.
int InsertionPoint(const QString& text)
{
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    return std::max(0, static_cast<int>(text.indexOf(digit)));
}

} // namespace

int EtaFields::EntryHeight()
{
    return std::max(LeastEntryHeight, QFontMetrics(QApplication::font()).height() + AroundText);
}

EtaFields::EtaFields(sailing::EtaEntries& entries, QObject* parent) : QObject(parent), entries_(entries) {}

platform::MaskedEdit* EtaFields::MakeEdit(EtaField field, const char* toolTip)
{
    auto* edit = new platform::MaskedEdit;
    edits_[static_cast<std::size_t>(field)] = edit;
    const std::string_view name = sailing::ControlName(field);
    edit->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    edit->setToolTip(QString::fromUtf8(toolTip));
    edit->setFixedSize(FieldWidth(*edit, field == EtaField::Distance ? DistanceFigures : SpeedFigures), EntryHeight());
    edit->OnEnter = [edit] { edit->setCursorPosition(InsertionPoint(edit->Text())); };
    edit->OnLeave = [this, field] { return Leave(field); };
    connect(edit, &QLineEdit::textChanged, this,
            [this, field, edit] { entries_.Text(field) = edit->Text().toStdString(); });
    return edit;
}

QWidget* EtaFields::MakeSpin(EtaField field, const char* name)
{
    auto* spin = new platform::SpinButton;
    spin->setObjectName(QString::fromUtf8(name));
    spin->setFixedHeight(EntryHeight());
    const auto step = [this, field, spin](bool up) {
        if (stepping_) return; // an arrow that is held down repeats, also under its box
        const QScopedValueRollback<bool> stepping(stepping_, true);
        if (Step(field, up)) return;
        spin->UpArrow().setDown(false);
        spin->DownArrow().setDown(false);
        Edit(field).setFocus();
    };
    spin->OnUp = [step] { step(true); };
    spin->OnDown = [step] { step(false); };
    spin->StepByKeysOf(Edit(field));
    return spin;
}

QWidget* EtaFields::MakeEraser(EtaField field, const char* toolTip)
{
    const QString name = QStringLiteral("cmdErase(%1)").arg(FirstEraser + static_cast<int>(field));
    platform::PictureButton* button =
        MakePictureButton(name, "erase_field", toolTip, true, [this, field] { Erase(field); });
    button->setIconSize(QSize(EraserPicture, EraserPicture));
    button->setAutoRaise(true);
    return button;
}

void EtaFields::InstallMasks()
{
    for (const EtaField field : AllFields)
        Edit(field).SetMask(QString::fromStdString(sailing::EtaMask(field)));
    Reset();
}

void EtaFields::Reset()
{
    for (const EtaField field : AllFields)
        Reset(field);
}

void EtaFields::Reset(EtaField field)
{
    sailing::ResetEtaField(entries_, field);
    Mirror(field);
}

void EtaFields::Erase(EtaField field)
{
    Reset(field);
    Edit(field).setFocus();
}

void EtaFields::Enter(EtaField field, const QString& text)
{
    Edit(field).setText(text);
    if (!Leave(field)) Edit(field).setFocus();
}

/// Runs the rule of a field and shows what it has made of the text. @return false for a refusal
bool EtaFields::Leave(EtaField field)
{
    Edit(field).setModified(false);
    const bool taken = sailing::LeaveEtaField(entries_, field);
    Mirror(field);
    return taken;
}

/// One step of a spin button, from what has been typed. @return false for a refusal
bool EtaFields::Step(EtaField field, bool up)
{
    if (Edit(field).isModified() && !Leave(field)) return false;
    const bool taken = sailing::StepEtaField(entries_, field, up);
    Mirror(field);
    return taken;
}

void EtaFields::Mirror(EtaField field)
{
    platform::MaskedEdit& edit = Edit(field);
    const QString text = QString::fromStdString(entries_.Text(field));
    if (edit.Text() == text) return; // the insertion point stays
    edit.setText(text);
    edit.setCursorPosition(InsertionPoint(text));
}

} // namespace merov::app
