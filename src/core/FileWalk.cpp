#include "core/FileWalk.h"

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/Folders.h"

namespace zefta {

void WalkFiles(App& app,
               const std::function<void(const std::string& folder, const std::string& name)>& step) {
    const FolderAndMask work = SplitFileSpec(app.files, app.state.FileSpec);
    // Tools that are told no folder write to the current one.
    app.files.SetCurrentFolder(work.folder);
    const std::vector<std::string> names = FilesOf(app.files, work);
    Batch batch(app, names.size());
    for (const std::string& name : names) {
        if (!batch.Next()) return;
        CheckRuntimeError(app, [&] { step(work.folder, name); });
    }
}

}  // namespace zefta
