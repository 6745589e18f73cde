#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"

namespace zefta {

// What the helper for discs writes and the program reads: one record a line, its fields with tabs between
// them. Control characters within a field are blanks. Reading gives nothing for a text that was not written
// so, or not to its end.

std::string LinesOf(const DiscContents& disc);
std::optional<DiscContents> ContentsOf(std::string_view lines);

std::string LinesOf(const std::vector<DatabaseMatch>& matches);
std::optional<std::vector<DatabaseMatch>> MatchesOf(std::string_view lines);

std::string LinesOf(const DatabaseAlbum& album);
std::optional<DatabaseAlbum> AlbumOf(std::string_view lines);

}  // namespace zefta
