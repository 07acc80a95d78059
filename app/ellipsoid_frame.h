#pragma once

#include <QGroupBox>

#include <functional>

class QLabel;

namespace merov::app
{

/// The frame that tells on a sailing page which ellipsoid is in force (`fraEllipsoid`).
class EllipsoidFrame : public QGroupBox
{
public:
    /// @param name        of the frame
    /// @param firstLabel  index of the first of its three labels
    EllipsoidFrame(const QString& name, int firstLabel);

    /// Shows the name of the ellipsoid in force.
    void ShowName();

    /// A double click on the name; looked at when it comes. It must outlive this object.
    void SetCommand(const std::function<void()>& command) { command_ = &command; }

    bool eventFilter(QObject* label, QEvent* event) override;

private:
    QLabel* name_;
    const std::function<void()>* command_ = nullptr;
};

} // namespace merov::app
