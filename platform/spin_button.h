#pragma once

#include <QWidget>

#include <functional>

class QToolButton;

namespace merov::platform
{

/// A pair of small arrow buttons beside a field. Held down, an arrow repeats. It never takes the focus,
/// so that the field keeps it; what a step means, and where it ends, its owner's handlers tell.
class SpinButton : public QWidget
{
public:
    explicit SpinButton(QWidget* parent = nullptr);

    /// Makes the arrow keys, pressed in `field`, step as well.
    void StepByKeysOf(QWidget& field);

    QToolButton& UpArrow() { return *up_; }
    QToolButton& DownArrow() { return *down_; }

    std::function<void()> OnUp;
    std::function<void()> OnDown;

    bool eventFilter(QObject* field, QEvent* event) override;

private:
    QToolButton* MakeArrow(Qt::ArrowType arrow, const QString& name);

    QToolButton* up_;
    QToolButton* down_;
};

} // namespace merov::platform
