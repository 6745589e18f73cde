#include "tags/ID3v1.h"

#include <array>
#include <memory>
#include <span>

#include "core/Strings.h"
#include "tags/Replacement.h"

namespace zefta {

namespace {

constexpr std::int32_t TagLength = 128;
constexpr std::string_view Marker = "TAG";
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
bool IsMarkerOfAPE(BinaryFile& file) {
    constexpr std::string_view ApeMarker = "APETAGEX";
    const auto ahead = static_cast<std::int32_t>(ApeMarker.find(Marker));
    return file.Seek(-TagLength - ahead, SeekFrom::End) &&
           file.ReadBytes(static_cast<std::int32_t>(ApeMarker.size())) == ApeMarker;
}

bool SeekToTag(BinaryFile& file) {
    const bool isOther = IsMarkerOfAPE(file);
    return file.Seek(-TagLength, SeekFrom::End) && file.ReadBytes(3) == Marker && !isOther;
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
    return std::string(Marker) + std::string(124, ' ') + '\xFF';
}

/// The tag's 128 bytes with the record merged into them; empty fields of the record take over the old values.
std::string MergedTag(std::string bytes, ID3Tag& tag, const ID3Tag& old, const CodePage& ansi) {
    const bool clearComment = tag.Comment == "#";
    if (clearComment) tag.Comment.clear();
    std::size_t offset = Marker.size();
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

}  // namespace

bool ReadID3v1(BinaryFile& file, ID3Tag& tag, const CodePage& ansi) {
    if (!SeekToTag(file)) return false;
    std::array<char, TagLength> bytes = {};
    const auto behindMarker = std::as_writable_bytes(std::span(bytes)).subspan(Marker.size());
    file.Read(behindMarker);
    const std::string_view text(bytes.data(), bytes.size());
    std::size_t place = Marker.size();
    for (const TextField& field : TextFields) {
        if (field.value != &ID3Tag::Comment)
            tag.*field.value = ansi.Decode(BinaryFile::TextOfField(text.substr(place, field.width)));
        place += field.width;
    }
    ReadCommentAndTrack(text, tag, ansi);
    return true;
}

void SetID3v1(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    const auto file = files.OpenRead(tag.Path);
    if (!file) {
        tag.Path.clear();
        return;
    }
    ID3Tag old;
    const bool hasTag = ReadID3v1(*file, old, ansi);
    file->Seek(hasTag ? -TagLength : 0, SeekFrom::End);
    const std::int32_t place = file->Position();
    const std::string before = hasTag ? file->ReadBytes(TagLength) : std::string();
    const std::string after = MergedTag(hasTag ? before : NewTag(), tag, old, ansi);
    Replace(*file, {place, before, after});
}

int SetID3(FileSystem& files, const CodePage& ansi, const std::string& path, const ID3v1Values& values) {
    const auto file = files.OpenRead(path);
    if (!file) return 1;
    const bool hasTag = SeekToTag(*file);
    file->Seek(hasTag ? -TagLength : 0, SeekFrom::End);
    const std::int32_t place = file->Position();
    const std::string before = hasTag ? file->ReadBytes(TagLength) : std::string();
    std::string bytes(Marker);
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
    Replace(*file, {place, before, bytes});
    return 0;
}

}  // namespace zefta
