#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// The built merov-cli as a script drives it, in the folder of the sample observations.

namespace merov::test
{

const QString SampleFolder = MEROV_SOURCE_DIR "/data/Observations/";

/// What a program left; the status is -1 when it did not end by itself.
struct ProgramRun {
    int Status = -1;
    std::string Out;
    std::string Err;
};

/// Runs merov-cli.
/// @param words     stand apart by one space each; "~" is a space within a word
/// @param shellJob  what the shell does first, such as "ulimit -f 0"
inline ProgramRun RunCli(const std::string& words, const std::string& shellJob = "")
{
    static int none = 0;
    static const QCoreApplication application(none, nullptr); // QProcess wants one
    QString program = MEROV_RUN_DIR "/merov-cli";
    QStringList all = words.empty() ? QStringList() : QString::fromStdString(words).split(' ');
    all.replaceInStrings("~", " ");
    if (!shellJob.empty()) {
        all = QStringList{"-c", QString::fromStdString(shellJob) + "; exec \"$0\" \"$@\"", program} + all;
        program = "/bin/sh";
    }
    QProcess process;
    process.setWorkingDirectory(SampleFolder);
    process.start(program, all);
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}

/// Runs merov-cli without --json, which must end with `status`; standard output and standard error hold
/// `out` and `err`, and nothing where these are empty.
inline void ExpectText(const std::string& words, int status, const std::string& out, const std::string& err,
                       const std::string& shellJob = "")
{
    const ProgramRun run = RunCli(words, shellJob);
    const auto holds = [](const std::string& text, const std::string& part) {
        return part.empty() ? text.empty() : text.find(part) != std::string::npos;
    };
    EXPECT_EQ(run.Status, status) << words;
    EXPECT_TRUE(holds(run.Out, out)) << words << "\n" << run.Out;
    EXPECT_TRUE(holds(run.Err, err)) << words << "\n" << run.Err;
}

/// The keys of an object in their order, apart by spaces.
inline std::string Keys(const QJsonObject& object)
{
    return object.keys().join(' ').toStdString();
}

/// Holds a value to what is expected, as ExpectJson says.
inline void ExpectHeld(const QJsonValue& value, const QJsonValue& expected, double tolerance, const std::string& name)
{
    if (expected.isObject()) {
        for (const QString& key : expected.toObject().keys())
            ExpectHeld(value[key], expected[key], tolerance, key.toStdString());
    } else if (expected.isArray()) {
        EXPECT_EQ(value.toArray().size(), expected.toArray().size()) << name;
        for (qsizetype i = 0; i < expected.toArray().size(); ++i)
            ExpectHeld(value[i], expected[i], tolerance, name + "[" + std::to_string(i) + "]");
    } else if (expected.isDouble() && value.isDouble()) {
        EXPECT_NEAR(value.toDouble(), expected.toDouble(), tolerance) << name;
    } else if (expected.toString().endsWith("...")) {
        EXPECT_TRUE(value.isString() && value.toString().startsWith(expected.toString().chopped(3)))
            << name << " " << value.toString().toStdString();
    } else {
        EXPECT_TRUE(value == expected) << name << " " << value.toString().toStdString();
    }
}

/// Runs merov-cli with --json, which must end with `status`, print one object and say nothing else.
/// @param expected   what the object holds at least, as JSON: a text with "..." at its end is how a text
///                   begins; boxes are texts "title|line|line", and without "Boxes" there may be none
/// @param tolerance  of the numbers
/// @return the object
inline QJsonObject ExpectJson(const std::string& words, int status, const std::string& expected = "{}",
                              double tolerance = 1e-9)
{
    SCOPED_TRACE(words);
    const ProgramRun run = RunCli(words + " --json");
    EXPECT_EQ(run.Status, status);
    EXPECT_EQ(run.Err, "");
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(run.Out));
    EXPECT_TRUE(document.isObject()) << run.Out;
    QJsonObject result = document.object();
    EXPECT_TRUE(result["Boxes"].isArray());
    QJsonArray boxes;
    for (const QJsonValue& box : result["Boxes"].toArray()) {
        EXPECT_EQ(Keys(box.toObject()), "Icon Lines Title");
        QString text = box["Title"].toString();
        for (const QJsonValue& line : box["Lines"].toArray())
            text += "|" + line.toString();
        boxes.append(text);
    }
    result["Boxes"] = boxes;
    const QJsonDocument parsed = QJsonDocument::fromJson(QByteArray::fromStdString(expected));
    EXPECT_TRUE(parsed.isObject()) << expected;
    QJsonObject wanted = parsed.object();
    if (!wanted.contains("Boxes")) wanted["Boxes"] = QJsonArray();
    ExpectHeld(result, wanted, tolerance, "result");
    return result;
}

/// The bytes of a file; a name alone is a sample.
inline std::string ReadBytes(const std::string& file)
{
    std::ifstream in(file.starts_with('/') ? file : SampleFolder.toStdString() + file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A folder of one test, gone at its end.
class ScratchFolder
{
public:
    std::string File(const std::string& name) const { return folder_.filePath(name.c_str()).toStdString(); }

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(File(name), std::ios::binary) << bytes;
        return File(name);
    }

private:
    QTemporaryDir folder_{"/tmp/merov-XXXXXX"};
};

} // namespace merov::test
