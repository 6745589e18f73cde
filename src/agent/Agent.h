#pragma once

#include <QSocketNotifier>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>

#include "agent/AgentMenu.h"
#include "agent/TrayWatch.h"
#include "core/App.h"
#include "platform/AgentEndpoint.h"

namespace zefta {

/// Serves the requests of others until one asks the agent to end, or the system does. Needs no display.
class AgentRequests : public QObject {
    Q_OBJECT

  public:
    explicit AgentRequests(AgentServer& server);

  signals:
    void EndAsked();

  private:
    AgentServer& server_;
    QSocketNotifier requests_;
    std::unique_ptr<QSocketNotifier> termination_;
};

/// The agent in the notification area of the desktop.
class AgentTray : public QObject {
    Q_OBJECT

  public:
    AgentTray(App& app, std::function<void()> readSettingsAgain, TrayWatch::Patience patience = {});

  signals:
    void ExitChosen();

  private:
    void ShowIcon();
    void SayThatNoneIsThere();

    App& app_;
    AgentMenu menu_;
    QSystemTrayIcon icon_;
    TrayWatch watch_;
};

}  // namespace zefta
