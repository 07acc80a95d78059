#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

/// How the grid with overlaid editors looks.

namespace merov::platform
{

/// Paints a cell in its own colours and a dotted frame round the current one. (The usual mark of a
/// selection would hide the colour of a refused cell.)
class GridCellPainter : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// The header row: a picture at the left, in a size of its own, and a title in one or more lines.
class GridHeader : public QHeaderView
{
public:
    explicit GridHeader(QWidget* parent);

    int PictureSize = 24; ///< pixels
protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
};

} // namespace merov::platform
