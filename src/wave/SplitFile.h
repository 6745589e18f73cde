#pragma once

#include <cstdint>
#include <string>

#include "core/App.h"

namespace zefta {

/// Writes the first `offset` bytes of a file to "b_" + name and what lies behind them to "e_" + name, both
/// in the folder of the file. Bytes are bytes: neither part gets a header. The file itself stays as it is.
///
/// A part takes the place of a file of its name, which keeps its content until both parts are whole; new ones
/// go when the disk refuses to take them. An offset beyond the end, or below 0, leaves one part empty and the
/// other one a whole copy. Message 1006 when the file can't be read, 1007 when a part can't be created (a
/// first one that was made for it stays, empty). A part that would be written over the file itself, being
/// another name of it, can't be created. RuntimeError 6, and nothing was written, for an offset or a rest of
/// 512 MiB and more.
void SplitFile(App& app, const std::string& path, std::int32_t offset);

/// The job of /split.
void SplitFileJob(App& app);

}  // namespace zefta
