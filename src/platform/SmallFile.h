#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// The bytes of a file that is read in one piece. Nothing when there is no such file, when it can't be read,
/// or when it holds more than `limit` bytes: what is larger is not the file that was meant.
std::optional<std::string> ReadSmallFile(FileSystem& files, const std::string& path, std::size_t limit);

}  // namespace zefta
