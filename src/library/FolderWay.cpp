#include "library/FolderWay.h"

#include "platform/Paths.h"

namespace zefta {

namespace {

bool MeansHome(std::string_view typed) {
    return typed == "~" || typed.starts_with(std::string{'~', PathSeparator});
}

}  // namespace

std::string TypedFolder(const App& app, const std::string& folder, const std::string& typed) {
    if (typed.empty()) return folder;
    const std::string native = app.files.ToNativePath(typed);
    if (IsAbsolutePath(native)) return native;
    const std::string within = JoinPath(folder, native);
    if (MeansHome(native) && !app.files.FolderExists(within))
        return app.machine.homeFolder + native.substr(1);
    return within;
}

std::string WithoutDoubledSeparators(std::string_view path) {
    std::string single;
    for (const char character : path) {
        const bool doubles = character == PathSeparator && single.ends_with(PathSeparator);
        if (!doubles) single += character;
    }
    return single;
}

bool IsRoot(std::string_view path) {
    return LexicalPath(path).size() == 1;
}

std::string FolderAbove(std::string_view path) {
    const std::string above = FolderPart(LexicalPath(path));
    return above.empty() ? std::string(1, PathSeparator) : above;
}

}  // namespace zefta
