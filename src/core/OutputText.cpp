#include "core/OutputText.h"

#include <utility>

#include "platform/Text.h"

namespace zefta {

namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr char32_t Escape = 0x1B;
constexpr char32_t FirstPrintable = 0x20;
constexpr char32_t Delete = 0x7F;

/// How many bytes the character has that begins with this one; 1 for a byte that begins none.
std::size_t LengthOfCharacter(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte >= 0xF0 && byte < 0xF8 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Where the last character begins when the text ends within it; the end of the text otherwise.
std::size_t StartOfBegunCharacter(std::string_view text) {
    constexpr std::size_t LongestCharacter = 4;
    for (std::size_t back = 1; back < LongestCharacter && back <= text.size(); ++back) {
        const char byte = text[text.size() - back];
        if (IsContinuation(byte)) continue;
        return LengthOfCharacter(byte) > back ? text.size() - back : text.size();
    }
    return text.size();
}

}  // namespace

void OutputText::Write(std::string_view bytes) {
    begun_ += bytes;
    const std::size_t end = StartOfBegunCharacter(begun_);
    const std::string_view whole = std::string_view(begun_).substr(0, end);
    for (std::size_t at = 0; at < whole.size();) Take(NextCharacter(whole, at).value_or(Replacement));
    begun_.erase(0, end);
}

std::deque<std::string> OutputText::TakeLines() {
    return std::exchange(ended_, {});
}

std::string OutputText::CurrentLine() const {
    std::string text;
    for (const char32_t character : line_) AppendUtf8(text, character);
    return text;
}

void OutputText::Take(char32_t character) {
    if (IsInSequence(character)) return;
    if (character == '\n') {
        EndLine();
    } else if (character == '\r') {
        column_ = 0;
    } else if (character == '\b') {
        if (column_ > 0) --column_;
    } else if (character == '\t' || (character >= FirstPrintable && character != Delete)) {
        Put(character);
    }
}

/// ESC and one character, or ESC [ up to a letter. A control character breaks it off and counts.
bool OutputText::IsInSequence(char32_t character) {
    const Sequence former = std::exchange(sequence_, Sequence::None);
    if (character == Escape) {
        sequence_ = Sequence::Escape;
        return true;
    }
    if (former == Sequence::None || character < FirstPrintable) return false;
    const bool goesOn = former == Sequence::Escape ? character == '[' : character < '@';
    if (goesOn) sequence_ = Sequence::Parameters;
    return true;
}

void OutputText::Put(char32_t character) {
    if (column_ == LongestLine) EndLine();
    if (column_ < line_.size()) {
        line_[column_] = character;
    } else {
        line_ += character;
    }
    ++column_;
}

void OutputText::EndLine() {
    ended_.push_back(CurrentLine());
    if (ended_.size() > MostLines) ended_.pop_front();
    line_.clear();
    column_ = 0;
}

}  // namespace zefta
