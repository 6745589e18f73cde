#pragma once

#include "platform/BinaryFile.h"
#include "platform/FileSystem.h"
#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Reads the APE tag (version 2000) at the very end of the file; true when there is one, also one that is
/// not usable. Each item that is not interpreted adds 1 to tag.TrackNumber; with UnknownContent::Keep its
/// bytes go to UnknownFrames. An item that does not lie in the tag whole ends the reading, and tag.ReadInPart
/// is set wherever bytes are left between the last item and the footer, and for a value that is no UTF-8 or
/// has a NUL inside: several values in one item.
/// Run-time failure 6 when TrackNumber would go beyond 255.
bool ReadAPE2(BinaryFile& file, ID3Tag& tag, UnknownContent unknown);

/// Writes the record as an APE tag at the end of the MPEGplus file at tag.Path: in the place of the old tag
/// or of the last 128 bytes, which are taken for an ID3v1 tag; in a version 8 stream only when they are one.
/// A file with nothing in front of that place gets a footer alone. UnknownFrames goes behind the items, and
/// tag.TrackNumber is taken for the number of items in there. The record must have been read with
/// UnknownContent::Keep.
/// Does nothing for a file that is no MPEGplus file by name. tag.Path is "" when the file can't be opened.
/// A write that fails puts the old bytes back and goes up.
void SetAPE2(FileSystem& files, ID3Tag& tag);

}  // namespace zefta
