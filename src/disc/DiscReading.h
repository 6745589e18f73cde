#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "platform/AudioDisc.h"

namespace zefta {

/// The table of contents of the disc in the drive, or of the image, at that path. Nothing when there is none.
std::optional<DiscContents> ReadDiscContents(const std::string& source);

/// Hands on the sectors of a track of audio, each read until two readings were the same. False when one never
/// was, there is no such track of audio, or `take` gave false.
bool ReadDiscTrack(const std::string& source, std::int32_t number,
                   const std::function<bool(std::span<const std::byte>)>& take);

}  // namespace zefta
