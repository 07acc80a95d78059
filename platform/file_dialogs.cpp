#include "platform/file_dialogs.h"

#include "numeric/message_box.h"

#include <QFileDialog>

namespace merov::platform
{
namespace
{

/// Qt's own dialog, the same on every desktop, which asks through the port for boxes before it accepts
/// a file that is to be replaced.
class Dialog : public QFileDialog
{
public:
    Dialog(QWidget* parent, const QString& title, const QString& folder) : QFileDialog(parent, title)
    {
        setOptions(DontUseNativeDialog | DontConfirmOverwrite | HideNameFilterDetails);
        setDirectory(QDir(folder).exists() ? folder : QDir::homePath());
    }

    /// The chosen path, or nothing after a cancel.
    std::optional<QString> Ask()
    {
        const bool accepted = exec() == Accepted;
        QWidget* parent = parentWidget();
        if (parent != nullptr && !parent->isActiveWindow()) parent->activateWindow();
        if (!accepted || selectedFiles().isEmpty()) return std::nullopt;
        return selectedFiles().constFirst();
    }

protected:
    void accept() override
    {
        if (acceptMode() == AcceptOpen || MayWrite()) QFileDialog::accept();
    }

private:
    bool MayWrite() const
    {
        const QStringList files = selectedFiles();
        if (files.isEmpty() || !QFileInfo(files.constFirst()).isFile()) return true;
        const std::string name = QFileInfo(files.constFirst()).fileName().toStdString();
        return numeric::ShowBox({windowTitle().toStdString(),
                                 {name + " already exists.", "Do you want to replace it?"},
                                 numeric::BoxIcon::Warning,
                                 numeric::BoxButtons::YesNo}) == numeric::BoxAnswer::Yes;
    }
};

/// Shows the files of the question's extension alone.
void SetUp(Dialog& dialog, const FileQuestion& question)
{
    dialog.setNameFilter("*." + question.Extension);
    dialog.selectFile(question.FileName);
}

} // namespace

std::optional<QString> ScreenFileDialogs::AskOpen(const FileQuestion& question)
{
    Dialog dialog(parent_, question.Title, question.Folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    SetUp(dialog, question);
    return dialog.Ask();
}

std::optional<QString> ScreenFileDialogs::AskSave(const FileQuestion& question)
{
    Dialog dialog(parent_, question.Title, question.Folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(question.Extension);
    SetUp(dialog, question);
    return dialog.Ask();
}

std::optional<QString> ScreenFileDialogs::AskFolder(const QString& title, const QString& folder)
{
    Dialog dialog(parent_, title, folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return dialog.Ask();
}

} // namespace merov::platform
