#include "tags/MixTitle.h"

#include "core/Strings.h"

namespace zefta {

std::optional<MixTitle> SplitMix(std::string_view text) {
    const std::size_t bracket = text.ends_with(')') ? text.rfind('(') : std::string_view::npos;
    if (bracket == std::string_view::npos) return std::nullopt;
    return MixTitle{Trim(text.substr(0, bracket)), Trim(text.substr(bracket + 1, text.size() - bracket - 2))};
}

std::string JoinMix(std::string_view title, std::string_view mix) {
    const std::string trimmedMix = Trim(mix);
    return Trim(trimmedMix.empty() ? std::string(title) : Trim(title) + " (" + trimmedMix + ")");
}

}  // namespace zefta
