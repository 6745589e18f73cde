#pragma once

namespace zefta {

/// Gives the process the standard streams that it was started without, as ones that read nothing and keep
/// nothing. Called before anything is opened: a music file that got the number of the error stream would be
/// written into by the next message.
void FillStandardStreams();

}  // namespace zefta
