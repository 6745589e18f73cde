#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// A name in plain ASCII, for tools and devices that read nothing else: letters, digits, blanks and
/// - _ . , ( ) [ ] { } & ' ! + only. Letters of other alphabets are spelled in Latin ones, marks go
/// (Transliteration.h); all that has no spelling, other ASCII characters among it, is '_', so that a title in
/// another script still is one. Blanks at both ends go, a device's name is changed and the length bound as
/// in MakeFileName; a dot at the end stays, "R.E.M." is part of a name. The result applied again gives
/// itself.
std::string StrictFileName(std::string_view text);

}  // namespace zefta
