#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"

namespace zefta::test {

/// Nobody ends the waiting.
inline const WaitStep GoesOn = [] { return true; };

/// A disc in memory. A track's sectors hold the low byte of its number.
class FakeDisc : public AudioDisc {
  public:
    DiscContents contents;
    bool isThere = true;
    std::vector<std::string> drives = {"/dev/sr0"};
    /// Sources that were read.
    std::vector<std::string> sources;
    std::vector<std::int32_t> read;
    /// Tracks that can't be read to their end.
    std::vector<std::int32_t> damaged;
    /// Bytes too few that a track gives without a word of it.
    std::map<std::int32_t, std::size_t> missing;

    /// Adds a track behind the others.
    void AddTrack(bool isAudio, std::int32_t sectors) {
        if (contents.Tracks.empty()) contents.LeadOut = 150;
        contents.Tracks.push_back({isAudio, contents.LeadOut, sectors});
        contents.LeadOut += sectors;
    }

    std::vector<std::string> Drives() const override { return drives; }

    std::optional<DiscContents> ReadContents(const std::string& source, const WaitStep& wait) override {
        sources.push_back(source);
        if (!wait() || !isThere) return std::nullopt;
        return contents;
    }

    TrackReading ReadTrack(const std::string&, std::int32_t number,
                           const std::function<void(std::span<const std::byte>)>& take,
                           const WaitStep& wait) override {
        read.push_back(number);
        const auto& track = contents.Tracks.at(static_cast<std::size_t>(number - contents.FirstNumber));
        const std::vector<std::byte> sector(DiscSectorBytes, static_cast<std::byte>(number));
        for (std::int32_t i = 0; i < track.Sectors; ++i) {
            if (!wait()) return TrackReading::Cancelled;
            const bool isLast = i + 1 == track.Sectors;
            if (isLast && std::find(damaged.begin(), damaged.end(), number) != damaged.end())
                return TrackReading::Failed;
            take(std::span(sector).first(sector.size() - (isLast ? missing[number] : 0)));
        }
        return TrackReading::Done;
    }
};

/// A database that answers from memory.
class FakeDatabase : public DiscDatabase {
  public:
    std::vector<DatabaseMatch> matches;
    /// By the disc's id.
    std::map<std::string, DatabaseAlbum> albums;
    std::string failure;
    std::vector<DatabaseAccess> asked;
    std::vector<DatabaseMatch> read;
    /// What happens while it is waited for.
    std::function<void()> whileAsked;

    DatabaseReply<std::vector<DatabaseMatch>> Query(const DatabaseAccess& access, const DiscContents&,
                                                    const WaitStep& wait) override {
        asked.push_back(access);
        if (whileAsked) whileAsked();
        if (!wait()) return {DatabaseEnd::Cancelled, {}, {}};
        if (!failure.empty()) return {DatabaseEnd::Failed, failure, {}};
        return {DatabaseEnd::Answered, {}, matches};
    }

    DatabaseReply<DatabaseAlbum> Read(const DatabaseAccess&, const DatabaseMatch& match,
                                      const WaitStep& wait) override {
        read.push_back(match);
        if (!wait()) return {DatabaseEnd::Cancelled, {}, {}};
        const auto album = albums.find(match.DiscId);
        if (album == albums.end()) return {DatabaseEnd::Failed, "no such entry", {}};
        return {DatabaseEnd::Answered, {}, album->second};
    }
};

}  // namespace zefta::test
