#include "agent/Agent.h"

#include <utility>

#include "core/Agent.h"
#include "core/Boxes.h"
#include "platform/Termination.h"
#include "ui/QtText.h"
#include "ui/Resources.h"
#include "ui/WindowTexts.h"

namespace zefta {

AgentRequests::AgentRequests(AgentServer& server)
    : server_(server), requests_(server.Descriptor(), QSocketNotifier::Read) {
    connect(&requests_, &QSocketNotifier::activated, this, [this] {
        if (server_.TakeCloseRequest()) emit EndAsked();
    });
    const int termination = TerminationDescriptor();
    if (termination < 0) return;
    termination_ = std::make_unique<QSocketNotifier>(termination, QSocketNotifier::Read);
    connect(termination_.get(), &QSocketNotifier::activated, this, [this] {
        termination_->setEnabled(false);
        emit EndAsked();
    });
}

AgentTray::AgentTray(App& app, std::function<void()> readSettingsAgain, TrayWatch::Patience patience)
    : app_(app),
      menu_(app, std::move(readSettingsAgain)),
      icon_(OwnIcon("zefta")),
      watch_(QSystemTrayIcon::isSystemTrayAvailable, patience) {
    icon_.setToolTip(ToQt(AgentTitle()));
    icon_.setContextMenu(&menu_);
    connect(&icon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) menu_.OpenProgram();
    });
    connect(&menu_, &AgentMenu::ExitChosen, this, &AgentTray::ExitChosen);
    connect(&watch_, &TrayWatch::Found, this, &AgentTray::ShowIcon);
    connect(&watch_, &TrayWatch::Missing, this, &AgentTray::SayThatNoneIsThere);
    watch_.Begin();
}

void AgentTray::ShowIcon() {
    icon_.show();
}

void AgentTray::SayThatNoneIsThere() {
    ShowWarning(app_, FromQt(OwnText(app_, WindowText::NoNotificationArea)));
}

}  // namespace zefta
