#include "app/frm_azimuth.h"

#include "app/azimuth_sheet.h"
#include "app/entry_colours.h"
#include "app/entry_frame.h"
#include "app/frm_star_fix_wizard.h"
#include "app/mirrored_edit.h"
#include "app/sailing_texts.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/fault.h"
#include "platform/message_boxes.h"
#include "platform/push_button.h"
#include "platform/time_picker.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

using enum planning::CompassField;
using planning::CompassField;
using platform::PictureButton;

constexpr int PositionFigures = 11; // width of the fields, by the font's figures
constexpr int ReadingFigures = 7;
constexpr int ButtonPicture = 22; // pixels
constexpr int FormMargin = 14;
constexpr int BodiesInView = 20; // of an open list

constexpr const char* DegreesTip = "Enter degrees [°] & tenths of degree";

} // namespace

FrmAzimuth::FrmAzimuth(QWidget* parent) : ModelessForm(QStringLiteral("Compute the azimuth"), parent)
{
    setObjectName(QStringLiteral("frmAzimuth"));
    EntryFrame* body = MakeBody();
    EntryFrame* position = MakePosition();
    auto* top = new QHBoxLayout;
    top->setSpacing(EntryFrame::FrameSpacing);
    top->addWidget(body, 1);
    top->addWidget(position, 1);
    sheet_ = MakeSheet();
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(FormMargin, FormMargin, FormMargin, FormMargin);
    form->setSpacing(EntryFrame::FrameSpacing);
    form->addLayout(top);
    form->addWidget(sheet_);
    form->addStretch();
    form->addLayout(MakeFoot());
    OrderTabs();
}

FrmAzimuth::~FrmAzimuth()
{
    delete wizard_;
}

// --- the controls

MirroredEdit* FrmAzimuth::MakeEdit(CompassField field, const char* toolTip, int figures)
{
    MirroredEntry entry{
        .Name = planning::ControlName(field),
        .Rule = planning::RuleOf(field),
        .Text = [this, field]() -> const std::string& { return entry_.Text(field); },
        .Colour = [this, field] { return entry_.Colour(field); },
        .SetText = [this, field](const std::string& text) { entry_.SetText(field, text); },
        .Enter = [this, field] { entry_.EnterField(field); },
        .Leave = [this, field] { return entry_.LeaveField(field); },
        .Erase = [this, field] { entry_.EraseField(field); },
    };
    auto* edit = new MirroredEdit(std::move(entry), toolTip, figures);
    edits_[static_cast<std::size_t>(field)] = edit;
    return edit;
}

EntryFrame* FrmAzimuth::MakeBody()
{
    body_ = new platform::Field<QComboBox>;
    body_->setObjectName(QStringLiteral("cboBody"));
    body_->setToolTip(QStringLiteral("Scroll with arrows or mouse"));
    body_->setMaxVisibleItems(BodiesInView);
    for (const std::string_view code : ephemeris::BodyCodes())
        body_->addItem(QString::fromUtf8(code.data(), static_cast<qsizetype>(code.size())));
    connect(body_, &QComboBox::activated, this, [this] { platform::SetFieldColour(*body_, ValidColour); });
    time_ = new platform::TimePicker;
    time_->setObjectName(QStringLiteral("dtpTime"));
    time_->setToolTip(QStringLiteral("! GMT"));
    body_->setFixedWidth(time_->sizeHint().width());

    auto* frame = new EntryFrame(QStringLiteral("fraBody"), QStringLiteral(" Body and time "));
    frame->AddRow(QStringLiteral("Choose a heavenly body :"), {body_});
    frame->AddRow(QStringLiteral("Time of observation :"), {time_});
    return frame;
}

EntryFrame* FrmAzimuth::MakePosition()
{
    MirroredEdit* latitude = MakeEdit(Latitude, LatitudeTip, PositionFigures);
    MirroredEdit* longitude = MakeEdit(Longitude, LongitudeTip, PositionFigures);
    erasers_ = {latitude->MakeEraser(QStringLiteral("cmdEraseObsPos(0)"), EraseLatitudeTip),
                longitude->MakeEraser(QStringLiteral("cmdEraseObsPos(1)"), EraseLongitudeTip)};
    auto* frame = new EntryFrame(QStringLiteral("fraPosition"), QStringLiteral(" Enter your position : "));
    frame->AddRow(QStringLiteral("Latitude :"), {latitude, erasers_[0]});
    frame->AddRow(QStringLiteral("Longitude :"), {longitude, erasers_[1]});
    return frame;
}

AzimuthSheet* FrmAzimuth::MakeSheet()
{
    std::array<QWidget*, 4> readings{};
    for (int i = 0; i < 4; ++i) {
        const auto field = static_cast<CompassField>(static_cast<int>(GyroBearing) + i);
        MirroredEdit* edit = MakeEdit(field, DegreesTip, ReadingFigures);
        edit->setAlignment(Qt::AlignRight);
        readings[static_cast<std::size_t>(i)] = edit;
    }
    auto* choice = new QWidget;
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    constexpr std::array Captions = {"E", "W"};
    constexpr std::array Meanings = {"Variation east", "Variation west"};
    for (std::size_t i = 0; i < eastWest_.size(); ++i) {
        eastWest_[i] = new QRadioButton(QString::fromUtf8(Captions[i]));
        eastWest_[i]->setObjectName(QStringLiteral("optEW(%1)").arg(i));
        eastWest_[i]->setAccessibleName(QString::fromUtf8(Meanings[i]));
        row->addWidget(eastWest_[i]);
    }
    eastWest_[1]->setChecked(true);
    eastWest_[0]->setFocusPolicy(Qt::ClickFocus); // Tab comes to the one that is on; Qt sees to it later
    connect(eastWest_[0], &QRadioButton::toggled, this, [this](bool east) { entry_.SetVariationEast(east); });
    return new AzimuthSheet(readings, choice);
}

QHBoxLayout* FrmAzimuth::MakeFoot()
{
    auto* compute = new platform::PushButton(QStringLiteral("&Compute"));
    compute->setObjectName(QStringLiteral("cmdCompute"));
    compute->setToolTip(QStringLiteral("Compute azimuth"));
    connect(compute, &QPushButton::clicked, this, [this] { Compute(); });
    auto* end = new platform::PushButton(QStringLiteral("&End"));
    end->setObjectName(QStringLiteral("cmdEnd"));
    connect(end, &QPushButton::clicked, this, [this] { End(); });
    PictureButton* erase =
        MakePictureButton(QStringLiteral("cmdErase"), "erase", EraseAllTip, true, [this] { EraseAll(); });
    PictureButton* whatIsUp =
        MakePictureButton(QStringLiteral("cmdWhatIsUp"), "what_is_up", "What is up ?", false, [this] { WhatIsUp(); });

    auto* foot = new QHBoxLayout;
    foot->addWidget(compute);
    for (PictureButton* button : {erase, whatIsUp}) {
        button->setIconSize(QSize(ButtonPicture, ButtonPicture));
        button->setFixedSize(FootHeight, FootHeight);
        foot->addWidget(button);
    }
    foot->addStretch();
    foot->addWidget(end);
    return foot;
}

/// Tab goes through the controls as they are read: entries, the sums of the gyro, those of the compass.
void FrmAzimuth::OrderTabs()
{
    std::vector<QWidget*> order = {body_, time_, &Edit(Latitude), erasers_[0], &Edit(Longitude), erasers_[1]};
    for (const CompassField field : {GyroBearing, GyroHeading, CompassHeading, Variation})
        order.push_back(&Edit(field));
    order.insert(order.end(), eastWest_.begin(), eastWest_.end());
    for (const char* name : {"cmdCompute", "cmdErase", "cmdWhatIsUp", "cmdEnd"})
        order.push_back(findChild<QWidget*>(QString::fromUtf8(name)));
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

// --- what they do

void FrmAzimuth::Open()
{
    if (startsAfresh_) {
        for (MirroredEdit* edit : edits_)
            edit->InstallMask();
        EraseAll();
        body_->setFocus();
        startsAfresh_ = false;
    }
    ShowForward();
}

void FrmAzimuth::Compute()
{
    if (!entry_.CheckPosition()) return;
    planning::CompassCheck check;
    try {
        check = planning::CheckCompasses(body_->currentText().toStdString(), time_->Value(), entry_.Value(Latitude),
                                         entry_.Value(Longitude), entry_.Readings());
    } catch (const numeric::Fault&) {
        platform::ShowCaught();
        return;
    }
    entry_.ShowVariation();
    Edit(Variation).Show();
    sheet_->ShowResults(planning::TextsOf(check));
}

void FrmAzimuth::EraseAll()
{
    body_->setCurrentIndex(0);
    platform::SetFieldColour(*body_, {});
    time_->SetValue(ephemeris::CurrentGmtHour());
    entry_.EraseAll();
    for (MirroredEdit* edit : edits_)
        edit->Show();
    sheet_->HideResults();
}

void FrmAzimuth::WhatIsUp()
{
    if (!entry_.ConfirmPosition()) return;
    CloseWizard();
    wizard_ = new FrmStarFixWizard(parentWidget());
    wizard_->OnHelp = [this] {
        if (OnHelp) OnHelp();
    };
    connect(new QShortcut(QKeySequence(Qt::Key_F1), wizard_), &QShortcut::activated, wizard_, wizard_->OnHelp);
    wizard_->OnCaptureTime = [this] {
        if (OnCaptureTime) OnCaptureTime();
    };
    wizard_->OpenFromAzi(time_->Value(), entry_.Value(Latitude), entry_.Value(Longitude));
}

void FrmAzimuth::End()
{
    if (!isVisible()) return;
    EraseAll();
    startsAfresh_ = true;
    hide();
    CloseByFrame();
}

void FrmAzimuth::CloseByFrame()
{
    CloseWizard();
    if (parentWidget() != nullptr) parentWidget()->activateWindow(); // not every screen hands it back
    if (OnClosed) OnClosed();
}

void FrmAzimuth::CloseWizard()
{
    if (wizard_ == nullptr) return;
    wizard_->close();
    wizard_->deleteLater();
    wizard_ = nullptr;
}

} // namespace merov::app
