#include "app/gc_page.h"
#include "app/mirrored_edit.h"

#include "app/ellipsoid_frame.h"
#include "app/entry_frame.h"
#include "app/sailing_fields.h"
#include "app/sailing_texts.h"
#include "ephemeris/time_lib.h"
#include "output/sailing_report.h"
#include "platform/outline_list.h"
#include "platform/push_button.h"
#include "platform/rich_text_box.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <optional>
#include <utility>

namespace merov::app
{
namespace
{

using enum fix::SailingField;

constexpr float ReportPause = 0.3F; // seconds
constexpr int ButtonPicture = 22;   // pixels
constexpr int HemisphereFigures = 2;

} // namespace

GcPage::GcPage(fix::SailingEntry& entry, SailingFieldsView& fields, numeric::LastError& journal, QWidget* wayButtons)
    : entry_(entry), fields_(fields), journal_(journal),
      fraEllipsoid_(new EllipsoidFrame(QStringLiteral("fraEllipsoid(1)"), 3))
{
    auto* upper = new QHBoxLayout;
    upper->setSpacing(EntryFrame::FrameSpacing);
    upper->addWidget(MakeEntries());
    upper->addWidget(MakeResults(), 1);
    rtfCalcWP_ = new platform::RichTextBox;
    rtfCalcWP_->setObjectName(QStringLiteral("rtfCalcWP"));
    rtfCalcWP_->setAccessibleName(QStringLiteral("Sailing results"));
    hint_ = new QLabel(QStringLiteral("The report of the great circle will stand here."));
    hint_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setEnabled(false);
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(upper);
    page->addWidget(rtfCalcWP_, 1);
    page->addWidget(hint_, 1);
    page->addWidget(MakeFoot(wayButtons));
    ShowOutline(output::EmptySailingOutline(), false);
    ShowReport(false);
    fields_.OnErased = [this](fix::SailingField field) {
        if (field >= DepLat && field <= LongInterval) HideResults();
    };
}

EntryFrame* GcPage::MakeEntries()
{
    auto* frame = new EntryFrame(QStringLiteral("fraGreatCircle"), QStringLiteral(" Great circle "));
    const std::pair<fix::SailingField, fix::SailingField> positions[] = {{DepLat, DepLong}, {ArrLat, ArrLong}};
    for (int i = 0; i < 2; ++i) {
        const auto& [latitude, longitude] = positions[i];
        frame
            ->AddRow(
                QStringLiteral("Latitude Pos. %1 :").arg(i + 1),
                {fields_.MakeEdit(latitude, LatitudeTip), fields_.MakeEraser(latitude, 8 + 2 * i, EraseLatitudeTip)})
            ->setObjectName(QStringLiteral("lblLat(%1)").arg(i + 2));
        frame
            ->AddRow(QStringLiteral("Longitude Pos. %1 :").arg(i + 1),
                     {fields_.MakeEdit(longitude, LongitudeTip),
                      fields_.MakeEraser(longitude, 9 + 2 * i, EraseLongitudeTip)})
            ->setObjectName(QStringLiteral("lblLong(%1)").arg(i + 2));
    }
    QLabel* hemisphere = MakeText({});
    hemisphere->setObjectName(QStringLiteral("lblNS"));
    hemisphere->setFixedWidth(FieldWidth(*hemisphere, HemisphereFigures));
    fields_.AddView([this, hemisphere] { hemisphere->setText(QString::fromStdString(entry_.LimitHemisphere())); });
    auto* maxLat = fields_.MakeEdit(MaxLat, "Enter max. lat. you don't want to exceed");
    frame
        ->AddRow(QStringLiteral("Max. Latitude :"), {maxLat, fields_.MakeSpin(MaxLat, QStringLiteral("updLat")),
                                                     fields_.MakeEraser(MaxLat, 12, "Erase max. latitude"), hemisphere})
        ->setObjectName(QStringLiteral("lblLat(4)"));
    auto* interval = fields_.MakeEdit(LongInterval, "Enter long. interval between 2 waypoints");
    frame
        ->AddRow(QStringLiteral("Long. interval :"),
                 {interval, fields_.MakeSpin(LongInterval, QStringLiteral("updLong")),
                  fields_.MakeEraser(LongInterval, 13, "Erase long. interval")})
        ->setObjectName(QStringLiteral("lblLongInterv"));
    // With their spin buttons they are as wide as the fields above.
    for (platform::MaskedEdit* edit : {maxLat, interval})
        edit->setFixedWidth(edit->width() - EntryFrame::ControlSpacing - platform::SpinButton().sizeHint().width());
    return frame;
}

/// The ellipsoid's frame and the outline, which take turns, over the hint at the sphere.
QWidget* GcPage::MakeResults()
{
    outGCRes_ = new platform::OutlineList;
    outGCRes_->setObjectName(QStringLiteral("outGCRes"));
    outGCRes_->setAccessibleName(QStringLiteral("Great circle results"));
    outGCRes_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(EntryFrame::FrameSpacing);
    rows->addWidget(fraEllipsoid_);
    rows->addWidget(outGCRes_, 1);
    rows->addWidget(MakeSphereText(0, "Use \"Normal Sphere\" to compare with traditional results."));
    return side;
}

QWidget* GcPage::MakeFoot(QWidget* wayButtons)
{
    auto* compute = new platform::PushButton(QStringLiteral("&Compute"));
    compute->setObjectName(QStringLiteral("cmdCompute(1)"));
    compute->setToolTip(QStringLiteral("Compute GC"));
    connect(compute, &QPushButton::clicked, this, [this] { Compute(); });
    auto* erase = MakePictureButton(QStringLiteral("cmdErase(7)"), "erase", EraseAllTip, true, [this] {
        entry_.EraseGreatCircle();
        fields_.Show();
        HideResults();
    });
    print_ = MakePictureButton(QStringLiteral("cmdAskPrint(0)"), "print", "Print results", false, [this] {
        if (OnPrint) OnPrint();
    });

    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(compute);
    for (platform::PictureButton* button : {erase, print_}) {
        button->setIconSize(QSize(ButtonPicture, ButtonPicture));
        button->setFixedSize(FootHeight, FootHeight);
        row->addWidget(button);
    }
    row->addWidget(wayButtons, 1);
    return foot;
}

void GcPage::Compute()
{
    if (computing_ || !entry_.CheckPositions()) return;
    const QScopedValueRollback<bool> computing(computing_, true);
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    const sailing::Voyage voyage = sailing::PlanVoyage(entry_.VoyageInput(), earth, journal_);
    entry_.TakeLimit(voyage);
    fields_.Show();
    if (voyage.Refusal != sailing::VoyageRefusal::None) {
        fields_.Edit(MaxLat).setFocus();
        return;
    }
    platform::RichText report;
    const QString ellipsoid = QString::fromStdString(sailing::EllipsoidName(sailing::ActiveEllipsoidIndex()));
    const auto failure = output::BuildSailingReport(report, template_, voyage, ellipsoid, earth);
    if (failure) {
        if (OnNoTemplate) OnNoTemplate(*failure);
        return;
    }
    ShowOutline(output::SailingOutline(voyage, earth), true);
    rtfCalcWP_->Show(std::move(report));
    const int results = results_;
    ephemeris::PauseSeconds(ReportPause);
    // It serves events: an entry may have been erased meanwhile.
    if (results == results_) ShowReport(true);
}

void GcPage::Enter()
{
    ShowOutline(output::EmptySailingOutline(), false);
}

void GcPage::HideResults()
{
    ++results_;
    outGCRes_->hide();
    fraEllipsoid_->show();
    ShowReport(false);
}

void GcPage::ShowOutline(const std::vector<output::OutlineRow>& rows, bool visible)
{
    outGCRes_->Clear();
    for (const output::OutlineRow& row : rows)
        outGCRes_->AddItem(row.Text, row.Indent);
    outGCRes_->SetListIndex(-1);
    fraEllipsoid_->setVisible(!visible);
    outGCRes_->setVisible(visible);
}

void GcPage::ShowReport(bool visible)
{
    rtfCalcWP_->setVisible(visible);
    hint_->setVisible(!visible);
    print_->setEnabled(visible);
}

void GcPage::TakeFocus()
{
    fields_.Edit(DepLat).setFocus();
}

} // namespace merov::app
