#pragma once

#include <cstdint>
#include <string>

#include "tags/ID3Tag.h"

namespace zefta {

/// The track number of the record itself; 0 for none. An MPEGplus file has none there: the field counts the
/// items that are carried through.
inline std::uint8_t TrackOf(const ID3Tag& tag) {
    return tag.IsMpegPlusFile ? std::uint8_t{0} : tag.TrackNumber;
}

/// The same as text, "" for none.
inline std::string TrackTextOf(const ID3Tag& tag) {
    const std::uint8_t track = TrackOf(tag);
    return track == 0 ? std::string() : std::to_string(track);
}

}  // namespace zefta
