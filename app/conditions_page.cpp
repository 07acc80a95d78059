#include "app/conditions_page.h"

#include "app/entry_fields_view.h"
#include "app/entry_frame.h"
#include "app/page_buttons.h"

#include <QCheckBox>
#include <QStyle>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

using fix::EntryField;

// Widths by the font's figures, so that the second fields of all rows stand below each other.
constexpr int FieldFigures = 6;
constexpr int UnitFigures = 9;

QLabel* MakeUnit(const char* unit)
{
    QLabel* label = MakeText(QString::fromUtf8(unit));
    label->setMinimumWidth(FiguresWidth(*label, UnitFigures));
    return label;
}

} // namespace

ConditionsPage::ConditionsPage(FixInput& input, EntryFieldsView& fields) : input_(input), fields_(fields)
{
    EntryFrame* observer = MakeObserver();
    EntryFrame* sextant = MakeSextant();
    EntryFrame* weather = MakeWeather();
    EntryFrame::AlignLabels({observer, sextant, weather});
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    for (EntryFrame* frame : {observer, sextant, weather})
        page->addWidget(frame);
    page->addStretch();
    page->addWidget(MakeWayButtons());
}

platform::MaskedEdit* ConditionsPage::MakeEdit(EntryField field, const QString& spokenName)
{
    platform::MaskedEdit* edit = fields_.MakeEdit(field);
    edit->setFixedWidth(FieldWidth(*edit, FieldFigures));
    edit->setAccessibleName(spokenName);
    return edit;
}

/// A field without a spin button: it takes the place of one, so that the units stand below each other.
platform::MaskedEdit* ConditionsPage::MakeWideEdit(EntryField field, const QString& spokenName)
{
    platform::MaskedEdit* edit = MakeEdit(field, spokenName);
    edit->setFixedWidth(edit->width() + EntryFrame::ControlSpacing + platform::SpinButton().sizeHint().width());
    return edit;
}

EntryFrame* ConditionsPage::MakeObserver()
{
    auto* frame = new EntryFrame(QStringLiteral("fraObs"), QStringLiteral(" Observer "));
    frame->AddRow(QStringLiteral("Height of observer eye :"),
                  {MakeWideEdit(EntryField::HeightMetres), MakeUnit("meters or"),
                   MakeWideEdit(EntryField::HeightFeet, QStringLiteral("Height of observer eye, feet")),
                   MakeUnit("feet")});
    frame->AddPicture("eye", QStringLiteral("imgEye"), 0, 1);
    return frame;
}

EntryFrame* ConditionsPage::MakeSextant()
{
    platform::MaskedEdit* correction = MakeWideEdit(EntryField::InstCorr);
    correction->setToolTip(QStringLiteral("Enter minutes & tenths of minute"));
    findSystErr_ = new platform::Field<QCheckBox>(QStringLiteral(" Find the systematic error"));
    findSystErr_->setObjectName(QStringLiteral("ch3FindSystErr"));
    connect(findSystErr_, &QCheckBox::clicked, this, [this](bool checked) { input_.Entry.FindSystErr = checked; });
    auto* note = MakeText(QStringLiteral("(constant error = uncorrected   index error + personal error)"));
    note->setObjectName(QStringLiteral("lblSystErr"));
    note->setWordWrap(true);
    // It starts below the text of the check box, and its line ends before "index".
    const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing) +
                       note->fontMetrics().horizontalAdvance(u' ');
    note->setContentsMargins(indent, 0, 0, 0);
    note->setFixedWidth(indent +
                        note->fontMetrics().horizontalAdvance(QStringLiteral("(constant error = uncorrected    ")));

    auto* frame = new EntryFrame(QStringLiteral("fraSextant"), QStringLiteral(" Sextant "));
    frame->AddRow(QStringLiteral("Default value of instrumental correction :"), {correction, MakeUnit("minutes")});
    frame->AddRow({}, {findSystErr_});
    frame->AddRow({}, {note});
    frame->AddPicture("sextant", QStringLiteral("imgSextant"), 0, 3);
    return frame;
}

EntryFrame* ConditionsPage::MakeWeather()
{
    auto* frame = new EntryFrame(QStringLiteral("fraExtCond"), QStringLiteral(" External conditions "));
    AddWeather(*frame, "Air temperature :", {EntryField::AirCelsius, "updTempCelcius(0)", "°C  or"},
               {EntryField::AirFahrenheit, "updTempFahr(0)", "°F"});
    AddWeather(*frame, "Water temperature :", {EntryField::WaterCelsius, "updTempCelcius(1)", "°C  or"},
               {EntryField::WaterFahrenheit, "updTempFahr(1)", "°F"});
    AddWeather(*frame, "Atmospheric pressure :", {EntryField::Millibars, "updPress_mBars", "mbars or"},
               {EntryField::InchesHg, "updPressHg", "inHg"});
    frame->AddPicture("thermometer", QStringLiteral("imgTempInput"), 0, 2);
    frame->AddPicture("barometer", QStringLiteral("imgPressInput"), 2, 1);
    return frame;
}

/// A row of two fields that hold one value in two units, each with its spin button.
void ConditionsPage::AddWeather(EntryFrame& frame, const char* label, const Spun& first, const Spun& twin)
{
    const QString caption = QString::fromUtf8(label);
    platform::MaskedEdit* firstEdit = MakeEdit(first.Field);
    platform::MaskedEdit* twinEdit = MakeEdit(
        twin.Field, QString(caption).replace(QLatin1String(" :"), QLatin1String(", ")) + QString::fromUtf8(twin.Unit));
    frame.AddRow(caption,
                 {firstEdit, fields_.MakeSpin(first.Field, QString::fromUtf8(first.Spin)), MakeUnit(first.Unit),
                  twinEdit, fields_.MakeSpin(twin.Field, QString::fromUtf8(twin.Spin)), MakeUnit(twin.Unit)});
}

QWidget* ConditionsPage::MakeWayButtons()
{
    auto* row = new ButtonRow;
    row->Add("cmdPrevTabIn(0)", "&Previous tab", OnPrevious);
    row->Add("cmdNextTabIn(1)", "&Next tab", OnNext);
    row->Add("cmdCancel(1)", "C&ancel", OnCancel);
    return row;
}

void ConditionsPage::ShowEntries()
{
    findSystErr_->setChecked(input_.Entry.FindSystErr);
}

void ConditionsPage::TakeFocus()
{
    fields_.Edit(EntryField::HeightMetres).setFocus();
}

} // namespace merov::app
