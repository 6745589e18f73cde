#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "core/ShellVerbs.h"
#include "platform/CommandText.h"
#include "support/ExpectRuntimeError.h"
#include "support/FakeDesktopEntries.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class ShellVerbsTest : public ::testing::Test {
  protected:
    ShellVerb VerbOf(const std::string& checkBox, int quality = 5) {
        for (const ShellVerb& verb : ShellVerbTable(quality)) {
            if (verb.CheckBox == checkBox) return verb;
        }
        ADD_FAILURE() << checkBox;
        return {};
    }

    void Register(const ShellVerb& verb, bool enabled) {
        verbs.RegisterShellVerb(verb.Class, verb.Verb, verb.Parameters, enabled);
    }

    /// The arguments that the program gets of the command line in the menu, for that file.
    std::vector<std::string> ArgumentsOf(const std::string& commandLine, const std::string& file) {
        std::vector<std::string> arguments;
        for (const CommandArgument& argument : SplitCommandLine(commandLine))
            arguments.push_back(argument.text == "%1" ? file : argument.text);
        EXPECT_EQ(arguments.front(), "/opt/zefta/zefta");
        arguments.erase(arguments.begin());
        return arguments;
    }

    /// What the program makes of the verb.
    AppState& Parsed(const ShellVerb& verb, const std::string& file) {
        Register(verb, true);
        app.state = AppState();
        app.state.TrimSilence = false;
        for (auto* presets : {&app.state.CustomOGGPreset, &app.state.CustomMPCPreset})
            presets->fill({"name", "code"});
        EXPECT_TRUE(ParseCommandLine(
            app, CommandLine(ArgumentsOf(desktops.menus.begin()->second.commandLine, file))));
        Register(verb, false);
        return app.state;
    }

    TestApp app;
    FakeDesktopEntries desktops;
    ShellVerbs verbs{app, desktops};
};

TEST_F(ShellVerbsTest, Table_HasTheKnownVerbs) {
    const std::vector<ShellVerb> table = ShellVerbTable(7);
    ASSERT_EQ(table.size(), 36U);
    EXPECT_EQ(table[0], (ShellVerb{".mp3", "chkFileInfo", "ZEFTA File information", "\"%1\""}));
    EXPECT_EQ(table[1], (ShellVerb{".mp3", "chkDecode", "ZEFTA Decode", "/d \"%1\" /sync"}));
    EXPECT_EQ(VerbOf("chkEncode256ABR"), (ShellVerb{".wav", "chkEncode256ABR", "ZEFTA Encode to 256 kbps ABR",
                                                    "/e abr 256 \"%1\" /trim"}));
    EXPECT_EQ(VerbOf("chkEncodeOggQmode", 10),
              (ShellVerb{".wav", "chkEncodeOggQmode", "ZEFTA Encode to OGG Q=10", "/e oq10 \"%1\" /trim"}));
    EXPECT_EQ(table[35], (ShellVerb{"Folder", "chkBrowseWithZEFTA", "Browse with ZEFTA", "\"%1\""}));
    std::set<std::string> boxes;
    for (const ShellVerb& verb : table) boxes.insert(verb.CheckBox);
    EXPECT_EQ(boxes.size(), table.size());
}

TEST_F(ShellVerbsTest, Registered_StandsInTheStoreAndInTheMenus) {
    Register(VerbOf("chkEncode128"), true);
    const std::string line = "\"/opt/zefta/zefta\" /e 128 \"%1\" /trim";
    EXPECT_EQ(app.userSettings.values,
              (std::map<std::pair<std::string, std::string>, std::string>{
                  {{"ShellVerbs", ".wav\\shell\\ZEFTA Encode to 128 kbps\\command"}, line}}));
    ASSERT_EQ(desktops.menus.size(), 1U);
    const MenuEntry& entry = desktops.menus.begin()->second;
    EXPECT_EQ(entry.id, "zefta-encode-to-128-kbps");
    EXPECT_EQ(entry.caption, "ZEFTA Encode to 128 kbps");
    EXPECT_EQ(entry.fileClass, ".wav");
    EXPECT_EQ(entry.commandLine, line);
    EXPECT_TRUE(verbs.IsOn(VerbOf("chkEncode128")));
    EXPECT_FALSE(verbs.IsOn(VerbOf("chkEncode160")));
}

TEST_F(ShellVerbsTest, EveryVerb_HasKeyAndIdOfItsOwn) {
    std::size_t count = 0;
    for (int quality = 0; quality <= HighestOggQuality; ++quality) {
        for (const ShellVerb& verb : ShellVerbTable(quality)) Register(verb, true);
        count = 36 + static_cast<std::size_t>(quality);
        EXPECT_EQ(desktops.menus.size(), count);
        EXPECT_EQ(app.userSettings.values.size(), count);
    }
    for (const auto& [key, value] : app.userSettings.values)
        EXPECT_EQ(key.second.find('='), std::string::npos) << key.second;
    for (const auto& [id, entry] : desktops.menus) {
        EXPECT_TRUE(id.starts_with("zefta-")) << id;
        EXPECT_EQ(id.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos) << id;
    }
}

TEST_F(ShellVerbsTest, Unregistered_RemovesOnlyItsOwn) {
    app.userSettings.values[{"ShellVerbs", ".wav\\shell\\Other program\\command"}] = "other";
    Register(VerbOf("chkEncode128"), true);
    Register(VerbOf("chkEncode160"), true);
    Register(VerbOf("chkEncode128"), false);
    EXPECT_EQ(app.userSettings.values.size(), 2U);
    EXPECT_TRUE(verbs.IsOn(VerbOf("chkEncode160")));
    EXPECT_FALSE(verbs.IsOn(VerbOf("chkEncode128")));
    EXPECT_EQ((app.userSettings.values[{"ShellVerbs", ".wav\\shell\\Other program\\command"}]), "other");
}

TEST_F(ShellVerbsTest, Unregistered_WhatIsNotThere_IsIgnored) {
    Register(VerbOf("chkEncode128"), false);
    EXPECT_EQ(app.userSettings.applied, 0);
    EXPECT_TRUE(desktops.menus.empty());
}

TEST_F(ShellVerbsTest, RegisteredAgain_IsNotStoredAgain) {
    Register(VerbOf("chkEncode128"), true);
    Register(VerbOf("chkEncode128"), true);
    EXPECT_EQ(app.userSettings.applied, 1);
}

TEST_F(ShellVerbsTest, RemovedByOthers_IsOff) {
    Register(VerbOf("chkEncode128"), true);
    Register(VerbOf("chkEncode160"), true);
    desktops.menus.erase("zefta-encode-to-128-kbps");
    app.userSettings.values.erase({"ShellVerbs", ".wav\\shell\\ZEFTA Encode to 160 kbps\\command"});
    EXPECT_FALSE(verbs.IsOn(VerbOf("chkEncode128")));
    EXPECT_FALSE(verbs.IsOn(VerbOf("chkEncode160")));
}

TEST_F(ShellVerbsTest, DesktopThatRefuses_LeavesTheStoreAsItIs) {
    Register(VerbOf("chkEncode128"), true);
    desktops.isReadOnly = true;
    EXPECT_EQ(RuntimeErrorOf([&] { Register(VerbOf("chkEncode160"), true); }), 70);
    EXPECT_EQ(RuntimeErrorOf([&] { Register(VerbOf("chkEncode128"), false); }), 70);
    EXPECT_EQ(app.userSettings.values.size(), 1U);
}

TEST_F(ShellVerbsTest, OggQuality_IsThatOfTheVerbThatIsOn) {
    EXPECT_EQ(verbs.OggQuality(), std::nullopt);
    Register(VerbOf("chkEncodeOggQmode", 0), true);
    EXPECT_EQ(verbs.OggQuality(), 0);
    Register(VerbOf("chkEncodeOggQmode", 0), false);
    Register(VerbOf("chkEncodeOggQmode", 10), true);
    EXPECT_EQ(verbs.OggQuality(), 10);
}

TEST_F(ShellVerbsTest, FileInformationAndBrowse_OpenWhatIsNamed) {
    const std::string file = app.folder.Write("a b.mp3", "x");
    EXPECT_EQ(Parsed(VerbOf("chkFileInfo"), file).JobCode, 11);
    EXPECT_EQ(app.state.FileSpec, file);
    EXPECT_EQ(Parsed(VerbOf("chkBrowseWithZEFTA"), app.folder.Path()).JobCode, 12);
    EXPECT_EQ(app.state.CurrentFolder, app.folder.Path());
}

TEST_F(ShellVerbsTest, Decode_IsRefusedByItsLastWord) {
    EXPECT_EQ(Parsed(VerbOf("chkDecode"), "/music/a b.mp3").JobCode, 7);
    EXPECT_EQ(app.state.FileSpec, "/sync");
}

TEST_F(ShellVerbsTest, CopyPlaylist_CopiesTheList) {
    EXPECT_EQ(Parsed(VerbOf("chkCopyPlaylist"), "/music/a b.m3u").JobCode, 5);
    EXPECT_EQ(app.state.FileSpec, "/music/a b.m3u");
}

struct EncodeCase {
    const char* box;
    int bitrate;
    bool vbr;
    /// 0 where the encoder is not used.
    int ogg;
    int mpc;
};

TEST_F(ShellVerbsTest, EncodeVerbs_ChooseTheirModeAndTrim) {
    const std::vector<EncodeCase> cases = {
        {"chkEncode128", 128, false, 0, 0},
        {"chkEncode160", 160, false, 0, 0},
        {"chkEncode192", 192, false, 0, 0},
        {"chkEncode256", 256, false, 0, 0},
        {"chkEncode320", 320, false, 0, 0},
        {"chkEncode128ABR", 128, true, 0, 0},
        {"chkEncode160ABR", 160, true, 0, 0},
        {"chkEncode192ABR", 192, true, 0, 0},
        {"chkEncode256ABR", 256, true, 0, 0},
        // "vbr" is no mode word: the line encodes in the mode that the option resets to.
        {"chkEncodeVBR", 320, false, 0, 0},
        {"chkEncodePreset1", 9001, false, 0, 0},
        {"chkEncodePreset2", 9002, false, 0, 0},
        {"chkEncodePreset3", 9003, false, 0, 0},
        {"chkEncodeOgg112", 320, false, 1, 0},
        {"chkEncodeOgg128", 320, false, 2, 0},
        {"chkEncodeOgg160", 320, false, 3, 0},
        {"chkEncodeOgg192", 320, false, 4, 0},
        {"chkEncodeOgg256", 320, false, 5, 0},
        {"chkEncodeOgg350", 320, false, 6, 0},
        {"chkEncodeOggQmode", 320, false, 15, 0},
        {"chkEncodeOggPreset1", 320, false, 31, 0},
        {"chkEncodeOggPreset2", 320, false, 32, 0},
        {"chkEncodeOggPreset3", 320, false, 33, 0},
        {"chkEncodeMPEGplus1", 320, false, 0, 1},
        {"chkEncodeMPEGplus2", 320, false, 0, 2},
        {"chkEncodeMPEGplus3", 320, false, 0, 3},
        {"chkEncodeMPEGplus4", 320, false, 0, 4},
        {"chkEncodeMPEGplus5", 320, false, 0, 5},
        {"chkEncodeMPEGplus6", 320, false, 0, 6},
        {"chkEncodeMPEGplusPreset1", 320, false, 0, 11},
        {"chkEncodeMPEGplusPreset2", 320, false, 0, 12},
        {"chkEncodeMPEGplusPreset3", 320, false, 0, 13},
    };
    const auto table = ShellVerbTable(5);
    EXPECT_EQ(static_cast<long>(cases.size()),
              std::count_if(table.begin(), table.end(), [](auto& verb) { return verb.Class == ".wav"; }));
    for (const EncodeCase& each : cases) {
        const AppState& state = Parsed(VerbOf(each.box), "/music/a \"b\".wav");
        EXPECT_EQ(state.JobCode, 6) << each.box;
        EXPECT_EQ(state.FileSpec, "/music/a \"b\".wav") << each.box;
        EXPECT_TRUE(state.TrimSilence) << each.box;
        EXPECT_EQ(state.Bitrate, each.bitrate) << each.box;
        EXPECT_EQ(state.UseVBR, each.vbr) << each.box;
        EXPECT_EQ(state.UseOggVorbis ? state.OggVorbisMode : 0, each.ogg) << each.box;
        EXPECT_EQ(state.UseMPEGplus ? state.MPEGplusMode : 0, each.mpc) << each.box;
    }
}

}  // namespace
}  // namespace zefta::test
