#include "ui/info/ShowFileInformation.h"

#include "core/FileKind.h"
#include "ui/info/MP3FileInfo.h"
#include "ui/info/MPEGplusFileInfo.h"
#include "ui/info/OggFileInfo.h"

namespace zefta {

namespace {

template <typename Dialog>
bool Run(App& app, const std::string& path, QWidget* parent) {
    Dialog dialog(app, path, parent);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace

bool ShowFileInformation(App& app, const std::string& path, QWidget* parent) {
    if (IsMP3File(path)) return Run<MP3FileInfo>(app, path, parent);
    if (IsOggFile(path)) return Run<OggFileInfo>(app, path, parent);
    if (IsMPEGplusFile(path)) return Run<MPEGplusFileInfo>(app, path, parent);
    return false;
}

}  // namespace zefta
