#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace merov::platform
{

/// What a dialog for a file starts from.
struct FileQuestion {
    QString Title;
    QString Folder;       ///< shown first; where it doesn't exist, the user's own folder
    QString FileName;     ///< proposed name without a folder, may be empty
    QString Extension;    ///< "obs": the files shown, and what a name typed for saving without an extension gets
    QStringList Places{}; ///< folders offered at the side, beside the user's own and the documents
};

/// The dialogs in which the user chooses a file. A cancel gives nothing.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// An existing file to read.
    virtual std::optional<QString> AskOpen(const FileQuestion& question) = 0;

    /// A file to write. For one that exists the user has agreed to its replacement.
    virtual std::optional<QString> AskSave(const FileQuestion& question) = 0;

    /// An existing folder. @param folder  shown first
    virtual std::optional<QString> AskFolder(const QString& title, const QString& folder) = 0;
};

/// The dialogs on the screen, modal over a window. The question before a file is replaced goes through
/// the port for boxes.
class ScreenFileDialogs : public FileDialogs
{
public:
    /// @param parent  the window; gets active again behind each dialog. It must outlive this object
    explicit ScreenFileDialogs(QWidget* parent) : parent_(parent) {}

    std::optional<QString> AskOpen(const FileQuestion& question) override;
    std::optional<QString> AskSave(const FileQuestion& question) override;
    std::optional<QString> AskFolder(const QString& title, const QString& folder) override;

private:
    QWidget* parent_;
};

} // namespace merov::platform
