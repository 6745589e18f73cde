#pragma once

namespace zefta {

/// Has the fonts of the system known to this process, which the toolkit would have to find out before its
/// first text. May run beside anything else; does nothing where no library is there to ask.
void LoadFontConfiguration();

}  // namespace zefta
