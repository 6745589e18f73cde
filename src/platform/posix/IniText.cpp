#include "platform/posix/IniText.h"

#include <algorithm>

#include "platform/EditedText.h"

namespace zefta {

namespace {

struct Escape {
    char character;
    char letter;
};

constexpr Escape Escapes[] = {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'\\', '\\'}};

bool EqualKeys(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

/// Quotes keep blanks at the ends, and quotes of the value's own.
bool NeedsQuotes(std::string_view value) {
    return !value.empty() && (value.front() == ' ' || value.back() == ' ' || value.front() == '"');
}

std::string EncodeValue(std::string_view value) {
    std::string text;
    for (const char character : value) {
        const auto escape = std::find_if(std::begin(Escapes), std::end(Escapes),
                                         [&](const Escape& row) { return row.character == character; });
        if (escape != std::end(Escapes)) {
            text += {'\\', escape->letter};
        } else {
            text += character;
        }
    }
    return NeedsQuotes(value) ? "\"" + text + "\"" : text;
}

std::string DecodeValue(std::string_view text) {
    text = TrimBlanks(text);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto escape = std::find_if(std::begin(Escapes), std::end(Escapes), [&](const Escape& row) {
            return text[i] == '\\' && i + 1 < text.size() && row.letter == text[i + 1];
        });
        if (escape == std::end(Escapes)) {
            value += text[i];
        } else {
            value += escape->character;
            ++i;
        }
    }
    return value;
}

}  // namespace

IniText::IniText(std::string_view text) {
    std::string section;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view raw = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (raw.ends_with('\r')) raw.remove_suffix(1);
        Line line;
        line.raw = raw;
        // Files joined from two have a mark in the middle.
        const std::string_view content = TrimBlanks(WithoutByteOrderMark(raw));
        const std::size_t equals = content.find('=');
        const bool isComment = content.starts_with(';') || content.starts_with('#');
        if (content.size() >= 2 && content.front() == '[' && content.back() == ']') {
            section = TrimBlanks(content.substr(1, content.size() - 2));
            line.isHeading = true;
        } else if (!isComment && equals != std::string_view::npos) {
            line.key = TrimBlanks(content.substr(0, equals));
            line.value = DecodeValue(content.substr(equals + 1));
        }
        line.section = section;
        lines_.push_back(std::move(line));
    }
}

/// Whether a line holds the key of the section.
auto IniText::Names(std::string_view section, std::string_view key) {
    return [section, key](const Line& line) {
        return !line.key.empty() && EqualKeys(line.key, key) && EqualKeys(line.section, section);
    };
}

std::optional<std::string> IniText::GetValue(std::string_view section, std::string_view key) const {
    const auto line = std::find_if(lines_.begin(), lines_.end(), Names(section, key));
    return line == lines_.end() ? std::nullopt : std::optional(line->value);
}

void IniText::Apply(const SettingChange& change) {
    const auto names = Names(change.section, change.key);
    if (!change.value) {
        // Every one of them: the next would else come into force.
        std::erase_if(lines_, names);
        return;
    }
    const auto line = std::find_if(lines_.begin(), lines_.end(), names);
    if (line == lines_.end()) {
        Insert(change);
    } else if (line->value != *change.value) {
        line->value = *change.value;
        line->raw = line->key + "=" + EncodeValue(*change.value);
    }
}

std::string IniText::Text() const {
    std::string text;
    for (const Line& line : lines_) text.append(line.raw) += '\n';
    return text;
}

/// Behind the last line of the section that says something, or in a new section at the end.
void IniText::Insert(const SettingChange& change) {
    const auto belongs = [&](const Line& line) {
        return (line.isHeading || !line.key.empty()) && EqualKeys(line.section, change.section);
    };
    const auto last = std::find_if(lines_.rbegin(), lines_.rend(), belongs);
    auto place = last.base();
    if (last == lines_.rend()) {
        if (!lines_.empty()) lines_.push_back({"", lines_.back().section, "", "", false});
        lines_.push_back({"[" + change.section + "]", change.section, "", "", true});
        place = lines_.end();
    }
    lines_.insert(place, {change.key + "=" + EncodeValue(*change.value), change.section, change.key,
                          *change.value, false});
}

}  // namespace zefta
