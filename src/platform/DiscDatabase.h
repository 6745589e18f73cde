#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/AudioDisc.h"

namespace zefta {

/// Which database of discs is asked (CDDB protocol), and who asks.
struct DatabaseAccess {
    std::string Server;
    std::int32_t Port = 0;
    /// Without blanks: the protocol has them between its words.
    std::string ClientName;
    std::string ClientVersion;
    /// An e-mail address.
    std::string UserAddress;
    /// How long an answer is waited for.
    std::int32_t Seconds = 0;
};

/// An entry that fits a disc.
struct DatabaseMatch {
    std::string Category;
    /// Eight hexadecimal digits.
    std::string DiscId;
    std::string Artist;
    std::string Title;

    bool operator==(const DatabaseMatch&) const = default;
};

/// What the database knows of a disc.
struct DatabaseAlbum {
    std::string Artist;
    std::string Title;
    /// In the order of the tracks: "Title", "Artist / Title", or whatever somebody typed.
    std::vector<std::string> Names;

    bool operator==(const DatabaseAlbum&) const = default;
};

enum class DatabaseEnd { Answered, Failed, Cancelled };

template <typename Answer>
struct DatabaseReply {
    DatabaseEnd End = DatabaseEnd::Failed;
    /// Why it failed, in words of the system or the server.
    std::string Reason = {};
    Answer Value = {};
};

/// A database of discs. Texts are bytes: UTF-8, or whatever the server sent.
class DiscDatabase {
  public:
    DiscDatabase() = default;
    DiscDatabase(const DiscDatabase&) = delete;
    DiscDatabase& operator=(const DiscDatabase&) = delete;
    virtual ~DiscDatabase() = default;

    /// The entries that fit the disc, best first; none when it is unknown.
    virtual DatabaseReply<std::vector<DatabaseMatch>> Query(const DatabaseAccess& access,
                                                            const DiscContents& disc,
                                                            const WaitStep& wait) = 0;

    virtual DatabaseReply<DatabaseAlbum> Read(const DatabaseAccess& access, const DatabaseMatch& match,
                                              const WaitStep& wait) = 0;
};

/// As MakeAudioDisc.
std::unique_ptr<DiscDatabase> MakeDiscDatabase(const std::string& ownPath);

}  // namespace zefta
