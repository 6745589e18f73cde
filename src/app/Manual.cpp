#include "app/Manual.h"

#include "core/Boxes.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

void OpenManual(App& app) {
    const std::string manual = JoinPath(FolderPart(app.processes.OwnPath()), "ReadMe.html");
    // An installation without its manual is broken, which is no matter of a help message.
    if (!app.files.FileExists(manual)) throw RuntimeError(ErrorNumber::FileNotFound, manual);
    if (!app.desktop.OpenDocument(manual))
        ShowWarning(app, "No program was found that opens " + app.ansi.ToText(manual) + ".");
}

}  // namespace zefta
