#pragma once

#include <string>

#include "platform/AgentEndpoint.h"

namespace zefta {

/// The agent behind a local datagram socket that has the title for its name: one is told whether it is served
/// by connecting, and a request is sent whole or not at all, so that nobody ever waits for the other side.
class AgentSocket : public AgentEndpoint {
  public:
    bool IsServed(const std::string& title) const override;
    void SendClose(const std::string& title) override;
};

/// Path of the socket: in XDG_RUNTIME_DIR, or where that is not set, no folder of ours, or too long for a
/// socket's name, in a folder in /tmp that nobody else can enter. That one is made at need; "" when somebody
/// else has it.
std::string AgentSocketPath(const std::string& title);

}  // namespace zefta
