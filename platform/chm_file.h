#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct chmFile;

namespace merov::platform
{

/// A compiled manual (".chm"): an archive of pages, pictures and a table of contents.
class ChmFile
{
public:
    /// Opens a manual. Null for a file that is missing, is no manual, is shorter than it was written, or
    /// whose pages can't be unpacked.
    static std::unique_ptr<ChmFile> Open(const QString& path);

    ~ChmFile();
    ChmFile(const ChmFile&) = delete;
    ChmFile& operator=(const ChmFile&) = delete;

    /// The manual's title; may be empty.
    const QString& Title() const { return title_; }

    /// The page shown first, without a leading slash: "index.html".
    const QString& DefaultTopic() const { return defaultTopic_; }

    /// The file with the table of contents, without a leading slash; empty where there is none.
    const QString& ContentsFile() const { return contentsFile_; }

    /// What is filed under a path, "index.html", with or without a leading slash; nothing where there is no
    /// such object or it can't be unpacked. Small and capital letters count as equal.
    std::optional<QByteArray> Object(const QString& path) const;

private:
    explicit ChmFile(chmFile* file) : file_(file) {}
    bool ReadsWhole() const;
    void ReadSystemRecords();

    chmFile* file_;
    QString title_;
    QString defaultTopic_ = QStringLiteral("index.html");
    QString contentsFile_;
};

} // namespace merov::platform
