#pragma once

#include <memory>
#include <string>

namespace zefta {

/// An entry of ours in the context menus of files or folders.
struct MenuEntry {
    /// Lower-case letters, digits and hyphens; tells it from all others.
    std::string id;
    /// What the menu shows.
    std::string caption;
    /// The files that it is for: an extension with its dot (".mp3", ".m3u", ".wav"), or "Folder".
    std::string fileClass;
    /// In the form of CommandText.h; "%1" stands for the path of the file, as an argument of its own.
    std::string commandLine;
};

/// What the program leaves with the person's desktops, so that they start it: entries of context menus, and
/// programs that start with the session. Each touches only what is its own; removing what is not there does
/// nothing. What can't be written or deleted is a RuntimeError.
class DesktopEntries {
  public:
    DesktopEntries() = default;
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    virtual ~DesktopEntries() = default;

    /// Whether any menu has the entry.
    virtual bool IsInMenus(const MenuEntry& entry) const = 0;
    /// Puts the entry into the menus of all desktops in use, in the place of one with its id.
    virtual void AddToMenus(const MenuEntry& entry) = 0;
    virtual void RemoveFromMenus(const MenuEntry& entry) = 0;

    /// Whether the program that goes by that name starts with the session. One that the person has switched
    /// off in the settings of the desktop does not.
    virtual bool StartsWithSession(const std::string& name) const = 0;
    virtual void StartWithSession(const std::string& name, const std::string& commandLine) = 0;
    virtual void KeepFromSession(const std::string& name) = 0;
};

/// Those of the person who runs the program. For root the programs start in the sessions of everybody.
std::unique_ptr<DesktopEntries> OpenDesktopEntries();

}  // namespace zefta
