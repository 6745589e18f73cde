#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zefta {

enum class Language { English, Russian };

/// A row of the built-in table. Headings of a section begin with "***" or "=>".
struct Message {
    std::int32_t id;
    std::string_view text;
};

/// All messages in rising order of their numbers; both languages have the same numbers.
std::span<const Message> MessageTable(Language language);

/// The text as it stands in the table, place holders and all.
std::optional<std::string_view> FindMessage(Language language, std::int32_t id);

bool IsHeading(std::string_view text);

/// Russian for a language tag that begins with "ru", English for all others.
Language LanguageOfTag(std::string_view languageTag);

}  // namespace zefta
