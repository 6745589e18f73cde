#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zefta {

/// ID3v1 genres as extended in common use up to "Dance Hall". Four names differ from the usual spelling and
/// stay so: files and lists made with them are about.
extern const std::array<std::string_view, 126> GenreTable;

/// The genre byte that means none.
inline constexpr std::uint8_t NoGenre = 255;

/// Index of the name in any case, blanks around it ignored. A name that is not in the table gives 0
/// ("Blues"), not 255: kept, other programs' lists were made with it.
std::uint8_t GenreIndexFromName(std::string_view name);

/// "" for an index that has no name.
std::string GenreNameFromIndex(std::uint8_t index);

}  // namespace zefta
