#pragma once

namespace zefta {

/// Whether the X server that the environment names lets this program in. Waits for a server that does not
/// answer. False as well where no library is there to ask it by.
bool ReachesX11Server();

}  // namespace zefta
