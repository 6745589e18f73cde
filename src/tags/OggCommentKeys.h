#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// What stands behind the key of a comment, and the code page for bytes that are no UTF-8.
struct OggValue {
    std::string_view bytes;
    const CodePage& ansi;
};

/// One key by which comments go into the record and come out of it.
struct OggCommentKey {
    /// What the line begins with, in any case (ASCII): the name and its "=".
    std::string_view key;
    void (*read)(ID3Tag& tag, const OggValue& value);
    /// The value to write, "" for none. Null for a key that is only read.
    std::string (*write)(const ID3Tag& tag);
};

/// In the order in which a line is compared with them and in which they are written.
std::span<const OggCommentKey> OggCommentKeys();

/// Puts the line where the first key that fits says, or else among the extended comments, trimmed.
void ReadOggComment(ID3Tag& tag, std::string_view line, const CodePage& ansi);

}  // namespace zefta
