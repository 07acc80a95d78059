#pragma once

#include <QString>

/// What is known to the whole program from its start.

namespace merov::app
{

/// Values that start-up sets once.
struct ProgramTables {
    QString AppPath;     ///< folder of the executable, without a slash at its end
    QString VersionText; ///< "1.20": major and minor version, first character of the revision
};

/// The templates of the numeric report and of the sailing report, files in AppPath.
constexpr const char* ReportTemplate = "NumResults.rtf";
constexpr const char* SailingTemplate = "CalcWP.rtf";

/// "1.2" and the first character of the revision, from "1.2.0": "1.20". A part that is missing is left
/// out.
QString VersionTextOf(const QString& version);

/// The path of the observation file that a command line names: what stands before the first NUL,
/// without control characters and double quotes. Empty for an empty command line.
QString StartFileOf(const QString& commandLine);

/// The tables at the start of a run.
/// @param folder   of the executable; blanks and slashes at its end are dropped, but for the root's own
/// @param version  "1.2.0"
ProgramTables InitialTables(const QString& folder, const QString& version);

} // namespace merov::app
