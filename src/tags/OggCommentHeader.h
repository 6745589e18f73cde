#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tags/ID3Tag.h"

namespace zefta {

/// The vendor string of a comment header packet (Vorbis I specification section 5.2). Nothing when the packet
/// is none: each comment must end inside it, and the framing bit must follow them.
std::optional<std::string_view> OggVendor(std::string_view packet);

/// The comment header packet of the record: the fields in the order of OggCommentKeys, each empty one left
/// out, then the extended comments as they stand. Lengths have 32 bits; RuntimeError 6 beyond.
std::string RenderOggCommentHeader(std::string_view vendor, const ID3Tag& tag);

}  // namespace zefta
