#include "library/ChangeTagsWalkers.h"

#include <utility>
#include <vector>

#include "core/Batch.h"
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

std::vector<std::string> CompressedFilesMeant(const App& app, const std::vector<FolderEntry>& entries) {
    std::vector<std::string> names;
    for (const FolderEntry& entry : entries) {
        if (!entry.isFolder && !entry.isSpecial) names.push_back(entry.name);
    }
    names = NamesMeant(std::move(names), app.state.FileSpec);
    std::erase_if(names, [](const std::string& name) { return !IsCompressedFile(name); });
    return names;
}

class Walk {
  public:
    explicit Walk(App& app) : app_(app), values_(ValuesOfOptions(app.state)), tree_(app.files), batch_(app) {}

    void ChangeFiles(const WalkedFolder& folder, const std::vector<FolderEntry>& entries);
    void ChangeTree(const WalkedFolder& folder);

  private:
    App& app_;
    TagValues values_;
    FolderTree tree_;
    Batch batch_;
};

void Walk::ChangeFiles(const WalkedFolder& folder, const std::vector<FolderEntry>& entries) {
    const std::vector<std::string> names = CompressedFilesMeant(app_, entries);
    batch_.Expect(names.size());
    for (const std::string& name : names) {
        if (!batch_.Next()) return;
        const ChangedFile file = {JoinPath(folder.path, name), JoinPath(folder.shownName, name)};
        CheckRuntimeError(app_, [&] { ChangeTagsOfFile(app_, file, values_); });
    }
}

void Walk::ChangeTree(const WalkedFolder& folder) {
    if (batch_.IsCancelled() || !tree_.Enter(folder.path)) return;
    const std::vector<FolderEntry> entries = app_.files.List(folder.path);
    ChangeFiles(folder, entries);
    for (const FolderEntry& entry : entries) {
        if (entry.isFolder)
            ChangeTree({JoinPath(folder.path, entry.name), JoinPath(folder.shownName, entry.name)});
    }
    tree_.Leave();
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
    Walk(app).ChangeFiles({folder, ""}, app.files.List(folder));
}

void ChangeFolderTreeTags(App& app, const std::string& folder) {
    Walk(app).ChangeTree({folder, ""});
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
