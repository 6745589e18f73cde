#pragma once

#include <QStringList>
#include <QToolBar>
#include <string>

#include "core/App.h"
#include "ui/main/MenuTable.h"

namespace zefta {

/// tbToolBar: the buttons of the main window, made from their table. A button is found by its key.
class MainToolBar : public QToolBar {
    Q_OBJECT

  public:
    explicit MainToolBar(App& app, QWidget* parent = nullptr);

    /// The names of those of our pictures that its buttons show.
    static QStringList OwnPictures();

    /// Sets the tips. To be called again when the language has changed.
    void LoadCaptions();
    void SetButtonEnabled(const std::string& key, bool enabled);

  signals:
    void Chosen(zefta::Command command);

  private:
    QAction* Button(const std::string& key) const;

    App& app_;
};

}  // namespace zefta
