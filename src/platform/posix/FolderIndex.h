#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
#include <mutex>
#include <optional>
#include <string>
#include <sys/types.h>
#include <unordered_map>
#include <vector>

namespace zefta {

class OpenFolder;

/// The names of the folders that were asked about last, by their lower case, so that ten thousand names that
/// are in no case there cost no ten thousand looks through the folder. Holds for as long as the folder says
/// that it did not change; what this process changes itself it follows (FolderChange).
///
/// A file system counts changes by a clock of some milliseconds. A name that another program makes within the
/// tick of our own last change may go unseen until the next one. That is no loss: here is only asked for
/// names in another case; what has exactly a name is for the system to tell, and it never replaces.
///
/// May be used by several threads.
class FolderIndex {
  public:
    /// The names in the folder, "" for the current one, that equal `name` in all but case, itself among them
    /// when it is there, in byte order. None when the folder can't be read.
    std::vector<std::string> NamesInAnyCase(const std::string& folder, const std::string& name);

    /// Whether a change of ours has just found the folder of that device and node at the path.
    bool SawJustNow(const std::string& folder, dev_t device, ino_t node);

  private:
    friend class FolderChange;

    /// By which a folder is known and a change of it seen.
    struct Stamp {
        dev_t device = 0;
        ino_t node = 0;
        std::int64_t size = 0;
        timespec modified = {};
        timespec changed = {};

        bool IsOfFolder(const Stamp& other) const { return device == other.device && node == other.node; }
        bool operator==(const Stamp& other) const;
    };

    struct Names {
        Stamp stamp;
        /// Only a folder that is asked about twice without a change of others is held.
        bool isFilled = false;
        std::unordered_multimap<std::string, std::string> byLowerCase;
    };

    /// The stamp that a change of ours has just left.
    struct LastSeen {
        std::string folder;
        Stamp stamp;
        std::chrono::steady_clock::time_point when;
    };

    static std::optional<Stamp> StampOf(const std::string& folder, const OpenFolder* open = nullptr);
    std::optional<Stamp> RecentStampOf(const std::string& folder, const OpenFolder* open);
    std::vector<std::string> NamesInAnyCase(const Stamp& stamp, const std::string& folder,
                                            const std::string& name);
    bool IsJustSeen(const std::string& folder) const;
    Names* Find(const Stamp& stamp);
    void StartAnew(Names* names, const Stamp& stamp);

    std::mutex mutex_;
    LastSeen lastSeen_;
    /// The one asked about last stands last.
    std::vector<Names> folders_;
};

/// Stands around a change that the process makes to a folder, so that the index need not forget it. Looks at
/// the folder before the change, unless it did so just now, and behind it.
class FolderChange {
  public:
    /// Of the folder in which the path lies. `open`: the same folder where it is open; it outlives the
    /// object.
    FolderChange(FolderIndex& index, const std::string& path, const OpenFolder* open = nullptr);

    /// As the index tells it, before the change.
    std::vector<std::string> NamesInAnyCase(const std::string& name);

    /// Whether the folder is there in just that spelling.
    bool HasFolder() const { return before_.has_value(); }
    bool IsOfSameFolder(const FolderChange& other) const;

    // After the change was made. One of these for each folder: it takes what the folder is like then for its
    // doing alone.

    void Added(const std::string& name);
    void Removed(const std::string& name);
    void Renamed(const std::string& from, const std::string& to);

  private:
    template <typename Change>
    void Follow(Change change);

    FolderIndex& index_;
    std::string folder_;
    const OpenFolder* open_;
    std::optional<FolderIndex::Stamp> before_;
};

}  // namespace zefta
