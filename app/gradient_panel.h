#pragma once

#include <QWidget>

namespace merov::app
{

/// The background of the main screen: the colours of the sky at nautical twilight, the horizon at the
/// foot. By day on a light desktop, by night on a dark one.
class GradientPanel : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace merov::app
