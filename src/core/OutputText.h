#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace zefta {

/// The output of a tool as a terminal would show it: a carriage return goes back to the start of the line,
/// which is then written over, and control sequences are left out. Takes the bytes in pieces that may end
/// anywhere; what is no UTF-8 becomes U+FFFD.
class OutputText {
  public:
    /// A line that is longer, as binary output may be, goes on in a new one.
    static constexpr std::size_t LongestLine = 1000;

    void Write(std::string_view bytes);

    /// The lines that have ended since the last call. At most `MostLines` are kept: older ones are gone.
    std::deque<std::string> TakeLines();
    static constexpr std::size_t MostLines = 5000;

    /// The line that has not ended yet, as it stands now.
    std::string CurrentLine() const;

  private:
    /// Where in a control sequence we are.
    enum class Sequence { None, Escape, Parameters };

    void Take(char32_t character);
    bool IsInSequence(char32_t character);
    void Put(char32_t character);
    void EndLine();

    /// Bytes of a character whose rest is to come.
    std::string begun_;
    std::u32string line_;
    std::size_t column_ = 0;
    Sequence sequence_ = Sequence::None;
    std::deque<std::string> ended_;
};

}  // namespace zefta
