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

void DropIfThere(FileSystem& files, const std::string& path) {
    if (files.FileExists(path)) files.DeleteFile(path, Force::Yes);
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
    std::string found;
    for (const FolderEntry& entry : files_.List(folder.empty() ? files_.CurrentFolder() : folder)) {
        if (entry.isFolder || ToLower(entry.name) != name) continue;
        if (!found.empty()) throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
        found = JoinPath(folder, entry.name);
    }
    if (found.empty()) return;
    const std::string aside = FreePathBeside(files_, found, "set aside");
    files_.MoveFile(found, aside);
    path_ = found;
    asidePath_ = aside;
}

void SetAside::PutBack() {
    if (!IsAway()) return;
    try {
        files_.MoveFile(asidePath_, path_);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Kind(), asidePath_);
    }
    asidePath_.clear();
}

}  // namespace zefta
