#pragma once

#include "ui/desktop/ProgressDialog.h"

class QGroupBox;

namespace zefta {

/// frmCopyPlaylist: how far the copying of a playlist with its files is.
class CopyPlaylistDialog : public ProgressDialog {
    Q_OBJECT

  public:
    CopyPlaylistDialog(Language language, QWidget* parent);

  protected:
    void Display(const ProgressReport& report) override;

  private:
    QProgressBar* total_;
    QProgressBar* current_;
};

}  // namespace zefta
