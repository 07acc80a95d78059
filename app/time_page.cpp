#include "app/time_page.h"

#include "app/entry_frame.h"
#include "app/picture_box.h"
#include "app/pictures.h"
#include "ephemeris/time_lib.h"
#include "numeric/clock.h"
#include "numeric/message_box.h"
#include "platform/locale.h"
#include "platform/time_picker.h"
#include "platform/tool_bar.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <utility>

namespace merov::app
{
namespace
{

constexpr int TickInterval = 1000; // milliseconds
constexpr int Margin = 15;         // pixels
constexpr int RowGap = 14;
constexpr int ButtonPicture = 24;
constexpr int TimeFigures = 14; // width of the texts of a time of day, by the font's figures
constexpr double SecondsOfDay = 86400.0;

QLineEdit* MakeTimeText(const char* name)
{
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    field->setReadOnly(true);
    field->setFixedWidth(FieldWidth(*field, TimeFigures));
    return field;
}

QLabel* MakeLabel(const char* name, const char* text, QWidget* buddy)
{
    auto* label = new QLabel(QString::fromLatin1(text));
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return label;
}

} // namespace

TimePage::TimePage(platform::ClockSetter setClock, QWidget* buttons)
    : setClock_(std::move(setClock)), dtpTime_(new platform::TimePicker), txtLocTime_(MakeTimeText("txtLocTime")),
      txtSysTime_(MakeTimeText("txtSysTime")), lblDST_(new QLabel(QStringLiteral("(Daylight Saving Time)"))),
      tmrSysTime_(new QTimer(this))
{
    auto* controls = new QVBoxLayout;
    controls->setContentsMargins(Margin, Margin, Margin, Margin);
    controls->setSpacing(RowGap);
    controls->addLayout(MakeEntry());
    controls->addSpacing(RowGap);
    controls->addLayout(MakeDisplay());
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(controls);
    rows->addStretch();
    rows->addWidget(buttons);

    tmrSysTime_->setObjectName(QStringLiteral("tmrSysTime"));
    tmrSysTime_->setInterval(TickInterval);
    connect(tmrSysTime_, &QTimer::timeout, this, [this] { Tick(); });
}

QLayout* TimePage::MakeEntry()
{
    dtpTime_->setObjectName(QStringLiteral("dtpTime(3)"));
    dtpTime_->setToolTip(QStringLiteral("! GMT"));
    auto* set =
        new platform::PictureButton(Picture("set_clock"), QStringLiteral("Set the !!! SYSTEM !!! time"), nullptr);
    set->setObjectName(QStringLiteral("cmdSetSysTime"));
    set->setAutoRaise(false);
    set->setIconSize(QSize(ButtonPicture, ButtonPicture));
    set->OnClick = [this] { cmdSetSysTime(); };

    auto* entry = new QHBoxLayout;
    entry->addWidget(dtpTime_);
    entry->addWidget(set);
    entry->addStretch();
    auto* rows = new QVBoxLayout;
    rows->addWidget(MakeLabel("lblSystemTime", "If necessary, set here your system time in GMT :", dtpTime_));
    rows->addLayout(entry);
    return rows;
}

QLayout* TimePage::MakeDisplay()
{
    lblDST_->setObjectName(QStringLiteral("lblDST"));
    lblDST_->hide();
    QSizePolicy policy = lblDST_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    lblDST_->setSizePolicy(policy);
    auto* rows = new QGridLayout;
    rows->setVerticalSpacing(RowGap / 2);
    rows->addWidget(MakeLabel("lblSystemTZ", "Local System Time :", txtLocTime_), 0, 0);
    rows->addWidget(txtLocTime_, 0, 1);
    rows->addWidget(lblDST_, 0, 2);
    rows->addWidget(MakeLabel("lblSystemGMT", "GMT System Time :", txtSysTime_), 1, 0);
    rows->addWidget(txtSysTime_, 1, 1);
    rows->setColumnStretch(2, 1);
    return rows;
}

void TimePage::StartDisplay()
{
    tmrSysTime_->start();
    dtpTime_->SetValue(ephemeris::CurrentGmt());
    Tick(); // else the texts would stand a second behind
}

void TimePage::StopDisplay()
{
    tmrSysTime_->stop();
}

void TimePage::Tick()
{
    const numeric::Clock::Moment now = numeric::CurrentClock().Now();
    txtLocTime_->setText(platform::TimeOfDayText(now.Local));
    txtSysTime_->setText(platform::TimeOfDayText(now.Utc));
    lblDST_->setVisible(platform::IsDaylightTime());
}

void TimePage::cmdSetSysTime()
{
    const bool set =
        setClock_ && setClock_(platform::QtFromDateTime(dtpTime_->Value() + 1.0 / SecondsOfDay).toMSecsSinceEpoch());
    if (!set) {
        numeric::ShowWarning("System time", {"The system refused to set its clock. Nothing has been changed.",
                                             "Only a user with the right to set the clock can do so."});
        return;
    }
    StartDisplay();
}

} // namespace merov::app
