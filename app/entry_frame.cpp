#include "app/entry_frame.h"

#include "app/picture_box.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>

#include <algorithm>

namespace merov::app
{
namespace
{

constexpr int PictureSize = 40; // pixels
constexpr int TextMargin = 4;   // at both sides of a text in a row
constexpr int RowSpacing = 8;
constexpr int FieldMargins = 16; // within a field, beside its figures

// Columns of a frame.
constexpr int PictureColumn = 0;
constexpr int LabelColumn = 1;
constexpr int ControlColumn = 2;

} // namespace

CheckLabel::CheckLabel(const QString& text, const QString& name, QCheckBox& box) : QLabel(text), box_(box)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setContentsMargins(TextMargin, 0, TextMargin, 0);
    setBuddy(&box);
    box.setAccessibleName(text.trimmed());
}

void CheckLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint())) return;
    box_.setFocus(Qt::MouseFocusReason);
    if (box_.hasFocus()) box_.click();
}

QLabel* MakeText(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(TextMargin, 0, TextMargin, 0);
    return label;
}

int FiguresWidth(const QWidget& control, int figures)
{
    return control.fontMetrics().horizontalAdvance(QString(figures, u'0'));
}

int FieldWidth(const QWidget& field, int figures)
{
    return FiguresWidth(field, figures) + FieldMargins;
}

EntryFrame::EntryFrame(const QString& name, const QString& caption) : QGroupBox(caption), grid_(new QGridLayout(this))
{
    setObjectName(name);
    grid_->setHorizontalSpacing(10);
    grid_->setVerticalSpacing(RowSpacing);
    grid_->setColumnStretch(ControlColumn, 1);
}

QLabel* EntryFrame::AddRow(const QString& label, std::initializer_list<QWidget*> controls)
{
    const int row = labels_.empty() ? 0 : grid_->rowCount();
    QLabel* text = MakeText(label);
    text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (!label.isEmpty()) text->setBuddy(*controls.begin());
    labels_.push_back(text);
    grid_->addWidget(text, row, LabelColumn);
    auto* side = new QHBoxLayout;
    side->setSpacing(ControlSpacing);
    for (QWidget* control : controls)
        side->addWidget(control);
    side->addStretch();
    grid_->addLayout(side, row, ControlColumn);
    return text;
}

void EntryFrame::AddPicture(const char* picture, const QString& name, int firstRow, int rows)
{
    auto* box = new PictureBox(picture, name);
    box->setFixedSize(PictureSize, PictureSize);
    grid_->addWidget(box, firstRow, PictureColumn, rows, 1, Qt::AlignCenter);
}

void EntryFrame::AlignLabels(std::initializer_list<EntryFrame*> frames)
{
    int width = 0;
    for (const EntryFrame* frame : frames)
        for (const QLabel* label : frame->labels_)
            width = std::max(width, label->sizeHint().width());
    for (EntryFrame* frame : frames)
        frame->grid_->setColumnMinimumWidth(LabelColumn, width);
}

} // namespace merov::app
