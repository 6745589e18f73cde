#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "platform/posix/EntryTexts.h"
#include "platform/posix/PosixDesktopEntries.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

namespace fs = std::filesystem;

class DesktopEntriesTest : public ::testing::Test {
  protected:
    using Files = std::map<std::string, std::string>;

    void Make(const std::string& name, const std::string& text) {
        fs::create_directories(fs::path(root / name).parent_path());
        root.Write(name, text);
    }

    Files All() const {
        Files all;
        for (const auto& entry : fs::recursive_directory_iterator(root.Path())) {
            if (entry.is_regular_file()) {
                const std::string path = entry.path().string();
                all[path.substr(root.Path().size() + 1)] = ReadWholeFile(path);
            }
        }
        return all;
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& [name, text] : All()) names.insert(name);
        return names;
    }

    static bool IsProgram(const std::string& path) {
        return (fs::status(path).permissions() & fs::perms::owner_exec) != fs::perms::none;
    }

    TempFolder root;
    std::set<std::string> installed;
    PosixDesktopEntries entries = PosixDesktopEntries(
        {root / "data", root / "config", root / "config/autostart", {root / "etc1", root / "etc2"}},
        [this](const std::string& program) { return installed.contains(program); });
    const MenuEntry encode = {"zefta-encode", "ZEFTA Encode", ".wav", "\"/opt/zefta\" /e \"%1\""};
    const MenuEntry decode = {"zefta-decode", "ZEFTA Decode", ".mp3", "\"/opt/zefta\" /d \"%1\""};
};

using NameSet = std::set<std::string>;

TEST_F(DesktopEntriesTest, Added_WhereNoFileManagerIs_IsTheFreedesktopActionAlone) {
    EXPECT_FALSE(entries.IsInMenus(encode));
    entries.AddToMenus(encode);
    EXPECT_EQ(Names(), (NameSet{"data/file-manager/actions/zefta-encode.desktop"}));
    EXPECT_TRUE(entries.IsInMenus(encode));
    EXPECT_FALSE(entries.IsInMenus(decode));
}

TEST_F(DesktopEntriesTest, Added_WithAllFileManagers_IsInAllMenus) {
    installed = {"dolphin", "nemo", "nautilus", "thunar"};
    entries.AddToMenus(encode);
    EXPECT_EQ(Names(),
              (NameSet{"config/Thunar/uca.xml", "data/file-manager/actions/zefta-encode.desktop",
                       "data/kio/servicemenus/zefta-encode.desktop", "data/nautilus/scripts/ZEFTA Encode",
                       "data/nemo/actions/zefta-encode.nemo_action"}));
    EXPECT_TRUE(IsProgram(root / "data/kio/servicemenus/zefta-encode.desktop"));
    EXPECT_TRUE(IsProgram(root / "data/nautilus/scripts/ZEFTA Encode"));
}

TEST_F(DesktopEntriesTest, FolderOfADesktop_CountsAsInUse) {
    fs::create_directories(root / "data/nemo/actions");
    entries.AddToMenus(encode);
    EXPECT_TRUE(root.Exists("data/nemo/actions/zefta-encode.nemo_action"));
    EXPECT_FALSE(root.Exists("data/kio"));
}

TEST_F(DesktopEntriesTest, Removed_IsGoneFromAllAndOthersStay) {
    installed = {"dolphin", "nemo", "nautilus", "thunar"};
    Make("data/file-manager/actions/own.desktop", "mine");
    Make("data/nautilus/scripts/own", "mine");
    entries.AddToMenus(decode);
    const Files before = All();
    entries.AddToMenus(encode);
    installed.clear();
    entries.RemoveFromMenus(encode);
    EXPECT_EQ(All(), before);
    EXPECT_FALSE(entries.IsInMenus(encode));
    EXPECT_TRUE(entries.IsInMenus(decode));
    entries.RemoveFromMenus(encode);
    EXPECT_EQ(All(), before);
}

TEST_F(DesktopEntriesTest, AddedAgain_ChangesNothing_AndAnotherCommandReplaces) {
    installed = {"dolphin", "nemo", "nautilus", "thunar"};
    entries.AddToMenus(encode);
    const Files before = All();
    entries.AddToMenus(encode);
    EXPECT_EQ(All(), before);
    MenuEntry moved = encode;
    moved.commandLine = "\"/usr/bin/zefta\" /e \"%1\"";
    entries.AddToMenus(moved);
    for (const auto& [name, text] : All()) {
        EXPECT_NE(text.find("/usr/bin/zefta"), std::string::npos) << name;
        EXPECT_EQ(text.find("/opt/zefta"), std::string::npos) << name;
    }
}

TEST_F(DesktopEntriesTest, ScriptOfThePersonUnderThatName_Stays) {
    Make("data/nautilus/scripts/ZEFTA Encode", "#!/bin/sh\necho mine\n");
    entries.AddToMenus(encode);
    EXPECT_EQ(root.Read("data/nautilus/scripts/ZEFTA Encode"), "#!/bin/sh\necho mine\n");
    entries.RemoveFromMenus(encode);
    EXPECT_EQ(root.Read("data/nautilus/scripts/ZEFTA Encode"), "#!/bin/sh\necho mine\n");
    EXPECT_FALSE(entries.IsInMenus(encode));
}

TEST_F(DesktopEntriesTest, Thunar_BeginsWithTheActionsOfTheMachine) {
    Make("etc2/Thunar/uca.xml", "<actions>\n<action><unique-id>1-1</unique-id></action>\n</actions>\n");
    installed = {"thunar"};
    entries.AddToMenus(encode);
    const std::string text = root.Read("config/Thunar/uca.xml");
    EXPECT_NE(text.find("<unique-id>1-1</unique-id>"), std::string::npos);
    EXPECT_NE(text.find("<unique-id>zefta-encode</unique-id>"), std::string::npos);
}

TEST_F(DesktopEntriesTest, Thunar_FileThatIsNoListOrTooLarge_Stays) {
    installed = {"thunar"};
    for (const std::string& text : {std::string("not xml"), std::string((1 << 20) + 1, ' ')}) {
        Make("config/Thunar/uca.xml", text);
        entries.AddToMenus(encode);
        EXPECT_EQ(root.Read("config/Thunar/uca.xml"), text);
    }
}

TEST_F(DesktopEntriesTest, FileBehindALink_IsChangedWhereItLies) {
    Make("dotfiles/uca.xml", "<actions>\n</actions>\n");
    fs::create_directories(root / "config/Thunar");
    fs::create_symlink(root / "dotfiles/uca.xml", root / "config/Thunar/uca.xml");
    entries.AddToMenus(encode);
    EXPECT_TRUE(fs::is_symlink(root / "config/Thunar/uca.xml"));
    EXPECT_NE(root.Read("dotfiles/uca.xml").find("zefta-encode"), std::string::npos);
}

TEST_F(DesktopEntriesTest, FolderThatCannotBeMade_IsAFailure) {
    Make("data", "a file is in the way");
    EXPECT_EQ(RuntimeErrorOf([&] { entries.AddToMenus(encode); }), 75);
}

TEST_F(DesktopEntriesTest, Autostart_IsAFileOfTheTitle) {
    EXPECT_FALSE(entries.StartsWithSession("Kestrin Zeftaworks"));
    entries.KeepFromSession("Kestrin Zeftaworks");
    EXPECT_EQ(All(), Files());
    entries.StartWithSession("Kestrin Zeftaworks", "\"/opt/zefta/zeftaa\" /r");
    EXPECT_EQ(Names(), (NameSet{"config/autostart/Kestrin Zeftaworks.desktop"}));
    EXPECT_TRUE(entries.StartsWithSession("Kestrin Zeftaworks"));
    entries.KeepFromSession("Kestrin Zeftaworks");
    EXPECT_FALSE(entries.StartsWithSession("Kestrin Zeftaworks"));
    EXPECT_EQ(All(), Files());
}

TEST_F(DesktopEntriesTest, Autostart_SwitchedOffInTheDesktop_IsOff) {
    Make("config/autostart/Z.desktop", "[Desktop Entry]\nType=Application\nHidden=true\n");
    EXPECT_FALSE(entries.StartsWithSession("Z"));
    entries.StartWithSession("Z", "/opt/z");
    EXPECT_TRUE(entries.StartsWithSession("Z"));
}

TEST_F(DesktopEntriesTest, Autostart_OfTheMachine_IsOnUntilThePersonHidesIt) {
    Make("etc2/autostart/Z.desktop", AutostartEntry("Z", "/opt/z"));
    EXPECT_TRUE(entries.StartsWithSession("Z"));
    entries.KeepFromSession("Z");
    EXPECT_FALSE(entries.StartsWithSession("Z"));
    EXPECT_TRUE(root.Exists("etc2/autostart/Z.desktop"));
    entries.StartWithSession("Z", "/opt/z");
    EXPECT_TRUE(entries.StartsWithSession("Z"));
}

}  // namespace
}  // namespace zefta::test
