#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Something that the source's tag holds and the new file's does not.
struct LeftOut {
    std::string what;
    std::string reason;
};

/// The extended comments of the record, each a whole "KEY=value" line.
std::vector<std::string> ExtendedComments(const ID3Tag& tag);

/// What the source's tag holds beside the fields that are carried. `isCarried`: whether an extended comment
/// is one of those. Of the other ones as many are named as a person reads.
std::vector<LeftOut> LeftOutBesideFields(const ID3Tag& source, const CodePage& ansi,
                                         bool (*isCarried)(std::string_view line));

/// "composer (reason), URL (reason)".
std::string Described(const std::vector<LeftOut>& leftOut);

}  // namespace zefta
