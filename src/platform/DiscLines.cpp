#include "platform/DiscLines.h"

#include <charconv>

namespace zefta {

namespace {

using Fields = std::vector<std::string>;

constexpr std::string_view LastLine = "end";

void AddField(std::string& text, std::string_view field) {
    for (const char character : field) {
        const bool isControl = static_cast<unsigned char>(character) < ' ' || character == '\x7F';
        text += isControl ? ' ' : character;
    }
}

void AddLine(std::string& text, const Fields& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) text += '\t';
        AddField(text, fields[i]);
    }
    text += '\n';
}

Fields SplitAt(std::string_view text, char divider) {
    Fields parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(divider); end != std::string_view::npos;
         end = text.find(divider, start)) {
        parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

/// The records in front of the last line; nothing when that is missing.
std::optional<std::vector<Fields>> RecordsOf(std::string_view text) {
    if (!text.ends_with('\n')) return std::nullopt;
    text.remove_suffix(1);
    std::vector<Fields> records;
    for (const std::string& line : SplitAt(text, '\n')) records.push_back(SplitAt(line, '\t'));
    if (records.back() != Fields{std::string(LastLine)}) return std::nullopt;
    records.pop_back();
    return records;
}

bool ReadNumber(const std::string& text, std::int32_t& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number >= 0;
}

bool ReadTrack(const Fields& fields, DiscTrack& track) {
    track.IsAudio = fields[0] == "audio";
    return (track.IsAudio || fields[0] == "data") && ReadNumber(fields[1], track.Start) &&
           ReadNumber(fields[2], track.Sectors);
}

}  // namespace

std::string LinesOf(const DiscContents& disc) {
    std::string text;
    AddLine(text, {std::to_string(disc.FirstNumber), std::to_string(disc.LeadOut)});
    for (const DiscTrack& track : disc.Tracks)
        AddLine(text, {track.IsAudio ? "audio" : "data", std::to_string(track.Start),
                       std::to_string(track.Sectors)});
    AddLine(text, {std::string(LastLine)});
    return text;
}

std::optional<DiscContents> ContentsOf(std::string_view lines) {
    const auto records = RecordsOf(lines);
    if (!records || records->empty() || records->front().size() != 2) return std::nullopt;
    DiscContents disc;
    if (!ReadNumber(records->front()[0], disc.FirstNumber) || !ReadNumber(records->front()[1], disc.LeadOut))
        return std::nullopt;
    for (std::size_t i = 1; i < records->size(); ++i) {
        const Fields& fields = (*records)[i];
        DiscTrack track;
        if (fields.size() != 3 || !ReadTrack(fields, track)) return std::nullopt;
        disc.Tracks.push_back(track);
    }
    return disc;
}

std::string LinesOf(const std::vector<DatabaseMatch>& matches) {
    std::string text;
    for (const DatabaseMatch& match : matches)
        AddLine(text, {match.Category, match.DiscId, match.Artist, match.Title});
    AddLine(text, {std::string(LastLine)});
    return text;
}

std::optional<std::vector<DatabaseMatch>> MatchesOf(std::string_view lines) {
    const auto records = RecordsOf(lines);
    if (!records) return std::nullopt;
    std::vector<DatabaseMatch> matches;
    for (const Fields& fields : *records) {
        if (fields.size() != 4) return std::nullopt;
        matches.push_back({fields[0], fields[1], fields[2], fields[3]});
    }
    return matches;
}

std::string LinesOf(const DatabaseAlbum& album) {
    std::string text;
    AddLine(text, {album.Artist, album.Title});
    for (const std::string& name : album.Names) AddLine(text, {name});
    AddLine(text, {std::string(LastLine)});
    return text;
}

std::optional<DatabaseAlbum> AlbumOf(std::string_view lines) {
    const auto records = RecordsOf(lines);
    if (!records || records->empty() || records->front().size() != 2) return std::nullopt;
    DatabaseAlbum album = {records->front()[0], records->front()[1], {}};
    for (std::size_t i = 1; i < records->size(); ++i) {
        if ((*records)[i].size() != 1) return std::nullopt;
        album.Names.push_back((*records)[i][0]);
    }
    return album;
}

}  // namespace zefta
