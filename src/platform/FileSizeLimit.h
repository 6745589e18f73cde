#pragma once

namespace zefta {

/// Lets a write beyond the size that the system allows this process for a file fail like one onto a full
/// disk. Without it such a write ends the process. Programs that are started from here are not affected.
void FailWritesBeyondTheSizeLimit();

}  // namespace zefta
