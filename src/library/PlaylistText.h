#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// The line that a playlist begins with.
inline constexpr std::string_view PlaylistHeader = "#EXTM3U";

/// What a player shows of a file: "Artist - Title (Mix)", or "Artist - Title [Comment]" when there is no mix;
/// the name of the file when it has neither artist nor title. The values of ID3v2 go before those of the
/// record. One line: a value ends at its first NUL, and control characters and line ends of all scripts are
/// blanks.
std::string DisplayText(const ID3Tag& tag, const CodePage& ansi);

/// The line ahead of the entry of a file: "#EXTINF:215,Artist - Title". Whole seconds.
std::string CommentLine(const ID3Tag& tag, const CodePage& ansi);

/// A list without header and comments that hands files of one folder to a player. A name with a line feed,
/// which would be two lines, is left out.
std::string PlainPlaylist(const std::string& folder, const std::vector<std::string>& names);

}  // namespace zefta
