#pragma once

#include <QIcon>
#include <QWidget>

namespace merov::app
{

/// One of the program's pictures, painted anew for each size and screen density. Its shape is kept.
class PictureBox : public QWidget
{
public:
    /// @param picture  file in icons/ without its extension
    /// @param name     the control's
    explicit PictureBox(const char* picture, const QString& name = {}, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon picture_;
};

} // namespace merov::app
