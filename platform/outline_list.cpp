#include "platform/outline_list.h"

namespace merov::platform
{
namespace
{

constexpr int BlanksPerStep = 4;

// What a row holds beside the text that it shows.
enum Role { TextRole = Qt::UserRole, IndentRole };

} // namespace

OutlineList::OutlineList(QWidget* parent) : QListWidget(parent)
{
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
}

void OutlineList::AddItem(const QString& text, int indent)
{
    addItem(QString());
    Write(count() - 1, text, indent);
}

QString OutlineList::ListText(int row) const
{
    return item(row)->data(TextRole).toString();
}

void OutlineList::SetListText(int row, const QString& text)
{
    Write(row, text, Indent(row));
}

int OutlineList::Indent(int row) const
{
    return item(row)->data(IndentRole).toInt();
}

void OutlineList::SetIndent(int row, int indent)
{
    Write(row, ListText(row), indent);
}

void OutlineList::Write(int row, const QString& text, int indent)
{
    QListWidgetItem* line = item(row);
    line->setData(TextRole, text);
    line->setData(IndentRole, indent);
    line->setText(QString(BlanksPerStep * qMax(indent - 1, 0), ' ') + text);
    setRowHidden(row, indent == 0);
}

} // namespace merov::platform
