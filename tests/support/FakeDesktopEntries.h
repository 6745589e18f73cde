#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/DesktopEntries.h"
#include "platform/RuntimeError.h"

namespace zefta::test {

/// Desktops in memory.
class FakeDesktopEntries : public DesktopEntries {
  public:
    /// By the id of the entry.
    std::map<std::string, MenuEntry> menus;
    /// By the name of the program.
    std::map<std::string, std::string> session;
    /// "+id", "-id", in the order of the calls.
    std::vector<std::string> calls;
    /// Nothing can be written.
    bool isReadOnly = false;

    bool IsInMenus(const MenuEntry& entry) const override { return menus.contains(entry.id); }
    void AddToMenus(const MenuEntry& entry) override {
        Call("+" + entry.id);
        menus[entry.id] = entry;
    }
    void RemoveFromMenus(const MenuEntry& entry) override {
        Call("-" + entry.id);
        menus.erase(entry.id);
    }
    bool StartsWithSession(const std::string& name) const override { return session.contains(name); }
    void StartWithSession(const std::string& name, const std::string& commandLine) override {
        Call("start");
        session[name] = commandLine;
    }
    void KeepFromSession(const std::string& name) override {
        Call("no start");
        session.erase(name);
    }

  private:
    void Call(const std::string& call) {
        if (isReadOnly) throw RuntimeError(ErrorNumber::PermissionDenied, "/desktop");
        calls.push_back(call);
    }
};

}  // namespace zefta::test
