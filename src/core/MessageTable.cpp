#include "core/MessageTable.h"

#include <algorithm>

#include "core/MessageTables.h"

namespace zefta {

std::span<const Message> MessageTable(Language language) {
    return language == Language::Russian ? RussianMessages : EnglishMessages;
}

std::optional<std::string_view> FindMessage(Language language, std::int32_t id) {
    const auto table = MessageTable(language);
    const auto found =
        std::lower_bound(table.begin(), table.end(), id,
                         [](const Message& row, std::int32_t wanted) { return row.id < wanted; });
    if (found == table.end() || found->id != id) return std::nullopt;
    return found->text;
}

bool IsHeading(std::string_view text) {
    return text.starts_with("***") || text.starts_with("=>");
}

Language LanguageOfTag(std::string_view languageTag) {
    return languageTag.starts_with("ru") ? Language::Russian : Language::English;
}

}  // namespace zefta
