#pragma once

#include "platform/BinaryFile.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills the stream fields of the record by the stream header at the current position. Every content is
/// taken: what is no known stream is measured as one of the oldest kind.
/// Run-time failures, with the record filled up to there: 11 when the stream has no length, 6 when a measure
/// does not fit.
void ReadMPEGplusStream(BinaryFile& file, ID3Tag& tag);

/// Whether the stream, behind an ID3v2 tag where there is one, is of version 8. Moves the position.
bool IsVersion8Stream(BinaryFile& file);

}  // namespace zefta
