#pragma once

#include <QString>
#include <string_view>

namespace zefta {

/// A text as one line of a list shows it: control characters, of which a name or tag may hold any, are
/// blanks.
QString OneLineText(std::string_view text);

}  // namespace zefta
