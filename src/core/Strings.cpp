#include "core/Strings.h"

#include <algorithm>

#include "platform/Text.h"

namespace zefta {

namespace {

char LowerLetter(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Replaces in `text` at the places where `folded`, of the same length, holds `what`.
std::string ReplaceWhere(std::string_view text, std::string_view folded, std::string_view what,
                         std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (std::size_t at; (at = folded.find(what, from)) != std::string_view::npos; from = at + what.size()) {
        result.append(text, from, at - from).append(with);
    }
    return result.append(text, from);
}

/// Length in bytes of the character at `position`; a byte that is no UTF-8 counts as one.
std::size_t CharacterLength(std::string_view text, std::size_t position) {
    std::size_t next = position;
    NextCharacter(text, next);
    return next - position;
}

}  // namespace

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string AsciiLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    return lower;
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerLetter(x) == LowerLetter(y); });
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    return ReplaceWhere(text, text, what, with);
}

std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view what, std::string_view with) {
    return ReplaceWhere(text, AsciiLower(text), AsciiLower(what), with);
}

std::size_t FindLast(std::string_view text, std::string_view what) {
    std::size_t last = std::string_view::npos;
    for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + 1))
        last = at;
    return last;
}

std::string FitString(std::string_view bytes, std::size_t length) {
    std::string fitted(bytes.substr(0, length));
    fitted.resize(length, '\0');
    return fitted;
}

bool MatchesMask(std::string_view name, std::string_view mask) {
    const std::string foldedName = ToLower(name);
    const std::string foldedMask = ToLower(mask);
    std::size_t n = 0;
    std::size_t m = 0;
    // Where to go on after the last '*' when the rest does not fit: one more character goes to the star.
    // Keeping only the last star makes the walk quadratic at worst, never exponential.
    std::size_t starMask = std::string::npos;
    std::size_t starName = 0;
    while (n < foldedName.size()) {
        if (m < foldedMask.size() && foldedMask[m] == '*') {
            starMask = m++;
            starName = n;
        } else if (m < foldedMask.size() && foldedMask[m] == '?') {
            n += CharacterLength(foldedName, n);
            ++m;
        } else if (m < foldedMask.size() && foldedMask[m] == foldedName[n]) {
            ++n;
            ++m;
        } else if (starMask != std::string::npos) {
            starName += CharacterLength(foldedName, starName);
            n = starName;
            m = starMask + 1;
        } else {
            return false;
        }
    }
    return foldedMask.find_first_not_of('*', m) == std::string::npos;
}

}  // namespace zefta
