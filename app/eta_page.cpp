#include "app/eta_page.h"
#include "app/mirrored_edit.h"

#include "app/entry_frame.h"
#include "app/eta_fields.h"
#include "app/eta_grid.h"
#include "app/sailing_fields.h"
#include "app/sailing_texts.h"
#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"
#include "platform/field.h"
#include "platform/masked_edit.h"
#include "platform/push_button.h"
#include "platform/time_picker.h"
#include "platform/tool_bar.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QRadioButton>
#include <QScopeGuard>

#include <algorithm>
#include <array>

namespace merov::app
{
namespace
{

using platform::PictureButton;
using sailing::EtaField;

constexpr int EraseAll = 14; // cmdErase
constexpr int RowSpacing = 8;
constexpr int ButtonPicture = 22; // pixels
constexpr int ZonesInView = 20;   // of an open list

/// How times of arrival can be rounded, by the index of optRound.
struct Rounding {
    const char* Caption;
    double EtaRounding; ///< parts of a day
};

constexpr std::array<Rounding, 3> Roundings = {{
    {"exact time", 86400.0},
    {"tenths of hour", 240.0},
    {"quaters of hour", 96.0},
}};

/// A label that leads to its control.
QLabel* MakeLabel(const char* name, const char* text, QWidget* buddy)
{
    QLabel* label = MakeText(QString::fromUtf8(text));
    label->setObjectName(QString::fromUtf8(name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(buddy);
    return label;
}

/// A grid of labels and the controls behind them.
QGridLayout* MakeGrid()
{
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(RowSpacing);
    return grid;
}

/// Adds a row, as high as an entry.
void AddRow(QGridLayout& grid, QLabel* label, std::initializer_list<QWidget*> controls)
{
    const int row = grid.rowCount();
    grid.setRowMinimumHeight(row, EtaFields::EntryHeight());
    grid.addWidget(label, row, 0);
    auto* side = new QHBoxLayout;
    side->setSpacing(EntryFrame::ControlSpacing);
    for (QWidget* control : controls)
        side->addWidget(control);
    side->addStretch();
    grid.addLayout(side, row, 1);
}

} // namespace

EtaPage::EtaPage(QWidget* parent, numeric::LastError& journal, QWidget* wayButtons)
    : QWidget(parent), journal_(journal), fields_(new EtaFields(entries_, this))
{
    auto* entries = new QHBoxLayout;
    entries->addLayout(MakeEntries());
    entries->addStretch();
    entries->addLayout(MakeSpeeds());
    MakeTable();
    auto* results = new QHBoxLayout;
    results->addWidget(table_);
    results->addStretch();
    results->addWidget(MakeRounding(), 0, Qt::AlignTop);

    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(entries);
    page->addLayout(results, 1);
    page->addLayout(MakeFoot(wayButtons));
    InstallMasks();
}

// --- the controls

/// Departure, zones and distance.
QGridLayout* EtaPage::MakeEntries()
{
    departure_ = new platform::TimePicker;
    departure_->setObjectName(QStringLiteral("dtpTime(2)"));
    departure_->setFixedSize(std::max(EtaGrid::LeastTimeWidth(), departure_->sizeHint().width()),
                             EtaFields::EntryHeight());
    QComboBox* departureZone = MakeZones(0);
    QComboBox* arrivalZone = MakeZones(1);
    platform::MaskedEdit* distance =
        fields_->MakeEdit(EtaField::Distance, "Enter nautical miles & hundredths of nautical mile");

    auto* entries = MakeGrid();
    AddRow(*entries, MakeLabel("lblDepTime", "Departure time :", departure_), {departure_});
    AddRow(*entries, MakeLabel("lblIN", "in", departureZone), {departureZone});
    AddRow(*entries, MakeLabel("lblArrTime", "Arrival local time in", arrivalZone), {arrivalZone});
    AddRow(*entries, MakeLabel("lblDTG", "Distance to go :", distance),
           {distance, fields_->MakeEraser(EtaField::Distance, "Erase distance")});
    return entries;
}

QComboBox* EtaPage::MakeZones(std::size_t index)
{
    auto* zones = new platform::Field<QComboBox>;
    zones->setObjectName(QStringLiteral("cboGMT(%1)").arg(index));
    zones->setFixedHeight(EtaFields::EntryHeight());
    zones->setMaxVisibleItems(ZonesInView);
    for (const sailing::EtaZone& zone : sailing::EtaZones())
        zones->addItem(QString::fromUtf8(zone.Name.data(), static_cast<qsizetype>(zone.Name.size())), zone.Hundredths);
    connect(zones, &QComboBox::currentIndexChanged, this, [this, zones, index] {
        double& zone = index == 0 ? entries_.Input.DepartureZone : entries_.Input.ArrivalZone;
        zone = zones->currentData().toInt() / 100.0;
    });
    zones->setCurrentIndex(sailing::EtaGmtZone);
    return zones;
}

QGridLayout* EtaPage::MakeSpeeds()
{
    struct Speed {
        EtaField Field;
        const char* Label;
        const char* Caption;
        const char* Spin;
        const char* ToolTip;
        const char* EraserToolTip;
    };
    constexpr std::array<Speed, 3> Speeds = {{
        {EtaField::MinSpeed, "lblMinSpeed", "min. speed :", "updMinSpeed", "Minimum speed in knots", "Reset speed"},
        {EtaField::MaxSpeed, "lblMaxSpeed", "max. speed :", "updMaxSpeed", "Maximum speed in knots", "Reset speed"},
        {EtaField::Interval, "lblInterval", "interval :", "updInterval", "Interval between speeds in knots",
         "Reset interval"},
    }};
    QGridLayout* speeds = MakeGrid();
    AddRow(*speeds, MakeLabel("lblCompute", "Compute with", nullptr), {});
    for (const Speed& speed : Speeds) {
        platform::MaskedEdit* edit = fields_->MakeEdit(speed.Field, speed.ToolTip);
        AddRow(
            *speeds, MakeLabel(speed.Label, speed.Caption, edit),
            {edit, fields_->MakeSpin(speed.Field, speed.Spin), fields_->MakeEraser(speed.Field, speed.EraserToolTip)});
    }
    return speeds;
}

QWidget* EtaPage::MakeRounding()
{
    auto* frame = new QGroupBox(QStringLiteral(" Correct ETA to read  "));
    frame->setObjectName(QStringLiteral("fraRound"));
    auto* options = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < Roundings.size(); ++i) {
        auto* option = new QRadioButton(QString::fromUtf8(Roundings[i].Caption));
        option->setObjectName(QStringLiteral("optRound(%1)").arg(i));
        option->setChecked(i == 0);
        connect(option, &QRadioButton::clicked, this,
                [this, i] { entries_.Input.EtaRounding = Roundings[i].EtaRounding; });
        options->addWidget(option);
    }
    return frame;
}

void EtaPage::MakeTable()
{
    table_ = new EtaGrid(fields_->Edit(EtaField::MinSpeed).width(), departure_->width(), departure_->height());
    QSizePolicy place = table_->sizePolicy();
    place.setRetainSizeWhenHidden(true); // so that nothing moves when the table appears
    table_->setSizePolicy(place);
    table_->hide();
}

QBoxLayout* EtaPage::MakeFoot(QWidget* wayButtons)
{
    auto* compute = new platform::PushButton(QStringLiteral("&Compute"));
    compute->setObjectName(QStringLiteral("cmdCompute(2)"));
    compute->setToolTip(QStringLiteral("Compute ETA"));
    connect(compute, &QPushButton::clicked, this, [this] { Compute(); });
    PictureButton* erase =
        MakePictureButton(QStringLiteral("cmdErase(14)"), "erase", EraseAllTip, true, [this] { Erase(EraseAll); });
    print_ = MakePictureButton(QStringLiteral("cmdAskPrint(1)"), "print", "Print results", false, [this] {
        if (OnPrint) OnPrint();
    });
    print_->setEnabled(false);

    auto* foot = new QHBoxLayout;
    foot->addWidget(compute);
    for (PictureButton* button : {erase, print_}) {
        button->setIconSize(QSize(ButtonPicture, ButtonPicture));
        foot->addWidget(button);
    }
    foot->addStretch();
    if (wayButtons != nullptr) foot->addWidget(wayButtons);
    return foot;
}

// --- what they do

void EtaPage::InstallMasks()
{
    fields_->InstallMasks();
}

void EtaPage::Start(const QString& typedDistance, double rhumbDistance)
{
    Erase(EraseAll);
    departure_->SetValue(ephemeris::CurrentGmtHour());
    if (!typedDistance.isEmpty())
        fields_->Enter(EtaField::Distance, typedDistance);
    else if (rhumbDistance != 0.0)
        fields_->Enter(EtaField::Distance, QString::fromStdString(numeric::FormatNumber(rhumbDistance, "00000.00")));
}

void EtaPage::Erase(int index)
{
    if (index != EraseAll) {
        fields_->Erase(static_cast<EtaField>(index - EtaFields::FirstEraser));
        return;
    }
    ShowTable(false);
    fields_->Reset();
}

void EtaPage::Compute()
{
    if (OnCompute) OnCompute();
    entries_.Input.DepartureTime = departure_->Value();
    const sailing::EtaResult result = sailing::RunEta(entries_.Input, journal_);
    if (!result.Rows.empty()) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const auto pointer = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
        table_->ShowResult(result);
    }
    ShowTable(!result.Rows.empty());
}

void EtaPage::ShowTable(bool visible)
{
    table_->setVisible(visible);
    print_->setEnabled(visible);
}

void EtaPage::TakeFocus()
{
    departure_->setFocus();
}

platform::OverlayGrid& EtaPage::Table()
{
    return *table_;
}

} // namespace merov::app
