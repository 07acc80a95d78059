#pragma once

#include <QObject>
#include <QPalette>

class QApplication;
class QImage;

namespace merov::platform
{

/// The colours of a dark bridge: red on black in every window of the program, also in those to come.
///
/// Ctrl+Shift+N turns them on and off from any window, a modal one included. They lie over what a window
/// has painted, at the moment of painting: pictures, lists, menus, tool tips and the windows of Qt need
/// nothing of their own, and nothing shows in other colours before. What is printed or written to a file
/// keeps its own colours.
class NightPalette : public QObject
{
public:
    /// Watches the program's windows for its own lifetime, by day at first.
    explicit NightPalette(QApplication& application);
    ~NightPalette() override;

    bool IsNight() const { return night_; }
    void SetNight(bool night);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Cover(QWidget& window) const;

    QApplication& application_;
    bool night_ = false;
    QPalette daylight_; ///< the desktop's, while night has its own
};

/// Turns a picture on a light ground into red on black, in place: the lighter a pixel, the darker its red;
/// green and blue are 0.
void TurnToNight(QImage& picture);

} // namespace merov::platform
