#include "disc/DiscReading.h"

#include <algorithm>
#include <cdio/cdio.h>
#include <cdio/logging.h>
#include <memory>
#include <string_view>
#include <vector>

namespace zefta {

namespace {

struct DiscCloser {
    void operator()(CdIo_t* disc) const { cdio_destroy(disc); }
};
using Disc = std::unique_ptr<CdIo_t, DiscCloser>;

struct ImageKind {
    std::string_view ending;
    driver_id_t driver;
};

constexpr ImageKind ImageKinds[] = {
    {".cue", DRIVER_BINCUE}, {".bin", DRIVER_BINCUE}, {".nrg", DRIVER_NRG}, {".toc", DRIVER_CDRDAO}};

/// Lead-out, lead-in and pregap, which lie between the sessions of a disc and belong to no track.
constexpr lba_t SectorsBetweenSessions = 11400;

std::string LowerCase(std::string text) {
    for (char& character : text) {
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + ('a' - 'A'));
    }
    return text;
}

driver_id_t DriverFor(const std::string& source) {
    const std::string name = LowerCase(source);
    const auto kind = std::find_if(std::begin(ImageKinds), std::end(ImageKinds),
                                   [&](const ImageKind& row) { return name.ends_with(row.ending); });
    return kind == std::end(ImageKinds) ? DRIVER_DEVICE : kind->driver;
}

/// The library's own handler writes, and ends the process for what is no reason to.
void SayNothing(cdio_log_level_t, const char*) {}

Disc Open(const std::string& source) {
    cdio_log_set_handler(SayNothing);
    return Disc(cdio_open(source.c_str(), DriverFor(source)));
}

bool IsAudio(const CdIo_t* disc, track_t number) {
    return cdio_get_track_format(disc, number) == TRACK_FORMAT_AUDIO;
}

/// Where the last session begins when that is with this track of data; a disc of one session has none.
bool BeginsSession(CdIo_t* disc, track_t number) {
    lsn_t session = 0;
    return !IsAudio(disc, number) && cdio_get_last_session(disc, &session) == DRIVER_OP_SUCCESS &&
           session > 0 && session == cdio_get_track_lsn(disc, number);
}

lba_t EndOf(CdIo_t* disc, track_t number, track_t last) {
    if (number == last) return cdio_get_track_lba(disc, CDIO_CDROM_LEADOUT_TRACK);
    const auto next = static_cast<track_t>(number + 1);
    const lba_t end = cdio_get_track_lba(disc, next);
    return IsAudio(disc, number) && BeginsSession(disc, next) ? end - SectorsBetweenSessions : end;
}

std::optional<DiscTrack> TrackOf(CdIo_t* disc, track_t number, track_t last) {
    const lba_t start = cdio_get_track_lba(disc, number);
    const lba_t end = EndOf(disc, number, last);
    if (start == CDIO_INVALID_LBA || end == CDIO_INVALID_LBA || start < 0 || end < start) return std::nullopt;
    return DiscTrack{IsAudio(disc, number), start, end - start};
}

std::optional<DiscContents> ContentsOfDisc(CdIo_t* disc) {
    const track_t first = cdio_get_first_track_num(disc);
    const track_t count = cdio_get_num_tracks(disc);
    if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK || count == 0) return std::nullopt;
    const int last = first + count - 1;
    if (last > CDIO_CD_MAX_TRACKS) return std::nullopt;
    DiscContents contents;
    contents.FirstNumber = first;
    contents.LeadOut = cdio_get_track_lba(disc, CDIO_CDROM_LEADOUT_TRACK);
    for (int number = first; number <= last; ++number) {
        const auto track = TrackOf(disc, static_cast<track_t>(number), static_cast<track_t>(last));
        if (!track) return std::nullopt;
        contents.Tracks.push_back(*track);
    }
    return contents;
}

/// Reads sectors so that what the device did not give shows.
class SectorReader {
  public:
    explicit SectorReader(CdIo_t* disc) : disc_(disc) {}

    /// The bytes of so many sectors; empty when they can't be had.
    std::span<const std::byte> Read(lsn_t start, int count, int tries) {
        for (int i = 0; i < tries; ++i) {
            if (ReadInto(first_, {start, count}, std::byte{0x55}) &&
                ReadInto(second_, {start, count}, std::byte{0xAA}) && first_ == second_)
                return first_;
        }
        return {};
    }

  private:
    struct Range {
        lsn_t start;
        int count;
    };

    /// An image that is too short is read without a word of it: bytes that stay as they were differ between
    /// two readings that began with different ones.
    bool ReadInto(std::vector<std::byte>& buffer, Range range, std::byte filling) {
        buffer.assign(static_cast<std::size_t>(range.count) * CDIO_CD_FRAMESIZE_RAW, filling);
        return cdio_read_audio_sectors(disc_, buffer.data(), range.start,
                                       static_cast<std::uint32_t>(range.count)) == DRIVER_OP_SUCCESS;
    }

    CdIo_t* disc_;
    std::vector<std::byte> first_;
    std::vector<std::byte> second_;
};

constexpr int SectorsAtOnce = 26;
constexpr int TriesOfMany = 3;
/// A drive that reads around a scratch gets it right now and then.
constexpr int TriesOfOne = 20;

bool ReadOneByOne(SectorReader& reader, lsn_t start, int count,
                  const std::function<bool(std::span<const std::byte>)>& take) {
    for (int i = 0; i < count; ++i) {
        const auto sector = reader.Read(start + i, 1, TriesOfOne);
        if (sector.empty() || !take(sector)) return false;
    }
    return true;
}

}  // namespace

std::optional<DiscContents> ReadDiscContents(const std::string& source) {
    const Disc disc = Open(source);
    return disc ? ContentsOfDisc(disc.get()) : std::nullopt;
}

bool ReadDiscTrack(const std::string& source, std::int32_t number,
                   const std::function<bool(std::span<const std::byte>)>& take) {
    const Disc disc = Open(source);
    const auto contents = disc ? ContentsOfDisc(disc.get()) : std::nullopt;
    if (!contents) return false;
    const std::int64_t index = std::int64_t{number} - contents->FirstNumber;
    if (index < 0 || index >= static_cast<std::int64_t>(contents->Tracks.size())) return false;
    const DiscTrack& track = contents->Tracks[static_cast<std::size_t>(index)];
    if (!track.IsAudio) return false;
    SectorReader reader(disc.get());
    const lsn_t start = cdio_lba_to_lsn(track.Start);
    for (std::int32_t done = 0; done < track.Sectors; done += SectorsAtOnce) {
        const int count = std::min(SectorsAtOnce, track.Sectors - done);
        const auto sectors = reader.Read(start + done, count, TriesOfMany);
        const bool isDone = sectors.empty() ? ReadOneByOne(reader, start + done, count, take) : take(sectors);
        if (!isDone) return false;
    }
    return true;
}

}  // namespace zefta
