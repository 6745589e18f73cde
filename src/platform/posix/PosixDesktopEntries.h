#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/DesktopEntries.h"
#include "platform/posix/PosixFileSystem.h"

namespace zefta {

/// Where desktops look.
struct DesktopFolders {
    /// XDG_DATA_HOME and XDG_CONFIG_HOME of the person.
    std::string data;
    std::string config;
    /// Of programs that start with the session.
    std::string autostart;
    /// The machine's folders of settings, the most important one first.
    std::vector<std::string> machineConfig;
};

/// Those of the person, or where it is the machine's matter, of the machine.
DesktopFolders FindDesktopFolders();

/// Entries as files in the folders of the freedesktop actions, of Dolphin, Nemo, Thunar and Nautilus. A
/// desktop is in use when its file manager is installed or its folder of entries is there; the freedesktop
/// actions are written in any case. A file that has the name of ours and was not made by us stays as it is.
class PosixDesktopEntries : public DesktopEntries {
  public:
    /// `isInstalled` tells whether there is a program of that name.
    PosixDesktopEntries(DesktopFolders folders, std::function<bool(const std::string&)> isInstalled);

    bool IsInMenus(const MenuEntry& entry) const override;
    void AddToMenus(const MenuEntry& entry) override;
    void RemoveFromMenus(const MenuEntry& entry) override;
    bool StartsWithSession(const std::string& name) const override;
    void StartWithSession(const std::string& name, const std::string& commandLine) override;
    void KeepFromSession(const std::string& name) override;

  private:
    struct Form;
    static const Form Forms[];

    std::string FolderOf(const Form& form) const;
    std::string PathOf(const Form& form, const MenuEntry& entry) const;
    bool IsInUse(const std::string& folder, const std::vector<std::string>& programs) const;
    std::string ThunarFile() const;
    std::string TextOf(const std::string& path) const;
    void Write(const std::string& path, const std::string& text);
    void WriteAnew(const std::string& path, const std::string& fresh, const std::string& text);
    void AddToThunar(const MenuEntry& entry);
    void RemoveFromThunar(const MenuEntry& entry);
    std::string AutostartPath(const std::string& name) const;
    std::string MachineAutostart(const std::string& name) const;

    DesktopFolders folders_;
    std::function<bool(const std::string&)> isInstalled_;
    mutable PosixFileSystem files_;
};

}  // namespace zefta
