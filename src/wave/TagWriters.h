#pragma once

#include "tags/ID3Tag.h"
#include "wave/WaveFile.h"

namespace zefta {

/// What a file is being tagged for. Each job has its own tags.
enum class TagJob {
    /// OK of the file information dialogs.
    FileInformation,
    /// The same for an MP3 file whose ID3v2 tag the person has switched off.
    FileInformationWithoutID3v2,
    /// Changing the tags of many files, by dialog or job.
    ChangeTags,
    /// A file fresh from an encoder, with what its name tells.
    Encoding,
    /// A file fresh from an encoder, with all that the person has entered: the advanced encoding, audio CDs.
    DetailedEncoding,
    ReEncoding,
    /// A cropped file, with the values read before the cut.
    Crop,
};

/// Writes the tags that the job gives to a file of that kind, in their order, from the record to the file at
/// tag.Path. The kind is told by the name; a file of no kind, or of one that the job does not tag, stays as
/// it is. ID3v2 tags never take a byte of the audio (SetID3v2WithRoom). tag.Path is "" when the file could
/// not be opened. Run-time failures are those of the writers.
void WriteTags(WaveFile& wave, TagJob job, ID3Tag& tag);

}  // namespace zefta
