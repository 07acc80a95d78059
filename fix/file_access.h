#pragma once

#include "numeric/message_box.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// Whole small files: read within a bound, replaced in one step.

namespace merov::fix
{

/// What reading a file gave. `Error` is the system's error number, 0 for success.
struct FileBytes {
    int Error = 0;
    bool TooLarge = false; ///< more than the limit; `Bytes` is then of no use
    std::string Bytes;
};

/// Reads a file of at most `limit` bytes; of a larger one no more than that is read.
FileBytes ReadWholeFile(const std::filesystem::path& path, std::size_t limit);

/// Gives a file the content `bytes`, whole or not at all: writes a new file in the same folder, brings
/// it to the disk and renames it. On failure the new file is removed and the old one stands. A link is
/// followed; what is no plain file is written directly.
/// @return the system's error number, 0 for success
int ReplaceFile(const std::filesystem::path& path, std::string_view bytes);

/// The box " File access error" for an error number of the system.
/// @param reading  true when a file was to be read, so that it may be missing
numeric::Box FileErrorBox(int error, bool reading);

} // namespace merov::fix
