#pragma once

#include <string>

#include "core/App.h"
#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills a fresh record with the comments and the measures of an Ogg Vorbis file (Vorbis I specification
/// section 5; RFC 3533). Looks at the first 4100 and the last 8192 bytes only. A file that can't be opened
/// leaves tag.Path "", one that does not begin with "OggS" leaves IsOggVorbisFile false.
/// Run-time failure, with the record filled up to there: 6 when the vendor's or a comment's length or the
/// count of comments does not fit into 16 bits, or the bitrate does not.
void ReadOGGFile(const FileReading& reading, const std::string& path, ID3Tag& tag);

/// What became of new comments.
enum class OggOutcome : char {
    Written,
    /// The file has these very comments.
    Unchanged,
    /// No whole, sound, unmultiplexed and unchained Vorbis stream, or no file at all.
    Refused,
    /// The new file could not be made or could not take its place; a box has told it.
    Told,
};

/// Replaces the comments of the Ogg Vorbis file at tag.Path by those of the record: the copy with the new
/// comments is built beside the file and takes its place in one step, a read-only file's too. The audio
/// packets and the vendor stay. A file that has these very comments is left alone.
///
/// Does nothing when the path names no file or its name does not end in "ogg", when the copy can't be
/// created, and for a file that is no whole, sound, unmultiplexed and unchained Vorbis stream. Run-time
/// failures of reading the file or writing the copy go up, with the file as it was and no copy left. A
/// failure to take the place is told by message 1014 (permission denied) or 1003.
OggOutcome SetOggComments(App& app, const ID3Tag& tag);

}  // namespace zefta
