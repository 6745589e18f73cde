#pragma once

#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace zefta {

/// What a line of a playlist that lies in `folder` names, as a path; nothing needs to be there. "" for a line
/// that can't name anything: an empty one, one that holds a NUL, a full path of another machine ("C:\a.mp3").
///
/// A line that begins with the separator is a full path, any other counts from the folder, also one that
/// begins with a backslash. The bytes are taken as they stand when they name something there; else
/// backslashes are separators; else, when they are no UTF-8, they are text in the code page.
std::string PathOfPlaylistLine(const FileSystem& files, const CodePage& ansi, const std::string& folder,
                               std::string_view line);

}  // namespace zefta
