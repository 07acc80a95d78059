#include "platform/tool_bar.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace merov::platform
{
namespace
{

constexpr int PictureSize = 32; // pixels

} // namespace

QString ToolTipText(const QString& caption)
{
    return QString(caption).replace("&&", "&");
}

PictureButton::PictureButton(const QIcon& picture, const QString& toolTip, QWidget* parent) : QToolButton(parent)
{
    setIcon(picture);
    setIconSize(QSize(PictureSize, PictureSize));
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    SetToolTip(toolTip);
    connect(this, &QToolButton::clicked, this, [this] {
        if (OnClick) OnClick();
    });
}

void PictureButton::SetToolTip(const QString& toolTip)
{
    setToolTip(ToolTipText(toolTip));
    setAccessibleName(ToolTipText(toolTip));
}

void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}

ToolBar::ToolBar(QWidget* parent) : QWidget(parent), buttons_(new QVBoxLayout(this))
{
    buttons_->setContentsMargins(2, 2, 2, 2);
    buttons_->setSpacing(2);
    buttons_->addStretch();
}

PictureButton* ToolBar::AddButton(const QIcon& picture, const QString& toolTip, std::function<void()> onClick)
{
    auto* button = new PictureButton(picture, toolTip, this);
    button->OnClick = std::move(onClick);
    buttons_->insertWidget(buttons_->count() - 1, button);
    return button;
}

ToolBarEdge::ToolBarEdge(QWidget* parent) : QStackedWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

} // namespace merov::platform
