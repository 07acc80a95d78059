#pragma once

#include <QJsonObject>

#include <filesystem>
#include <string>
#include <vector>

/// The built merov-cli as a script drives it.

namespace merov::test
{

/// What a program left.
struct ProgramRun {
    int Status = -1; ///< exit status; -1 when it did not end by itself
    std::string Out;
    std::string Err;

    /// The one JSON object that standard output must hold.
    QJsonObject Json() const;
};

using Words = std::vector<std::string>;

/// Runs merov-cli with the words behind its name.
ProgramRun RunCli(const Words& words);

/// The same with a job of the shell done first, such as "ulimit -f 0".
ProgramRun RunCliAfter(const std::string& shellJob, const Words& words);

/// The words with others behind them.
Words Plus(Words words, const Words& more);

/// The words as a test's trace shows them.
std::string Shown(const Words& words);

/// A folder of one test, gone at its end.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path path_;
};

std::string ReadBytes(const std::filesystem::path& file);

/// The path of a sample observation file.
std::string Sample(const std::string& name);

/// The lines of a sample without their ends, and a file made of lines.
std::vector<std::string> SampleLines(const std::string& name);
std::string Joined(const std::vector<std::string>& lines);

/// The boxes of a result as "title|line|line".
std::vector<std::string> BoxTexts(const QJsonObject& result);

} // namespace merov::test
