#include "platform/file_dialogs.h"
#include "support/box_recorder.h"
#include "support/qt_text.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace merov::platform
{
class FileDialogsTest : public testing::Test
{
protected:
    FileDialogsTest() { EXPECT_TRUE(QFile(folder.filePath("21May04A.obs")).open(QIODevice::WriteOnly)); }

    /// Runs `use` on the next dialog to open.
    template <class Use>
    static void Then(Use use)
    {
        QTimer::singleShot(0, [use] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            use(*dialog);
            if (dialog->isVisible()) dialog->reject(); // the test goes on, whatever went wrong
        });
    }
    static void TypeName(QFileDialog& dialog, const QString& name)
    {
        auto* entry = dialog.findChild<QLineEdit*>("fileNameEdit");
        if (!name.isEmpty()) entry->setText(name);
        QTest::keyClick(entry, Qt::Key_Return);
    }

    test::BoxRecorder boxes;
    QTemporaryDir folder;
    QWidget window;
    ScreenFileDialogs dialogs{&window};
    FileQuestion Question(const QString& name = {}) const { return {"Observations", folder.path(), name, "obs"}; }
};

TEST_F(FileDialogsTest, SavesUnderTheProposedNameOrATypedOneWithTheExtension)
{
    Then([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Observations");
        TypeName(dialog, "");
    });
    EXPECT_EQ(dialogs.AskSave(Question("21May04B.obs")), folder.filePath("21May04B.obs"));
    Then([](QFileDialog& dialog) { TypeName(dialog, "evening"); });
    EXPECT_EQ(dialogs.AskSave(Question("21May04B.obs")), folder.filePath("evening.obs"));
    Then([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.AskSave(Question()), std::nullopt);
}

TEST_F(FileDialogsTest, AsksBeforeAFileIsReplacedAndStaysOpenAfterNo)
{
    boxes.Answer({numeric::BoxAnswer::No, numeric::BoxAnswer::Yes});
    Then([](QFileDialog& dialog) {
        TypeName(dialog, "21May04A"); // the extension is added before the question
        EXPECT_TRUE(dialog.isVisible());
        TypeName(dialog, "21May04A.obs");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(dialogs.AskSave(Question()), folder.filePath("21May04A.obs"));
    const std::vector<numeric::Box> asked = boxes.TakeAll();
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(asked[0].Lines[0], "21May04A.obs already exists.");
    EXPECT_EQ(asked[0].Buttons, numeric::BoxButtons::YesNo);
}

TEST_F(FileDialogsTest, OpensAnExistingFileAndOffersPlacesThatOtherDialogsDoNotKeep)
{
    FileQuestion question = Question();
    question.Places = QStringList{folder.path(), folder.filePath("gone")};
    const QUrl place = QUrl::fromLocalFile(folder.path());
    Then([place](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList("*.obs"));
        EXPECT_EQ(dialog.sidebarUrls().front(), QUrl::fromLocalFile(QDir::homePath()));
        EXPECT_EQ(dialog.sidebarUrls().back(), place);
        TypeName(dialog, "21May04A.obs");
    });
    EXPECT_EQ(dialogs.AskOpen(question), folder.filePath("21May04A.obs"));
    QFileDialog other;
    other.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_FALSE(other.sidebarUrls().contains(place));
}

TEST_F(FileDialogsTest, AFolderIsChosenAndOneThatIsMissingGivesWayToTheUsersOwn)
{
    Then([](QFileDialog& dialog) { EXPECT_EQ(dialog.directory().path(), QDir::homePath()); });
    dialogs.AskOpen({"Observations", folder.filePath("gone"), "", "obs"});
    Then([this](QFileDialog& dialog) { TypeName(dialog, folder.path()); });
    EXPECT_EQ(dialogs.AskFolder("Folder", folder.path()), folder.path());
}

} // namespace merov::platform
