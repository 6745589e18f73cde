#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zefta {

/// Where the helper's output goes; false when nobody wants it any more.
using HelperOutput = std::function<bool(std::string_view bytes)>;

/// The work of the helper for discs (DiscHelperClient.cpp asks): "contents SOURCE", "track SOURCE NUMBER",
/// "query SERVER PORT CLIENT VERSION ADDRESS SECONDS LEADOUT START..." and "album" with the same six words in
/// front of "CATEGORY DISCID". Writes DiscLines, or the bytes of the track; 0 when that is whole. Else 1,
/// with a reason in words behind a question to a database, and 2 for any other words.
int RunDiscHelper(const std::vector<std::string>& words, const HelperOutput& output);

}  // namespace zefta
