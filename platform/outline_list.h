#pragma once

#include <QListWidget>

namespace merov::platform
{

/// An indented list. Each row has a text and an indent; a row with indent 0 isn't shown, 1 stands at the
/// left edge, each further one a step to its right. Rows count from 0.
class OutlineList : public QListWidget
{
public:
    explicit OutlineList(QWidget* parent = nullptr);

    /// Adds a row below the others. @param indent  0 or more
    void AddItem(const QString& text, int indent);
    void Clear() { clear(); }
    int Count() const { return count(); }

    /// The text and the indent of a row, 0..Count()-1.
    QString ListText(int row) const;
    void SetListText(int row, const QString& text);
    int Indent(int row) const;
    void SetIndent(int row, int indent);

    /// The selected row, -1 for none.
    int ListIndex() const { return currentRow(); }
    void SetListIndex(int row) { setCurrentRow(row); }

private:
    void Write(int row, const QString& text, int indent);
};

} // namespace merov::platform
