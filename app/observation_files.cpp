#include "app/observation_files.h"

#include "app/tab_in.h"
#include "fix/observation_file.h"
#include "numeric/message_box.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <filesystem>
#include <utility>

namespace merov::app
{
namespace
{

/// The same path for the core's files, in the bytes of the system.
std::filesystem::path NativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

} // namespace

bool CanWriteIn(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable();
}

QString SamplesFolder(const QString& appPath)
{
    return QDir(appPath).filePath("Observations");
}

QString ObservationsFolder(const QString& appPath, const QString& documents,
                           const std::function<bool(const QString& folder)>& canWrite)
{
    QString own = SamplesFolder(appPath);
    if (canWrite(QFileInfo::exists(own) ? own : appPath)) return own;
    return QDir(documents).filePath("Merov/Observations");
}

ObservationFiles::ObservationFiles(FixInput& input, TabIn& tabIn, platform::FileDialogs& dialogs, QString folder,
                                   QString samples)
    : input_(input), tabIn_(tabIn), dialogs_(dialogs), folder_(std::move(folder)), samples_(std::move(samples))
{
}

platform::FileQuestion ObservationFiles::Question(const QString& title) const
{
    // Where it can't be made the dialog finds another folder to start from.
    QDir().mkpath(folder_);
    platform::FileQuestion question{title, folder_, {}, "obs"};
    if (QFileInfo(samples_) != QFileInfo(folder_)) question.Places = QStringList{samples_};
    return question;
}

QString ObservationFiles::ProposedName() const
{
    const QDir folder(folder_);
    return QString::fromStdString(fix::ProposeFileName(input_.Session.TimeTruePos, [&folder](const std::string& name) {
        return folder.exists(QString::fromStdString(name));
    }));
}

void ObservationFiles::Save()
{
    if (busy_) return;
    const QScopedValueRollback busy(busy_, true);
    tabIn_.CommitGridEditor();
    if (!fix::ReadObservationGrid(input_.Entry, input_.Session)) return;
    for (;;) {
        platform::FileQuestion question = Question("Save observations data");
        question.FileName = ProposedName();
        const std::optional<QString> path = dialogs_.AskSave(question);
        if (!path) return;
        const std::optional<numeric::Box> failure = fix::WriteObservationFile(NativePath(*path), input_.Session);
        if (!failure) {
            numeric::ShowInformation("File saved confirmation",
                                     {"File " + QDir::toNativeSeparators(*path).toStdString() + " saved."});
            return;
        }
        numeric::ShowBox(*failure);
    }
}

bool ObservationFiles::Load(const QString& startFile, const std::function<void()>& erase)
{
    if (busy_) return false;
    const QScopedValueRollback busy(busy_, true);
    QString path = startFile;
    for (;;) {
        if (path.isEmpty()) path = dialogs_.AskOpen(Question("Load observations data")).value_or(QString());
        if (path.isEmpty()) return false;
        erase();
        if (Read(path)) return true;
        path.clear();
    }
}

/// Puts the content of a file into the erased entries and shows it; a bad file brings its box. False for
/// the latter.
bool ObservationFiles::Read(const QString& path)
{
    const fix::ObservationReading reading = fix::ReadObservationFile(NativePath(path));
    if (const auto* box = std::get_if<numeric::Box>(&reading)) {
        numeric::ShowBox(*box);
        return false;
    }
    fix::EnterRecords(std::get<fix::ObservationRecords>(reading), input_.Entry, input_.Session);
    tabIn_.ShowEntries();
    return true;
}

} // namespace merov::app
