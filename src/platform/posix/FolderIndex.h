#pragma once

#include <cstdint>
#include <ctime>
#include <mutex>
#include <optional>
#include <string>
#include <sys/types.h>
#include <unordered_map>
#include <vector>

namespace zefta {

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
        /// A folder that is asked about once is looked through and not remembered.
        bool isFilled = false;
        std::unordered_multimap<std::string, std::string> byLowerCase;
    };

    static std::optional<Stamp> StampOf(const std::string& folder);
    Names& NamesOf(const Stamp& stamp, bool& isNew);
    Names* FilledNamesOf(const Stamp& stamp);

    std::mutex mutex_;
    /// The one asked about last stands last.
    std::vector<Names> folders_;
};

/// Stands around a change that the process makes to a folder, so that the index need not forget it.
class FolderChange {
  public:
    FolderChange(FolderIndex& index, const std::string& path);

    // The entry of the path, after the change was made.

    void Added();
    void Removed();
    /// The same entry under another name of the folder.
    void Renamed(const std::string& name);

  private:
    template <typename Change>
    void Follow(Change change);

    FolderIndex& index_;
    std::string folder_;
    std::string name_;
    bool isFollowed_ = false;
};

}  // namespace zefta
