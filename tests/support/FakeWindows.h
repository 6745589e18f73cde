#pragma once

#include <string>
#include <vector>

#include "app/Windows.h"
#include "support/Fakes.h"

namespace zefta::test {

/// Windows that only remember what is asked of them.
class FakeWindows : public Windows {
  public:
    ScriptedDesktop desktop;
    std::vector<std::string> calls;

    Desktop& WindowDesktop() override { return desktop; }
    void RunMainWindow(App&) override { calls.push_back("main window"); }
    void RunFileInformation(App&, const std::string& path) override {
        calls.push_back("information " + path);
    }
    void RunCompressCD(App& app) override { calls.push_back("audio CD " + app.state.FileSpec); }
    void RunOptions(App&) override { calls.push_back("options"); }
    void RunPowerOffCountdown(App&) override { calls.push_back("countdown"); }
};

}  // namespace zefta::test
