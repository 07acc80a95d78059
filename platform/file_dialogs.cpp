#include "platform/file_dialogs.h"

#include "numeric/message_box.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QSplitter>
#include <QStandardPaths>
#include <QThread>
#include <QTreeView>
#include <QUrl>

namespace merov::platform
{
namespace
{

constexpr int RoomyWidth = 720; // pixels
constexpr int RoomyHeight = 440;
constexpr int PlacesWidth = 150;
constexpr int NameWidth = 240;
constexpr int SizeWidth = 80;
constexpr int DateWidth = 200;
constexpr int TypeColumn = 2;

constexpr qint64 LongestReturn = 300; // milliseconds
constexpr unsigned long ReturnStep = 5;

/// Qt's own dialog, the same on every desktop, which asks through the port for boxes before it accepts
/// a file that is to be replaced.
class Dialog : public QFileDialog
{
public:
    Dialog(QWidget* parent, const QString& title, const QString& folder) : QFileDialog(parent, title)
    {
        setObjectName(QStringLiteral("dlgFile"));
        setOptions(DontUseNativeDialog | DontConfirmOverwrite);
        formerPlaces_ = sidebarUrls();
        setDirectory(QDir(folder).exists() ? folder : QDir::homePath());
        SetRoom();
    }
    /// Qt keeps the places of the dialog that goes for the dialogs of all other programs too.
    ~Dialog() override { setSidebarUrls(formerPlaces_); }

    /// Offers the user's own folder, the documents and `places` at the side, as far as they exist.
    void SetPlaces(const QStringList& places)
    {
        QList<QUrl> urls;
        for (const QString& place :
             QStringList{QDir::homePath(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)} +
                 places)
            if (const QUrl url = QUrl::fromLocalFile(place); QDir(place).exists() && !urls.contains(url))
                urls.append(url);
        setSidebarUrls(urls);
    }

    /// The chosen path, or nothing after a cancel.
    std::optional<QString> Ask()
    {
        const bool accepted = exec() == Accepted;
        ReturnToParent();
        if (!accepted || selectedFiles().isEmpty()) return std::nullopt;
        return selectedFiles().constFirst();
    }

protected:
    void accept() override
    {
        if (acceptMode() == AcceptOpen || MayWrite()) QFileDialog::accept();
    }

private:
    /// Room for the names of the places and for what is told of a file.
    void SetRoom()
    {
        resize(RoomyWidth, RoomyHeight);
        if (auto* parts = findChild<QSplitter*>()) parts->setSizes({PlacesWidth, RoomyWidth - PlacesWidth});
        if (const auto* list = findChild<QTreeView*>()) {
            list->header()->hideSection(TypeColumn); // all are of one kind
            int column = 0;
            for (const int width : {NameWidth, SizeWidth, 0, DateWidth})
                list->header()->resizeSection(column++, width);
        }
    }

    /// Makes the window active again and waits for that a little: a box that follows is then its own.
    void ReturnToParent() const
    {
        QWidget* parent = parentWidget();
        if (parent == nullptr || !parent->isVisible()) return;
        if (!parent->isActiveWindow()) parent->activateWindow();
        QElapsedTimer waited;
        waited.start();
        while (!parent->isActiveWindow() && !waited.hasExpired(LongestReturn)) {
            QThread::msleep(ReturnStep);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }

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

    QList<QUrl> formerPlaces_;
};

/// Shows the files of the question's extension alone, and its places.
void SetUp(Dialog& dialog, const FileQuestion& question)
{
    dialog.SetPlaces(question.Places);
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
