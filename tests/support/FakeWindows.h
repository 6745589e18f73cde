#pragma once

#include <optional>
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
    /// Of the folder that was read for the main window.
    std::optional<std::size_t> rowsAhead;

    Desktop& WindowDesktop() override { return desktop; }
    void RunMainWindow(App& app, FolderAhead& ahead) override {
        calls.push_back("main window");
        if (const auto read = ahead.Take(app.state.CurrentFolder)) rowsAhead = read->contents.entries.size();
    }
    void RunFileInformation(App&, const std::string& path) override {
        calls.push_back("information " + path);
    }
    void RunCompressCD(App& app) override { calls.push_back("audio CD " + app.state.FileSpec); }
    void RunOptions(App&) override { calls.push_back("options"); }
    void RunPowerOffCountdown(App&) override { calls.push_back("countdown"); }
};

}  // namespace zefta::test
