#include "library/RenameWalkers.h"

#include <unordered_set>
#include <utility>

#include "core/FileKind.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

/// Where the walk of a tree has put files, in lower case: it may come to the folder.
using Places = std::unordered_set<std::string>;

bool IsMeant(const App& app, const std::string& name) {
    return IsCompressedFile(name) && MatchesFileSpec(app, name);
}

void RenameFilesOfTree(RenameRun& run, const std::string& folder, Places& places) {
    for (const std::string& name : NamesOfFiles(run.app, folder)) {
        if (!IsMeant(run.app, name) || places.contains(ToLower(JoinPath(folder, name)))) continue;
        const std::string newName = RenameAndRemember(run, folder, name);
        if (newName.find(PathSeparator) != std::string::npos)
            places.insert(ToLower(JoinPath(folder, newName)));
    }
}

void RenameTree(RenameRun& run, const std::string& folder, Places& places) {
    const std::vector<std::string> subfolders = Subfolders(run.app, folder);
    RenameFilesOfTree(run, folder, places);
    for (const std::string& subfolder : subfolders) RenameTree(run, subfolder, places);
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
    std::string newName = name;
    run.app.defaultWaveFile->RenameFileByTAGsData(folder, newName, run.app.state.RenameFormat);
    return newName;
}

std::string RenameAndRemember(RenameRun& run, const std::string& folder, const std::string& name) {
    std::string newName = RenameOne(run, folder, name);
    if (run.map) run.map->Add(JoinPath(folder, name), newName);
    return newName;
}

void RenameFolderFiles(RenameRun& run, const std::string& folder) {
    for (const std::string& name : NamesOfFiles(run.app, folder)) {
        if (IsMeant(run.app, name)) RenameAndRemember(run, folder, name);
    }
}

void RenameFolderTree(RenameRun& run, const std::string& folder) {
    Places places;
    RenameTree(run, folder, places);
}

void RenameFolder(RenameRun& run, const std::string& folder) {
    run.app.state.ProcessSubfolders ? RenameFolderTree(run, folder) : RenameFolderFiles(run, folder);
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
