#include "app/wizard_entries.h"

#include "app/entry_frame.h"
#include "app/mirrored_edit.h"
#include "ephemeris/time_lib.h"
#include "platform/time_picker.h"
#include "platform/tool_bar.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <cmath>

namespace merov::app
{
namespace
{

using fix::EntryField;
using fix::InputFlag;

// Widths of the fields, by the font's figures.
constexpr int PositionFigures = 12;
constexpr int HeightFigures = 6;

constexpr int EraserPicture = 16; // pixels

} // namespace

WizardEntries::WizardEntries(planning::StarPlan& plan)
    : plan_(plan), fields_(entry_, session_), date_(new platform::TimePicker)
{
    date_->setObjectName(QStringLiteral("dtpTime"));
    date_->setToolTip(QStringLiteral("! GMT"));
    date_->OnChange = [this] { LeaveDate(); };
    date_->OnLeave = [this] {
        LeaveDate();
        return true;
    };
    LayOut();
    fields_.InstallMasks();
}

platform::MaskedEdit* WizardEntries::MakeEdit(EntryField field, const char* name, int figures, const char* toolTip)
{
    platform::MaskedEdit* edit = fields_.MakeEdit(field, QString::fromUtf8(toolTip));
    edit->setObjectName(QString::fromLatin1(name));
    edit->setFixedWidth(FieldWidth(*edit, figures));
    return edit;
}

platform::PictureButton* WizardEntries::MakeEraser(int index, EntryField field, InputFlag flag, const char* toolTip)
{
    auto* button = MakePictureButton(QStringLiteral("cmdEraseObsPos(%1)").arg(index), "erase_field", toolTip, true,
                                     [this, field, flag] { fields_.EraseField(field, flag); });
    button->setIconSize(QSize(EraserPicture, EraserPicture));
    button->setAutoRaise(true);
    return button;
}

void WizardEntries::LayOut()
{
    auto* what = MakeText(QStringLiteral("This wizard will help you to select the stars for your observations."));
    what->setObjectName(QStringLiteral("lblStep(0)"));
    auto* eraseAll = MakePictureButton(QStringLiteral("cmdErase"), "erase", "Erase all", true, [this] {
        Erase();
        TakeFocus();
    });
    auto* latitude = MakeEdit(EntryField::Latitude, "mskLat", PositionFigures,
                              "Enter degrees [°] minutes ['] & tenths of minute N/+ S/-");
    latitude->setAccessibleName(QStringLiteral("Latitude"));
    auto* longitude = MakeEdit(EntryField::Longitude, "mskLong", PositionFigures,
                               "Enter degrees [°] minutes ['] & tenths of minute E/+ W/-");
    longitude->setAccessibleName(QStringLiteral("Longitude"));
    auto* metres = MakeEdit(EntryField::HeightMetres, "mskHeightM", HeightFigures, "");
    auto* feet = MakeEdit(EntryField::HeightFeet, "mskHeightF", HeightFigures, "");
    feet->setAccessibleName(QStringLiteral("Height of observer eye, feet"));

    auto* frame = new EntryFrame(QStringLiteral("fraWizardEntries"), {});
    frame->AddRow(QStringLiteral("Enter the date of observation :"), {date_, MakeText(QStringLiteral("GMT"))});
    frame->AddRow(QStringLiteral("Enter your position :"),
                  {latitude, MakeEraser(0, EntryField::Latitude, InputFlag::EstLat, "Erase latitude"), longitude,
                   MakeEraser(1, EntryField::Longitude, InputFlag::EstLong, "Erase longitude")});
    frame->AddRow(QStringLiteral("Enter the height of observer eye :"),
                  {metres, MakeText(QStringLiteral("meters or")), feet, MakeText(QStringLiteral("feet"))});

    auto* body = new QHBoxLayout;
    body->setSpacing(EntryFrame::FrameSpacing);
    body->addWidget(frame, 1);
    body->addWidget(eraseAll, 0, Qt::AlignTop);
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addWidget(what);
    page->addLayout(body);
    page->addStretch();
}

void WizardEntries::Erase()
{
    fix::EraseEntries(entry_, session_, std::floor(ephemeris::CurrentGmt()));
    date_->SetValue(entry_.TimeEstPos);
    LeaveDate();
    fields_.ShowEntries();
    Store();
}

void WizardEntries::Store()
{
    plan_.Date = entry_.TimeEstPos;
    plan_.Place = {session_.EstLat, session_.EstLong, session_.HeightOfEye};
    constexpr InputFlag Flags[planning::PlanFlagCount] = {InputFlag::TimeEstPos, InputFlag::EstLat, InputFlag::EstLong,
                                                          InputFlag::HeightOfEye};
    for (std::size_t i = 0; i < planning::PlanFlagCount; ++i)
        plan_.InputFlags[i] = entry_.Flag(Flags[i]);
}

void WizardEntries::TakeFocus()
{
    date_->setFocus();
}

/// The date counts as soon as it stands there.
void WizardEntries::LeaveDate()
{
    entry_.TimeEstPos = date_->Value();
    entry_.Flag(InputFlag::TimeEstPos) = true;
}

} // namespace merov::app
