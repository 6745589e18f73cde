#pragma once

#include <QDBusConnection>

#include "platform/PowerOff.h"

namespace zefta {

/// The login manager of the machine (org.freedesktop.login1), reached over the bus of the system.
class LoginManager : public PowerOff {
  public:
    explicit LoginManager(QDBusConnection bus = QDBusConnection::systemBus());

    /// Knows the flags shut down and power off together. The login manager may ask the person for a password;
    /// events are served until it has answered.
    std::string ExitSystem(int flags) override;

  private:
    QDBusConnection bus_;
};

}  // namespace zefta
