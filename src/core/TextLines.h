#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

namespace zefta {

/// A line of a text file as bytes, without its end, and the end that it had: "\n", "\r\n", or "" for a last
/// line without one.
struct TextLine {
    std::string text;
    std::string end;
};

/// The lines of a list that people keep as text: a playlist. What a name or text in it means is up to the
/// reader of the line; the bytes are those of the file.
struct TextLines {
    bool hasByteOrderMark = false;
    std::vector<TextLine> lines;
};

/// RuntimeError 53 when there is no such file, 70 when it can't be opened, 7 for one of more
/// than 64 MiB or a million lines.
TextLines ReadTextLines(FileSystem& files, const std::string& path);

/// The bytes of the file with these lines.
std::string BytesOf(const TextLines& text);

}  // namespace zefta
