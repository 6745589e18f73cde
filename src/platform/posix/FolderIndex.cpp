#include "platform/posix/FolderIndex.h"

#include <algorithm>
#include <sys/stat.h>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/NameLookup.h"

namespace zefta {

namespace {

/// A job works on one folder, or moves files from one to another.
constexpr std::size_t RememberedFolders = 4;

using ByLowerCase = std::unordered_multimap<std::string, std::string>;

bool IsSameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

void Erase(ByLowerCase& names, const std::string& name) {
    const auto [first, last] = names.equal_range(ToLower(name));
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second == name; });
    if (found != last) names.erase(found);
}

void Insert(ByLowerCase& names, const std::string& name) {
    Erase(names, name);
    names.emplace(ToLower(name), name);
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

std::optional<FolderIndex::Stamp> FolderIndex::StampOf(const std::string& folder) {
    struct stat status;
    if (stat(folder.empty() ? "." : folder.c_str(), &status) != 0) return std::nullopt;
    return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

FolderIndex::Names& FolderIndex::NamesOf(const Stamp& stamp, bool& isNew) {
    const auto found = std::find_if(folders_.begin(), folders_.end(),
                                    [&](const Names& names) { return names.stamp.IsOfFolder(stamp); });
    isNew = found == folders_.end();
    if (!isNew) {
        std::rotate(found, found + 1, folders_.end());
        return folders_.back();
    }
    if (folders_.size() == RememberedFolders) folders_.erase(folders_.begin());
    return folders_.emplace_back();
}

FolderIndex::Names* FolderIndex::FilledNamesOf(const Stamp& stamp) {
    const auto found = std::find_if(folders_.begin(), folders_.end(), [&](const Names& names) {
        return names.isFilled && names.stamp.IsOfFolder(stamp);
    });
    return found == folders_.end() ? nullptr : &*found;
}

std::vector<std::string> FolderIndex::NamesInAnyCase(const std::string& folder, const std::string& name) {
    const auto stamp = StampOf(folder);
    if (!stamp) return {};
    const std::lock_guard lock(mutex_);
    bool isNew = false;
    Names& names = NamesOf(*stamp, isNew);
    if (isNew) {
        names.stamp = *stamp;
        return zefta::NamesInAnyCase(folder, name);
    }
    if (!names.isFilled || !(names.stamp == *stamp)) {
        // The stamp is older than the look: a change in between is seen the next time.
        names.stamp = *stamp;
        names.isFilled = true;
        names.byLowerCase.clear();
        ForEachName(folder, [&](const char* entry) { names.byLowerCase.emplace(ToLower(entry), entry); });
    }
    return Matches(names.byLowerCase, name);
}

FolderChange::FolderChange(FolderIndex& index, const std::string& path)
    : index_(index), folder_(FolderPart(path)), name_(NamePart(path)) {
    const auto stamp = FolderIndex::StampOf(folder_);
    if (!stamp) return;
    const std::lock_guard lock(index_.mutex_);
    const auto* names = index_.FilledNamesOf(*stamp);
    isFollowed_ = names != nullptr && names->stamp == *stamp;
}

template <typename Change>
void FolderChange::Follow(Change change) {
    if (!isFollowed_) return;
    const auto stamp = FolderIndex::StampOf(folder_);
    if (!stamp) return;
    const std::lock_guard lock(index_.mutex_);
    auto* names = index_.FilledNamesOf(*stamp);
    if (names == nullptr) return;
    change(names->byLowerCase);
    names->stamp = *stamp;
}

void FolderChange::Added() {
    Follow([&](ByLowerCase& names) { Insert(names, name_); });
}

void FolderChange::Removed() {
    Follow([&](ByLowerCase& names) { Erase(names, name_); });
}

void FolderChange::Renamed(const std::string& name) {
    Follow([&](ByLowerCase& names) {
        Erase(names, name_);
        Insert(names, name);
    });
}

}  // namespace zefta
