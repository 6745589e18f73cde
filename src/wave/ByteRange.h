#pragma once

#include <cstdint>

#include "core/App.h"
#include "core/Folders.h"
#include "platform/BinaryFile.h"

namespace zefta {

/// Bytes that the jobs on byte ranges copy at a time.
inline constexpr std::int32_t ByteRangeBlock = 16384;

/// Folder and name of the one file that the path means. The folder becomes the current one; RuntimeError 76
/// when it can't be entered.
FolderAndMask EnterFolderOf(App& app, const std::string& path);

/// RuntimeError 6 for a length that takes more blocks than the 16-bit counter of CopyBytes holds: from 512
/// MiB on. To be asked before anything is written.
void CheckByteCount(std::int32_t length);

/// Copies `length` bytes from the one current position to the other and serves the desktop's events after
/// each block. A length below 0 copies nothing. False when the source ended before: what it had is copied.
/// Errors as of BinaryFile.
bool CopyBytes(App& app, BinaryFile& source, BinaryFile& target, std::int32_t length);

}  // namespace zefta
