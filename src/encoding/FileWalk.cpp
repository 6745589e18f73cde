#include "encoding/FileWalk.h"

#include "core/Boxes.h"
#include "core/Folders.h"
#include "core/Strings.h"

namespace zefta {

void WalkFiles(App& app,
               const std::function<void(const std::string& folder, const std::string& name)>& step) {
    const FolderAndMask work = SplitFileSpec(app.files, app.state.FileSpec);
    // Tools that are told no folder write to the current one.
    app.files.SetCurrentFolder(work.folder);
    for (const FolderEntry& entry : app.files.List(work.folder)) {
        if (entry.isFolder || !MatchesMask(entry.name, work.mask)) continue;
        CheckRuntimeError(app, [&] { step(work.folder, entry.name); });
    }
}

}  // namespace zefta
