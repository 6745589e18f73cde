#pragma once

#include <QComboBox>
#include <functional>
#include <string>
#include <vector>

#include "core/App.h"

namespace zefta {

/// drvBox: the root, the home folder and the removable media that are mounted.
class DriveBox : public QComboBox {
    Q_OBJECT

  public:
    using MediaLister = std::function<std::vector<std::string>()>;

    explicit DriveBox(const App& app, QWidget* parent = nullptr);

    /// What tells the mounted media; that of the platform unless told.
    void SetMediaLister(MediaLister lister) { listMedia_ = std::move(lister); }
    /// Asks for the media again. Chooses nothing.
    void Refresh();
    /// Shows the drive that the folder is on. Chooses nothing.
    void Follow(const std::string& folder);

  signals:
    /// By the person.
    void DriveChosen(const std::string& path);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Choose(int index);

    const App& app_;
    MediaLister listMedia_;
    std::vector<std::string> drives_;
    std::string folder_;
};

}  // namespace zefta
