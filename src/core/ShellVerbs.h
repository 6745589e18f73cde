#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/App.h"
#include "platform/DesktopEntries.h"

namespace zefta {

/// A job of the program on the context menus of a kind of files.
struct ShellVerb {
    /// An extension with its dot, or "Folder".
    std::string Class;
    /// The box of the options that switches it.
    std::string CheckBox;
    /// What the menus show.
    std::string Verb;
    /// Behind the program's name; "%1" stands for the file.
    std::string Parameters;

    bool operator==(const ShellVerb&) const = default;
};

/// Qualities of Ogg Vorbis that the verb with a quality of its own can have: 0 to this.
inline constexpr int HighestOggQuality = 10;

/// All verbs in the order of their registering. `oggQuality` is that of chkEncodeOggQmode.
std::vector<ShellVerb> ShellVerbTable(int oggQuality);

/// The verbs that are on, and the way to switch them: a table in section "ShellVerbs" of the person's store,
/// and entries in the menus of the desktops.
class ShellVerbs {
  public:
    ShellVerbs(App& app, DesktopEntries& desktops) : app_(app), desktops_(desktops) {}

    /// The store knows the verb, and the menu of a desktop still has it: what others take away is off.
    bool IsOn(const ShellVerb& verb) const;

    /// The quality of the verb that is on for one; nothing when none is.
    std::optional<int> OggQuality() const;

    /// Enabled: the command line goes to the store and to the menus. Not enabled: this one verb goes from
    /// both, and one that isn't there is ignored. RuntimeError when a desktop's file can't be written or
    /// deleted; the store then keeps what it has.
    void RegisterShellVerb(const std::string& Class, const std::string& Verb, const std::string& Parameters,
                           bool Enabled);

  private:
    MenuEntry EntryOf(const std::string& Class, const std::string& Verb, const std::string& Parameters) const;

    App& app_;
    DesktopEntries& desktops_;
};

}  // namespace zefta
