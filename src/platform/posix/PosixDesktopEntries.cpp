#include "platform/posix/PosixDesktopEntries.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>
#include <utility>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/SmallFile.h"
#include "platform/posix/EntryTexts.h"
#include "platform/posix/HomeFolder.h"
#include "platform/posix/PosixProcesses.h"
#include "platform/posix/ThunarActions.h"

namespace zefta {

namespace {

/// Of such a file of a desktop, far beyond what one holds.
constexpr std::size_t LargestFile = 1 << 20;

std::vector<std::string> MachineConfigFolders() {
    const char* variable = std::getenv("XDG_CONFIG_DIRS");
    std::string_view rest = variable == nullptr || *variable == '\0' ? "/etc/xdg" : variable;
    std::vector<std::string> folders;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (end > 0) folders.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folders;
}

/// Desktops run no file of that kind that is not marked as a program.
void MarkAsProgram(const std::string& path) {
    using std::filesystem::perms;
    std::error_code error;
    std::filesystem::permissions(path, perms::owner_exec | perms::group_exec | perms::others_exec,
                                 std::filesystem::perm_options::add, error);
    if (error) throw RuntimeError(ErrorNumber::PermissionDenied, path);
}

std::string NameOfId(const MenuEntry& entry) {
    return entry.id;
}

std::string NameOfCaption(const MenuEntry& entry) {
    std::string name = entry.caption;
    std::replace(name.begin(), name.end(), PathSeparator, '-');
    return name;
}

}  // namespace

/// A desktop that has a file for each entry.
struct PosixDesktopEntries::Form {
    /// Below the person's data.
    const char* folder;
    std::string (*name)(const MenuEntry& entry);
    const char* extension;
    std::string (*text)(const MenuEntry& entry);
    bool isProgram;
    /// File managers that read it; none for a form that is written in any case.
    std::vector<std::string> programs;
    /// Null where the name tells that the file is ours.
    bool (*isOurs)(std::string_view text);
};

const PosixDesktopEntries::Form PosixDesktopEntries::Forms[] = {
    {"file-manager/actions", NameOfId, ".desktop", FreedesktopAction, false, {}, nullptr},
    {"kio/servicemenus",
     NameOfId,
     ".desktop",
     ServiceMenu,
     true,
     {"dolphin", "konqueror", "krusader"},
     nullptr},
    {"nemo/actions", NameOfId, ".nemo_action", NemoAction, false, {"nemo"}, nullptr},
    {"nautilus/scripts", NameOfCaption, "", NautilusScript, true, {"nautilus"}, IsNautilusScript},
};

PosixDesktopEntries::PosixDesktopEntries(DesktopFolders folders,
                                         std::function<bool(const std::string&)> isInstalled)
    : folders_(std::move(folders)), isInstalled_(std::move(isInstalled)) {}

std::string PosixDesktopEntries::FolderOf(const Form& form) const {
    return JoinPath(folders_.data, form.folder);
}

std::string PosixDesktopEntries::PathOf(const Form& form, const MenuEntry& entry) const {
    return JoinPath(FolderOf(form), form.name(entry) + form.extension);
}

bool PosixDesktopEntries::IsInUse(const std::string& folder, const std::vector<std::string>& programs) const {
    return programs.empty() || files_.FolderExists(folder) ||
           std::any_of(programs.begin(), programs.end(), isInstalled_);
}

std::string PosixDesktopEntries::TextOf(const std::string& path) const {
    return ReadSmallFile(files_, path, LargestFile).value_or("");
}

/// In one step, so that no desktop ever reads half a file.
void PosixDesktopEntries::WriteAnew(const std::string& path, const std::string& fresh,
                                    const std::string& text) {
    {
        const auto file = files_.OpenCreate(fresh);
        if (!file) throw RuntimeError(ErrorNumber::PermissionDenied, path);
        file->Write(text);
        file->Flush();
    }
    if (files_.FileExists(path)) {
        files_.ReplaceFile(fresh, path);
    } else {
        files_.MoveFile(fresh, path);
    }
}

void PosixDesktopEntries::Write(const std::string& path, const std::string& text) {
    if (files_.FileExists(path) && TextOf(path) == text) return;
    std::error_code error;
    std::filesystem::create_directories(FolderPart(path), error);
    if (error) throw RuntimeError(ErrorNumber::PathFileAccess, FolderPart(path));
    // Some people keep such files elsewhere, behind links.
    const std::string real = files_.FollowLinks(path);
    const std::string fresh = real + ".new";
    try {
        WriteAnew(real, fresh, text);
    } catch (const RuntimeError&) {
        unlink(fresh.c_str());
        throw;
    }
}

bool PosixDesktopEntries::IsInMenus(const MenuEntry& entry) const {
    return HoldsThunarAction(TextOf(ThunarFile()), entry.id) ||
           std::any_of(std::begin(Forms), std::end(Forms), [&](const Form& form) {
               const std::string path = PathOf(form, entry);
               return files_.FileExists(path) && (form.isOurs == nullptr || form.isOurs(TextOf(path)));
           });
}

void PosixDesktopEntries::AddToMenus(const MenuEntry& entry) {
    for (const Form& form : Forms) {
        const std::string path = PathOf(form, entry);
        const bool isForeign =
            form.isOurs != nullptr && files_.FileExists(path) && !form.isOurs(TextOf(path));
        if (isForeign || !IsInUse(FolderOf(form), form.programs)) continue;
        Write(path, form.text(entry));
        if (form.isProgram) MarkAsProgram(path);
    }
    AddToThunar(entry);
}

void PosixDesktopEntries::RemoveFromMenus(const MenuEntry& entry) {
    for (const Form& form : Forms) {
        const std::string path = PathOf(form, entry);
        if (!files_.FileExists(path)) continue;
        if (form.isOurs == nullptr || form.isOurs(TextOf(path))) files_.DeleteFile(path, Force::Yes);
    }
    RemoveFromThunar(entry);
}

std::string PosixDesktopEntries::ThunarFile() const {
    return JoinPath(folders_.config, "Thunar/uca.xml");
}

/// The person's file stands for that of the machine: without the actions of the latter they would be gone.
void PosixDesktopEntries::AddToThunar(const MenuEntry& entry) {
    const std::string path = ThunarFile();
    if (!IsInUse(FolderPart(path), {"thunar", "Thunar"})) return;
    const bool isThere = files_.FileExists(path);
    auto text = ReadSmallFile(files_, path, LargestFile);
    // What can't be read would be lost to what is written.
    if (isThere && !text) return;
    for (const std::string& folder : folders_.machineConfig) {
        if (!text) text = ReadSmallFile(files_, JoinPath(folder, "Thunar/uca.xml"), LargestFile);
    }
    if (const auto withAction = WithThunarAction(text.value_or(""), entry.id, ThunarAction(entry)))
        Write(path, *withAction);
}

void PosixDesktopEntries::RemoveFromThunar(const MenuEntry& entry) {
    const std::string path = ThunarFile();
    const std::string text = TextOf(path);
    if (HoldsThunarAction(text, entry.id)) Write(path, WithoutThunarAction(text, entry.id));
}

std::string PosixDesktopEntries::AutostartPath(const std::string& name) const {
    return JoinPath(folders_.autostart, name + ".desktop");
}

/// Where the machine starts it for everybody, unless the person has a file of that name.
std::string PosixDesktopEntries::MachineAutostart(const std::string& name) const {
    const std::string own = AutostartPath(name);
    for (const std::string& folder : folders_.machineConfig) {
        const std::string path = JoinPath(JoinPath(folder, "autostart"), name + ".desktop");
        if (path != own && files_.FileExists(path)) return path;
    }
    return {};
}

bool PosixDesktopEntries::StartsWithSession(const std::string& name) const {
    const std::string own = AutostartPath(name);
    const std::string path = files_.FileExists(own) ? own : MachineAutostart(name);
    return !path.empty() && IsAutostartOn(TextOf(path));
}

void PosixDesktopEntries::StartWithSession(const std::string& name, const std::string& commandLine) {
    Write(AutostartPath(name), AutostartEntry(name, commandLine));
}

void PosixDesktopEntries::KeepFromSession(const std::string& name) {
    const std::string path = AutostartPath(name);
    if (!MachineAutostart(name).empty()) return Write(path, HiddenAutostartEntry(name));
    if (files_.FileExists(path)) files_.DeleteFile(path, Force::Yes);
}

DesktopFolders FindDesktopFolders() {
    DesktopFolders folders;
    folders.data = DataFolder();
    folders.config = ConfigFolder();
    folders.machineConfig = MachineConfigFolders();
    const bool isRoot = geteuid() == 0 && !folders.machineConfig.empty();
    folders.autostart = JoinPath(isRoot ? folders.machineConfig.front() : folders.config, "autostart");
    return folders;
}

std::unique_ptr<DesktopEntries> OpenDesktopEntries() {
    return std::make_unique<PosixDesktopEntries>(
        FindDesktopFolders(), [](const std::string& program) { return !FindProgram(program).empty(); });
}

}  // namespace zefta
