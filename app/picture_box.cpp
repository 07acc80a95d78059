#include "app/picture_box.h"

#include "app/pictures.h"

#include <QPainter>

namespace merov::app
{

PictureBox::PictureBox(const char* picture, const QString& name, QWidget* parent)
    : QWidget(parent), picture_(Picture(picture))
{
    setObjectName(name);
}

void PictureBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    picture_.paint(&painter, rect());
}

} // namespace merov::app
