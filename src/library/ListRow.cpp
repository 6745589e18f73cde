#include "library/ListRow.h"

#include <cmath>

namespace zefta {

namespace {

constexpr std::int32_t Mono = 3;

/// Many programs end their texts in a tag with a NUL; what follows it was never shown.
std::string_view Shown(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// Halves go to the even number. Sizes have no upper limit: a sparse file may be of any.
std::int64_t WholeUnits(std::int64_t bytes, std::int64_t unit) {
    return std::llrint(static_cast<double>(bytes) / static_cast<double>(unit));
}

std::string FirstNotEmpty(std::string_view first, std::string_view second) {
    return std::string(Shown(first).empty() ? Shown(second) : Shown(first));
}

std::string WithMonoMark(std::int32_t number, const ID3Tag& tag) {
    return std::to_string(number) + (tag.ChannelMode == Mono ? "m" : "");
}

void FillWave(ListRow& row, const ID3Tag& tag) {
    if (tag.SampleRate < 1) {
        row.Bitrate = "RAW";
        return;
    }
    row.Bitrate = WithMonoMark(tag.SampleRate / 1000, tag);
    row.Time = tag.Time();
}

std::string TitleWithMix(const ID3Tag& tag) {
    const std::string mix = FirstNotEmpty(tag.ID3v2Extension.Mix, tag.Comment);
    const std::string title = FirstNotEmpty(tag.ID3v2Extension.TrackTitle, tag.Title);
    return mix.empty() ? title : title + " (" + mix + ")";
}

void FillCompressed(ListRow& row, const ID3Tag& tag) {
    const ID3v2Extension& v2 = tag.ID3v2Extension;
    row.Bitrate = WithMonoMark(tag.Bitrate, tag);
    row.Time = tag.Time();
    row.Artist = FirstNotEmpty(v2.Artist, tag.Artist);
    row.Title = TitleWithMix(tag);
    row.Album = FirstNotEmpty(v2.AlbumTitle, tag.Album);
    row.Year = FirstNotEmpty(v2.Year, tag.Year);
    if (tag.ID3v2Present || !tag.LyricsPresent) return;
    row.Artist = FirstNotEmpty(tag.LyricsExtension.Artist, row.Artist);
    row.Title = FirstNotEmpty(tag.LyricsExtension.TrackTitle, row.Title);
}

}  // namespace

RowIcon IconOf(ListKind kind) {
    switch (kind) {
        case ListKind::Folder:
            return RowIcon::Folder;
        case ListKind::Playlist:
            return RowIcon::Playlist;
        case ListKind::Wave:
            return RowIcon::Wave;
        default:
            return RowIcon::Compressed;
    }
}

std::string SizeText(std::int64_t bytes) {
    constexpr std::int64_t Kibi = 1024;
    const std::int64_t mebibytes = WholeUnits(bytes, Kibi * Kibi);
    if (mebibytes > 99) return std::to_string(mebibytes) + " M";
    const std::int64_t kibibytes = WholeUnits(bytes, Kibi);
    if (kibibytes >= 11) return std::to_string(kibibytes) + " K";
    return bytes > 0 ? std::to_string(bytes) : " ";
}

ListRow RowOf(const ListEntry& entry, std::int64_t bytes, const ID3Tag& tag, const CodePage& ansi) {
    ListRow row;
    row.File = ansi.ToText(entry.name);
    row.SortOrder = SortOrder(entry, ansi);
    row.Icon = IconOf(entry.kind);
    row.Size = entry.kind == ListKind::Folder ? " " : SizeText(bytes);
    switch (entry.kind) {
        case ListKind::Wave:
            FillWave(row, tag);
            break;
        case ListKind::MP3:
        case ListKind::Ogg:
        case ListKind::MPEGplus:
            FillCompressed(row, tag);
            break;
        default:
            break;
    }
    return row;
}

}  // namespace zefta
