#pragma once

#include <QWidget>

#include <functional>

class QBoxLayout;

/// The buttons at the foot and at the side of a page.

namespace merov::app
{

/// The buttons at the foot of a page, from left to right, at its right edge.
class ButtonRow : public QWidget
{
public:
    ButtonRow();

    /// Adds a button.
    /// @param command  what a click runs; it is looked at when the click comes, and must outlive this object
    void Add(const char* name, const char* caption, const std::function<void()>& command);

private:
    QBoxLayout* layout_;
};

/// The picture buttons at the side of a page, from top to bottom.
class PictureColumn : public QWidget
{
public:
    PictureColumn();

    /// Adds a button; `command` as in ButtonRow.
    void Add(const char* name, const char* picture, const char* toolTip, const std::function<void()>& command);

private:
    QBoxLayout* layout_;
};

} // namespace merov::app
