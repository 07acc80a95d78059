#include "app/azimuth_sheet.h"

#include "app/entry_frame.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>

#include <utility>

namespace merov::app
{
namespace
{

using planning::CompassTexts;

// Columns of a sum.
constexpr int SignColumn = 0;
constexpr int CaptionColumn = 1;
constexpr int FigureColumn = 2;
constexpr int BesideColumn = 3;

constexpr int RowSpacing = 4;    // pixels
constexpr int BlockSpacing = 14; // between two sums of a frame
constexpr int PlaceSpacing = 28; // between hour angles and declination
constexpr int PlaceFigures = 10; // characters of an angle with minutes

constexpr const char* Minus = "−";

/// A frame for sums.
QGroupBox* MakeFrame(const char* name, const char* caption)
{
    auto* frame = new QGroupBox(QString::fromUtf8(caption));
    frame->setObjectName(QString::fromUtf8(name));
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(RowSpacing);
    grid->setColumnStretch(CaptionColumn, 1);
    return frame;
}

QGridLayout& GridOf(QGroupBox& frame)
{
    return static_cast<QGridLayout&>(*frame.layout());
}

/// The line below the terms of a sum.
void AddRule(QGroupBox& frame)
{
    auto* rule = new QFrame;
    rule->setFrameStyle(QFrame::HLine | QFrame::Plain);
    rule->setForegroundRole(QPalette::Mid);
    GridOf(frame).addWidget(rule, GridOf(frame).rowCount(), SignColumn, 1, FigureColumn + 1);
}

void AddGap(QGroupBox& frame)
{
    GridOf(frame).setRowMinimumHeight(GridOf(frame).rowCount(), BlockSpacing);
}

/// Begins a row of a sum: its sign and its caption.
std::pair<QLabel*, QLabel*> AddRow(QGroupBox& frame, const char* sign, const char* caption, int height)
{
    QGridLayout& grid = GridOf(frame);
    const int row = grid.rowCount();
    QLabel* signLabel = MakeText(QString::fromUtf8(sign));
    QLabel* captionLabel = MakeText(QString::fromUtf8(caption));
    grid.addWidget(signLabel, row, SignColumn);
    grid.addWidget(captionLabel, row, CaptionColumn);
    grid.setRowMinimumHeight(row, height);
    return {signLabel, captionLabel};
}

} // namespace

AzimuthSheet::AzimuthSheet(const std::array<QWidget*, 4>& readings, QWidget* eastWest)
    : figuresWidth_(readings[0]->width()), rowHeight_(readings[0]->sizeHint().height())
{
    const auto [gyroBearing, gyroHeading, compassHeading, variation] = readings;
    QGroupBox* gyro = MakeFrame("fraGyro", " Gyro ");
    AddResult(*gyro, "", "True bearing", "lblTrueBearing", &CompassTexts::TrueBearing);
    AddReading(*gyro, Minus, "Gyro bearing", *gyroBearing);
    AddRule(*gyro);
    AddResult(*gyro, "=", "Gyro error", "lblErrg(0)", &CompassTexts::GyroError);
    AddGap(*gyro);
    AddReading(*gyro, "", "Gyro heading", *gyroHeading);
    AddResult(*gyro, "+", "Gyro error", "lblErrg(1)", &CompassTexts::GyroError);
    AddRule(*gyro);
    AddResult(*gyro, "=", "True heading", "lblTrueCourse(0)", &CompassTexts::TrueHeading);

    QGroupBox* compass = MakeFrame("fraCompass", " Magnetic compass ");
    AddResult(*compass, "", "True heading", "lblTrueCourse(1)", &CompassTexts::TrueHeading);
    AddReading(*compass, Minus, "Compass heading", *compassHeading);
    AddRule(*compass);
    AddResult(*compass, "=", "Compass error", "lblErrc(0)", &CompassTexts::CompassError);
    AddGap(*compass);
    AddResult(*compass, "", "Compass error", "lblErrc(1)", &CompassTexts::CompassError);
    AddReading(*compass, Minus, "Magnetic variation", *variation, eastWest);
    AddRule(*compass);
    AddResult(*compass, "=", "Magnetic deviation", "lblDev", &CompassTexts::Deviation);

    auto* sheet = new QGridLayout(this);
    sheet->setContentsMargins(0, 0, 0, 0);
    sheet->setSpacing(EntryFrame::FrameSpacing);
    sheet->addWidget(MakePlace(), 0, 0, 1, 2);
    sheet->addWidget(gyro, 1, 0);
    sheet->addWidget(compass, 1, 1);
    sheet->setColumnStretch(0, 1);
    sheet->setColumnStretch(1, 1);
    HideResults();
}

/// Hour angles and declination.
QWidget* AzimuthSheet::MakePlace()
{
    auto* frame = new QGroupBox(QStringLiteral(" Place of the body "));
    frame->setObjectName(QStringLiteral("fraPlace"));
    auto* row = new QHBoxLayout(frame);
    const auto add = [&](const char* caption, const char* name, Text shown) {
        QLabel* label = MakeText(QString::fromUtf8(caption));
        row->addWidget(label);
        row->addWidget(MakeValue(name, shown, FieldWidth(*label, PlaceFigures), {label}));
        row->addSpacing(PlaceSpacing);
    };
    row->setSpacing(0);
    add("GHA", "lblGHA", &CompassTexts::GHA);
    add("LHA", "lblLHA", &CompassTexts::LHA);
    add("d", "lblDecl", &CompassTexts::Declination);
    row->addStretch();
    return frame;
}

QLabel* AzimuthSheet::MakeValue(const char* name, Text shown, int width, std::vector<QLabel*> captions)
{
    QLabel* value = MakeText({});
    value->setObjectName(QString::fromUtf8(name));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setFixedWidth(width);
    QSizePolicy place = value->sizePolicy();
    place.setRetainSizeWhenHidden(true); // so that nothing moves when results appear
    value->setSizePolicy(place);
    results_.push_back({value, shown, std::move(captions)});
    return value;
}

/// A row with a field.
void AzimuthSheet::AddReading(QGroupBox& frame, const char* sign, const char* caption, QWidget& field, QWidget* beside)
{
    QGridLayout& grid = GridOf(frame);
    const int row = grid.rowCount();
    AddRow(frame, sign, caption, rowHeight_).second->setBuddy(&field);
    grid.addWidget(&field, row, FigureColumn);
    if (beside != nullptr) grid.addWidget(beside, row, BesideColumn);
}

/// A row with a result.
void AzimuthSheet::AddResult(QGroupBox& frame, const char* sign, const char* caption, const char* name, Text shown)
{
    QGridLayout& grid = GridOf(frame);
    const int row = grid.rowCount();
    const auto [signLabel, captionLabel] = AddRow(frame, sign, caption, rowHeight_);
    grid.addWidget(MakeValue(name, shown, figuresWidth_, {signLabel, captionLabel}), row, FigureColumn);
}

void AzimuthSheet::ShowResults(const planning::CompassTexts& texts)
{
    for (const Result& result : results_) {
        result.Value->setText(QString::fromStdString(texts.*result.Shown));
        result.Value->show();
        for (QLabel* caption : result.Captions)
            caption->setEnabled(true);
    }
}

void AzimuthSheet::HideResults()
{
    for (const Result& result : results_) {
        result.Value->hide();
        for (QLabel* caption : result.Captions)
            caption->setEnabled(false);
    }
}

} // namespace merov::app
