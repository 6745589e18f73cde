#pragma once

#include <string>
#include <string_view>

#include "platform/DesktopEntries.h"

namespace zefta {

// The texts of the files by which desktops learn of an entry. Each form has its own way to quote: what stands
// in quotes in one, and whether backslashes and "%" are doubled. Pure functions.

/// An action of the freedesktop form (DES-EMA 0.15): PCManFM, Caja, FileManager-Actions. They split the
/// command as a shell does and quote the file themselves.
std::string FreedesktopAction(const MenuEntry& entry);

/// A service menu of Dolphin and Konqueror, which read the command by the rules of desktop entries.
std::string ServiceMenu(const MenuEntry& entry);

/// An action of Nemo.
std::string NemoAction(const MenuEntry& entry);

/// A script of the menu "Scripts" of Nautilus. It is offered for all files and passes over those that it is
/// not for.
std::string NautilusScript(const MenuEntry& entry);

/// Whether the text is a script that NautilusScript has made.
bool IsNautilusScript(std::string_view text);

/// A custom action of Thunar: an element of uca.xml.
std::string ThunarAction(const MenuEntry& entry);

/// A program that starts with the session (Desktop Application Autostart).
std::string AutostartEntry(const std::string& name, const std::string& commandLine);

/// The person's word against an entry of the machine.
std::string HiddenAutostartEntry(const std::string& name);

/// Whether desktops start the program of that entry: the person can hide it or switch it off there.
bool IsAutostartOn(std::string_view text);

}  // namespace zefta
