#pragma once

#include "platform/system_clock.h"

#include <QWidget>

class QLabel;
class QLayout;
class QLineEdit;
class QTimer;

namespace merov::platform
{
class TimePicker;
}

namespace merov::app
{

/// The page of the preferences that shows the computer's clock and sets it.
///
/// The display ticks each second from the moment at which the page is reached, and stands still once the
/// focus has gone to a field. A tick leaves the time that is to be set as the user left it.
class TimePage : public QWidget
{
public:
    /// @param setClock  what sets the computer's clock
    /// @param buttons   those at the foot of the page, which it takes over
    TimePage(platform::ClockSetter setClock, QWidget* buttons);

    /// The page has come into view: starts the display and offers the present GMT for setting.
    void StartDisplay();
    void StopDisplay();

    /// Sets the computer's clock to the GMT that stands in the entry, and a second more. A system that
    /// refuses brings a box, and clock and entry stay.
    void cmdSetSysTime();

private:
    QLayout* MakeEntry();
    QLayout* MakeDisplay();
    void Tick();

    platform::ClockSetter setClock_;
    platform::TimePicker* dtpTime_;
    QLineEdit* txtLocTime_;
    QLineEdit* txtSysTime_;
    QLabel* lblDST_;
    QTimer* tmrSysTime_;
};

} // namespace merov::app
