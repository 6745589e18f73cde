#include "library/RenameWalkers.h"

#include <utility>

#include "core/FileKind.h"
#include "core/Folders.h"
#include "core/OptionTable.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "library/RenameByTags.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

bool IsMeant(const App& app, const std::string& name) {
    return IsCompressedFile(name) && MatchesFileSpec(app, name);
}

bool IsNameOfFile(const App& app, const std::string& folder, const std::string& text) {
    return text.find(PathSeparator) == std::string::npos && app.files.FileExists(JoinPath(folder, text));
}

}  // namespace

RenameRun::RenameRun(App& theApp, std::string theRoot)
    : app(theApp), root(std::move(theRoot)), toldFolder(root) {}

void NewRenameMap(RenameRun& run) {
    run.map.emplace();
}

void ClearRenameMap(RenameRun& run) {
    run.map.reset();
}

std::string RenameOne(RenameRun& run, const std::string& folder, const std::string& name) {
    TellFolder(run, folder);
    std::string told = name;
    const bool hasStayed = RenameByTags(run.app, folder, told, run.app.state.RenameFormat).hasStayed;
    const std::string newName = hasStayed ? name : told;
    run.places.insert(PlaceOf(run.app, JoinPath(folder, newName)));
    return newName;
}

std::string RenameAndRemember(RenameRun& run, const std::string& folder, const std::string& name) {
    std::string newName = RenameOne(run, folder, name);
    if (run.map) run.map->Add(JoinPath(folder, name), newName);
    return newName;
}

void RenameFolderFiles(RenameRun& run, const std::string& folder) {
    const std::string place = run.app.files.FollowLinks(folder);
    for (const std::string& name : NamesOfFiles(run.app, folder)) {
        if (!IsMeant(run.app, name) || run.places.contains(JoinPath(place, name))) continue;
        RenameAndRemember(run, folder, name);
        run.app.desktop.ServeEvents();
    }
}

void RenameFolderTree(RenameRun& run, const std::string& folder) {
    const std::vector<std::string> subfolders = Subfolders(run.app, folder);
    RenameFolderFiles(run, folder);
    for (const std::string& subfolder : subfolders) RenameFolderTree(run, subfolder);
}

void RenameFolder(RenameRun& run, const std::string& folder) {
    run.app.state.ProcessSubfolders ? RenameFolderTree(run, folder) : RenameFolderFiles(run, folder);
}

std::string TakeFolderOfFileSpec(App& app, const std::string& folder) {
    std::string& given = app.state.FileSpec;
    if (BeginsWithSlash(app.files, given) || IsNameOfFile(app, folder, given)) return folder;
    const FolderAndMask work = SplitFileSpec(app.files, given);
    if (work.mask.size() == given.size()) return folder;
    given = work.mask;
    return work.folder;
}

std::string PlaceOf(const App& app, const std::string& path) {
    const std::string real = app.files.FollowLinks(path);
    if (real == path) return path;
    const std::string name = NamePart(path);
    const std::string onDisk = NamePart(real);
    return JoinPath(app.files.FollowLinks(FolderPart(path)),
                    EqualsIgnoringCase(onDisk, name) ? onDisk : name);
}

bool MatchesFileSpec(const App& app, const std::string& name) {
    return MatchesMask(name, app.state.FileSpec);
}

std::vector<std::string> NamesOfFiles(const App& app, const std::string& folder) {
    std::vector<std::string> names;
    for (FolderEntry& entry : app.files.List(folder)) {
        if (!entry.isFolder && !entry.isSpecial) names.push_back(std::move(entry.name));
    }
    return names;
}

std::vector<std::string> Subfolders(const App& app, const std::string& folder) {
    const std::string real = app.files.FollowLinks(folder);
    std::vector<std::string> paths;
    for (const FolderEntry& entry : app.files.List(folder)) {
        const std::string path = JoinPath(folder, entry.name);
        if (entry.isFolder && app.files.FollowLinks(path) == JoinPath(real, entry.name))
            paths.push_back(path);
    }
    return paths;
}

std::string BelowRoot(const RenameRun& run, const std::string& path) {
    if (path == run.root) return ".";
    const std::string prefix = WithClosingSeparator(run.root);
    return path.starts_with(prefix) ? path.substr(prefix.size()) : path;
}

void TellFolder(RenameRun& run, const std::string& folder) {
    if (folder == run.toldFolder) return;
    run.toldFolder = folder;
    TellStep(run.app, "in: " + BelowRoot(run, folder));
}

}  // namespace zefta
