#include "core/TextLines.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "platform/EditedText.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

// Far beyond any list; a larger file is none.
constexpr std::int64_t LargestFile = std::int64_t{64} * 1024 * 1024;
constexpr std::ptrdiff_t MostLines = 1000000;

std::string ReadWhole(FileSystem& files, const std::string& path) {
    if (!files.FileExists(path)) throw RuntimeError(ErrorNumber::FileNotFound, path);
    const auto file = files.OpenReadOnly(path);
    if (!file) throw RuntimeError(ErrorNumber::PermissionDenied, path);
    const std::int64_t size = files.FileSize(path);
    if (size > LargestFile) throw RuntimeError(ErrorNumber::OutOfMemory, path);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(file->Read(std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

TextLine LineAt(std::string_view text, std::size_t start) {
    const std::size_t lineFeed = text.find('\n', start);
    if (lineFeed == std::string_view::npos) return {std::string(text.substr(start)), ""};
    const bool hasReturn = lineFeed > start && text[lineFeed - 1] == '\r';
    const std::size_t end = hasReturn ? lineFeed - 1 : lineFeed;
    return {std::string(text.substr(start, end - start)), hasReturn ? "\r\n" : "\n"};
}

}  // namespace

TextLines ReadTextLines(FileSystem& files, const std::string& path) {
    const std::string bytes = ReadWhole(files, path);
    // Held in memory, the shortest lines take a hundred times what they take in the file.
    if (std::count(bytes.begin(), bytes.end(), '\n') > MostLines)
        throw RuntimeError(ErrorNumber::OutOfMemory, path);
    TextLines text;
    text.hasByteOrderMark = HasByteOrderMark(bytes);
    std::size_t start = text.hasByteOrderMark ? ByteOrderMark.size() : 0;
    while (start < bytes.size()) {
        text.lines.push_back(LineAt(bytes, start));
        start += text.lines.back().text.size() + text.lines.back().end.size();
    }
    return text;
}

std::string BytesOf(const TextLines& text) {
    std::string bytes(text.hasByteOrderMark ? ByteOrderMark : "");
    for (const TextLine& line : text.lines) {
        bytes += line.text;
        bytes += line.end;
    }
    return bytes;
}

}  // namespace zefta
