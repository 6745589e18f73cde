#pragma once

#include <QLineEdit>
#include <string>

#include "core/App.h"

namespace zefta {

/// A line of entry for a path. One whose bytes are no text in Unicode is shown as text and stays what it is
/// until the person types.
class FolderLine : public QLineEdit {
    Q_OBJECT

  public:
    explicit FolderLine(const App& app, QWidget* parent = nullptr);

    void SetPath(const std::string& path);
    std::string Path() const;

  private:
    const App& app_;
    std::string path_;
};

}  // namespace zefta
