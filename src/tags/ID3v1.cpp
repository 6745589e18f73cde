#include "tags/ID3v1.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "core/Strings.h"
#include "tags/Replacement.h"

namespace zefta {

namespace {

constexpr std::int32_t TagLength = 128;
constexpr std::string_view TagMarker = "TAG";
/// Comment field of a tag with a track number behind it.
constexpr std::size_t ShortComment = 29;
constexpr std::size_t LongComment = 30;

struct TextField {
    std::string ID3Tag::*value;
    std::size_t width;
};

/// The text fields in file order, from byte 3 on.
constexpr std::array<TextField, 5> TextFields = {{
    {&ID3Tag::Title, 30},
    {&ID3Tag::Artist, 30},
    {&ID3Tag::Album, 30},
    {&ID3Tag::Year, 4},
    {&ID3Tag::Comment, 30},
}};

/// Offsets in the tag.
constexpr std::size_t CommentPlace = 97;
constexpr std::size_t GenrePlace = 127;

/// An APE tag of 131 bytes has the three letters in the same place.
constexpr std::string_view MarkerOfAPE = "APETAGEX";
constexpr auto LengthWithMarkerOfAPE = TagLength + static_cast<std::int32_t>(MarkerOfAPE.find(TagMarker));

bool IsMarkerOfAPE(BinaryFile& file) {
    return file.Seek(-LengthWithMarkerOfAPE, SeekFrom::End) &&
           file.ReadBytes(static_cast<std::int32_t>(MarkerOfAPE.size())) == MarkerOfAPE;
}

bool SeekToTag(BinaryFile& file) {
    const bool isOther = IsMarkerOfAPE(file);
    return file.Seek(-TagLength, SeekFrom::End) && file.ReadBytes(3) == TagMarker && !isOther;
}

/// The tag at the end of the file by one read; "" when there is none.
std::string TagAtEnd(BinaryFile& file) {
    const std::int32_t ahead = std::min(file.Size(), LengthWithMarkerOfAPE);
    file.Seek(-ahead, SeekFrom::End);
    const std::string end = file.ReadBytes(ahead);
    if (end.size() < static_cast<std::size_t>(TagLength)) return {};
    const std::string tag = end.substr(end.size() - static_cast<std::size_t>(TagLength));
    return tag.starts_with(TagMarker) && !end.starts_with(MarkerOfAPE) ? tag : std::string();
}

/// Comment and track. Bytes 125 and 126 both not 0 mean 30 bytes of comment; the standard looks at byte 125
/// alone. Kept: tags read so far were read so.
void ReadCommentAndTrack(std::string_view bytes, ID3Tag& tag, const CodePage& ansi) {
    const bool isLong = bytes[125] != 0 && bytes[126] != 0;
    const std::string_view comment = bytes.substr(CommentPlace, isLong ? LongComment : ShortComment);
    tag.Comment = ansi.Decode(BinaryFile::TextOfField(comment));
    if (!isLong) tag.TrackNumber = static_cast<std::uint8_t>(bytes[126]);
    tag.Genre = static_cast<std::uint8_t>(bytes[GenrePlace]);
}

std::string NewTag() {
    return std::string(TagMarker) + std::string(124, ' ') + '\xFF';
}

/// The tag's 128 bytes with the record merged into them; empty fields of the record take over the old values.
std::string MergedTag(std::string bytes, ID3Tag& tag, const ID3Tag& old, const CodePage& ansi) {
    const bool clearComment = tag.Comment == "#";
    if (clearComment) tag.Comment.clear();
    std::size_t offset = TagMarker.size();
    for (const TextField& field : TextFields) {
        const bool isCleared = clearComment && field.value == &ID3Tag::Comment;
        if (!(tag.*field.value).empty() || isCleared) {
            bytes.replace(offset, field.width, FitString(ansi.Encode(tag.*field.value), field.width));
        } else {
            tag.*field.value = old.*field.value;
        }
        offset += field.width;
    }
    bytes[125] = '\0';
    bytes[126] = static_cast<char>(tag.TrackNumber);
    bytes[127] = static_cast<char>(tag.Genre);
    return bytes;
}

void ReadTag(std::string_view bytes, ID3Tag& tag, const CodePage& ansi) {
    std::size_t place = TagMarker.size();
    for (const TextField& field : TextFields) {
        if (field.value != &ID3Tag::Comment)
            tag.*field.value = ansi.Decode(BinaryFile::TextOfField(bytes.substr(place, field.width)));
        place += field.width;
    }
    ReadCommentAndTrack(bytes, tag, ansi);
}

/// In the place of the old tag, or behind the end of the file when there is none.
void WriteTag(BinaryFile& file, const std::string& before, const std::string& after) {
    Replace(file, {file.Size() - static_cast<std::int32_t>(before.size()), before, after});
}

}  // namespace

bool ReadID3v1(BinaryFile& file, ID3Tag& tag, const CodePage& ansi) {
    if (!SeekToTag(file)) return false;
    std::array<char, TagLength> bytes = {};
    const auto behindMarker = std::as_writable_bytes(std::span(bytes)).subspan(TagMarker.size());
    file.Read(behindMarker);
    ReadTag({bytes.data(), bytes.size()}, tag, ansi);
    return true;
}

std::string SetID3v1(BinaryFile& file, const CodePage& ansi, ID3Tag& tag) {
    std::string before = TagAtEnd(file);
    ID3Tag old;
    if (!before.empty()) ReadTag(before, old, ansi);
    WriteTag(file, before, MergedTag(before.empty() ? NewTag() : before, tag, old, ansi));
    return before;
}

void TakeBackID3v1(BinaryFile& file, const std::string& before) {
    const std::int32_t place = file.Size() - TagLength;
    file.Seek(place, SeekFrom::Start);
    if (before.empty()) {
        file.SetEnd();
    } else {
        Replace(file, {place, file.ReadBytes(TagLength), before});
    }
}

void SetID3v1(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    if (const auto file = files.OpenRead(tag.Path)) {
        SetID3v1(*file, ansi, tag);
    } else {
        tag.Path.clear();
    }
}

int SetID3(FileSystem& files, const CodePage& ansi, const std::string& path, const ID3v1Values& values) {
    const auto file = files.OpenRead(path);
    if (!file) return 1;
    std::string bytes(TagMarker);
    bytes += FitString(ansi.Encode(values.Title), 30);
    bytes += FitString(ansi.Encode(values.Artist), 30);
    bytes += FitString(ansi.Encode(values.Album), 30);
    bytes += FitString(ansi.Encode(values.Year), 4);
    bytes += FitString(ansi.Encode(values.Comment), 30);
    if (values.Track >= 0 && values.Track <= 255) {
        bytes[125] = '\0';
        bytes[126] = static_cast<char>(values.Track);
    }
    bytes += static_cast<char>(values.Genre);
    WriteTag(*file, TagAtEnd(*file), bytes);
    return 0;
}

}  // namespace zefta
