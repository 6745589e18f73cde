#include "app/Manual.h"

#include "core/Boxes.h"
#include "platform/Paths.h"

namespace zefta {

void OpenManual(App& app) {
    const std::string manual = JoinPath(FolderPart(app.processes.OwnPath()), "ReadMe.html");
    if (!app.files.FileExists(manual) || !app.desktop.OpenDocument(manual))
        ShowWarning(app, app.messages.GetMessage(32005));
}

}  // namespace zefta
