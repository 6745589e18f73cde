#include "disc/DiscQuestions.h"

#include <cddb/cddb.h>
#include <cstdlib>
#include <memory>

namespace zefta {

namespace {

struct ConnectionCloser {
    void operator()(cddb_conn_t* connection) const { cddb_destroy(connection); }
};
using Connection = std::unique_ptr<cddb_conn_t, ConnectionCloser>;

struct EntryCloser {
    void operator()(cddb_disc_t* entry) const { cddb_disc_destroy(entry); }
};
using Entry = std::unique_ptr<cddb_disc_t, EntryCloser>;

std::string Text(const char* text) {
    return text != nullptr ? text : "";
}

Connection Connect(const DatabaseAccess& access) {
    Connection connection(cddb_new());
    if (!connection) return connection;
    cddb_set_server_name(connection.get(), access.Server.c_str());
    cddb_set_server_port(connection.get(), access.Port);
    // The library counts the ticks of the clock: one second can be over in a hundredth of one.
    cddb_set_timeout(connection.get(), static_cast<unsigned int>(access.Seconds) + 1);
    cddb_set_client(connection.get(), access.ClientName.c_str(), access.ClientVersion.c_str());
    cddb_set_email_address(connection.get(), access.UserAddress.c_str());
    // What the server says now counts, and no file of another program is touched.
    cddb_cache_disable(connection.get());
    cddb_http_disable(connection.get());
    return connection;
}

Entry EntryFor(const DiscContents& disc) {
    Entry entry(cddb_disc_new());
    if (!entry) return entry;
    for (const DiscTrack& track : disc.Tracks) {
        cddb_track_t* row = cddb_track_new();
        if (row == nullptr) return {};
        cddb_track_set_frame_offset(row, track.Start);
        cddb_disc_add_track(entry.get(), row);
    }
    cddb_disc_set_length(entry.get(), static_cast<unsigned int>(disc.LeadOut / DiscSectorsOfSecond));
    cddb_disc_calc_discid(entry.get());
    return entry;
}

std::string IdText(unsigned int number) {
    constexpr char Digits[] = "0123456789abcdef";
    constexpr int DigitsOfId = 8;
    std::string text;
    for (int shift = 4 * (DigitsOfId - 1); shift >= 0; shift -= 4) text += Digits[(number >> shift) & 0xFU];
    return text;
}

DatabaseMatch MatchOf(cddb_disc_t* entry) {
    return {Text(cddb_disc_get_category_str(entry)), IdText(cddb_disc_get_discid(entry)),
            Text(cddb_disc_get_artist(entry)), Text(cddb_disc_get_title(entry))};
}

/// The library takes the artist of a track off its name, and gives that of the disc for one without.
std::string NameOf(const cddb_disc_t* entry, cddb_track_t* track) {
    const char* artist = cddb_track_get_artist(track);
    const std::string title = Text(cddb_track_get_title(track));
    const bool isOwn = artist != nullptr && artist != cddb_disc_get_artist(entry) && *artist != '\0';
    return isOwn ? artist + (" / " + title) : title;
}

DatabaseAlbum AlbumOfEntry(cddb_disc_t* entry) {
    DatabaseAlbum album;
    album.Artist = Text(cddb_disc_get_artist(entry));
    album.Title = Text(cddb_disc_get_title(entry));
    for (cddb_track_t* track = cddb_disc_get_track_first(entry); track != nullptr;
         track = cddb_disc_get_track_next(entry))
        album.Names.push_back(NameOf(entry, track));
    return album;
}

template <typename Answer>
DatabaseReply<Answer> Failure(const Connection& connection) {
    const cddb_error_t error = connection ? cddb_errno(connection.get()) : CDDB_ERR_OK;
    // An answer that never came is none of its errors.
    return {DatabaseEnd::Failed, error == CDDB_ERR_OK ? "" : Text(cddb_error_str(error)), {}};
}

/// Servers close or refuse for reasons of their own; only what they say of the disc is an answer.
bool IsAnswer(const Connection& connection) {
    const cddb_error_t error = cddb_errno(connection.get());
    return error == CDDB_ERR_OK || error == CDDB_ERR_DISC_NOT_FOUND;
}

}  // namespace

DatabaseReply<std::vector<DatabaseMatch>> QueryDatabase(const DatabaseAccess& access,
                                                        const DiscContents& disc) {
    const Connection connection = Connect(access);
    const Entry entry = EntryFor(disc);
    if (!connection || !entry) return Failure<std::vector<DatabaseMatch>>(connection);
    int left = cddb_query(connection.get(), entry.get());
    if (left < 0 || (left == 0 && !IsAnswer(connection)))
        return Failure<std::vector<DatabaseMatch>>(connection);
    std::vector<DatabaseMatch> matches;
    for (; left > 0; --left) {
        matches.push_back(MatchOf(entry.get()));
        if (left > 1 && cddb_query_next(connection.get(), entry.get()) == 0) break;
    }
    return {DatabaseEnd::Answered, {}, std::move(matches)};
}

DatabaseReply<DatabaseAlbum> ReadDatabase(const DatabaseAccess& access, const DatabaseMatch& match) {
    const Connection connection = Connect(access);
    const Entry entry(cddb_disc_new());
    if (!connection || !entry) return Failure<DatabaseAlbum>(connection);
    constexpr int Hexadecimal = 16;
    const unsigned long id = std::strtoul(match.DiscId.c_str(), nullptr, Hexadecimal);
    cddb_disc_set_category_str(entry.get(), match.Category.c_str());
    cddb_disc_set_discid(entry.get(), static_cast<unsigned int>(id));
    if (cddb_read(connection.get(), entry.get()) == 0) return Failure<DatabaseAlbum>(connection);
    DatabaseAlbum album = AlbumOfEntry(entry.get());
    // The library takes an entry that breaks off for a whole one.
    const bool isEmpty = album.Artist.empty() && album.Title.empty();
    return {isEmpty ? DatabaseEnd::Failed : DatabaseEnd::Answered, {}, std::move(album)};
}

}  // namespace zefta
