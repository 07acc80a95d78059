#include "platform/spin_button.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace merov::platform
{
namespace
{

constexpr int ArrowWidth = 18; // pixels; the height is shared by the two arrows
constexpr int ArrowHeight = 11;

} // namespace

SpinButton::SpinButton(QWidget* parent)
    : QWidget(parent), up_(MakeArrow(Qt::UpArrow, QStringLiteral("Up"))),
      down_(MakeArrow(Qt::DownArrow, QStringLiteral("Down")))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(up_);
    layout->addWidget(down_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
    connect(up_, &QToolButton::clicked, this, [this] {
        if (OnUp) OnUp();
    });
    connect(down_, &QToolButton::clicked, this, [this] {
        if (OnDown) OnDown();
    });
}

QToolButton* SpinButton::MakeArrow(Qt::ArrowType arrow, const QString& name)
{
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(ArrowWidth, ArrowHeight);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored); // half of the field's height
    button->setAccessibleName(name);
    return button;
}

void SpinButton::StepByKeysOf(QWidget& field)
{
    field.installEventFilter(this);
}

bool SpinButton::eventFilter(QObject* field, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !isEnabled()) return QWidget::eventFilter(field, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down) return false;
    const std::function<void()>& step = key.key() == Qt::Key_Up ? OnUp : OnDown;
    if (step) step();
    return true;
}

} // namespace merov::platform
