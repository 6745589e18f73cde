#include "tags/MPEGplusFile.h"

#include <string_view>
#include <utility>

#include "core/Numbers.h"
#include "tags/APE2.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/MPEGplusStream.h"

namespace zefta {

namespace {

/// The stream header and an ID3v2 tag of usual size; an APE tag without pictures.
constexpr BufferedFile::Windows UsualFile{.head = 4096, .tail = 4096};

/// Many programs end their frames with a NUL, which is no part of the text.
std::string_view WithoutEnd(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// Non-empty ID3v2 values take the place of those of ID3v1.
void TakeUpID3v2(ID3Tag& tag) {
    const ID3v2Extension& extension = tag.ID3v2Extension;
    if (!extension.Artist.empty()) tag.Artist = extension.Artist;
    if (!extension.TrackTitle.empty()) {
        tag.Title = extension.TrackTitle;
        tag.Comment = extension.Mix;
    }
    if (const auto track = WithoutEnd(extension.TrackNumber); !track.empty())
        tag.TrackNumber = ToByte(std::int64_t{WholeNumber(track)});
    if (!extension.AlbumTitle.empty()) tag.Album = extension.AlbumTitle;
    if (!extension.Year.empty()) tag.Year = extension.Year;
}

/// The extension shows what the record itself holds.
void HandDown(ID3Tag& tag, std::uint8_t track) {
    ID3v2Extension& extension = tag.ID3v2Extension;
    extension.Artist = tag.Artist;
    if (extension.TrackNumber.empty() && track > 0) extension.TrackNumber = std::to_string(track);
    extension.TrackTitle = tag.Title;
    extension.Mix = tag.Comment;
    extension.AlbumTitle = tag.Album;
    extension.Year = tag.Year;
}

}  // namespace

void ReadMPEGplusFile(const FileReading& reading, const std::string& path, ID3Tag& tag) {
    auto opened = reading.files.OpenReadOnly(path);
    if (!opened) {
        tag.Path.clear();
        return;
    }
    tag.Path = PathOfRecord(path);
    BufferedFile file(std::move(opened), UsualFile);
    tag.Length = file.Size();
    ReadID3v1(file, tag, reading.ansi);
    ReadID3v2(file, tag, reading.ansi, reading.unknown);
    if (reading.unknown == UnknownContent::Carry) {
        // That tag stays where it is, and its frames are no items of an APE tag.
        tag.ID3v2Extension.UnknownFrames.clear();
        tag.ReadInPart = false;
    }
    const std::int32_t streamStart = file.Position();
    const bool hasAPE = ReadAPE2(file, tag, reading.unknown);
    if (tag.ID3v2Present && !hasAPE) {
        TakeUpID3v2(tag);
    } else {
        // Of a record whose values are written, a count of items must not become a track.
        const bool isCount = hasAPE && IsByTheStandard(reading.unknown);
        HandDown(tag, isCount ? std::uint8_t{0} : tag.TrackNumber);
    }
    file.Seek(streamStart, SeekFrom::Start);
    ReadMPEGplusStream(file, tag);
    tag.ReadOnly = file.IsReadOnly();
    tag.AllowEdits = true;
}

}  // namespace zefta
