#include "library/RenamedLines.h"

#include <algorithm>

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

}  // namespace

std::size_t RenamedLines::Reading::FolderLength() const {
    return native.rfind(PathSeparator) + 1;
}

std::string RenamedLines::Reading::InStyle(const std::string& newPath) const {
    const std::size_t length = FolderLength();
    const bool folderStays = newPath.starts_with(native.substr(0, length));
    const std::string rest = folderStays ? newPath.substr(length) : newPath;
    return (folderStays ? text.substr(0, length) : std::string()) +
           (usesBackslashes ? Exchanged(rest, PathSeparator, Backslash) : rest);
}

RenamedLines::RenamedLines(RenameRun& run, const std::string& folder, bool renameFiles)
    : run_(run), folder_(folder), prefix_(WithClosingSeparator(folder)), renameFiles_(renameFiles) {}

std::optional<std::string> RenamedLines::NewLine(const std::string& line) {
    // What lies elsewhere is never renamed by a list.
    if (IsAbsoluteEntry(line)) return line;
    const std::vector<Reading> readings = ReadingsOf(line);
    for (const Reading& reading : readings) {
        const std::optional<std::string> known = Remembered(reading);
        // A file that kept its name keeps the bytes of its line, in whatever code page they are.
        if (known) return *known == reading.text ? line : known;
    }
    return renameFiles_ ? NewNameOf(line, readings) : line;
}

std::vector<RenamedLines::Reading> RenamedLines::ReadingsOf(const std::string& line) const {
    if (IsValidUtf8(line)) return {ReadingOf(line)};
    return {ReadingOf(line), ReadingOf(run_.app.ansi.Decode(line))};
}

/// FileSystem::ToNativePath for a path that counts from the folder of the list. A backslash may be part of a
/// name; the one of a file that the run has renamed is no longer there to be found.
RenamedLines::Reading RenamedLines::ReadingOf(const std::string& text) const {
    if (!HoldsBackslash(text) || run_.map->Find(prefix_ + text) != nullptr || NamesSomething(text))
        return {text, text, false};
    return {text, Exchanged(text, Backslash, PathSeparator), true};
}

/// A name in another case stands for the one of the map unless a file bears it.
std::optional<std::string> RenamedLines::Remembered(const Reading& reading) const {
    const std::string path = prefix_ + reading.native;
    const RenamedEntry* entry = run_.map->Find(path);
    if (entry == nullptr || (!run_.map->Holds(path) && IsFileThatKeptItsName(path))) return std::nullopt;
    return reading.InStyle(FromHere(*entry));
}

std::string RenamedLines::FromHere(const RenamedEntry& entry) const {
    if (entry.countsFrom.empty() || entry.countsFrom == prefix_) return entry.newName;
    return PathFrom(folder_, entry.countsFrom + entry.newName);
}

std::optional<std::string> RenamedLines::NewNameOf(const std::string& line,
                                                   const std::vector<Reading>& readings) {
    for (const Reading& reading : readings) {
        const std::string path = prefix_ + reading.native;
        if (!run_.app.files.FileExists(path)) continue;
        if (run_.places.contains(PlaceOf(run_.app, path))) return line;
        const std::string renamed = Rename(reading);
        return renamed == reading.text ? line : renamed;
    }
    // Comments go too: they tell of the old names.
    if (readings.front().FolderLength() == 0 || IsComment(line)) return std::nullopt;
    return Rename(readings.front());
}

std::string RenamedLines::Rename(const Reading& reading) {
    const std::size_t length = reading.FolderLength();
    const std::string subfolder = reading.native.substr(0, length);
    const std::string folder = length == 0 ? folder_ : prefix_ + reading.native.substr(0, length - 1);
    const std::string newPath = subfolder + RenameOne(run_, folder, reading.native.substr(length));
    run_.map->Add(prefix_ + reading.native, newPath, prefix_);
    return reading.InStyle(newPath);
}

/// Whether the path is the very spelling of a file that this run has neither renamed nor put there.
bool RenamedLines::IsFileThatKeptItsName(const std::string& path) const {
    if (!run_.app.files.FileExists(path)) return false;
    const std::string place = PlaceOf(run_.app, path);
    return NamePart(place) == NamePart(path) && !run_.places.contains(place);
}

bool RenamedLines::NamesSomething(const std::string& text) const {
    return run_.app.files.FileExists(prefix_ + text) || run_.app.files.FolderExists(prefix_ + text);
}

}  // namespace zefta
