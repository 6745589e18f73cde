#pragma once

#include <cstdint>
#include <string>

#include "core/App.h"

namespace zefta {

/// Keeps the bytes of a file from `start` to before `end`, both counted from the start of the file; one below
/// 1 becomes the start or the size of the file. The former file stays beside the new one with ".bak" behind
/// its name, or goes with NoBackup. An MP3 file gets its tags written again.
///
/// The new file is made beside the old one, with its tags and on the disk, before a name changes: whatever
/// fails until then leaves the folder as it was, a former backup included. Then the former backup is deleted
/// (a name in another case is the same name: the one that /wavetrim made, too). One that must stay is to be
/// made read-only or moved: RuntimeError 70 then, and nothing has changed.
///
/// Message 1008 when neither number is given, 1009 for a file that is not there, 1007 for one that can't be
/// opened for writing, 1008 when the new file can't be created, 1010 when the file does not hold the
/// range or nothing is in it.
/// RuntimeError 6 for a range of 512 MiB and more, 58 when two names differ from the file's or the backup's
/// in nothing but case.
void CropFile(App& app, const std::string& path, std::int32_t& start, std::int32_t& end);

/// The job of /crop.
void CropFileJob(App& app);

}  // namespace zefta
