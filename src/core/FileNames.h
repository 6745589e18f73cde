#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zefta {

/// Bytes of the longest name that is made: an extension of four, dot included, has to fit behind it.
inline constexpr std::size_t LongestMadeName = 251;

/// A name that every common file system accepts: each of \ / : * ? " < > |, each control character and each
/// byte that is no UTF-8 is '_', no dot or blank at the end, no name of a device ("con" is "con_"), at most
/// LongestMadeName bytes. A text that has to be cut keeps an extension of three letters or digits at its end.
/// Dots inside and in front are kept. "" when nothing is left. The result applied again gives itself.
std::string MakeFileName(std::string_view text);

/// Every blank becomes '_'.
std::string SpacesToUnderscores(std::string_view text);

/// The longest run of whole characters at the start that has at most so many bytes. A byte that is no UTF-8
/// is a character.
std::string_view CutToBytes(std::string_view text, std::size_t most);

/// The name, changed where a device answers to it, with whatever extension: "con.txt" is "con_.txt".
std::string WithoutDeviceName(std::string name);

/// Where the last four characters of the name begin: its extension with the dot, or the whole of a shorter
/// name.
std::size_t ExtensionStart(std::string_view name);

}  // namespace zefta
