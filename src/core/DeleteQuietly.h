#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// Deletes a file of which nobody needs to know that it stays: read-only or not; one that can't be deleted
/// stays without a word.
void DeleteQuietly(FileSystem& files, const std::string& path);

}  // namespace zefta
