#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Makes a compressed file, told by its full path, into one of another kind or mode beside it: decodes and
/// trims it, encodes that by the mode in the state and carries the tags over. Both switches false mean MP3.
/// The new name carries the mode; a file that has it is replaced once the new one is complete. What was
/// carried and what was left out is told in a note.
///
/// Without a decoded file there is a plain box. The source is deleted with DeleteAfterReCompress, and only
/// when its tag was read whole and the new file is known to hold its audio and has its tags; a note tells
/// when it is kept and why. Files of the person's that have one of the temporary names are set aside for the
/// run.
///
/// In the state TrimSilence is False afterwards, the encoder's switches are those of the target (of the
/// source when it could not be decoded), and for Ogg Vorbis the new tag values are those of the source.
///
/// RuntimeError 52 when a name would be too long, 58 or 75 when one is taken for good, 5 when the state names
/// no mode, and those of the readers of tags: nothing was done then. 53 when the encoder left nothing and 62
/// when it left half a file: the decoded file stays as "temp.wav", unless the person has a file of that name.
/// A file of the new name is as it was then. Failures of the writers of tags: the new file stands.
void ReEncodeFile(App& app, const std::string& path, bool toOggVorbis, bool toMPEGplus);

}  // namespace zefta
