#include "encoding/ValueText.h"

#include "core/Strings.h"

namespace zefta {

std::string ValueText(std::string_view value) {
    std::string joined;
    while (!value.empty()) {
        const std::size_t end = value.find('\0');
        const std::string part = Trim(value.substr(0, end));
        if (!part.empty()) joined += (joined.empty() ? "" : ", ") + part;
        value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
    }
    return joined;
}

}  // namespace zefta
