#include "platform/posix/FolderIndex.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/OpenFolder.h"

namespace zefta {

namespace {

/// A job works on one folder, or moves files from one to another.
constexpr std::size_t RememberedFolders = 4;
/// For so long the folder is as it was seen: less than the tick in which changes of others go unseen anyway.
constexpr std::chrono::milliseconds JustNow(1);

using ByLowerCase = std::unordered_multimap<std::string, std::string>;

bool IsSameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

ByLowerCase::iterator Find(ByLowerCase& names, const std::string& lower, const std::string& name) {
    const auto [first, last] = names.equal_range(lower);
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second == name; });
    return found != last ? found : names.end();
}

void Erase(ByLowerCase& names, const std::string& name) {
    const auto found = Find(names, ToLower(name), name);
    if (found != names.end()) names.erase(found);
}

void Insert(ByLowerCase& names, const std::string& name) {
    std::string lower = ToLower(name);
    if (Find(names, lower, name) == names.end()) names.emplace(std::move(lower), name);
}

std::vector<std::string> Matches(const ByLowerCase& names, const std::string& name) {
    std::vector<std::string> matches;
    const auto [first, last] = names.equal_range(ToLower(name));
    for (auto entry = first; entry != last; ++entry) matches.push_back(entry->second);
    std::sort(matches.begin(), matches.end());
    return matches;
}

}  // namespace

bool FolderIndex::Stamp::operator==(const Stamp& other) const {
    return IsOfFolder(other) && size == other.size && IsSameTime(modified, other.modified) &&
           IsSameTime(changed, other.changed);
}

std::optional<FolderIndex::Stamp> FolderIndex::StampOf(const std::string& folder, const OpenFolder* open) {
    struct stat status;
    const bool isOpen = open != nullptr && open->IsOpen();
    const int result = isOpen ? open->Status(status) : stat(folder.empty() ? "." : folder.c_str(), &status);
    if (result != 0) return std::nullopt;
    return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

std::optional<FolderIndex::Stamp> FolderIndex::RecentStampOf(const std::string& folder,
                                                             const OpenFolder* open) {
    {
        const std::lock_guard lock(mutex_);
        if (IsJustSeen(folder)) return lastSeen_.stamp;
    }
    return StampOf(folder, open);
}

bool FolderIndex::IsJustSeen(const std::string& folder) const {
    return folder == lastSeen_.folder && folder.starts_with(PathSeparator) &&
           std::chrono::steady_clock::now() - lastSeen_.when < JustNow;
}

bool FolderIndex::SawJustNow(const std::string& folder, dev_t device, ino_t node) {
    const std::lock_guard lock(mutex_);
    return IsJustSeen(folder) && lastSeen_.stamp.device == device && lastSeen_.stamp.node == node;
}

FolderIndex::Names* FolderIndex::Find(const Stamp& stamp) {
    const auto found = std::find_if(folders_.begin(), folders_.end(),
                                    [&](const Names& names) { return names.stamp.IsOfFolder(stamp); });
    return found == folders_.end() ? nullptr : &*found;
}

/// The folder is remembered with that stamp and no names, in the place of what was known of it.
void FolderIndex::StartAnew(Names* names, const Stamp& stamp) {
    if (names != nullptr) {
        folders_.erase(folders_.begin() + (names - folders_.data()));
    } else if (folders_.size() == RememberedFolders) {
        folders_.erase(folders_.begin());
    }
    folders_.emplace_back().stamp = stamp;
}

std::vector<std::string> FolderIndex::NamesInAnyCase(const Stamp& stamp, const std::string& folder,
                                                     const std::string& name) {
    const std::lock_guard lock(mutex_);
    Names* names = Find(stamp);
    if (names == nullptr || !(names->stamp == stamp)) {
        StartAnew(names, stamp);
        return zefta::NamesInAnyCase(folder, name);
    }
    if (!names->isFilled) {
        // The stamp is older than the look: a change in between is seen the next time.
        ForEachName(folder, [&](const char* entry) { names->byLowerCase.emplace(ToLower(entry), entry); });
        names->isFilled = true;
    }
    return Matches(names->byLowerCase, name);
}

std::vector<std::string> FolderIndex::NamesInAnyCase(const std::string& folder, const std::string& name) {
    const auto stamp = StampOf(folder);
    return stamp ? NamesInAnyCase(*stamp, folder, name) : std::vector<std::string>();
}

FolderChange::FolderChange(FolderIndex& index, const std::string& path, const OpenFolder* open)
    : index_(index), folder_(FolderPart(path)), open_(open), before_(index.RecentStampOf(folder_, open)) {}

std::vector<std::string> FolderChange::NamesInAnyCase(const std::string& name) {
    return before_ ? index_.NamesInAnyCase(*before_, folder_, name) : std::vector<std::string>();
}

bool FolderChange::IsOfSameFolder(const FolderChange& other) const {
    return before_ && other.before_ && before_->IsOfFolder(*other.before_);
}

template <typename Change>
void FolderChange::Follow(Change change) {
    if (!before_) return;
    const auto after = FolderIndex::StampOf(folder_, open_);
    const std::lock_guard lock(index_.mutex_);
    FolderIndex::Names* names = index_.Find(*before_);
    if (names == nullptr || !after || !(names->stamp == *before_)) return;
    if (names->isFilled) change(names->byLowerCase);
    names->stamp = *after;
    before_ = after;
    index_.lastSeen_ = {folder_, *after, std::chrono::steady_clock::now()};
}

void FolderChange::Added(const std::string& name) {
    Follow([&](ByLowerCase& names) { Insert(names, name); });
}

void FolderChange::Removed(const std::string& name) {
    Follow([&](ByLowerCase& names) { Erase(names, name); });
}

void FolderChange::Renamed(const std::string& from, const std::string& to) {
    Follow([&](ByLowerCase& names) {
        Erase(names, from);
        names.emplace(ToLower(to), to);
    });
}

}  // namespace zefta
