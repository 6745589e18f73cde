#include "cd/CdBase.h"

#include <algorithm>

#include "core/Steps.h"
#include "core/Strings.h"
#include "core/Version.h"

namespace zefta {

std::string CdBase::ClientVersion() const {
    return std::to_string(ProgramVersion().Major) + "." + std::to_string(ProgramVersion().Minor) + "." +
           std::to_string(ProgramVersion().Revision);
}

DiscEnd CdBase::ReadDisc(const DiscWatch& watch) {
    isCancelled_ = false;
    DiscWatch noting = watch;
    noting.Wait = [&] {
        isCancelled_ = isCancelled_ || (watch.Wait && !watch.Wait());
        return !isCancelled_;
    };
    const auto contents = disc_.ReadContents(Source, noting.Wait);
    if (isCancelled_) return DiscEnd::Cancelled;
    const bool hasAudio = contents && std::any_of(contents->Tracks.begin(), contents->Tracks.end(),
                                                  std::mem_fn(&DiscTrack::IsAudio));
    if (!hasAudio) return DiscEnd::NoDisc;
    reason_.clear();
    const DatabaseAlbum album = AskDatabase(*contents, noting);
    if (isCancelled_) return DiscEnd::Cancelled;
    Take(*contents, album);
    return DiscEnd::Read;
}

/// What it knows; empty where it knows nothing.
DatabaseAlbum CdBase::AskDatabase(const DiscContents& contents, const DiscWatch& watch) {
    const auto query = database_.Query(Access, contents, watch.Wait);
    word_ = query.End == DatabaseEnd::Answered ? DatabaseWord::Unknown : DatabaseWord::Failed;
    reason_ = TextOf(query.Reason);
    if (query.End != DatabaseEnd::Answered || query.Value.empty()) return {};
    const auto match = Chosen(query.Value, watch);
    if (!match) return {};
    const auto entry = database_.Read(Access, *match, watch.Wait);
    word_ = entry.End == DatabaseEnd::Answered ? DatabaseWord::Found : DatabaseWord::Failed;
    reason_ = TextOf(entry.Reason);
    return entry.Value;
}

std::optional<DatabaseMatch> CdBase::Chosen(const std::vector<DatabaseMatch>& matches,
                                            const DiscWatch& watch) {
    if (matches.size() == 1 || !watch.Choose) return matches.front();
    std::vector<DatabaseMatch> shown = matches;
    for (DatabaseMatch& match : shown) {
        match.Artist = TextOf(match.Artist);
        match.Title = TextOf(match.Title);
    }
    const auto place = watch.Choose(shown);
    if (!place || *place >= matches.size()) return std::nullopt;
    return matches[*place];
}

void CdBase::Take(const DiscContents& contents, const DatabaseAlbum& album) {
    artist_ = TextOf(album.Artist);
    title_ = TextOf(album.Title);
    std::int32_t sectors = 0;
    tracks_.assign(static_cast<std::size_t>(std::max(contents.FirstNumber - 1, 0)), {});
    for (std::size_t i = 0; i < contents.Tracks.size(); ++i) {
        const DiscTrack& track = contents.Tracks[i];
        const std::int32_t seconds = track.Sectors / DiscSectorsOfSecond;
        tracks_.push_back({i < album.Names.size() ? TextOf(album.Names[i]) : "", seconds, track.IsAudio});
        if (track.IsAudio) sectors += track.Sectors;
    }
    length_ = sectors / DiscSectorsOfSecond;
}

/// Servers of all ages send what somebody typed: one line of text it has to be.
std::string CdBase::TextOf(const std::string& bytes) const {
    return Trim(OneLine(app_.ansi.ToText(bytes)));
}

}  // namespace zefta
