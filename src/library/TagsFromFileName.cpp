#include "library/TagsFromFileName.h"

#include <algorithm>
#include <string>

#include "core/Strings.h"
#include "library/ReverseTemplates.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

/// Whether what stands behind the last dot is short enough to be the ending that tells the kind.
bool IsEnding(std::string_view text) {
    constexpr int LongestEnding = 3;
    std::size_t at = 0;
    for (int count = 0; count < LongestEnding && at < text.size(); ++count) NextCharacter(text, at);
    return at == text.size();
}

std::string TextOfName(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    const bool hasEnding = dot != std::string::npos && IsEnding(std::string_view(name).substr(dot + 1));
    return Trim(hasEnding ? name.substr(0, dot) : name);
}

}  // namespace

ID3Tag GetTagsFromFileName(std::string_view path, int templateIndex) {
    ID3Tag tag;
    const auto templates = ReverseTemplates();
    if (templateIndex < 0 || templateIndex >= static_cast<int>(templates.size())) return tag;
    const ReverseTemplate& chosen = templates[static_cast<std::size_t>(templateIndex)];
    NamedFile file = {std::string(path), TextOfName(NamePart(path))};
    if (!chosen.keepsUnderscores) std::replace(file.text.begin(), file.text.end(), '_', ' ');
    chosen.procedure(file, tag);
    return tag;
}

}  // namespace zefta
