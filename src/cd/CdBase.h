#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cd/CDInfoFile.h"
#include "core/App.h"
#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"

namespace zefta {

/// How a reading of a disc ended.
enum class DiscEnd { Read, NoDisc, Cancelled };

/// What the database had to say of the disc that was read.
enum class DatabaseWord { Found, Unknown, Failed };

/// How a reading is followed. Each may be unset.
struct DiscWatch {
    /// Several entries fit the disc: the place of the one that is meant, nothing for none of them. Without it
    /// the first one is.
    std::function<std::optional<std::size_t>(const std::vector<DatabaseMatch>& matches)> Choose = {};
    /// Serves the window while something is waited for; false ends the reading.
    WaitStep Wait = {};
};

/// The CD at hand: what its table of contents, a database or the person says of it. Made empty.
class CdBase {
  public:
    CdBase(App& app, AudioDisc& disc, DiscDatabase& database) : app_(app), disc_(disc), database_(database) {}

    /// Drive or image; "" is the first drive.
    std::string Source;
    /// Whom to ask, and as whom.
    DatabaseAccess Access;

    /// The version that it names itself by.
    std::string ClientVersion() const;

    /// Reads the disc and asks the database for its names. A disc that the database does not know, or that it
    /// could not be asked for, has names that are empty. What was held before stays when no disc was read or
    /// the reading was cancelled.
    ///
    /// Tracks count from 1 as on the disc. A track of data, and the numbers in front of a disc whose first
    /// one is higher, are there and not selected.
    DiscEnd ReadDisc(const DiscWatch& watch);

    /// Of the last disc that was read.
    DatabaseWord Word() const { return word_; }
    /// Why the database failed, as far as that is known.
    const std::string& Reason() const { return reason_; }

    const std::string& Artist() const { return artist_; }
    const std::string& Title() const { return title_; }
    /// Seconds.
    std::int32_t Length() const { return length_; }
    const std::vector<CDTrack>& Tracks() const { return tracks_; }

    void SetLength(std::int32_t seconds) { length_ = seconds; }
    /// Tracks count from 0 here.
    void SetName(std::size_t track, const std::string& name) { tracks_.at(track).Name = name; }
    void AddTrack(const std::string& name, std::int32_t seconds) { tracks_.push_back({name, seconds, true}); }
    void SetTracks(std::vector<CDTrack> tracks) { tracks_ = std::move(tracks); }

  private:
    DatabaseAlbum AskDatabase(const DiscContents& contents, const DiscWatch& watch);
    std::optional<DatabaseMatch> Chosen(const std::vector<DatabaseMatch>& matches, const DiscWatch& watch);
    void Take(const DiscContents& contents, const DatabaseAlbum& album);
    std::string TextOf(const std::string& bytes) const;

    App& app_;
    AudioDisc& disc_;
    DiscDatabase& database_;
    DatabaseWord word_ = DatabaseWord::Unknown;
    std::string reason_;
    bool isCancelled_ = false;
    std::string artist_;
    std::string title_;
    std::int32_t length_ = 0;
    std::vector<CDTrack> tracks_;
};

}  // namespace zefta
