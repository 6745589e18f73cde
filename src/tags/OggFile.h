#pragma once

#include <string>

#include "core/App.h"
#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills a fresh record with the comments and the measures of an Ogg Vorbis file (Vorbis I specification
/// section 5; RFC 3533). Looks at the first 4100 and the last 8192 bytes only. A file that can't be opened
/// leaves tag.Path "", one that does not begin with "OggS" leaves IsOggVorbisFile false.
/// Run-time failure, with the record filled up to there: 6 when a length does not fit into 16 bits.
void ReadOGGFile(const FileReading& reading, const std::string& path, ID3Tag& tag);

/// Replaces the comments of the Ogg Vorbis file at tag.Path by those of the record: the copy with the new
/// comments is built beside the file and takes its place in one step. The audio packets and the vendor stay.
/// Does nothing when the path names no file or its name does not end in "ogg", and leaves a file untouched
/// that is no single, unmultiplexed Vorbis stream. A failure to take the place is told by message 1014 or
/// 1003.
void SetOggComments(App& app, const ID3Tag& tag);

}  // namespace zefta
