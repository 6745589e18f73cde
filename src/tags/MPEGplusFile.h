#pragma once

#include <string>

#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills a fresh record with the tags (ID3v1, ID3v2, APE) and the measures of an MPEGplus file, stream
/// versions 4 to 8. APE values win over ID3v2, those over ID3v1. A file that can't be opened leaves tag.Path
/// "". Run-time failures, with the record filled up to there: 13 or 6 when an ID3v2 track is no number of 0
/// to 255, 11 when the stream has no length, 6 when a measure does not fit.
void ReadMPEGplusFile(const FileReading& reading, const std::string& path, ID3Tag& tag);

}  // namespace zefta
