#pragma once

#include <string_view>

namespace zefta {

// The kind of a file is told by the last three characters of its name in any case; no dot is looked for, so
// "xmp3" is an MP3 file. Content decides nothing.

bool IsCompressedFile(std::string_view name);
bool IsWaveFile(std::string_view name);
bool IsMP3File(std::string_view name);
bool IsOggFile(std::string_view name);
bool IsMPEGplusFile(std::string_view name);

}  // namespace zefta
