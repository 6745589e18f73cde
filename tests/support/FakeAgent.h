#pragma once

#include <string>
#include <vector>

#include "platform/AgentEndpoint.h"

namespace zefta::test {

/// An agent that runs or does not, and ends as soon as it is asked to.
class FakeAgent : public AgentEndpoint {
  public:
    bool runs = false;
    std::vector<std::string> closed;

    bool IsServed(const std::string& title) const override {
        return runs && title == "Kestrin Zeftaworks Agent";
    }

    void SendClose(const std::string& title) override {
        closed.push_back(title);
        runs = false;
    }
};

}  // namespace zefta::test
