#pragma once

#include "app/fix_input.h"
#include "platform/file_dialogs.h"

#include <QString>

#include <functional>

namespace merov::app
{

class TabIn;

/// True for a folder in which the user may make files.
bool CanWriteIn(const QString& folder);

/// Where the file dialogs start. The program's own folder "Observations" where it can be written, as on
/// a boat's own computer; else (installed for all users) "Merov/Observations" in the user's documents.
/// Where the folder is missing, the first dialog makes it.
/// @param appPath     folder of the executable
/// @param documents   the user's documents
/// @param canWrite    tells whether files can be made in a folder that exists
QString ObservationsFolder(const QString& appPath, const QString& documents,
                           const std::function<bool(const QString& folder)>& canWrite = CanWriteIn);

/// The folder of the observations that lie beside the program.
QString SamplesFolder(const QString& appPath);

/// Saving and loading of observations by dialogs (`cmdSaveObs`, `cmdLoadObs`). While one of them is under
/// way another does nothing.
class ObservationFiles
{
public:
    /// All must outlive this object.
    /// @param folder   where the dialogs start and whose files the proposal of a name heeds
    /// @param samples  folder of the observations that lie beside the program; the dialogs offer it as a
    ///                 place of its own where it isn't `folder`
    ObservationFiles(FixInput& input, TabIn& tabIn, platform::FileDialogs& dialogs, QString folder, QString samples);

    /// Writes the session to a file that the user chooses. Nothing but the grid is checked before. A file
    /// error shows its box and the dialog comes again with a new proposal; a cancel ends it without a word.
    void Save();

    /// Reads `startFile`, or a file that the user chooses where it is empty. Erases the input first
    /// (through `erase`), also when the file then proves bad; after each failure the dialog comes again.
    /// A cancel changes nothing more.
    /// @return true when a file was read: the astro menus go on
    bool Load(const QString& startFile, const std::function<void()>& erase);

private:
    platform::FileQuestion Question(const QString& title) const;
    QString ProposedName() const;
    bool Read(const QString& path);

    FixInput& input_;
    TabIn& tabIn_;
    platform::FileDialogs& dialogs_;
    QString folder_;
    QString samples_;
    bool busy_ = false; ///< a save or load is under way; a commit of the grid serves events in it
};

} // namespace merov::app
