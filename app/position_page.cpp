#include "app/position_page.h"

#include "app/entry_fields_view.h"
#include "app/entry_frame.h"
#include "app/page_buttons.h"
#include "app/pictures.h"
#include "platform/field.h"
#include "platform/time_picker.h"
#include "platform/tool_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

using fix::EntryField;
using platform::Field;
using platform::PictureButton;

constexpr int FieldFigures = 12; // width of the fields, by the font's figures

/// A masked field of this page; all have one width.
platform::MaskedEdit* MakeEdit(EntryFieldsView& fields, EntryField field, const char* toolTip)
{
    platform::MaskedEdit* edit = fields.MakeEdit(field, QString::fromUtf8(toolTip));
    edit->setFixedWidth(FieldWidth(*edit, FieldFigures));
    return edit;
}

/// The button beside a field that erases it. A click leaves no field, so that a text that its field refuses
/// to be left with can be erased.
PictureButton* MakeEraser(EntryFieldsView& fields, EntryField field, fix::InputFlag flag, const char* name,
                          const char* toolTip)
{
    auto* button = new PictureButton(Picture("erase_field"), QString::fromUtf8(toolTip));
    button->setObjectName(QString::fromUtf8(name));
    button->setIconSize(QSize(16, 16));
    button->setFocusPolicy(Qt::TabFocus);
    button->OnClick = [&fields, field, flag] { fields.EraseField(field, flag); };
    return button;
}

} // namespace

PositionPage::PositionPage(FixInput& input, EntryFieldsView& fields) : input_(input)
{
    MakeTimes();
    EntryFrame* estimated = MakeEstimatedPosition(fields);
    EntryFrame* motion = MakeMotion(fields);
    EntryFrame* truePos = MakeTruePosition();
    EntryFrame::AlignLabels({estimated, motion, truePos});

    auto* frames = new QVBoxLayout;
    frames->setSpacing(EntryFrame::FrameSpacing);
    for (EntryFrame* frame : {estimated, motion, truePos})
        frames->addWidget(frame);
    frames->addStretch();
    auto* body = new QHBoxLayout;
    body->setSpacing(EntryFrame::FrameSpacing);
    body->addLayout(frames, 1);
    body->addWidget(MakeFileButtons(), 0, Qt::AlignTop);
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(body, 1);
    page->addWidget(MakeWayButtons());
}

void PositionPage::MakeTimes()
{
    for (int i = 0; i < 2; ++i) {
        auto* picker = new platform::TimePicker;
        picker->setObjectName(QStringLiteral("dtpTime(%1)").arg(i));
        if (i == 1) picker->setToolTip(QStringLiteral("! GMT"));
        picker->OnLeave = [this, i] {
            LeaveTime(i);
            return true;
        };
        times_[static_cast<std::size_t>(i)] = picker;
    }
}

EntryFrame* PositionPage::MakeEstimatedPosition(EntryFieldsView& fields)
{
    auto* latitude = MakeEdit(fields, EntryField::Latitude, "Enter degrees [°] minutes ['] & tenths of minute N/+ S/-");
    auto* longitude =
        MakeEdit(fields, EntryField::Longitude, "Enter degrees [°] minutes ['] & tenths of minute E/+ W/-");
    auto* oneEstPos = new Field<QCheckBox>;
    oneEstPos->setObjectName(QStringLiteral("ch3OneEstPos(1)"));
    auto* text = new CheckLabel(QStringLiteral("Compute all intercepts with one estimated position."),
                                QStringLiteral("lblOneEstPos"), *oneEstPos);
    oneEstPos->setToolTip(QStringLiteral("See menu Options: Intercepts"));
    text->setToolTip(oneEstPos->toolTip());
    oneEstPos_ = oneEstPos;
    connect(oneEstPos, &QCheckBox::clicked, this, [this](bool checked) {
        input_.Entry.OneEstPos = checked;
        if (OnOneEstPos) OnOneEstPos(checked);
    });

    auto* frame = new EntryFrame(QStringLiteral("fraEstPos"), QStringLiteral(" Estimated position "));
    frame->AddRow(QStringLiteral("Date and time (GMT) :"), {times_[0]});
    frame->AddRow(
        QStringLiteral("Estimated Latitude :"),
        {latitude, MakeEraser(fields, EntryField::Latitude, fix::InputFlag::EstLat, "cmdEraseLat", "Erase latitude")});
    frame->AddRow(QStringLiteral("Estimated Longitude :"),
                  {longitude, MakeEraser(fields, EntryField::Longitude, fix::InputFlag::EstLong, "cmdEraseLong",
                                         "Erase longitude")});
    frame->AddRow({}, {oneEstPos, text});
    return frame;
}

EntryFrame* PositionPage::MakeMotion(EntryFieldsView& fields)
{
    auto* course = MakeEdit(fields, EntryField::Course, "Enter degrees [°] & tenths of degree");
    auto* speed = MakeEdit(fields, EntryField::Speed, "Enter knots & tenths of knot (1 knot = 1.852 km/h)");
    fullRoutine_ = new Field<QCheckBox>(QStringLiteral("Correct the course and speed if enough observations."));
    fullRoutine_->setObjectName(QStringLiteral("ch3FullRoutine"));
    connect(fullRoutine_, &QCheckBox::clicked, this, [this](bool checked) { input_.Entry.UseFullRoutine = checked; });

    auto* frame = new EntryFrame(QStringLiteral("fraObsMotion"), QStringLiteral(" Observer motion "));
    frame->setToolTip(QString::fromUtf8("Enter 0° and 0 knot if no motion"));
    frame->AddRow(QStringLiteral("True course :"), {course});
    frame->AddRow(QStringLiteral("True speed (ground) :"), {speed, MakeText(QStringLiteral("knot(s)"))});
    frame->AddRow({}, {fullRoutine_});
    return frame;
}

EntryFrame* PositionPage::MakeTruePosition()
{
    auto* frame = new EntryFrame(QStringLiteral("fraTruePos"), QStringLiteral(" True position to compute "));
    frame->AddRow(QStringLiteral("Date and time (GMT) :"), {times_[1]});
    return frame;
}

QWidget* PositionPage::MakeFileButtons()
{
    auto* buttons = new PictureColumn;
    buttons->Add("cmdLoadObs", "load", "Load observations from disk", OnLoad);
    buttons->Add("cmdEraseObs", "erase", "Start new observations", OnErase);
    return buttons;
}

QWidget* PositionPage::MakeWayButtons()
{
    auto* row = new ButtonRow;
    row->Add("cmdNextTabIn(0)", "&Next tab", OnNext);
    row->Add("cmdCancel(0)", "C&ancel", OnCancel);
    return row;
}

void PositionPage::ShowEntries()
{
    times_[0]->SetValue(input_.Entry.TimeEstPos);
    times_[1]->SetValue(input_.Entry.TimeTruePos);
    fullRoutine_->setChecked(input_.Entry.UseFullRoutine);
    ShowOneEstPos();
}

void PositionPage::ShowOneEstPos()
{
    oneEstPos_->setChecked(input_.Entry.OneEstPos);
}

void PositionPage::TakeFocus()
{
    times_[0]->setFocus();
}

void PositionPage::LeaveTime(int index)
{
    fix::SightEntry& entry = input_.Entry;
    if (index == 0) {
        entry.TimeEstPos = times_[0]->Value();
        fix::LeaveTimeEstPos(entry, input_.Session);
        times_[1]->SetValue(entry.TimeTruePos);
    } else {
        entry.TimeTruePos = times_[1]->Value();
        fix::LeaveTimeTruePos(entry, input_.Session);
    }
}

} // namespace merov::app
