#include "platform/file_dialogs.h"
#include "support/qt_text.h"

#include "numeric/message_box.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

/// Answers each question whether a file may be replaced, in turn.
class Answers : public numeric::BoxReceiver
{
public:
    explicit Answers(std::vector<numeric::BoxAnswer> answers) : answers_(std::move(answers)), scope_(*this) {}
    ~Answers() override { EXPECT_EQ(Asked.size(), answers_.size()); }

    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        Asked.push_back(box);
        return Asked.size() <= answers_.size() ? answers_[Asked.size() - 1] : numeric::BoxAnswer::No;
    }
    std::vector<numeric::Box> Asked;

private:
    std::vector<numeric::BoxAnswer> answers_;
    numeric::ScopedBoxReceiver scope_;
};

class FileDialogsTest : public testing::Test
{
protected:
    FileDialogsTest()
    {
        QFile old(folder.filePath("21May04A.obs"));
        EXPECT_TRUE(old.open(QIODevice::WriteOnly));
        QFile other(folder.filePath("notes.txt"));
        EXPECT_TRUE(other.open(QIODevice::WriteOnly));
    }

    /// Runs `use` on the next dialog to open.
    template <class Use>
    static void Then(Use use)
    {
        QTimer::singleShot(0, [use] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            use(*dialog);
            // Whatever went wrong, the test goes on.
            if (dialog->isVisible()) dialog->reject();
        });
    }
    static void TypeName(QFileDialog& dialog, const QString& name)
    {
        auto* entry = dialog.findChild<QLineEdit*>("fileNameEdit");
        entry->setText(name);
        QTest::keyClick(entry, Qt::Key_Return);
    }

    QTemporaryDir folder;
    QWidget window;
    ScreenFileDialogs dialogs{&window};
    FileQuestion Question(const QString& name = {}) const { return {"Observations", folder.path(), name, "obs"}; }
};

TEST_F(FileDialogsTest, SavesUnderTheProposedNameOrATypedOneWithTheExtension)
{
    Then([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Observations");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.AskSave(Question("21May04B.obs")), folder.filePath("21May04B.obs"));
    Then([](QFileDialog& dialog) { TypeName(dialog, "evening"); });
    EXPECT_EQ(dialogs.AskSave(Question("21May04B.obs")), folder.filePath("evening.obs"));
    Then([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.AskSave(Question()), std::nullopt);
}

TEST_F(FileDialogsTest, AsksBeforeAFileIsReplacedAndStaysOpenAfterNo)
{
    Answers answers({numeric::BoxAnswer::No, numeric::BoxAnswer::Yes});
    Then([](QFileDialog& dialog) {
        TypeName(dialog, "21May04A"); // the extension is added before the question
        EXPECT_TRUE(dialog.isVisible());
        TypeName(dialog, "21May04A.obs");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(dialogs.AskSave(Question()), folder.filePath("21May04A.obs"));
    ASSERT_EQ(answers.Asked.size(), 2U);
    EXPECT_EQ(answers.Asked[0].Lines[0], "21May04A.obs already exists.");
    EXPECT_EQ(answers.Asked[0].Buttons, numeric::BoxButtons::YesNo);
}

TEST_F(FileDialogsTest, OpensAnExistingFileWithoutAQuestion)
{
    Then([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList("*.obs"));
        TypeName(dialog, "21May04A.obs");
    });
    EXPECT_EQ(dialogs.AskOpen(Question()), folder.filePath("21May04A.obs"));
}

TEST_F(FileDialogsTest, OffersPlacesThatOtherDialogsDoNotKeep)
{
    FileQuestion question = Question();
    question.Places = QStringList{folder.path(), folder.filePath("gone")};
    const QUrl place = QUrl::fromLocalFile(folder.path());
    Then([place](QFileDialog& dialog) {
        EXPECT_EQ(dialog.sidebarUrls().front(), QUrl::fromLocalFile(QDir::homePath()));
        EXPECT_EQ(dialog.sidebarUrls().back(), place);
    });
    dialogs.AskOpen(question);
    QFileDialog other;
    other.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_FALSE(other.sidebarUrls().contains(place));
}

TEST_F(FileDialogsTest, AFolderThatIsMissingGivesWayToTheUsersOwn)
{
    Then([](QFileDialog& dialog) { EXPECT_EQ(dialog.directory().path(), QDir::homePath()); });
    dialogs.AskOpen({"Observations", folder.filePath("gone"), "", "obs"});
    Then([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        TypeName(dialog, folder.path());
    });
    EXPECT_EQ(dialogs.AskFolder("Folder", folder.path()), folder.path());
}

} // namespace
} // namespace merov::platform
