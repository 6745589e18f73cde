// What file managers are told, read back by their own rules: the shell's, and those of desktop entries.

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/CommandText.h"
#include "platform/posix/EntryTexts.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

using Arguments = std::vector<std::string>;

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// The value of the key behind the heading, with the escapes of files of keys undone.
std::string ValueOf(const std::string& text, const std::string& heading, const std::string& key) {
    const std::size_t group = text.find("[" + heading + "]\n");
    if (group == std::string::npos) return "no group";
    const std::size_t start = text.find("\n" + key + "=", group);
    if (start == std::string::npos) return "no key";
    const std::size_t value = start + key.size() + 2;
    std::string result;
    for (std::size_t i = value; i < text.size() && text[i] != '\n'; ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (text[++i] == 'n') {
            result += '\n';
        } else {
            result += text[i];
        }
    }
    return result;
}

/// What a launcher makes of "%": the file for its code, "%" for two.
std::string Expanded(const std::string& command, char code, const std::string& file) {
    std::string result;
    for (std::size_t i = 0; i < command.size(); ++i) {
        if (command[i] != '%') {
            result += command[i];
        } else if (command[++i] == code) {
            result += file;
        } else {
            EXPECT_EQ(command[i], '%');
            result += '%';
        }
    }
    return result;
}

/// The arguments of a key Exec: blanks part them, double quotes hold one together, and a backslash within
/// stands in front of ", `, $ and itself.
Arguments SplitExec(const std::string& exec) {
    Arguments arguments = {""};
    bool inQuotes = false;
    for (std::size_t i = 0; i < exec.size(); ++i) {
        if (exec[i] == '"') {
            inQuotes = !inQuotes;
        } else if (inQuotes && exec[i] == '\\') {
            arguments.back() += exec[++i];
        } else if (!inQuotes && exec[i] == ' ') {
            arguments.emplace_back();
        } else {
            arguments.back() += exec[i];
        }
    }
    return arguments;
}

/// A program that writes its arguments down, in a folder whose name has all that needs quoting.
class EntryTextsTest : public ::testing::Test {
  protected:
    EntryTextsTest() {
        std::filesystem::create_directories(programFolder);
        WriteWholeFile(program, "#!/bin/sh\nprintf '%s\\n' \"$0\" \"$@\" >> '" + (folder / "told") + "'\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }

    MenuEntry Entry(const std::string& parameters, const std::string& fileClass = ".wav") const {
        return {"zefta-test", "ZEFTA Test & Co", fileClass, QuotePath(program) + " " + parameters};
    }

    Arguments Told() const {
        Arguments lines;
        if (!folder.Exists("told")) return lines;
        const std::string text = folder.Read("told");
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find('\n', at);
            lines.push_back(text.substr(at, end - at));
            at = end + 1;
        }
        return lines;
    }

    Arguments RunByShell(const std::string& command) const {
        const std::string script = folder.Write("run.sh", command + "\n");
        EXPECT_EQ(std::system(("/bin/sh '" + script + "'").c_str()), 0) << command;
        return Told();
    }

    TempFolder folder;
    std::string programFolder = folder / "My \"best\" $tools' 100% \\o\\ `x` & <y>";
    std::string program = programFolder + "/zefta";
    /// As file managers quote it.
    std::string file = "/music/It's 50% \"live\".wav";
    std::string quotedFile = "'/music/It'\\''s 50% \"live\".wav'";
};

TEST_F(EntryTextsTest, FreedesktopAction_RunsTheCommandLine) {
    const std::string text = FreedesktopAction(Entry("/e 128 \"%1\" /trim"));
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Type"), "Action");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Name"), "ZEFTA Test & Co");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Profiles"), "run;");
    EXPECT_EQ(ValueOf(text, "X-Action-Profile run", "MimeTypes"), "audio/x-wav;audio/wav;audio/vnd.wave;");
    const std::string exec = Expanded(ValueOf(text, "X-Action-Profile run", "Exec"), 'f', quotedFile);
    EXPECT_EQ(RunByShell(exec), (Arguments{program, "/e", "128", file, "/trim"}));
}

TEST_F(EntryTextsTest, ServiceMenu_RunsTheCommandLine) {
    const std::string text = ServiceMenu(Entry("/d \"%1\" /sync", ".mp3"));
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Type"), "Service");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "MimeType"), "audio/mpeg;audio/mp3;audio/x-mp3;");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Actions"), "run;");
    EXPECT_EQ(ValueOf(text, "Desktop Action run", "Name"), "ZEFTA Test & Co");
    Arguments arguments = SplitExec(ValueOf(text, "Desktop Action run", "Exec"));
    for (std::string& argument : arguments) argument = Expanded(argument, 'f', file);
    EXPECT_EQ(arguments, (Arguments{program, "/d", file, "/sync"}));
}

TEST_F(EntryTextsTest, NemoAction_RunsTheCommandLine) {
    const std::string text = NemoAction(Entry("\"%1\"", "Folder"));
    EXPECT_EQ(ValueOf(text, "Nemo Action", "Extensions"), "dir;");
    EXPECT_EQ(ValueOf(text, "Nemo Action", "Selection"), "s");
    EXPECT_EQ(ValueOf(text, "Nemo Action", "Quote"), "double");
    const std::string exec = Expanded(ValueOf(text, "Nemo Action", "Exec"), 'F', "\"/music/a b\"");
    EXPECT_EQ(RunByShell(exec), (Arguments{program, "/music/a b"}));
}

TEST_F(EntryTextsTest, ThunarAction_RunsTheCommandLine) {
    const std::string text = ThunarAction(Entry("/copy \"%1\"", ".m3u"));
    const std::size_t start = text.find("<command>") + 9;
    std::string command = text.substr(start, text.find("</command>") - start);
    for (const auto& [entity, character] :
         {std::pair{"&lt;", "<"}, std::pair{"&gt;", ">"}, std::pair{"&amp;", "&"}})
        command = Replaced(command, entity, character);
    EXPECT_EQ(RunByShell(Expanded(command, 'f', quotedFile)), (Arguments{program, "/copy", file}));
    EXPECT_NE(text.find("<name>ZEFTA Test &amp; Co</name>"), std::string::npos) << text;
    EXPECT_NE(text.find("<unique-id>zefta-test</unique-id>"), std::string::npos);
    EXPECT_NE(text.find("<patterns>*.m3u;*.M3U;*.M3u</patterns>"), std::string::npos);
    EXPECT_NE(text.find("<audio-files/>"), std::string::npos);
    EXPECT_NE(ThunarAction(Entry("\"%1\"", "Folder")).find("<directories/>"), std::string::npos);
}

TEST_F(EntryTextsTest, NautilusScript_WorksOnEachFileOfItsKind) {
    const std::string script = folder.Write("script", NautilusScript(Entry("/e 128 \"%1\" /trim")));
    EXPECT_TRUE(IsNautilusScript(folder.Read("script")));
    EXPECT_FALSE(IsNautilusScript("#!/bin/sh\necho mine\n"));
    const std::string command =
        "cd '" + folder.Path() + "' && /bin/sh '" + script + "' 'a b.wav' c.mp3 /elsewhere/D.WAV";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Told(), (Arguments{program, "/e", "128", folder / "a b.wav", "/trim", program, "/e", "128",
                                 "/elsewhere/D.WAV", "/trim"}));
}

TEST_F(EntryTextsTest, NautilusScript_ForFoldersPassesOverFiles) {
    std::filesystem::create_directories(folder / "sub");
    folder.Write("a.wav", "x");
    const std::string script = folder.Write("script", NautilusScript(Entry("\"%1\"", "Folder")));
    ASSERT_EQ(std::system(("cd '" + folder.Path() + "' && /bin/sh '" + script + "' a.wav sub").c_str()), 0);
    EXPECT_EQ(Told(), (Arguments{program, folder / "sub"}));
}

TEST_F(EntryTextsTest, Autostart_RunsTheCommandLine) {
    const std::string text = AutostartEntry("Kestrin Zeftaworks", QuotePath(program) + " /r");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Type"), "Application");
    EXPECT_EQ(ValueOf(text, "Desktop Entry", "Name"), "Kestrin Zeftaworks");
    Arguments arguments = SplitExec(ValueOf(text, "Desktop Entry", "Exec"));
    for (std::string& argument : arguments) argument = Expanded(argument, 'f', "");
    EXPECT_EQ(arguments, (Arguments{program, "/r"}));
    EXPECT_TRUE(IsAutostartOn(text));
    EXPECT_FALSE(IsAutostartOn(text + "Hidden=true\n"));
    EXPECT_FALSE(IsAutostartOn(Replaced(text, "enabled=true", "enabled=false")));
    EXPECT_TRUE(IsAutostartOn(text + "Comment=not Hidden=true\n"));
    EXPECT_FALSE(IsAutostartOn(HiddenAutostartEntry("x")));
}

/// The tools of the desktops themselves, where they are installed: script/setup does that.
class ValidatedTest : public EntryTextsTest {
  protected:
    static bool IsThere(const std::string& tool) {
        return std::system(("command -v " + tool + " >/dev/null 2>&1").c_str()) == 0;
    }

    /// What the tool says of the file; "" when it has nothing to say.
    std::string Check(const std::string& tool, const std::string& name, const std::string& text) const {
        const std::string path = folder.Write(name, text);
        const int status = std::system((tool + " '" + path + "' > '" + (folder / "said") + "' 2>&1").c_str());
        return status == 0 ? "" : folder.Read("said");
    }
};

TEST_F(ValidatedTest, DesktopEntries_AreValid) {
    ASSERT_TRUE(IsThere("desktop-file-validate")) << "script/setup installs it";
    const std::string autostart = AutostartEntry("Kestrin Zeftaworks", QuotePath(program) + " /r");
    EXPECT_EQ(Check("desktop-file-validate", "start.desktop", autostart), "");
    EXPECT_EQ(Check("desktop-file-validate", "hidden.desktop", HiddenAutostartEntry("x")), "");
    for (const char* fileClass : {".mp3", ".m3u", ".wav", "Folder"}) {
        // The tool knows the type of service menus by name alone; all else is as for an application.
        const std::string text = Replaced(ServiceMenu(Entry("/e 128 \"%1\" /trim", fileClass)),
                                          "Type=Service", "Type=Application\nExec=zefta");
        EXPECT_EQ(Check("desktop-file-validate", "menu.desktop", text), "") << text;
    }
}

TEST_F(ValidatedTest, ThunarAction_IsWellFormed) {
    ASSERT_TRUE(IsThere("xmllint")) << "script/setup installs it";
    const std::string text = ThunarAction(Entry("/e 128 \"%1\" /trim"));
    EXPECT_EQ(Check("xmllint --noout", "uca.xml", "<actions>" + text + "</actions>"), "");
}

}  // namespace
}  // namespace zefta::test
