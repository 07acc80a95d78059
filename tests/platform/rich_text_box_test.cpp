#include "platform/rich_text_box.h"
#include "support/qt_text.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace merov::platform
{

RichText Words(const QString& words)
{
    RichText text;
    text.SetSelectedText(words);
    return text;
}

TEST(RichTextBox, TextsTakeTurnsAndNoSelectionIsLeftOver)
{
    RichTextBox box;
    box.Show(Words("some text"));
    const QPointer<QTextDocument> first = box.document();
    const std::function<void()> ways[] = {[&] { box.ShowPosition(2); }, [&] { box.Show(Words("other")); }};
    for (const auto& change : ways) {
        box.selectAll();
        change();
        EXPECT_FALSE(box.textCursor().hasSelection());
    }
    EXPECT_EQ(first, nullptr);
    QTest::keyClicks(&box, "typed");
    EXPECT_NE(box.LoadFile("none.rtf"), std::nullopt); // what is shown stays
    EXPECT_EQ(box.toPlainText(), "other");
    EXPECT_FALSE(box.document()->isUndoRedoEnabled());
    box.ShowPosition(99);
    EXPECT_EQ(box.textCursor().position(), 5);
    EXPECT_EQ(box.LoadFile(MEROV_RUN_DIR "/NumResults.rtf"), std::nullopt);
    EXPECT_TRUE(box.toPlainText().contains("Astronomic position"));
}

TEST(RichTextBox, PaperStaysWhiteOnADarkDesktop)
{
    RichTextBox box;
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::black));
    EXPECT_EQ(RichTextBox().palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(Qt::white));
    QApplication::setPalette(desktop);
}

} // namespace merov::platform
