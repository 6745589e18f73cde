#pragma once

namespace zefta {

/// A descriptor that becomes readable when the system or a person asks the process to end (SIGTERM, SIGINT,
/// SIGHUP), which then no longer end it by themselves. -1 when the system refuses; they end the process then.
/// Programs that the process starts end by them as ever.
int TerminationDescriptor();

}  // namespace zefta
