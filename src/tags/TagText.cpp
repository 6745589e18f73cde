#include "tags/TagText.h"

namespace zefta {

std::string_view ShownText(std::string_view value) {
    return value.substr(0, value.find('\0'));
}

std::string FirstShown(std::string_view first, std::string_view second) {
    const std::string_view shown = ShownText(first);
    return std::string(shown.empty() ? ShownText(second) : shown);
}

}  // namespace zefta
