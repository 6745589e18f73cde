#include <functional>

#include <gtest/gtest.h>

#include "core/History.h"
#include "core/Settings.h"
#include "core/SetupOptions.h"
#include "core/ShellVerbs.h"
#include "support/FakeDesktopEntries.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

constexpr auto AutostartName = "Kestrin Zeftaworks";

class SetupOptionsTest : public ::testing::Test {
  protected:
    SetupOptionsTest() { LoadSettings(app); }

    SetupOptions Load() { return LoadSetupOptions(app, desktops); }
    void Save(const SetupOptions& options) { SaveSetupOptions(app, desktops, options); }

    std::string Stored(const std::string& key, const std::string& section = "Settings") {
        return app.userSettings.GetValue(section, key).value_or("nothing");
    }

    static std::size_t IndexOf(const std::string& box) {
        const auto table = ShellVerbTable(0);
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (table[i].CheckBox == box) return i;
        }
        ADD_FAILURE() << box;
        return 0;
    }

    TestApp app;
    FakeDesktopEntries desktops;
};

TEST_F(SetupOptionsTest, FirstLoad_HasTheDefaults) {
    const SetupOptions options = Load();
    EXPECT_TRUE(options.Saved.TrimSilence);
    EXPECT_FALSE(options.AutoLoad);
    EXPECT_EQ(options.PriorityClass, "Normal");
    EXPECT_EQ(options.NormalizeLevel, 95);
    EXPECT_EQ(options.NormalizeAbove, 98);
    EXPECT_EQ(options.NormalizeBelow, 85);
    EXPECT_EQ(options.CustomRenameTemplate, "%N. %A - %T [%M] %W");
    EXPECT_EQ(options.CustomLAMEPreset[2].Name, "LAME VBR for movies");
    EXPECT_EQ(options.Verbs, std::vector<bool>(36, false));
    EXPECT_TRUE(options.EnableLAME128);
}

TEST_F(SetupOptionsTest, Saved_IsStoredAndInForce) {
    SetupOptions options = Load();
    options.Saved = {
        .TrimSilence = false, .ReduceLevel = true, .Normalize = true, .NormalizeSeparately = true};
    options.FilePropertiesOnDblClick = true;
    options.ShowExecuteWindows = false;
    options.DeleteAfterCompress = true;
    options.DeleteAfterReCompress = true;
    options.NormalizeLevel = 90;
    options.NormalizeAbove = 91;
    options.NormalizeBelow = 80;
    options.CustomLAMEPreset[0] = {"n1", "c1"};
    options.CustomOGGPreset[1] = {"n5", "c5"};
    options.CustomMPCPreset[2] = {"n9", "c9"};
    options.EnableLAME128ABR = false;
    options.EnableOGGb[5] = false;
    options.EnableOGGq[10] = false;
    options.EnableMPCm[0] = false;
    Save(options);
    const std::pair<const char*, const char*> stored[] = {
        {"TrimSilence", "False"},
        {"ReduceLevel", "True"},
        {"Normalize", "True"},
        {"NormalizeSeparately", "True"},
        {"ShowExecuteWindows", "False"},
        {"FilePropertiesOnDblClick", "True"},
        {"DeleteAfterCompress", "True"},
        {"DeleteAfterReCompress", "True"},
        {"NormalizeLevel", "90"},
        {"NormalizeAbove", "91"},
        {"NormalizeBelow", "80"},
        {"CustomLAMEPreset1_Name", "n1"},
        {"CustomLAMEPreset1_Code", "c1"},
        {"CustomOGGPreset2_Name", "n5"},
        {"CustomMPCPreset3_Code", "c9"},
        {"EnableLAME128ABR", "False"},
        {"EnableOGGb6", "False"},
        {"EnableOGGq10", "False"},
        {"EnableMPCm1", "False"},
        {"EnableMPCm2", "True"},
        {"PriorityClass", "Normal"},
    };
    for (const auto& [key, value] : stored) EXPECT_EQ(Stored(key), value) << key;
    EXPECT_EQ(Stored("MSG_Open", "Agent"), "Open");
    EXPECT_FALSE(app.state.TrimSilence);
    EXPECT_TRUE(app.state.Normalize);
    LoadSettings(app);
    const SetupOptions again = Load();
    EXPECT_EQ(again.Saved.TrimSilence, false);
    EXPECT_EQ(again.NormalizeLevel, 90);
    EXPECT_EQ(again.CustomMPCPreset[2].Name, "n9");
    EXPECT_FALSE(again.EnableOGGq[10]);
}

TEST_F(SetupOptionsTest, Priority_IsStoredByItsWord) {
    for (const auto& [word, number] : {std::pair{"High", HighPriority}, std::pair{"Idle", IdlePriority}}) {
        SetupOptions options = Load();
        options.PriorityClass = word;
        Save(options);
        EXPECT_EQ(Stored("PriorityClass"), word);
        EXPECT_EQ(app.state.PriorityClass, number);
        EXPECT_EQ(Load().PriorityClass, word);
    }
    app.userSettings.values[{"Settings", "PriorityClass"}] = "hIGH";
    EXPECT_EQ(Load().PriorityClass, "High");
    app.userSettings.values[{"Settings", "PriorityClass"}] = "whatever";
    EXPECT_EQ(Load().PriorityClass, "Normal");
}

TEST_F(SetupOptionsTest, Template_GoesToTheHistoryWhenItIsNew) {
    SetupOptions options = Load();
    options.CustomRenameTemplate = "%T";
    Save(options);
    options = Load();
    EXPECT_EQ(options.RenameTemplates, std::vector<std::string>{"%T"});
    options.CustomRenameTemplate = "%A";
    Save(options);
    Save(Load());
    EXPECT_EQ(Load().RenameTemplates, (std::vector<std::string>{"%A", "%T"}));
    EXPECT_EQ(Stored("RenameTemplatesCount", "History"), "2");
    EXPECT_EQ(Stored("RenameTemplate0", "History"), "%A");
    EXPECT_EQ(Stored("CustomRenameTemplate"), "%A");
    EXPECT_EQ(app.state.CustomRenameTemplate, "%A");
}

TEST_F(SetupOptionsTest, WithTemplate_NeverAddsAnEmptyOne) {
    EXPECT_EQ(WithTemplate({"a"}, ""), std::vector<std::string>{"a"});
    EXPECT_EQ(WithTemplate({"a", "b"}, "b"), (std::vector<std::string>{"a", "b"}));
}

TEST_F(SetupOptionsTest, AutoLoad_WritesAndDeletesTheEntry) {
    SetupOptions options = Load();
    options.AutoLoad = true;
    Save(options);
    EXPECT_EQ(desktops.session,
              (std::map<std::string, std::string>{{AutostartName, "/opt/zefta/zeftaa.exe"}}));
    EXPECT_TRUE(Load().AutoLoad);
    options.AutoLoad = false;
    Save(options);
    EXPECT_TRUE(desktops.session.empty());
}

TEST_F(SetupOptionsTest, Verbs_AreRegisteredInTheOrderOfTheTable_BehindTheRest) {
    SetupOptions options = Load();
    options.Verbs[IndexOf("chkFileInfo")] = true;
    options.Verbs[IndexOf("chkBrowseWithZEFTA")] = true;
    Save(options);
    ASSERT_GE(desktops.calls.size(), 37U);
    EXPECT_EQ(desktops.calls[0], "no start");
    EXPECT_EQ(desktops.calls[1], "+zefta-file-information");
    EXPECT_EQ(desktops.calls[2], "-zefta-decode");
    EXPECT_EQ(desktops.calls[36], "+zefta-browse-with-zefta");
    const SetupOptions again = Load();
    EXPECT_TRUE(again.Verbs[IndexOf("chkFileInfo")]);
    EXPECT_FALSE(again.Verbs[IndexOf("chkDecode")]);
}

TEST_F(SetupOptionsTest, OggQuality_TakesThePlaceOfTheFormerOne) {
    SetupOptions options = Load();
    options.Verbs[IndexOf("chkEncodeOggQmode")] = true;
    options.OggQuality = 3;
    Save(options);
    options = Load();
    EXPECT_EQ(options.OggQuality, 3);
    EXPECT_TRUE(options.Verbs[IndexOf("chkEncodeOggQmode")]);
    options.OggQuality = 10;
    Save(options);
    EXPECT_EQ(desktops.menus.size(), 1U);
    EXPECT_EQ(desktops.menus.begin()->first, "zefta-encode-to-ogg-q-10");
    EXPECT_EQ(Load().OggQuality, 10);
}

TEST_F(SetupOptionsTest, DesktopThatRefuses_IsToldOnceAndTheRestIsStored) {
    SetupOptions options = Load();
    options.AutoLoad = true;
    options.Verbs.assign(36, true);
    options.DeleteAfterCompress = true;
    desktops.isReadOnly = true;
    Save(options);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #70")) << app.desktop.boxes[0].text;
    EXPECT_EQ(Stored("DeleteAfterCompress"), "True");
    EXPECT_EQ(Load().Verbs, std::vector<bool>(36, false));
}

TEST_F(SetupOptionsTest, LanguageFile_IsCheckedWhenChosenAndInForceAtOnce) {
    SetupOptions options = Load();
    options.EnableExternalLanguage = true;
    std::string text;
    for (const Message& message : MessageTable(Language::English)) {
        if (!IsHeading(message.text) && message.id != 33601)
            text += std::to_string(message.id) + " = x" + std::to_string(message.id) + "\r\n";
    }
    options.ExternalLanguageFile = app.folder.Write("x.lng", text);
    Save(options);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("\"33601\""), std::string::npos) << app.desktop.boxes[0].text;
    EXPECT_EQ(app.messages.GetMessage(33602), "x33602");
    EXPECT_EQ(Stored("MSG_Compress", "Agent"), "x33602");
    EXPECT_EQ(Stored("EnableExternalLanguage"), "True");
    // Known by now.
    Save(Load());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    // Read again all the same: the person may have mended it.
    app.folder.Write("x.lng", "33602 = y\r\n");
    Save(Load());
    EXPECT_EQ(app.messages.GetMessage(33602), "y");
    options = Load();
    options.EnableExternalLanguage = false;
    Save(options);
    EXPECT_EQ(app.messages.GetMessage(33602), "Compress audio compact disc");
    EXPECT_EQ(Stored("MSG_Compress", "Agent"), "Compress audio compact disc");
    EXPECT_EQ(Stored("ExternalLanguageFile"), app.folder / "x.lng");
}

/// Tells when the program comes to them.
class AwaitedEntries : public FakeDesktopEntries {
  public:
    std::function<void()> whenStartIsSet;

    void StartWithSession(const std::string& name, const std::string& commandLine) override {
        whenStartIsSet();
        FakeDesktopEntries::StartWithSession(name, commandLine);
    }
};

TEST_F(SetupOptionsTest, PoorLanguageFile_IsToldOfWhenAllIsStored) {
    AwaitedEntries awaited;
    std::size_t boxesBefore = 1;
    awaited.whenStartIsSet = [&] { boxesBefore = app.desktop.boxes.size(); };
    SetupOptions options = Load();
    options.AutoLoad = true;
    options.EnableExternalLanguage = true;
    options.ExternalLanguageFile = app.folder.Write("x.lng", "33601 = x\r\n");
    SaveSetupOptions(app, awaited, options);
    EXPECT_EQ(boxesBefore, 0U);
    EXPECT_GT(app.desktop.boxes.size(), 300U);
    EXPECT_EQ(Stored("MSG_Open", "Agent"), "x");
}

TEST_F(SetupOptionsTest, LanguageFileThatIsMissingOrNone_IsSwitchedOffAndTold) {
    const std::string missing = app.folder / "none.lng";
    const std::string garbage = app.folder.Write("bad.lng", "no texts");
    const std::pair<std::string, std::string> files[] = {
        {missing, "File \"" + missing + "\" not found."},
        {garbage, garbage + "\n\nThis one is not a valid file!"},
    };
    for (const auto& [file, told] : files) {
        app.desktop.boxes.clear();
        SetupOptions options = Load();
        options.EnableExternalLanguage = true;
        options.ExternalLanguageFile = file;
        Save(options);
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_EQ(app.desktop.boxes[0].text, told);
        EXPECT_EQ(Stored("EnableExternalLanguage"), "False");
    }
}

TEST_F(SetupOptionsTest, StartupFolder_IsStored) {
    SetupOptions options = Load();
    options.EnableStartupFolder = true;
    options.StartupFolder = app.folder.Path();
    Save(options);
    LoadSettings(app);
    EXPECT_EQ(app.state.CurrentFolder, app.folder.Path());
}

TEST(LevelText, ShowsPerCentAndDecibels) {
    EXPECT_EQ(LevelText(100), "100 % (0.00 dB)");
    EXPECT_EQ(LevelText(95), "95 % (-0.45 dB)");
    EXPECT_EQ(LevelText(50), "50 % (-6.02 dB)");
    EXPECT_EQ(LevelText(1), "1 % (-40.00 dB)");
    EXPECT_EQ(LevelText(0), "0 %");
}

TEST(LevelText, EveryLevel_IsReadBack) {
    for (int percent = 0; percent <= 100; ++percent) EXPECT_EQ(LevelOfText(LevelText(percent)), percent);
}

TEST(LevelOfText, TakesPerCentOrDecibels) {
    EXPECT_EQ(LevelOfText("90"), 90);
    EXPECT_EQ(LevelOfText(" 90%"), 90);
    EXPECT_EQ(LevelOfText("-6 dB"), 50);
    EXPECT_EQ(LevelOfText("0 dB"), 100);
    EXPECT_EQ(LevelOfText("101"), std::nullopt);
    EXPECT_EQ(LevelOfText("-1"), std::nullopt);
    EXPECT_EQ(LevelOfText("1 dB"), std::nullopt);
    EXPECT_EQ(LevelOfText("-6,02 dB"), 50);
    EXPECT_EQ(LevelOfText("-0,5 dB"), 94);
    EXPECT_EQ(LevelOfText(".5"), 1);
    EXPECT_EQ(LevelOfText(std::string(400, '9')), std::nullopt);
}

TEST(LevelOfText, TextWithoutANumberInFront_IsNoSilence) {
    for (const char* text : {"", " ", "%", " % (-0.45 dB)", "dB", "loud", "-", ".", "- 6 dB", "\u22126 dB"})
        EXPECT_EQ(LevelOfText(text), std::nullopt) << text;
    EXPECT_EQ(LevelOfText("0"), 0);
}

}  // namespace
}  // namespace zefta::test
