#include "app/page_buttons.h"

#include "app/pictures.h"
#include "platform/push_button.h"
#include "platform/tool_bar.h"

#include <QBoxLayout>

namespace merov::app
{

ButtonRow::ButtonRow() : layout_(new QHBoxLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->addStretch();
}

void ButtonRow::Add(const char* name, const char* caption, const std::function<void()>& command)
{
    auto* button = new platform::PushButton(QString::fromUtf8(caption));
    button->setObjectName(QString::fromUtf8(name));
    connect(button, &QPushButton::clicked, this, [&command] {
        if (command) command();
    });
    layout_->addWidget(button);
}

PictureColumn::PictureColumn() : layout_(new QVBoxLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
}

void PictureColumn::Add(const char* name, const char* picture, const char* toolTip,
                        const std::function<void()>& command)
{
    auto* button = new platform::PictureButton(Picture(picture), QString::fromUtf8(toolTip));
    button->setObjectName(QString::fromUtf8(name));
    button->setAutoRaise(false);
    button->OnClick = [&command] {
        if (command) command();
    };
    layout_->addWidget(button);
}

} // namespace merov::app
