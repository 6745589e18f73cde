#pragma once

#include <functional>
#include <string>

#include "platform/FileSystem.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills a fresh record with the technical data of a WAV file. Never fails: an empty Path marks a file that
/// can't be opened, a Bitrate of -1 one that is no usable WAV file. `afterChunk`, if there is one, is called
/// between two chunks.
void ReadWaveInfo(FileSystem& files, const std::string& path, ID3Tag& tag,
                  const std::function<void()>& afterChunk = {});

}  // namespace zefta
