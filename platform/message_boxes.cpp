#include "platform/message_boxes.h"

#include "numeric/error_trap.h"
#include "numeric/fault.h"
#include "platform/application.h"

#include <QMessageBox>
#include <QPointer>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace merov::platform
{
namespace
{

QMessageBox::Icon IconOf(numeric::BoxIcon icon)
{
    switch (icon) {
    case numeric::BoxIcon::Error:
        return QMessageBox::Critical;
    case numeric::BoxIcon::Warning:
        return QMessageBox::Warning;
    case numeric::BoxIcon::Information:
        return QMessageBox::Information;
    case numeric::BoxIcon::Question:
        break;
    }
    return QMessageBox::Question;
}

/// The first button and the last one, which Escape presses.
std::pair<QMessageBox::StandardButton, QMessageBox::StandardButton> ButtonsOf(numeric::BoxButtons buttons)
{
    switch (buttons) {
    case numeric::BoxButtons::YesNo:
        return {QMessageBox::Yes, QMessageBox::No};
    case numeric::BoxButtons::RetryCancel:
        return {QMessageBox::Retry, QMessageBox::Cancel};
    case numeric::BoxButtons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok};
}

numeric::BoxAnswer AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return numeric::BoxAnswer::Yes;
    case QMessageBox::No:
        return numeric::BoxAnswer::No;
    case QMessageBox::Retry:
        return numeric::BoxAnswer::Retry;
    case QMessageBox::Cancel:
        return numeric::BoxAnswer::Cancel;
    default:
        return numeric::BoxAnswer::Ok;
    }
}

QString TextOf(const numeric::Box& box)
{
    QStringList lines;
    for (const std::string& line : box.Lines)
        lines += QString::fromStdString(line);
    return lines.join(u'\n');
}

/// The window that a box belongs to. Right behind a form that has closed none is active yet; without a
/// window of its own the box would leave the program without the focus.
QWidget* WindowInFront()
{
    if (QWidget* active = QApplication::activeWindow()) return active;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->parentWidget() == nullptr && window->windowType() == Qt::Window;
    });
    return main == windows.end() ? nullptr : *main;
}

} // namespace

numeric::BoxAnswer AskUser(const numeric::Box& box)
{
    const QPointer<QWidget> parent = WindowInFront();
    const auto [first, last] = ButtonsOf(box.Buttons);
    QMessageBox window(IconOf(box.Icon), QString::fromStdString(box.Title), TextOf(box), first | last, parent);
    window.setTextFormat(Qt::PlainText);
    window.setDefaultButton(box.LastIsDefault ? last : first);
    window.setEscapeButton(last);
    const int pressed = window.exec();
    // Not every screen hands the activation back, and without it no field would have the focus.
    if (!parent.isNull() && !parent->isActiveWindow()) parent->activateWindow();
    return AnswerOf(pressed);
}

void ShowCaught()
{
    std::string line = "Unknown error.";
    try {
        throw;
    } catch (const numeric::Fault& fault) {
        line = numeric::FaultLine(fault);
    } catch (const std::exception& error) {
        line = error.what();
    }
    numeric::ShowError(" ERROR REPORT", {line});
}

MessageBoxes::MessageBoxes(Ask ask) : ask_(std::move(ask)) {}

numeric::BoxAnswer MessageBoxes::Show(const numeric::Box& box)
{
    if (Application* application = Application::Running()) application->NoteBox();
    return ask_(box);
}

} // namespace merov::platform
