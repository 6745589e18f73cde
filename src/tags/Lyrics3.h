#pragma once

#include "platform/BinaryFile.h"
#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Reads title and artist of a Lyrics3 version 2 block in front of the ID3v1 tag or the end of the file; true
/// when there is one. Run-time failures: 5 when the block's size has no place in front of its marker, 13 when
/// a size or length is anything but digits (as in version 1), 6 when it is above 32767.
bool ReadLyrics3(BinaryFile& file, ID3Tag& tag, const CodePage& ansi);

}  // namespace zefta
