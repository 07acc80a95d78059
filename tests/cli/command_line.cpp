#include "cli/command_line.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

extern char** environ;

namespace merov::test
{
namespace
{

const std::string Program = std::string(MEROV_RUN_DIR) + "/merov-cli";

/// Reads both pipes to their ends, whichever has something to say.
void Drain(int out, int err, ProgramRun& run)
{
    std::array<pollfd, 2> pipes{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
    std::array<char, 4096> block;
    while (pipes[0].fd >= 0 || pipes[1].fd >= 0) {
        ASSERT_GT(::poll(pipes.data(), pipes.size(), -1), 0);
        for (pollfd& pipe : pipes) {
            if (pipe.fd < 0 || pipe.revents == 0) continue;
            const ssize_t count = ::read(pipe.fd, block.data(), block.size());
            if (count > 0)
                (pipe.fd == out ? run.Out : run.Err).append(block.data(), static_cast<std::size_t>(count));
            else
                ::close(std::exchange(pipe.fd, -1));
        }
    }
}

ProgramRun RunProgram(const Words& words)
{
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    ProgramRun run;
    std::array<int, 2> out{};
    std::array<int, 2> err{};
    EXPECT_EQ(::pipe(out.data()), 0);
    EXPECT_EQ(::pipe(err.data()), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
    for (const int end : {out[0], out[1], err[0], err[1]})
        posix_spawn_file_actions_addclose(&actions, end);
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    ::close(err[1]);
    EXPECT_EQ(failed, 0) << words[0];
    Drain(out[0], err[0], run);
    int status = 0;
    if (failed == 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status)) run.Status = WEXITSTATUS(status);
    return run;
}

} // namespace

QJsonObject ProgramRun::Json() const
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(Out), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << " in:\n" << Out;
    EXPECT_TRUE(document.isObject());
    return document.object();
}

ProgramRun RunCli(const Words& words)
{
    return RunProgram(Plus({Program}, words));
}

ProgramRun RunCliAfter(const std::string& shellJob, const Words& words)
{
    return RunProgram(Plus({"/bin/sh", "-c", shellJob + "; exec \"$0\" \"$@\"", Program}, words));
}

Words Plus(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::string Shown(const Words& words)
{
    std::string text = "merov-cli";
    for (const std::string& word : words)
        text += " \"" + word + "\"";
    return text;
}

ScratchFolder::ScratchFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "merov-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no scratch folder";
    path_ = name;
}

ScratchFolder::~ScratchFolder()
{
    std::filesystem::remove_all(path_);
}

std::string ScratchFolder::Write(const std::string& name, const std::string& bytes) const
{
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return File(name);
}

std::string ReadBytes(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string Sample(const std::string& name)
{
    return std::string(MEROV_SOURCE_DIR) + "/data/Observations/" + name;
}

std::vector<std::string> SampleLines(const std::string& name)
{
    const std::string bytes = ReadBytes(Sample(name));
    std::vector<std::string> lines;
    for (std::size_t first = 0, end; (end = bytes.find("\r\n", first)) != std::string::npos; first = end + 2)
        lines.push_back(bytes.substr(first, end - first));
    return lines;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line + "\r\n";
    return bytes;
}

std::vector<std::string> BoxTexts(const QJsonObject& result)
{
    EXPECT_TRUE(result["Boxes"].isArray());
    std::vector<std::string> texts;
    for (const QJsonValue& value : result["Boxes"].toArray()) {
        const QJsonObject box = value.toObject();
        EXPECT_EQ(box.keys(), QStringList({"Icon", "Lines", "Title"}));
        QString text = box["Title"].toString();
        for (const QJsonValue& line : box["Lines"].toArray())
            text += "|" + line.toString();
        texts.push_back(text.toStdString());
    }
    return texts;
}

} // namespace merov::test
