#include "platform/posix/EntryTexts.h"

#include <algorithm>
#include <vector>

#include "platform/CommandText.h"

namespace zefta {

namespace {

constexpr std::string_view FilePlace = "%1";
constexpr std::string_view IconName = "zefta";
constexpr std::string_view ScriptMark = "# Made by Kestrin Zeftaworks, and taken away by its options.";

/// What the kinds of files are called where they are told by type and where by name.
struct FileClass {
    std::string_view name;
    std::string_view types;
    std::string_view nemoExtensions;
    std::string_view thunarPatterns;
    /// Of a shell.
    std::string_view test;
};

constexpr FileClass Classes[] = {
    // clang-format off
    {".mp3", "audio/mpeg;audio/mp3;audio/x-mp3;", "mp3;", "*.mp3;*.MP3;*.Mp3", "case \"$file\" in *.[mM][pP]3) ;; *) continue ;; esac"},
    {".m3u", "audio/x-mpegurl;audio/mpegurl;audio/x-m3u;", "m3u;", "*.m3u;*.M3U;*.M3u", "case \"$file\" in *.[mM]3[uU]) ;; *) continue ;; esac"},
    {".wav", "audio/x-wav;audio/wav;audio/vnd.wave;", "wav;", "*.wav;*.WAV;*.Wav", "case \"$file\" in *.[wW][aA][vV]) ;; *) continue ;; esac"},
    {"Folder", "inode/directory;", "dir;", "*", "[ -d \"$file\" ] || continue"},
    // clang-format on
};

const FileClass& ClassOf(const MenuEntry& entry) {
    const auto row = std::find_if(std::begin(Classes), std::end(Classes),
                                  [&](const FileClass& each) { return each.name == entry.fileClass; });
    return row == std::end(Classes) ? Classes[0] : *row;
}

/// Every character of `special` with `mark` in front.
std::string Marked(std::string_view text, std::string_view special, char mark) {
    std::string marked;
    for (const char character : text) {
        if (special.find(character) != std::string_view::npos) marked += mark;
        marked += character;
    }
    return marked;
}

std::string DoublePercents(std::string_view text) {
    return Marked(text, "%", '%');
}

/// A value of a file of keys, where a backslash begins an escape and lines end values.
std::string KeyValue(std::string_view text) {
    std::string value;
    for (const char character : text) {
        if (character == '\\') {
            value += "\\\\";
        } else if (character == '\n') {
            value += "\\n";
        } else {
            value += character;
        }
    }
    return value;
}

bool IsPlain(std::string_view text) {
    constexpr std::string_view Plain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+:@";
    return !text.empty() && text.find_first_not_of(Plain) == std::string_view::npos;
}

std::string ShellWord(std::string_view text) {
    if (IsPlain(text)) return std::string(text);
    std::string word = "'";
    for (const char character : text)
        word += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return word + "'";
}

std::string ShellWordWithPercents(std::string_view text) {
    return DoublePercents(ShellWord(text));
}

/// An argument of the key Exec of desktop entries.
std::string ExecWord(std::string_view text) {
    const std::string whole = DoublePercents(text);
    return IsPlain(text) ? whole : '"' + Marked(whole, "\"`$\\", '\\') + '"';
}

/// The command line with each argument written by `word` and the file by what the form has for it.
std::string CommandFor(const std::string& commandLine, std::string (*word)(std::string_view),
                       std::string_view file) {
    std::string command;
    for (const CommandArgument& argument : SplitCommandLine(commandLine)) {
        if (!command.empty()) command += ' ';
        command += argument.text == FilePlace ? std::string(file) : word(argument.text);
    }
    return command;
}

std::string Line(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + KeyValue(value) + "\n";
}

std::string XmlText(std::string_view text) {
    std::string xml;
    for (const char character : text) {
        switch (character) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            default:
                xml += character;
        }
    }
    return xml;
}

std::string Element(std::string_view name, std::string_view text) {
    const std::string tag(name);
    return "\t<" + tag + ">" + XmlText(text) + "</" + tag + ">\n";
}

}  // namespace

std::string FreedesktopAction(const MenuEntry& entry) {
    return "[Desktop Entry]\n" + Line("Type", "Action") + Line("Name", entry.caption) +
           Line("Icon", IconName) + Line("Profiles", "run;") + "\n[X-Action-Profile run]\n" +
           Line("MimeTypes", ClassOf(entry).types) +
           Line("Exec", CommandFor(entry.commandLine, ShellWordWithPercents, "%f"));
}

std::string ServiceMenu(const MenuEntry& entry) {
    return "[Desktop Entry]\n" + Line("Type", "Service") + Line("Name", entry.caption) +
           // Older ones look for it.
           Line("X-KDE-ServiceTypes", "KonqPopupMenu/Plugin") + Line("MimeType", ClassOf(entry).types) +
           Line("Actions", "run;") + Line("X-KDE-Submenu", "ZEFTA") + "\n[Desktop Action run]\n" +
           Line("Name", entry.caption) + Line("Icon", IconName) +
           Line("Exec", CommandFor(entry.commandLine, ExecWord, "%f"));
}

std::string NemoAction(const MenuEntry& entry) {
    return "[Nemo Action]\n" + Line("Active", "true") + Line("Name", DoublePercents(entry.caption)) +
           Line("Exec", CommandFor(entry.commandLine, ShellWordWithPercents, "%F")) +
           Line("Icon-Name", IconName) + Line("Selection", "s") +
           Line("Extensions", ClassOf(entry).nemoExtensions) + Line("Quote", "double");
}

std::string NautilusScript(const MenuEntry& entry) {
    // Names of the folder at hand come without it.
    return "#!/bin/sh\n" + std::string(ScriptMark) + "\nfor file in \"$@\"; do\n    " +
           "case \"$file\" in /*) ;; *) file=\"$PWD/$file\" ;; esac\n    " +
           std::string(ClassOf(entry).test) + "\n    " +
           CommandFor(entry.commandLine, ShellWord, "\"$file\"") + "\ndone\n";
}

bool IsNautilusScript(std::string_view text) {
    return text.find(ScriptMark) != std::string_view::npos;
}

std::string ThunarAction(const MenuEntry& entry) {
    const bool isForFolders = entry.fileClass == "Folder";
    return "<action>\n" + Element("icon", IconName) + Element("name", entry.caption) +
           Element("submenu", "ZEFTA") + Element("unique-id", entry.id) +
           Element("command", CommandFor(entry.commandLine, ShellWordWithPercents, "%f")) +
           Element("description", "") + Element("range", "") +
           Element("patterns", ClassOf(entry).thunarPatterns) +
           (isForFolders ? "\t<directories/>\n" : "\t<audio-files/>\n\t<other-files/>\n") + "</action>\n";
}

std::string AutostartEntry(const std::string& name, const std::string& commandLine) {
    return "[Desktop Entry]\n" + Line("Type", "Application") + Line("Name", name) + Line("Icon", IconName) +
           Line("Exec", CommandFor(commandLine, ExecWord, {})) + Line("Terminal", "false") +
           Line("X-GNOME-Autostart-enabled", "true");
}

std::string HiddenAutostartEntry(const std::string& name) {
    return "[Desktop Entry]\n" + Line("Type", "Application") + Line("Name", name) + Line("Hidden", "true");
}

bool IsAutostartOn(std::string_view text) {
    for (const std::string_view off : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        for (std::size_t at = text.find(off); at != std::string_view::npos; at = text.find(off, at + 1)) {
            if (at == 0 || text[at - 1] == '\n') return false;
        }
    }
    return true;
}

}  // namespace zefta
