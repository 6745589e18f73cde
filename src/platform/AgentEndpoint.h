#pragma once

#include <memory>
#include <string>

namespace zefta {

/// Finds the agent of the person's session, by the title that its window has where agents have windows.
class AgentEndpoint {
  public:
    AgentEndpoint() = default;
    AgentEndpoint(const AgentEndpoint&) = delete;
    AgentEndpoint& operator=(const AgentEndpoint&) = delete;
    virtual ~AgentEndpoint() = default;

    /// Whether an agent answers to the title. Never waits, not for an agent that hangs either.
    virtual bool IsServed(const std::string& title) const = 0;

    /// Asks that agent to end, and does not wait for it. Nothing happens when there is none.
    virtual void SendClose(const std::string& title) = 0;
};

/// The agent's own side. While it lives the title is served by this process; what others see of it goes with
/// it.
class AgentServer {
  public:
    AgentServer() = default;
    AgentServer(const AgentServer&) = delete;
    AgentServer& operator=(const AgentServer&) = delete;
    virtual ~AgentServer() = default;

    /// Readable when a request has come.
    virtual int Descriptor() const = 0;

    /// Takes all requests that have come. True when one of them asks the agent to end.
    virtual bool TakeCloseRequest() = 0;
};

/// Serves the title from now on. What an agent that was killed has left behind is no obstacle. Waits up to
/// that long for an agent that is on its way out; null when one goes on to serve, or the system refuses.
std::unique_ptr<AgentServer> ServeAgent(const std::string& title, int milliseconds);

}  // namespace zefta
