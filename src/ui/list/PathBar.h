#pragma once

#include <QWidget>

#include "core/App.h"

class QToolButton;

namespace zefta {

class DriveBox;
class PathBox;

/// drvBox, cmbPath and cmbBrowseFolder in one line.
class PathBar : public QWidget {
    Q_OBJECT

  public:
    explicit PathBar(App& app, QWidget* parent = nullptr);

    DriveBox& Drives() const { return *drives_; }
    PathBox& Path() const { return *path_; }

  signals:
    void BrowseRequested();

  private:
    DriveBox* drives_;
    PathBox* path_;
    QToolButton* browse_;
};

}  // namespace zefta
