#include "library/RenamedLines.h"

#include <algorithm>
#include <vector>

#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

constexpr char Backslash = '\\';

bool HoldsBackslash(const std::string& text) {
    return text.find(Backslash) != std::string::npos;
}

std::string Exchanged(std::string text, char from, char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

bool IsAbsoluteEntry(const std::string& line) {
    return IsAbsolutePath(line) || MatchesMask(line, "?:\\*");
}

/// The separator in "#EXTINF:215,AC/DC - Thunderstruck" makes no path of it. One with a backslash counts as a
/// path, as it does where that is the separator.
bool IsComment(const std::string& line) {
    return line.starts_with('#') && !HoldsBackslash(line);
}

/// Bytes of the folder part with its separator; 0 for a bare name.
std::size_t FolderLength(const std::string& native) {
    return native.rfind(PathSeparator) + 1;
}

std::vector<std::string> ReadingsOf(const std::string& line, const CodePage& ansi) {
    if (IsValidUtf8(line)) return {line};
    return {line, ansi.Decode(line)};
}

/// `newPath` as a line writes paths that has `text` for `native`: a folder that stays keeps its bytes.
std::string InStyleOf(const std::string& text, const std::string& native, const std::string& newPath) {
    const std::size_t length = FolderLength(native);
    const bool folderStays = newPath.starts_with(native.substr(0, length));
    const std::string rest = folderStays ? newPath.substr(length) : newPath;
    const bool hasBackslashes = text != native;
    return (folderStays ? text.substr(0, length) : std::string()) +
           (hasBackslashes ? Exchanged(rest, PathSeparator, Backslash) : rest);
}

}  // namespace

RenamedLines::RenamedLines(RenameRun& run, const std::string& folder, bool renameFiles)
    : run_(run), folder_(folder), prefix_(WithClosingSeparator(folder)), renameFiles_(renameFiles) {}

std::optional<std::string> RenamedLines::NewLine(const std::string& line) {
    // What lies elsewhere is never renamed by a list.
    if (IsAbsoluteEntry(line)) return line;
    for (const std::string& text : ReadingsOf(line, run_.app.ansi)) {
        const std::optional<std::string> known = Remembered(text);
        // A file that kept its name keeps the bytes of its line, in whatever code page they are.
        if (known) return *known == text ? line : known;
    }
    return renameFiles_ ? NewNameOf(line) : line;
}

std::optional<std::string> RenamedLines::Remembered(const std::string& text) const {
    if (const std::string* name = run_.map->Find(prefix_ + text)) return InStyleOf(text, text, *name);
    if (!HoldsBackslash(text)) return std::nullopt;
    const std::string native = Exchanged(text, Backslash, PathSeparator);
    const std::string* name = run_.map->Find(prefix_ + native);
    if (name == nullptr || NamesSomething(text)) return std::nullopt;
    return InStyleOf(text, native, *name);
}

std::optional<std::string> RenamedLines::NewNameOf(const std::string& line) {
    for (const std::string& text : ReadingsOf(line, run_.app.ansi)) {
        const std::string native = NativeForm(text);
        if (!run_.app.files.FileExists(prefix_ + native)) continue;
        const std::string renamed = Rename(text, native);
        return renamed == text ? line : renamed;
    }
    const std::string native = NativeForm(line);
    // Comments go too: they tell of the old names.
    if (FolderLength(native) == 0 || IsComment(line)) return std::nullopt;
    return Rename(line, native);
}

std::string RenamedLines::Rename(const std::string& text, const std::string& native) {
    const std::size_t length = FolderLength(native);
    const std::string subfolder = native.substr(0, length);
    const std::string folder = length == 0 ? folder_ : prefix_ + native.substr(0, length - 1);
    const std::string newPath = subfolder + RenameOne(run_, folder, native.substr(length));
    run_.map->Add(prefix_ + native, newPath);
    return InStyleOf(text, native, newPath);
}

/// FileSystem::ToNativePath for a path that counts from the folder of the list.
std::string RenamedLines::NativeForm(const std::string& text) const {
    if (!HoldsBackslash(text) || NamesSomething(text)) return text;
    return Exchanged(text, Backslash, PathSeparator);
}

bool RenamedLines::NamesSomething(const std::string& text) const {
    return run_.app.files.FileExists(prefix_ + text) || run_.app.files.FolderExists(prefix_ + text);
}

}  // namespace zefta
