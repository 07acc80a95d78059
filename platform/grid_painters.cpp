#include "platform/grid_painters.h"

#include <QAbstractItemView>
#include <QIcon>
#include <QPainter>

namespace merov::platform
{
namespace
{

constexpr int Margin = 4; // pixels beside a picture and a title

/// The colour given to the cell's text, black on a background of its own, else the window's.
QColor TextColor(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const QVariant own = index.data(Qt::ForegroundRole);
    if (own.isValid()) return own.value<QBrush>().color();
    return index.data(Qt::BackgroundRole).isValid() ? QColor(Qt::black) : option.palette.color(QPalette::Text);
}

} // namespace

void GridCellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem plain(option);
    plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
    QStyledItemDelegate::paint(painter, plain, index);
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (view == nullptr || view->currentIndex() != index) return;
    painter->save();
    painter->setPen(QPen(TextColor(plain, index), 1, Qt::DotLine));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void GridCellPainter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->palette.setColor(QPalette::Text, TextColor(*option, index));
}

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setHighlightSections(false);
    setSectionsClickable(false);
    setMinimumSectionSize(1);
    setSectionResizeMode(Fixed);
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = column;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const auto value = [&](int role) { return model()->headerData(column, Qt::Horizontal, role); };
    QRect inner = rect.adjusted(Margin, 0, -Margin, 0);
    const auto picture = value(Qt::DecorationRole).value<QIcon>();
    if (!picture.isNull()) {
        picture.paint(painter, QRect(inner.left(), inner.top(), PictureSize, inner.height()));
        inner.setLeft(inner.left() + PictureSize + Margin);
    }
    const QVariant font = value(Qt::FontRole);
    const QVariant colour = value(Qt::ForegroundRole);
    const QVariant alignment = value(Qt::TextAlignmentRole);
    if (font.isValid()) painter->setFont(font.value<QFont>().resolve(this->font()));
    painter->setPen(colour.isValid() ? colour.value<QBrush>().color() : palette().color(QPalette::ButtonText));
    const int place = alignment.isValid() ? alignment.toInt() : int(Qt::AlignCenter);
    painter->drawText(inner, place, value(Qt::DisplayRole).toString());
}

} // namespace merov::platform
