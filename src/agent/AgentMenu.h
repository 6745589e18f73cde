#pragma once

#include <QElapsedTimer>
#include <QMenu>
#include <functional>
#include <string>

#include "core/App.h"

namespace zefta {

/// The quick actions of the agent. What it shows is the store's: texts, recent folders and the language, as
/// they are when the menu opens.
class AgentMenu : public QMenu {
    Q_OBJECT

  public:
    /// `readSettingsAgain` brings the store of the App up to date with its file.
    AgentMenu(App& app, std::function<void()> readSettingsAgain);

    /// Starts the program as the entry "Open" does; the second click of a double one starts no other.
    void OpenProgram();

  signals:
    void ExitChosen();

  private:
    void Rebuild();
    void AddRecentFolders();
    void AddLanguages();
    QAction* AddCommand(const char* objectName, const char* textKey, const std::string& argument);
    /// Starts the program of the agent's folder with the argument; "" for none.
    void StartProgram(const std::string& argument);

    App& app_;
    std::function<void()> readSettingsAgain_;
    QElapsedTimer sinceOpened_;
};

}  // namespace zefta
