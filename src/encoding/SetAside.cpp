#include "encoding/SetAside.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace zefta {

std::string FreePathBeside(const FileSystem& files, const std::string& path, const std::string& label) {
    const std::size_t name = path.rfind(PathSeparator) + 1;
    const std::size_t dot = path.rfind('.');
    const std::size_t stemEnd = dot != std::string::npos && dot >= name ? dot : path.size();
    for (int attempt = 1;; ++attempt) {
        const std::string number = attempt > 1 ? " " + std::to_string(attempt) : "";
        std::string candidate = path;
        candidate.insert(stemEnd, " (" + label + number + ")");
        if (!files.FileExists(candidate) && !files.FolderExists(candidate)) return candidate;
    }
}

SetAside::~SetAside() {
    try {
        PutBack();
    } catch (const RuntimeError&) {
        // Somebody is being told of another failure. The file has a name that says what it is.
    }
}

void SetAside::Take(const std::string& path) {
    const std::string folder = FolderPart(path);
    const std::string name = ToLower(NamePart(path));
    for (const FolderEntry& entry : files_.List(folder.empty() ? files_.CurrentFolder() : folder)) {
        if (entry.isFolder || ToLower(entry.name) != name) continue;
        const std::string found = JoinPath(folder, entry.name);
        const std::string aside = FreePathBeside(files_, found, "set aside");
        files_.MoveFile(found, aside);
        moves_.push_back({found, aside});
    }
}

void SetAside::PutBack() {
    while (!moves_.empty()) {
        const Move& last = moves_.back();
        try {
            files_.MoveFile(last.asidePath, last.path);
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.Kind(), last.asidePath);
        }
        moves_.pop_back();
    }
}

}  // namespace zefta
