#include "library/ChangeTagsWalkers.h"

#include <utility>
#include <vector>

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FolderTree.h"
#include "core/Folders.h"
#include "core/OptionTable.h"
#include "core/Strings.h"
#include "library/ChangeTags.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

/// A folder of the walk: its path, and how a preview calls it ("" for the one where the walk begins).
struct WalkedFolder {
    std::string path;
    std::string shownName;
};

void ChangeMatchingFiles(App& app, const WalkedFolder& folder, const std::vector<FolderEntry>& entries) {
    const TagValues values = ValuesOfOptions(app.state);
    std::vector<std::string> names;
    for (const FolderEntry& entry : entries) {
        if (!entry.isFolder && !entry.isSpecial) names.push_back(entry.name);
    }
    for (const std::string& name : NamesMeant(std::move(names), app.state.FileSpec)) {
        if (!IsCompressedFile(name)) continue;
        const ChangedFile file = {JoinPath(folder.path, name), JoinPath(folder.shownName, name)};
        CheckRuntimeError(app, [&] { ChangeTagsOfFile(app, file, values); });
        app.desktop.ServeEvents();
    }
}

void ChangeTree(App& app, FolderTree& tree, const WalkedFolder& folder) {
    if (!tree.Enter(folder.path)) return;
    const std::vector<FolderEntry> entries = app.files.List(folder.path);
    ChangeMatchingFiles(app, folder, entries);
    for (const FolderEntry& entry : entries) {
        if (!entry.isFolder) continue;
        ChangeTree(app, tree, {JoinPath(folder.path, entry.name), JoinPath(folder.shownName, entry.name)});
    }
    tree.Leave();
}

/// An unknown word that begins with "/" is no path from the root of the machine.
std::string TakeFolder(App& app) {
    if (BeginsWithSlash(app.files, app.state.FileSpec)) return app.files.CurrentFolder();
    FolderAndMask work = SplitFileSpec(app.files, app.state.FileSpec);
    app.state.FileSpec = std::move(work.mask);
    return work.folder;
}

}  // namespace

void ChangeFolderTags(App& app, const std::string& folder) {
    ChangeMatchingFiles(app, {folder, ""}, app.files.List(folder));
}

void ChangeFolderTreeTags(App& app, const std::string& folder) {
    FolderTree tree(app.files);
    ChangeTree(app, tree, {folder, ""});
}

void ChangeTagsJob(App& app) {
    const std::string folder = TakeFolder(app);
    if (app.state.ProcessSubfolders) {
        ChangeFolderTreeTags(app, folder);
    } else {
        ChangeFolderTags(app, folder);
    }
}

}  // namespace zefta
