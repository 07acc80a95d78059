#include "app/rl_page.h"
#include "app/mirrored_edit.h"

#include "app/ellipsoid_frame.h"
#include "app/entry_frame.h"
#include "app/picture_box.h"
#include "app/sailing_fields.h"
#include "app/sailing_texts.h"
#include "platform/push_button.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

using enum fix::SailingField;

constexpr int SideWidth = 300; // pixels
constexpr int StopSize = 28;
constexpr int ButtonPicture = 22;

constexpr const char* FullAccuracy =
    "Use an ellipsoid for full accuracy. The result can be more than    0.5 % off a traditional method result.         "
    " "
    "                        Use \"Normal Sphere\" to compare with the traditional method of the meridional parts "
    "(Norie's Nautical Tables data).";

} // namespace

RlPage::RlPage(fix::SailingEntry& entry, SailingFieldsView& fields, QWidget* wayButtons)
    : entry_(entry), fields_(fields), fraEllipsoid_(new EllipsoidFrame(QStringLiteral("fraEllipsoid"), 0))
{
    EntryFrame* frames[] = {MakePosition(1), MakePosition(2), MakeTrack()};
    EntryFrame::AlignLabels({frames[0], frames[1], frames[2]});
    auto* entries = new QVBoxLayout;
    entries->setSpacing(EntryFrame::FrameSpacing);
    for (EntryFrame* frame : frames)
        entries->addWidget(frame);
    entries->addStretch();
    auto* body = new QHBoxLayout;
    body->setSpacing(EntryFrame::FrameSpacing);
    body->addLayout(entries, 1);
    body->addWidget(MakeSide());
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(body, 1);
    page->addWidget(MakeFoot(wayButtons));
    ShowEllipsoid();
}

/// The frame of position 1 or 2.
EntryFrame* RlPage::MakePosition(int number)
{
    const int index = number - 1;
    const auto latitude = number == 1 ? Lat1 : Lat2;
    const auto longitude = number == 1 ? Long1 : Long2;
    auto* frame =
        new EntryFrame(QStringLiteral("fraPosition(%1)").arg(index), QStringLiteral(" Position %1 ").arg(number));
    frame
        ->AddRow(QStringLiteral("Latitude Pos. %1 :").arg(number),
                 {fields_.MakeEdit(latitude, LatitudeTip), fields_.MakeEraser(latitude, 2 * index, EraseLatitudeTip)})
        ->setObjectName(QStringLiteral("lblLat(%1)").arg(index));
    frame
        ->AddRow(QStringLiteral("Longitude Pos. %1 :").arg(number),
                 {fields_.MakeEdit(longitude, LongitudeTip),
                  fields_.MakeEraser(longitude, 2 * index + 1, EraseLongitudeTip)})
        ->setObjectName(QStringLiteral("lblLong(%1)").arg(index));
    return frame;
}

EntryFrame* RlPage::MakeTrack()
{
    auto* frame = new EntryFrame(QStringLiteral("fraTrack"), QStringLiteral(" Course and distance "));
    frame
        ->AddRow(QStringLiteral("Course :"), {fields_.MakeEdit(Course, "Enter degrees [°] & tenths of degree"),
                                              fields_.MakeEraser(Course, 4, "Erase course")})
        ->setObjectName(QStringLiteral("lblCourse"));
    miles_ = MakeText({});
    miles_->setObjectName(QStringLiteral("lblDistance(1)"));
    frame
        ->AddRow(QStringLiteral("Distance :"),
                 {fields_.MakeEdit(Distance, "Enter nautical miles & hundredths of nautical mile"),
                  fields_.MakeEraser(Distance, 5, "Erase distance"), miles_})
        ->setObjectName(QStringLiteral("lblDistance(0)"));
    return frame;
}

QWidget* RlPage::MakeSide()
{
    auto* side = new QWidget;
    side->setFixedWidth(SideWidth);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(EntryFrame::FrameSpacing);
    rows->addWidget(fraEllipsoid_);
    rows->addWidget(MakeSphereText(1, FullAccuracy));
    rows->addStretch();
    return side;
}

QWidget* RlPage::MakeFoot(QWidget* wayButtons)
{
    auto* compute = new platform::PushButton(QStringLiteral("&Compute"));
    compute->setObjectName(QStringLiteral("cmdCompute(0)"));
    compute->setToolTip(QStringLiteral("Compute RL"));
    connect(compute, &QPushButton::clicked, this, [this] { Compute(); });
    auto* stop = new PictureBox("stop", QStringLiteral("imgStopCompute"));
    stop->setToolTip(QStringLiteral("Not able to compute"));
    stop->setFixedSize(StopSize, StopSize);
    QSizePolicy keepsPlace = stop->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    stop->setSizePolicy(keepsPlace);
    fields_.AddView([this, stop] { stop->setVisible(entry_.CannotCompute()); });
    auto* shift = MakePictureButton(QStringLiteral("cmdShift"), "shift", "Invert departure - arrival", false,
                                    [this] { Shift(); });
    auto* erase = MakePictureButton(QStringLiteral("cmdErase(6)"), "erase", EraseAllTip, true, [this] {
        entry_.EraseRhumbLine();
        fields_.Show();
    });

    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(compute);
    for (platform::PictureButton* button : {shift, erase}) {
        button->setIconSize(QSize(ButtonPicture, ButtonPicture));
        button->setFixedSize(FootHeight, FootHeight);
        row->addWidget(button);
    }
    row->addWidget(stop);
    row->addWidget(wayButtons, 1);
    return foot;
}

void RlPage::Compute()
{
    entry_.ComputeRhumbLine(true);
    fields_.Show();
}

void RlPage::Shift()
{
    entry_.ShiftPositions();
    fields_.Show();
}

void RlPage::ShowEllipsoid()
{
    fraEllipsoid_->ShowName();
    const bool sphere = sailing::IsSphere(sailing::ActiveEllipsoid().InverseFlattening);
    miles_->setText(sphere ? QStringLiteral("[ geographical miles ]") : QStringLiteral("[ nautical miles ]"));
}

void RlPage::TakeFocus()
{
    fields_.Edit(Lat1).setFocus();
}

} // namespace merov::app
