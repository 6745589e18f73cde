#include "ui/desktop/LoginManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <utility>

#include "platform/RuntimeError.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

// Long enough to find and type a password.
constexpr int MillisecondsForThePerson = 5 * 60 * 1000;

QDBusMessage PowerOffRequest() {
    QDBusMessage request = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                          "org.freedesktop.login1.Manager", "PowerOff");
    constexpr bool MayAskThePerson = true;
    request << MayAskThePerson;
    request.setInteractiveAuthorizationAllowed(true);
    return request;
}

/// Never empty: an error without a text still is one.
std::string ReasonOf(const QDBusError& error) {
    return FromQt(error.message().isEmpty() ? error.name() : error.message());
}

}  // namespace

LoginManager::LoginManager(QDBusConnection bus) : bus_(std::move(bus)) {}

std::string LoginManager::ExitSystem(int flags) {
    if (flags != ExitShutDown + ExitPowerOff) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    QDBusPendingCallWatcher answer(bus_.asyncCall(PowerOffRequest(), MillisecondsForThePerson));
    if (!answer.isFinished()) {
        QEventLoop waiting;
        QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &waiting, &QEventLoop::quit);
        waiting.exec();
    }
    return answer.isError() ? ReasonOf(answer.error()) : std::string();
}

}  // namespace zefta
