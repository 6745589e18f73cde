#include <filesystem>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "core/History.h"
#include "core/Settings.h"
#include "core/SettingsTable.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

struct DefaultRow {
    const char* key;
    const char* text;
};

/// The keys with what an empty store gives.
const DefaultRow Defaults[] = {
    {"Bitrate", "320"},
    {"UseVBR", "False"},
    {"OggVorbisMode", "5"},
    {"MPEGplusMode", "3"},
    {"TrimSilence", "True"},
    {"UseOggVorbis", "False"},
    {"UseMPEGplus", "False"},
    {"CustomRenameTemplate", "%N. %A - %T [%M] %W"},
    {"ReduceLevel", "False"},
    {"ShowExecuteWindows", "True"},
    {"Normalize", "False"},
    {"NormalizeLevel", "95"},
    {"NormalizeAbove", "98"},
    {"NormalizeBelow", "85"},
    {"NormalizeSeparately", "False"},
    {"CustomLAMEPreset1_Name", "Speech (64kbps ABR, 16kHz, mono)"},
    {"CustomLAMEPreset1_Code", "-m m -h --abr 64 --resample 16 --lowpass 8.000"},
    {"CustomLAMEPreset2_Name", "LAME 320 kbps with lowpass at 20kHz"},
    {"CustomLAMEPreset2_Code", "-m s -q0 -b 320 --lowpass 20.0"},
    {"CustomLAMEPreset3_Name", "LAME VBR for movies"},
    {"CustomLAMEPreset3_Code", "-m j -v -V 0 -h --lowpass 18.0 --resample 44"},
    {"CustomOGGPreset1_Name", ""},
    {"CustomOGGPreset1_Code", ""},
    {"CustomOGGPreset2_Name", ""},
    {"CustomOGGPreset2_Code", ""},
    {"CustomOGGPreset3_Name", ""},
    {"CustomOGGPreset3_Code", ""},
    {"CustomMPCPreset1_Name", ""},
    {"CustomMPCPreset1_Code", ""},
    {"CustomMPCPreset2_Name", ""},
    {"CustomMPCPreset2_Code", ""},
    {"CustomMPCPreset3_Name", ""},
    {"CustomMPCPreset3_Code", ""},
    {"CurrentFolder", "/home/u/Music"},
    {"StartupFolder", ""},
    {"EnableStartupFolder", "False"},
    {"FilePropertiesOnDblClick", "False"},
    {"DeleteAfterCompress", "False"},
    {"DeleteAfterReCompress", "False"},
    {"ExternalLanguageFile", ""},
    {"EnableExternalLanguage", "False"},
    {"CompressCD_SourceFolder", ""},
    {"CompressCD_TargetFolder", ""},
    {"CompressCD_Bitrate", "5"},
    {"RenameAndTagging_Format", "2"},
    {"RenameAndTagging_ProcessSubfolders", "False"},
    {"RenameAndTagging_UpdatePlaylists", "True"},
    {"RenameAndTagging_FilterType", "0"},
    {"RenameAndTagging_Mask", "*.*"},
    {"ChangeTags_AllFirstCaps", "True"},
    {"ChangeTags_AllTags", "True"},
    {"ChangeTags_ReverseFormat", "3"},
};

/// The keys that are True in an empty store and let a mode into the lists.
const char* const EnableKeys[] = {
    "EnableLAME128", "EnableLAME160",    "EnableLAME192",    "EnableLAME256",    "EnableLAME320",
    "EnableLAMEVBR", "EnableLAME128ABR", "EnableLAME160ABR", "EnableLAME192ABR", "EnableLAME256ABR",
    "EnableOGGb1",   "EnableOGGb2",      "EnableOGGb3",      "EnableOGGb4",      "EnableOGGb5",
    "EnableOGGb6",   "EnableOGGq0",      "EnableOGGq1",      "EnableOGGq2",      "EnableOGGq3",
    "EnableOGGq4",   "EnableOGGq5",      "EnableOGGq6",      "EnableOGGq7",      "EnableOGGq8",
    "EnableOGGq9",   "EnableOGGq10",     "EnableMPCm1",      "EnableMPCm2",      "EnableMPCm3",
    "EnableMPCm4",   "EnableMPCm5",      "EnableMPCm6",
};

class SettingsTest : public ::testing::Test {
  protected:
    SettingsTest() { app.TestWorld::machine.musicFolder = "/home/u/Music"; }

    void Store(const std::string& key, const std::string& text) {
        app.userSettings.values[{"Settings", key}] = text;
    }

    TestApp app;
};

TEST_F(SettingsTest, LoadSettings_EmptyStore_GivesEveryDefaultAndWritesNothing) {
    app.state.Bitrate = 1;
    LoadSettings(app);
    const auto& table = SettingsTable();
    ASSERT_EQ(table.size(), std::size(Defaults) + std::size(EnableKeys));
    for (std::size_t i = 0; i < table.size(); ++i) {
        const std::string text = SettingText(table[i].slot(app.state, table[i].index));
        if (i < std::size(Defaults)) {
            EXPECT_EQ(table[i].key, Defaults[i].key);
            EXPECT_EQ(text, Defaults[i].text) << table[i].key;
        } else {
            EXPECT_EQ(table[i].key, EnableKeys[i - std::size(Defaults)]);
            EXPECT_EQ(text, "True") << table[i].key;
        }
    }
    EXPECT_EQ(app.userSettings.applied, 0);
}

TEST_F(SettingsTest, LoadSettings_SetsTheDefaultsOfTheJob) {
    app.state.RenameFormat = 4;
    app.state.NoBackup = true;
    LoadSettings(app);
    EXPECT_EQ(app.state.RenameFormat, 0);
    EXPECT_EQ(app.state.Frequency, 44100);
    EXPECT_EQ(app.state.PriorityClass, 32);
    EXPECT_EQ(app.state.OptGenreIndex, 255);
    EXPECT_EQ(app.state.SilenceMax, 65535);
    EXPECT_FALSE(app.state.NoBackup);
}

TEST_F(SettingsTest, EveryKey_IsUniqueAndReadsBackWhatItsSaverWrote) {
    std::set<std::string> keys;
    for (const Setting& setting : SettingsTable()) {
        EXPECT_TRUE(keys.insert(setting.key).second) << setting.key;
        AppState state;
        const SettingSlot slot = setting.slot(state, setting.index);
        const std::string other = std::holds_alternative<bool*>(slot)          ? "False"
                                  : std::holds_alternative<std::string*>(slot) ? "text \xFF"
                                                                               : "42";
        ASSERT_TRUE(ReadSetting(slot, other)) << setting.key;
        EXPECT_EQ(SettingText(slot), other);
    }
}

TEST_F(SettingsTest, LoadSettings_ValueThatCannotBeRead_GivesTheDefault) {
    Store("Bitrate", "lots");
    Store("OggVorbisMode", "300");
    Store("UseVBR", "maybe");
    Store("CompressCD_Bitrate", "99999");
    LoadSettings(app);
    EXPECT_EQ(app.state.Bitrate, 320);
    EXPECT_EQ(app.state.OggVorbisMode, 5);
    EXPECT_FALSE(app.state.UseVBR);
    EXPECT_EQ(app.state.CompressCD_Bitrate, 5);
}

TEST_F(SettingsTest, LoadSettings_RunCopiesAreFilledFromTheSavedValues) {
    Store("TrimSilence", "False");
    Store("ReduceLevel", "true");
    Store("Normalize", "True");
    Store("NormalizeSeparately", "True");
    LoadSettings(app);
    EXPECT_FALSE(app.state.TrimSilence || app.state.Saved.TrimSilence);
    EXPECT_TRUE(app.state.ReduceLevel && app.state.Saved.ReduceLevel);
    EXPECT_TRUE(app.state.Normalize && app.state.NormalizeSeparately);
}

TEST_F(SettingsTest, StartupFolder_TakesPlaceOnlyWhenEnabledAndThere) {
    Store("CurrentFolder", "/saved");
    Store("StartupFolder", app.folder.Path());
    LoadSettings(app);
    EXPECT_EQ(app.state.CurrentFolder, "/saved");
    Store("EnableStartupFolder", "True");
    LoadSettings(app);
    EXPECT_EQ(app.state.CurrentFolder, app.folder.Path());
    Store("StartupFolder", "/no/such/folder");
    LoadSettings(app);
    EXPECT_EQ(app.state.CurrentFolder, "/saved");
}

TEST_F(SettingsTest, LanguageFileThatIsGone_IsOffInMemoryAndStaysOnInTheStore) {
    Store("EnableExternalLanguage", "True");
    Store("ExternalLanguageFile", app.folder / "gone.lng");
    LoadSettings(app);
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.userSettings.GetValue("Settings", "EnableExternalLanguage"), "True");
    app.folder.Write("gone.lng", "1=x");
    LoadSettings(app);
    EXPECT_TRUE(app.state.EnableExternalLanguage);
}

TEST_F(SettingsTest, LanguageFileThatIsNotNamed_IsOffInMemoryAndStaysOnInTheStore) {
    Store("EnableExternalLanguage", "True");
    LoadSettings(app);
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    Store("ExternalLanguageFile", "");
    LoadSettings(app);
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.userSettings.GetValue("Settings", "EnableExternalLanguage"), "True");
    EXPECT_EQ(app.userSettings.applied, 0);
}

TEST_F(SettingsTest, AnsiCodePage_OverridesTheOneOfTheLanguage) {
    LoadSettings(app);
    EXPECT_EQ(app.ansi.Decode("\xC4"), "Ä");
    Store("AnsiCodePage", "1251");
    LoadSettings(app);
    EXPECT_EQ(app.ansi.Decode("\xC4"), "Д");
}

TEST_F(SettingsTest, LoadPriorityClass_EveryWord) {
    const std::pair<const char*, int> rows[] = {{"Idle", 64}, {"NORMAL", 32}, {"high", 128}, {"else", 32}};
    LoadPriorityClass(app);
    EXPECT_EQ(app.state.PriorityClass, 32);
    for (const auto& [word, priority] : rows) {
        Store("PriorityClass", word);
        LoadPriorityClass(app);
        EXPECT_EQ(app.state.PriorityClass, priority) << word;
    }
}

using Keys = std::set<std::string>;

const Keys MainKeys = {"Bitrate",      "UseVBR",      "OggVorbisMode", "MPEGplusMode",
                       "UseOggVorbis", "UseMPEGplus", "CurrentFolder"};

/// What the options dialog edits, without the enable keys.
const Keys OptionKeys = {
    "TrimSilence",
    "CustomRenameTemplate",
    "ReduceLevel",
    "ShowExecuteWindows",
    "FilePropertiesOnDblClick",
    "DeleteAfterCompress",
    "DeleteAfterReCompress",
    "StartupFolder",
    "EnableStartupFolder",
    "ExternalLanguageFile",
    "EnableExternalLanguage",
    "Normalize",
    "NormalizeSeparately",
    "NormalizeLevel",
    "NormalizeAbove",
    "NormalizeBelow",
    "CustomLAMEPreset1_Name",
    "CustomLAMEPreset1_Code",
    "CustomLAMEPreset2_Name",
    "CustomLAMEPreset2_Code",
    "CustomLAMEPreset3_Name",
    "CustomLAMEPreset3_Code",
    "CustomOGGPreset1_Name",
    "CustomOGGPreset1_Code",
    "CustomOGGPreset2_Name",
    "CustomOGGPreset2_Code",
    "CustomOGGPreset3_Name",
    "CustomOGGPreset3_Code",
    "CustomMPCPreset1_Name",
    "CustomMPCPreset1_Code",
    "CustomMPCPreset2_Name",
    "CustomMPCPreset2_Code",
    "CustomMPCPreset3_Name",
    "CustomMPCPreset3_Code",
};

const Keys CompressCDKeys = {"CompressCD_SourceFolder", "CompressCD_TargetFolder", "CompressCD_Bitrate"};

const Keys RenameKeys = {"RenameAndTagging_Format", "RenameAndTagging_ProcessSubfolders",
                         "RenameAndTagging_UpdatePlaylists", "RenameAndTagging_FilterType",
                         "RenameAndTagging_Mask"};

const Keys ChangeTagsKeys = {"ChangeTags_AllFirstCaps", "ChangeTags_AllTags", "ChangeTags_ReverseFormat"};

const Keys AgentKeys = {"MSG_Open",     "MSG_Compress",      "MSG_Settings",           "MSG_Exit",
                        "MSG_Language", "MSG_RecentFolders", "MSG_LanguageChangeNote", "MSG_LanguageDefault"};

Keys AllOptionKeys() {
    Keys keys = OptionKeys;
    keys.insert(std::begin(EnableKeys), std::end(EnableKeys));
    return keys;
}

struct SaverRow {
    void (*save)(App&);
    Keys settings;
    Keys agentTexts;
};

TEST_F(SettingsTest, EverySaver_WritesTheKeysOfItsGroupInOneStep) {
    const SaverRow rows[] = {{SaveMainSettings, MainKeys, {}},
                             {SaveSettings, AllOptionKeys(), AgentKeys},
                             {SaveCompressCDSettings, CompressCDKeys, {}},
                             {SaveRenameSettings, RenameKeys, {}},
                             {SaveChangeTagsSettings, ChangeTagsKeys, {}}};
    for (const SaverRow& row : rows) {
        app.userSettings.values.clear();
        app.userSettings.applied = 0;
        row.save(app);
        EXPECT_EQ(app.userSettings.applied, 1);
        std::map<std::string, Keys> written;
        for (const auto& [place, value] : app.userSettings.values) written[place.first].insert(place.second);
        EXPECT_EQ(written["Settings"], row.settings);
        EXPECT_EQ(written["Agent"], row.agentTexts);
        EXPECT_EQ(written.size(), 2U);
    }
}

TEST_F(SettingsTest, SaveSettings_WritesSavedFieldsNotRunCopies) {
    LoadSettings(app);
    app.state.TrimSilence = false;
    app.state.Normalize = true;
    SaveSettings(app);
    EXPECT_EQ(app.userSettings.GetValue("Settings", "TrimSilence"), "True");
    EXPECT_EQ(app.userSettings.GetValue("Settings", "Normalize"), "False");
    EXPECT_EQ(app.userSettings.GetValue("Agent", "MSG_Open"), "Open");
    EXPECT_EQ(app.userSettings.GetValue("Agent", "MSG_LanguageDefault"), "Default (English)");
}

TEST_F(SettingsTest, History_KeepsAtMost25AndForgetsTheRest) {
    std::vector<std::string> folders;
    for (int i = 0; i < 30; ++i) folders.push_back("/f" + std::to_string(i));
    SaveRecentFolders(app.userSettings, folders);
    EXPECT_EQ(app.userSettings.GetValue("History", "FoldersCount"), "25");
    folders.resize(25);
    EXPECT_EQ(LoadRecentFolders(app.userSettings), folders);
    SaveRecentFolders(app.userSettings, {"/only"});
    EXPECT_EQ(LoadRecentFolders(app.userSettings), std::vector<std::string>{"/only"});
    EXPECT_EQ(app.userSettings.GetValue("History", "Folder1"), std::nullopt);
    SaveRenameTemplates(app.userSettings, {"%A", "%T"});
    EXPECT_EQ(LoadRenameTemplates(app.userSettings), (std::vector<std::string>{"%A", "%T"}));
}

TEST_F(SettingsTest, History_BrokenCount_DoesNoHarm) {
    EXPECT_TRUE(LoadRecentFolders(app.userSettings).empty());
    app.userSettings.values[{"History", "Folder0"}] = "/a";
    for (const char* count : {"-1", "x", "0"}) {
        app.userSettings.values[{"History", "FoldersCount"}] = count;
        EXPECT_TRUE(LoadRecentFolders(app.userSettings).empty());
    }
    app.userSettings.values[{"History", "FoldersCount"}] = "999999999999";
    EXPECT_EQ(LoadRecentFolders(app.userSettings), std::vector<std::string>{"/a"});
}

}  // namespace
}  // namespace zefta::test
