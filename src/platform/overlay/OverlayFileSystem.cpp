#include "platform/overlay/OverlayFileSystem.h"

#include <utility>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/overlay/OverlayFile.h"

namespace zefta {

namespace {

using Lock = std::lock_guard<std::recursive_mutex>;

std::string WithoutClosingSeparators(std::string path) {
    while (path.size() > 1 && path.back() == PathSeparator) path.pop_back();
    return path;
}

}  // namespace

OverlayFileSystem::OverlayFileSystem(FileSystem& base) : base_(base), currentFolder_(base.CurrentFolder()) {}

std::string OverlayFileSystem::Absolute(const std::string& path) const {
    if (path.empty()) return currentFolder_;
    return WithoutClosingSeparators(path.front() == PathSeparator ? path : JoinPath(currentFolder_, path));
}

OverlayFileSystem::View* OverlayFileSystem::OpenView(const std::string& path,
                                                     const std::string& basePath) const {
    if (const auto known = views_.find(path); known != views_.end()) return known->second.get();
    const auto view = std::make_shared<View>(View{path, basePath, {}});
    if (!basePath.empty()) {
        for (const FolderEntry& entry : base_.List(basePath))
            view->entries.Add({entry.name, entry.isFolder, entry.isSpecial, JoinPath(basePath, entry.name),
                               nullptr, std::nullopt, 0});
    }
    views_[path] = view;
    return view.get();
}

/// The view of the folder; null when there is no such folder. RuntimeError 70 when it can't be read.
OverlayFileSystem::View* OverlayFileSystem::ViewOf(const std::string& folder) const {
    const std::string path = Absolute(folder);
    if (const auto known = views_.find(path); known != views_.end()) return known->second.get();
    View* view = nullptr;
    if (IsBelowAView(path)) {
        view = ViewBelow(path);
    } else if (base_.FolderExists(path)) {
        const std::string real = base_.FollowLinks(path);
        view = OpenView(real, real);
    }
    if (view != nullptr) views_[path] = views_.at(view->path);
    return view;
}

bool OverlayFileSystem::IsBelowAView(const std::string& path) const {
    for (std::string folder = FolderPart(path);; folder = FolderPart(folder)) {
        if (views_.contains(folder)) return true;
        if (folder.size() <= 1) return false;
    }
}

OverlayFileSystem::View* OverlayFileSystem::ViewBelow(const std::string& path) const {
    View* parent = ViewOf(FolderPart(path));
    const std::string name = NamePart(path);
    if (parent == nullptr || name.empty() || name == ".") return parent;
    if (name == "..") return ViewOf(FolderPart(parent->path));
    const OverlayNode* node = parent->entries.Find(name);
    if (node == nullptr || !node->isFolder) return nullptr;
    const std::string own = JoinPath(parent->path, node->name);
    if (node->basePath != own) return OpenView(own, node->basePath);
    const std::string real = base_.FollowLinks(own);
    return OpenView(real, real);
}

/// The folder in which the path is to be made or taken away.
OverlayFileSystem::View& OverlayFileSystem::FolderForChange(const std::string& path) const {
    View* view = ViewOf(FolderPart(Absolute(path)));
    if (view == nullptr) throw RuntimeError(ErrorNumber::PathNotFound, path);
    if (!view->basePath.empty() && !base_.CanChangeFolder(view->basePath))
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    return *view;
}

OverlayFileSystem::Place OverlayFileSystem::Find(const std::string& path) const {
    const std::string absolute = Absolute(path);
    View* view = ViewOf(FolderPart(absolute));
    return {view, view != nullptr ? view->entries.Find(NamePart(absolute)) : nullptr};
}

/// The same for a question that can't fail: what lies in a folder that can't be read is not there.
OverlayFileSystem::Place OverlayFileSystem::Look(const std::string& path) const {
    try {
        return Find(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

/// A file that is there, links that lead nowhere being none.
OverlayNode* OverlayFileSystem::LookForFile(const std::string& path) const {
    OverlayNode* node = Look(path).node;
    if (node == nullptr || node->isFolder) return nullptr;
    return node->content || base_.FileExists(node->basePath) ? node : nullptr;
}

OverlayNode& OverlayFileSystem::FileAt(const std::string& path) const {
    OverlayNode* node = LookForFile(path);
    if (node == nullptr) throw RuntimeError(ErrorNumber::FileNotFound, path);
    return *node;
}

bool OverlayFileSystem::IsReadOnly(const OverlayNode& node) const {
    if (node.isReadOnly) return *node.isReadOnly;
    return !node.basePath.empty() && base_.FileExists(node.basePath) && base_.IsReadOnly(node.basePath);
}

bool OverlayFileSystem::FileExists(const std::string& path) const {
    const Lock lock(mutex_);
    return LookForFile(path) != nullptr;
}

bool OverlayFileSystem::FolderExists(const std::string& path) const {
    const Lock lock(mutex_);
    if (path.empty()) return false;
    try {
        return ViewOf(path) != nullptr;
    } catch (const RuntimeError&) {
        return base_.FolderExists(path);
    }
}

void OverlayFileSystem::DeleteFile(const std::string& path, Force force) {
    const Lock lock(mutex_);
    const Place place = Find(path);
    if (place.node == nullptr) throw RuntimeError(ErrorNumber::FileNotFound, path);
    if (place.node->isFolder) throw RuntimeError(ErrorNumber::PathFileAccess, path);
    if (force == Force::No && IsReadOnly(*place.node))
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    FolderForChange(path).entries.Erase(*place.node);
}

void OverlayFileSystem::MoveFile(const std::string& source, const std::string& target) {
    const Lock lock(mutex_);
    const Place from = Find(source);
    if (from.node == nullptr) throw RuntimeError(ErrorNumber::FileNotFound, source);
    const std::string name = NamePart(Absolute(target));
    View* to = ViewOf(FolderPart(Absolute(target)));
    if (to == nullptr) throw RuntimeError(ErrorNumber::PathNotFound, target);
    const bool isOtherSpelling = to == from.view && from.node->name != name;
    if (to->entries.IsTaken(name, isOtherSpelling ? from.node : nullptr))
        throw RuntimeError(ErrorNumber::FileAlreadyExists, target);
    if (name.size() > LongestName) throw RuntimeError(ErrorNumber::BadFileName, target);
    FolderForChange(source);
    FolderForChange(target);
    const std::string formerPath = JoinPath(from.view->path, from.node->name);
    const bool isFolder = from.node->isFolder;
    if (isFolder && JoinPath(to->path, "").starts_with(JoinPath(formerPath, "")))
        throw RuntimeError(ErrorNumber::BadFileName, target);
    if (to == from.view) {
        to->entries.Rename(*from.node, name);
    } else {
        OverlayNode moved = *from.node;
        moved.name = name;
        from.view->entries.Erase(*from.node);
        to->entries.Add(std::move(moved));
    }
    if (isFolder) MoveViews(formerPath, JoinPath(to->path, name));
}

/// Folders are about to have other paths: only each one's own still leads to it.
void OverlayFileSystem::ForgetOtherPaths() {
    std::erase_if(views_, [](const auto& known) { return known.first != known.second->path; });
}

/// What was looked into below a folder goes with it.
void OverlayFileSystem::MoveViews(const std::string& from, const std::string& to) {
    ForgetOtherPaths();
    decltype(views_) moved;
    for (auto entry = views_.begin(); entry != views_.end();) {
        const bool isBelow = entry->first == from || entry->first.starts_with(from + PathSeparator);
        if (isBelow) {
            entry->second->path = to + entry->first.substr(from.size());
            moved[entry->second->path] = entry->second;
        }
        entry = isBelow ? views_.erase(entry) : std::next(entry);
    }
    views_.merge(moved);
}

void OverlayFileSystem::ReplaceFile(const std::string& replacement, const std::string& target) {
    const Lock lock(mutex_);
    OverlayNode& to = FileAt(FollowLinks(target));
    OverlayNode& from = FileAt(replacement);
    FolderForChange(replacement);
    if (!from.content)
        from.content = std::make_shared<OverlayContent>([&] { return base_.OpenReadOnly(from.basePath); });
    to.content = from.content;
    to.generation = ++changes_;
    Find(replacement).view->entries.Erase(from);
}

/// Whether what the disk holds is what there is to read. Of what was forgotten that is the next best.
bool OverlayFileSystem::IsReadFromDisk(const OverlayNode& node) const {
    if (!node.content) return true;
    return node.content->IsForgotten() && !node.basePath.empty() && base_.FileExists(node.basePath);
}

std::shared_ptr<OverlayContent> OverlayFileSystem::ContentOnDisk(const OverlayNode& node) const {
    return std::make_shared<OverlayContent>(
        [&base = base_, path = node.basePath] { return base.OpenReadOnly(path); });
}

/// Null when the file can't be opened for changing it.
std::unique_ptr<BinaryFile> OverlayFileSystem::OpenForChange(OverlayNode& node) {
    if (node.isSpecial || IsReadOnly(node)) return nullptr;
    try {
        if (IsReadFromDisk(node)) node.content = ContentOnDisk(node);
    } catch (const RuntimeError&) {
        return nullptr;
    }
    return std::make_unique<OverlayFile>(node.content, budget_, OverlayAccess::Change, false);
}

std::unique_ptr<BinaryFile> OverlayFileSystem::OpenRead(const std::string& path) {
    const Lock lock(mutex_);
    OverlayNode* node = LookForFile(path);
    return node != nullptr ? OpenForChange(*node) : nullptr;
}

std::unique_ptr<BinaryFile> OverlayFileSystem::OpenReadOnly(const std::string& path) {
    const Lock lock(mutex_);
    OverlayNode* node = LookForFile(path);
    if (node == nullptr) return nullptr;
    if (IsReadFromDisk(*node)) return base_.OpenReadOnly(node->basePath);
    return std::make_unique<OverlayFile>(node->content, budget_, OverlayAccess::Read, IsReadOnly(*node));
}

/// A new empty file; null when its folder is not there or can't be changed.
std::unique_ptr<BinaryFile> OverlayFileSystem::Create(const std::string& path) {
    const std::string name = NamePart(Absolute(path));
    if (name.empty() || name.size() > LongestName) return nullptr;
    try {
        OverlayNode node;
        node.name = name;
        node.content = std::make_shared<OverlayContent>();
        node.generation = ++changes_;
        return OpenForChange(FolderForChange(path).entries.Add(std::move(node)));
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

std::unique_ptr<BinaryFile> OverlayFileSystem::OpenCreate(const std::string& path) {
    const Lock lock(mutex_);
    OverlayNode* node = Look(path).node;
    if (node == nullptr) return Create(path);
    if (node->isFolder || node->isSpecial || IsReadOnly(*node)) return nullptr;
    node->content = std::make_shared<OverlayContent>();
    node->generation = ++changes_;
    return OpenForChange(*node);
}

std::unique_ptr<BinaryFile> OverlayFileSystem::OpenNew(const std::string& path) {
    const Lock lock(mutex_);
    return Look(path).node == nullptr ? Create(path) : nullptr;
}

std::int64_t OverlayFileSystem::FileSize(const std::string& path) const {
    const Lock lock(mutex_);
    const OverlayNode& node = FileAt(path);
    return node.content ? node.content->Size() : base_.FileSize(node.basePath);
}

std::string OverlayFileSystem::ContentStamp(const std::string& path) const {
    const Lock lock(mutex_);
    const OverlayNode* node = LookForFile(path);
    if (node == nullptr) return {};
    const bool isAsOnDisk = !node->content || (node->generation == 0 && node->content->Revision() == 0);
    if (isAsOnDisk) return base_.ContentStamp(node->basePath);
    return "changed " + std::to_string(node->generation) + " " + std::to_string(node->content->Revision());
}

bool OverlayFileSystem::IsReadOnly(const std::string& path) const {
    const Lock lock(mutex_);
    return IsReadOnly(FileAt(path));
}

void OverlayFileSystem::SetReadOnly(const std::string& path, bool readOnly) {
    const Lock lock(mutex_);
    FileAt(path).isReadOnly = readOnly;
}

void OverlayFileSystem::CopyAttributes(const std::string& source, const std::string& target) {
    const Lock lock(mutex_);
    FileAt(target).isReadOnly = IsReadOnly(FileAt(source));
}

void OverlayFileSystem::CreateFolder(const std::string& path) {
    const Lock lock(mutex_);
    const Place place = Find(path);
    if (place.node != nullptr || Absolute(path).size() == 1)
        throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
    View& parent = FolderForChange(path);
    OverlayNode node;
    node.name = NamePart(Absolute(path));
    if (node.name.size() > LongestName) throw RuntimeError(ErrorNumber::BadFileName, path);
    node.isFolder = true;
    parent.entries.Add(std::move(node));
}

void OverlayFileSystem::DeleteFolder(const std::string& path, Force force) {
    const Lock lock(mutex_);
    const Place place = Find(path);
    if (place.node == nullptr || !place.node->isFolder) throw RuntimeError(ErrorNumber::PathNotFound, path);
    const std::string own = JoinPath(place.view->path, place.node->name);
    const View* view = ViewOf(own);
    // Where a link leads is none of this folder's.
    if (view != nullptr && view->path == own) {
        for (const FolderEntry& entry : view->entries.Entries()) {
            const std::string inner = JoinPath(own, entry.name);
            entry.isFolder ? DeleteFolder(inner, force) : DeleteFile(inner, force);
        }
    }
    FolderForChange(own).entries.Erase(*place.node);
    ForgetOtherPaths();
    std::erase_if(views_, [&](const auto& known) {
        return known.first == own || known.first.starts_with(own + PathSeparator);
    });
}

std::vector<FolderEntry> OverlayFileSystem::List(const std::string& folder) const {
    const Lock lock(mutex_);
    const View* view = ViewOf(folder);
    if (view == nullptr) throw RuntimeError(ErrorNumber::PathNotFound, folder);
    return view->entries.Entries();
}

std::string OverlayFileSystem::CurrentFolder() const {
    const Lock lock(mutex_);
    return currentFolder_;
}

void OverlayFileSystem::SetCurrentFolder(const std::string& folder) {
    const Lock lock(mutex_);
    const View* view = ViewOf(folder);
    if (folder.empty() || view == nullptr) throw RuntimeError(ErrorNumber::PathNotFound, folder);
    currentFolder_ = view->path;
}

std::string OverlayFileSystem::FollowLinks(const std::string& path) const {
    const Lock lock(mutex_);
    const Place place = Look(path);
    if (place.node == nullptr) return path;
    const std::string own = JoinPath(place.view->path, place.node->name);
    return place.node->basePath == own ? base_.FollowLinks(own) : own;
}

bool OverlayFileSystem::CanChangeFolder(const std::string& folder) const {
    const Lock lock(mutex_);
    const View* view = ViewOf(folder);
    if (view == nullptr) return false;
    return view->basePath.empty() || base_.CanChangeFolder(view->basePath);
}

}  // namespace zefta
