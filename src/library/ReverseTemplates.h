#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tags/ID3Tag.h"

namespace zefta {

/// What a procedure takes apart: the texts are UTF-8.
struct NamedFile {
    /// The file's full path.
    std::string path;
    /// Its name without folder and ending, trimmed.
    std::string text;
};

/// A way in which names of files hold tags. The text is a label for people; the procedure is what counts. In
/// the label, <sep> stands for any of " - ", " # ", " | ", "# " and ". ".
struct ReverseTemplate {
    std::string_view text;
    /// Underscores divide artist and title, so they are not taken for blanks.
    bool keepsUnderscores;
    /// Fills the record. A field that it looked for and found empty becomes a single blank; one that it does
    /// not look for stays as it is.
    void (*procedure)(const NamedFile& file, ID3Tag& tag);
};

/// The fourteen templates in the order of lists; the place of one is what ChangeTags_ReverseFormat holds.
std::span<const ReverseTemplate> ReverseTemplates();

}  // namespace zefta
