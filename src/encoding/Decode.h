#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Decodes a compressed file, told by its full path, and trims the result when the state says so. The kind is
/// told by the name and left in the state: UseOggVorbis and UseMPEGplus. The decoded file is the path with
/// ".wav" behind it and replaces one of that name; but an Ogg Vorbis file with an extension in other letters
/// than ".ogg" leaves it under the decoder's own name ("a.wav" for "a.OGG") when that is free. No other file
/// is touched. Whether the decoder worked shows only in the decoded file; but false when the person had it
/// ended: what it had made is deleted then.
/// A RuntimeError tells what kept the decoded file from its name; it has a free one beside then.
bool DecodeFile(App& app, const std::string& path);

/// The job of /decode over FileSpec, which is "*.*" or ends in a kind of compressed audio; a warning
/// (message 1002) otherwise. RuntimeError 76 when the folder can't be entered.
void DecodeJob(App& app);

}  // namespace zefta
