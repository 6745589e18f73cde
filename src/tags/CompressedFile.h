#pragma once

#include <string>

#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// The record of a compressed file, read by the reader of its kind, which the name tells. An empty Path marks
/// a file that can't be opened and one of no kind. Run-time failures are those of the readers, and 7
/// when a tag asks for more memory than there is.
ID3Tag ReadCompressedFile(const FileReading& reading, const std::string& path);

}  // namespace zefta
