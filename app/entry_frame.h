#pragma once

#include <QGroupBox>
#include <QLabel>

#include <initializer_list>
#include <vector>

class QCheckBox;
class QGridLayout;

/// Parts of which the pages of entries are laid out.

namespace merov::app
{

/// A text beside a check box; a click on it is one on the box.
class CheckLabel : public QLabel
{
public:
    CheckLabel(const QString& text, const QString& name, QCheckBox& box);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QCheckBox& box_;
};

/// A text that is shown as it stands.
QLabel* MakeText(const QString& text);

/// The width of so many figures in the font of a control, and of a field that holds them.
int FiguresWidth(const QWidget& control, int figures);
int FieldWidth(const QWidget& field, int figures);

/// A frame with a caption that holds rows of entries: a label at the left, the controls beside it.
class EntryFrame : public QGroupBox
{
public:
    static constexpr int FrameSpacing = 12;  ///< between frames, pixels
    static constexpr int ControlSpacing = 2; ///< between the controls of a row

    EntryFrame(const QString& name, const QString& caption);

    /// Adds a row. The label's buddy is the first of the controls, which stand side by side in the frame's
    /// column of controls. An empty label leaves its place free.
    /// @return the label
    QLabel* AddRow(const QString& label, std::initializer_list<QWidget*> controls);

    /// Puts a picture at the left of rows that have been added.
    void AddPicture(const char* picture, const QString& name, int firstRow, int rows);

    /// Gives the labels of some frames, which stand below each other, one width.
    static void AlignLabels(std::initializer_list<EntryFrame*> frames);

private:
    QGridLayout* grid_;
    std::vector<QLabel*> labels_;
};

} // namespace merov::app
