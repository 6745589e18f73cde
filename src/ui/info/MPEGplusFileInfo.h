#pragma once

#include "ui/info/InformationDialog.h"

namespace zefta {

/// frmFileInfoMPEGplus: an MPEGplus file with its APE tag.
class MPEGplusFileInfo : public InformationDialog {
    Q_OBJECT

  public:
    MPEGplusFileInfo(App& app, const std::string& path, QWidget* parent);
};

}  // namespace zefta
