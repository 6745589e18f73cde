#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zefta {

/// An 8-bit code page: the form in which ID3v1, ID3v2 and Lyrics3 hold text on disk.
///
/// The 256 bytes map one to one to characters. A byte that the code page leaves undefined is the character
/// of the same number, so that what was read is written back byte for byte.
class CodePage {
  public:
    /// The characters of the 256 bytes, all different.
    explicit CodePage(const std::array<char32_t, 256>& characters);

    /// UTF-8 text of the bytes.
    std::string Decode(std::string_view bytes) const;

    /// Bytes of the UTF-8 text. A character that the code page lacks, and each byte that is no UTF-8, is '?'.
    std::string Encode(std::string_view text) const;

    /// The text as it stands when it is valid UTF-8, else what Decode gives. For names of files.
    std::string ToText(std::string_view bytes) const;

  private:
    std::array<char32_t, 256> characters_;
    /// The lower half is ASCII, as in every code page that a machine has.
    bool keepsAscii_ = true;
    std::unordered_map<char32_t, char> bytes_;
};

/// The numbers for which LoadCodePage has a table, in rising order.
const std::vector<int>& KnownCodePages();

/// The code page of that number; 1252 for a number that has no 8-bit table.
CodePage LoadCodePage(int number);

/// The number of the code page that belongs to a language tag such as "ru_RU.UTF-8" or "sr_RS@latin"; 1252
/// when unknown.
int CodePageOfLanguage(std::string_view languageTag);

}  // namespace zefta
