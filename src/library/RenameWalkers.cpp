#include "library/RenameWalkers.h"

#include <utility>

#include "core/FileKind.h"
#include "core/Folders.h"
#include "core/OptionTable.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "library/RenameByTags.h"
#include "library/RenamesAhead.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

bool IsNameOfFile(const App& app, const std::string& folder, const std::string& text) {
    return text.find(PathSeparator) == std::string::npos && app.files.FileExists(JoinPath(folder, text));
}

/// The name that the file has then, relative to the folder.
std::string MoveAndRemember(RenameRun& run, const std::string& folder, const std::string& name,
                            const RenamePlan& plan) {
    std::string told = name;
    const bool hasStayed = RenameAsPlanned(run.app, plan, folder, told).hasStayed;
    const std::string newName = hasStayed ? name : told;
    if (run.map) run.map->Add(JoinPath(folder, name), newName);
    return newName;
}

}  // namespace

RenameRun::RenameRun(App& theApp, std::string theRoot)
    : app(theApp), root(std::move(theRoot)), batch(theApp), toldFolder(root) {}

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
    std::vector<std::string> names = FilesMeant(run.app, folder);
    std::erase_if(names, [&](const std::string& name) {
        return !IsCompressedFile(name) || run.places.contains(JoinPath(place, name));
    });
    if (names.empty()) return;
    TellFolder(run, folder);
    const RenameRule rule = RuleOfRun(run.app, run.app.state.RenameFormat);
    const FileReading reading = {run.app.files, run.app.ansi, UnknownContent::PassOver};
    RenamesAhead ahead(reading, rule, folder, names);
    run.batch.Expect(names.size());
    for (std::size_t i = 0; i < names.size() && run.batch.Next(); ++i) {
        const RenamePlan plan = PlanOrTell(run.app, names[i], [&] { return ahead.Take(i); });
        const std::string newName = MoveAndRemember(run, folder, names[i], plan);
        const bool isInFolder = newName.find(PathSeparator) == std::string::npos;
        run.places.insert(isInFolder ? JoinPath(place, newName)
                                     : PlaceOf(run.app, JoinPath(folder, newName)));
    }
}

void RenameFolderTree(RenameRun& run, const std::string& folder) {
    const std::vector<std::string> subfolders = Subfolders(run.app, folder);
    RenameFolderFiles(run, folder);
    for (const std::string& subfolder : subfolders) {
        // Folders without files to name come to no item of the batch, and there may be any number of them.
        if (!run.batch.Pause()) return;
        RenameFolderTree(run, subfolder);
    }
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

std::vector<std::string> FilesMeant(const App& app, const std::string& folder) {
    return NamesMeant(FilesIn(app.files, folder), app.state.FileSpec);
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
