#include "fix/file_access.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace merov::fix
{
namespace
{

namespace fs = std::filesystem;

/// An open file, closed at the end of its scope.
class OpenFile
{
public:
    OpenFile(const fs::path& path, int flags) : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~OpenFile() { Close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Descriptor() const { return descriptor_; }

    /// False, with the reason in errno, when what was written cannot be kept.
    bool Close() { return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

/// A path that the system's calls would cut short, or that names nothing.
bool IsBadName(const fs::path& path)
{
    return path.empty() || path.native().find('\0') != std::string::npos;
}

/// Writes all bytes; false, with the reason in errno, on failure.
bool WriteAll(const OpenFile& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Descriptor(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

int WriteDirectly(const fs::path& path, std::string_view bytes)
{
    OpenFile file(path, O_WRONLY);
    return file.IsOpen() && WriteAll(file, bytes) && file.Close() ? 0 : errno;
}

/// Writes a new file; errno in case of failure.
int WriteNew(OpenFile& file, std::string_view bytes, const fs::path& target)
{
    struct stat old {
    };
    if (::stat(target.c_str(), &old) == 0 && ::fchmod(file.Descriptor(), old.st_mode & 07777) != 0) return errno;
    return WriteAll(file, bytes) && ::fsync(file.Descriptor()) == 0 && file.Close() ? 0 : errno;
}

/// A name for a new file in the folder of `target`.
fs::path NameBeside(const fs::path& target, int attempt)
{
    return target.parent_path() / (".merov-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
}

/// Writes the bytes to a new file and gives it the name `target`.
int ReplacePlainFile(const fs::path& target, std::string_view bytes)
{
    constexpr int Attempts = 100;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const fs::path fresh = NameBeside(target, attempt);
        OpenFile file(fresh, O_WRONLY | O_CREAT | O_EXCL);
        if (!file.IsOpen() && errno == EEXIST) continue;
        if (!file.IsOpen()) return errno;
        int error = WriteNew(file, bytes, target);
        if (error == 0 && ::rename(fresh.c_str(), target.c_str()) != 0) error = errno;
        if (error != 0) ::unlink(fresh.c_str());
        return error;
    }
    return EEXIST;
}

/// Brings the names in a folder to the disk, where the system allows it.
void SyncFolder(const fs::path& target)
{
    const fs::path folder = target.parent_path();
    const OpenFile file(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
    if (file.IsOpen()) ::fsync(file.Descriptor());
}

} // namespace

FileBytes ReadWholeFile(const fs::path& path, std::size_t limit)
{
    FileBytes result;
    if (IsBadName(path)) return {EINVAL, false, {}};
    const OpenFile file(path, O_RDONLY);
    if (!file.IsOpen()) return {errno, false, {}};
    struct stat status {
    };
    if (::fstat(file.Descriptor(), &status) == 0 && status.st_size > static_cast<off_t>(limit)) return {0, true, {}};
    std::vector<char> block(1 << 16);
    for (;;) {
        const ssize_t count = ::read(file.Descriptor(), block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {errno, false, {}};
        if (count == 0) return result;
        result.Bytes.append(block.data(), static_cast<std::size_t>(count));
        if (result.Bytes.size() > limit) return {0, true, {}};
    }
}

int ReplaceFile(const fs::path& path, std::string_view bytes)
{
    if (IsBadName(path)) return EINVAL;
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    const bool exists = fs::exists(status);
    if (exists && !fs::is_regular_file(status)) return WriteDirectly(path, bytes);
    if (exists && ::access(path.c_str(), W_OK) != 0) return errno;
    fs::path target = path;
    if (exists && fs::is_symlink(path, ignored)) target = fs::canonical(path, ignored);
    const int error = ReplacePlainFile(target, bytes);
    if (error == 0) SyncFolder(target);
    return error;
}

numeric::Box FileErrorBox(int error, bool reading)
{
    numeric::Box box{" File access error", {}, numeric::BoxIcon::Warning, numeric::BoxButtons::Ok};
    if (error == EINVAL || error == ENAMETOOLONG || error == ENOTDIR)
        box.Lines = {"Your file specification was invalid. Try another."};
    else if (error == ENOENT && reading)
        box.Lines = {"The file name doesn't exist. Try again."};
    else if (error == ENXIO || error == ENODEV)
        box.Lines = {"The drive you specified was not found. Try again."};
    else if (error == ENOMEDIUM)
        box.Lines = {"Close the disk drive door and try again."};
    else
        box.Lines = {"An error occured during file access.", "The program will try to resume execution",
                     "but please report the following error:",
                     "Error " + std::to_string(error) + ": " + std::generic_category().message(error)};
    return box;
}

} // namespace merov::fix
