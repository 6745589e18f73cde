#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "core/OptionTable.h"
#include "core/OptionsFixture.h"
#include "core/Strings.h"

namespace zefta::test {
namespace {

TEST_F(OptionsTest, NoToken_GivesFalseAndChangesNothing) {
    Parse({});
    EXPECT_FALSE(result);
    EXPECT_EQ(app.state.JobCode, 0);
}

struct JobRow {
    const char* names;
    int code;
    const char* mask;
    bool takesMask;
};

const JobRow JobRows[] = {
    {"/agent", 13, "", false},
    {"/wavetrim /wt", 16, "*.wav", true},
    {"/split", 17, "", true},
    {"/crop", 19, "", true},
    {"/fixheader", 15, "*.wav", false},
    {"/compress_audio_cd /cdda", 14, "", false},
    {"/rename /r", 1, "*.*", true},
    {"/rename2 /r2", 2, "*.*", true},
    {"/autorename /ar", 3, "*.m3u", true},
    {"/makezfc /zfc", 20, "*.m3u", true},
    {"/encode /e", 6, "*.wav", false},
    {"/decode /d", 7, "*.*", true},
    {"/makelist /mpl", 8, "", false},
    {"/setup", 9, "", false},
    {"/help /h /?", 10, "", false},
    {"/change /ch", 4, "*.mp3", false},
};

std::vector<std::string> Words(const std::string& list) {
    std::istringstream stream(list);
    return {std::istream_iterator<std::string>(stream), {}};
}

TEST_F(OptionsTest, EveryJobOption_SetsItsCodeAndMask) {
    for (const JobRow& row : JobRows) {
        for (const std::string& name : Words(row.names)) {
            EXPECT_EQ(Parse({name}).JobCode, row.code) << name;
            EXPECT_EQ(app.state.FileSpec, row.mask) << name;
            std::string upper = name;
            for (char& c : upper) c = static_cast<char>(std::toupper(c));
            EXPECT_EQ(Parse({upper}).JobCode, row.code) << upper;
            if (row.takesMask) {
                EXPECT_EQ(Parse({name, "My.Mask"}).FileSpec, "My.Mask") << name;
            }
            EXPECT_EQ(Parse({name, "/norm"}).FileSpec, row.mask) << name;
            EXPECT_TRUE(app.state.Normalize) << name;
        }
    }
}

TEST_F(OptionsTest, JobsThatRunTools_ShowTheirWindows) {
    for (const char* name : {"/wavetrim", "/encode", "/decode"}) {
        app.state = AppState();
        app.state.ShowExecuteWindows = false;
        ParseCommandLine(app, CommandLine({name}));
        EXPECT_TRUE(app.state.ShowExecuteWindows) << name;
    }
    EXPECT_FALSE(Parse({"/wt", "/dontshowexec"}).ShowExecuteWindows);
    EXPECT_TRUE(Parse({"/wt", "/dontshowexec", "/showexec"}).ShowExecuteWindows);
}

TEST_F(OptionsTest, LaterJob_Overrides) {
    EXPECT_EQ(Parse({"/e", "/d"}).JobCode, 7);
}

TEST_F(OptionsTest, Copy_IsAJobOnlyWithAValue) {
    EXPECT_EQ(Parse({"/r", "/copy"}).JobCode, 1);
    EXPECT_EQ(Parse({"/copy", "/s"}).JobCode, 0);
    EXPECT_EQ(Parse({"/copy", "list.m3u"}).JobCode, 5);
    EXPECT_EQ(app.state.FileSpec, "list.m3u");
}

TEST_F(OptionsTest, Change_EntersTheFolderAndKeepsTheName) {
    std::filesystem::create_directory(app.folder / "sub");
    EXPECT_EQ(Parse({"/ch", "sub\\x.mp3"}).FileSpec, "x.mp3");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
    EXPECT_EQ(Parse({"/ch", "none/y.mp3"}).FileSpec, "y.mp3");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
}

TEST_F(OptionsTest, EncodeAlone_IsMp3At320) {
    app.state.UseOggVorbis = true;
    Parse({"/e"});
    EXPECT_EQ(app.state.FileSpec, "*.wav");
    EXPECT_EQ(app.state.Bitrate, 320);
    EXPECT_EQ(app.state.OggVorbisMode, 18);
    EXPECT_EQ(app.state.MPEGplusMode, 3);
    EXPECT_FALSE(app.state.UseVBR || app.state.UseOggVorbis || app.state.UseMPEGplus);
}

struct ModeRow {
    const char* words;
    int bitrate;
    bool vbr;
    int oggMode;
    bool ogg;
    int mpcMode;
    bool mpc;
};

const ModeRow ModeRows[] = {
    {"112", 320, false, 1, true, 3, false},
    {"128", 128, false, 2, false, 3, false},
    {"160", 160, false, 3, false, 3, false},
    {"192", 192, false, 4, false, 3, false},
    {"224", 224, false, 18, false, 3, false},
    {"256", 256, false, 5, false, 3, false},
    {"320", 320, false, 18, false, 3, false},
    {"350", 320, false, 6, true, 3, false},
    {"s1", 9001, false, 18, false, 3, false},
    {"S2", 9002, false, 18, false, 3, false},
    {"s3", 9003, false, 18, false, 3, false},
    {"ob1", 320, false, 1, true, 3, false},
    {"ob2", 320, false, 2, true, 3, false},
    {"ob3", 320, false, 3, true, 3, false},
    {"ob4", 320, false, 4, true, 3, false},
    {"ob5", 320, false, 5, true, 3, false},
    {"ob6", 320, false, 6, true, 3, false},
    {"oq0", 320, false, 10, true, 3, false},
    {"oq1", 320, false, 11, true, 3, false},
    {"oq2", 320, false, 12, true, 3, false},
    {"oq3", 320, false, 13, true, 3, false},
    {"oq4", 320, false, 14, true, 3, false},
    {"oq5", 320, false, 15, true, 3, false},
    {"oq6", 320, false, 16, true, 3, false},
    {"oq7", 320, false, 17, true, 3, false},
    {"oq8", 320, false, 18, true, 3, false},
    {"oq9", 320, false, 19, true, 3, false},
    {"OQ10", 320, false, 20, true, 3, false},
    {"thumb mpp1 mpc1 m1", 320, false, 18, false, 1, true},
    {"radio mpp2 mpc2 m2", 320, false, 18, false, 2, true},
    {"standard mpp3 mpc3 m3", 320, false, 18, false, 3, true},
    {"xtreme mpp4 mpc4 m4", 320, false, 18, false, 4, true},
    {"insane mpp5 mpc5 m5", 320, false, 18, false, 5, true},
    {"braindead mpp6 mpc6 m6", 320, false, 18, false, 6, true},
    {"os1 os2 os3", 320, false, 18, true, 3, false},
    {"ms1 ms2 ms3", 320, false, 18, false, 3, true},
    {"abr", 320, false, 18, false, 3, false},
};

TEST_F(OptionsTest, EveryModeWord_SelectsItsModeAndIsConsumed) {
    for (const ModeRow& row : ModeRows) {
        for (const std::string& word : Words(row.words)) {
            const AppState& state = Parse({"/encode", word, "a.wav"});
            EXPECT_EQ(state.FileSpec, "a.wav") << word;
            EXPECT_EQ(state.Bitrate, row.bitrate) << word;
            EXPECT_EQ(state.UseVBR, row.vbr) << word;
            EXPECT_EQ(state.OggVorbisMode, row.oggMode) << word;
            EXPECT_EQ(state.UseOggVorbis, row.ogg) << word;
            EXPECT_EQ(state.MPEGplusMode, row.mpcMode) << word;
            EXPECT_EQ(state.UseMPEGplus, row.mpc) << word;
        }
    }
}

TEST_F(OptionsTest, PresetWords_WithACode_SelectThePreset) {
    for (int i = 0; i < 3; ++i) {
        const auto preset = static_cast<std::size_t>(i);
        app.state = AppState();
        app.state.CustomOGGPreset[preset].Code = "-q3";
        app.state.CustomMPCPreset[preset].Code = "--x";
        ParseCommandLine(app, CommandLine({"/e", "os" + std::to_string(i + 1)}));
        EXPECT_EQ(app.state.OggVorbisMode, 31 + i);
        ParseCommandLine(app, CommandLine({"/e", "ms" + std::to_string(i + 1)}));
        EXPECT_EQ(app.state.MPEGplusMode, 11 + i);
    }
}

TEST_F(OptionsTest, Abr_TakesARateFrom110To310Only) {
    for (const int rate : {110, 200, 310}) {
        Parse({"/e", "abr", std::to_string(rate), "a.wav"});
        EXPECT_TRUE(app.state.UseVBR);
        EXPECT_EQ(app.state.Bitrate, rate);
        EXPECT_EQ(app.state.FileSpec, "a.wav");
    }
    for (const char* other : {"109", "311", "a.wav"}) {
        Parse({"/e", "abr", other});
        EXPECT_FALSE(app.state.UseVBR);
        EXPECT_EQ(app.state.Bitrate, 320);
        EXPECT_EQ(app.state.FileSpec, other);
    }
    EXPECT_TRUE(Parse({"/e", "abr", "/norm"}).Normalize);
}

TEST_F(OptionsTest, Abr_RateIsALeadingNumberRoundedHalfToEven) {
    const std::pair<const char*, int> rows[] = {
        {"200x", 200}, {"110.5", 110}, {"111.5", 112}, {"309.9kbps", 310}, {" 128", 128}};
    for (const auto& [word, rate] : rows) {
        Parse({"/e", "abr", word, "a.wav"});
        EXPECT_TRUE(app.state.UseVBR) << word;
        EXPECT_EQ(app.state.Bitrate, rate) << word;
        EXPECT_EQ(app.state.FileSpec, "a.wav") << word;
    }
    for (const char* outside : {"109.9", "310.5", "x200", "-200"}) {
        EXPECT_EQ(Parse({"/e", "abr", outside}).FileSpec, outside);
        EXPECT_FALSE(app.state.UseVBR) << outside;
        EXPECT_EQ(app.state.Bitrate, 320) << outside;
    }
}

TEST_F(OptionsTest, WordThatIsNoMode_BecomesFileSpec) {
    EXPECT_EQ(Parse({"/e", "x.wav"}).FileSpec, "x.wav");
    EXPECT_EQ(Parse({"/e", "127"}).FileSpec, "127");
    EXPECT_EQ(Parse({"/e", "oq11"}).FileSpec, "oq11");
    EXPECT_EQ(Parse({"/e", "x.wav", "128"}).FileSpec, "128");
}

TEST_F(OptionsTest, EncodeOq10_IsOggQuality10) {
    Parse({"/e", "oq10", "a.wav"});
    EXPECT_TRUE(app.state.UseOggVorbis);
    EXPECT_EQ(app.state.OggVorbisMode, 20);
    EXPECT_EQ(app.state.FileSpec, "a.wav");
}

struct SwitchRow {
    const char* names;
    bool (*isSet)(const AppState&);
};

const SwitchRow SwitchRows[] = {
    {"/s", [](const AppState& s) { return s.ProcessSubfolders; }},
    {"/reducelevel /rdl", [](const AppState& s) { return s.ReduceLevel && !s.Saved.ReduceLevel; }},
    {"/normalize /norm", [](const AppState& s) { return s.Normalize && !s.Saved.Normalize; }},
    {"/vbr", [](const AppState& s) { return s.UseVBR; }},
    {"/trim", [](const AppState& s) { return s.TrimSilence; }},
    {"/notrim", [](const AppState& s) { return !s.TrimSilence && s.Saved.TrimSilence; }},
    {"/paths", [](const AppState& s) { return s.UsePaths; }},
    {"/compilation /cmpl", [](const AppState& s) { return s.IsCompilation; }},
    {"/nf /noformat", [](const AppState& s) { return s.NoFormat; }},
    {"/nb /nobackup", [](const AppState& s) { return s.NoBackup; }},
    {"/raw", [](const AppState& s) { return s.TreatAsRaw; }},
    {"/z", [](const AppState& s) { return s.SilenceMin == 0 && s.SilenceMax == 65535; }},
    {"/zx", [](const AppState& s) { return s.SilenceMin == 7 && s.SilenceMax == 65528; }},
    {"/zxx", [](const AppState& s) { return s.SilenceMin == 255 && s.SilenceMax == 65280; }},
    {"/norm_sep /norm_separately", [](const AppState& s) { return s.NormalizeSeparately; }},
    {"/idle", [](const AppState& s) { return s.PriorityClass == 64; }},
    {"/normal", [](const AppState& s) { return s.PriorityClass == 32; }},
    {"/high", [](const AppState& s) { return s.PriorityClass == 128; }},
};

TEST_F(OptionsTest, EverySwitch_SetsItsField) {
    for (const SwitchRow& row : SwitchRows) {
        for (const std::string& name : Words(row.names)) EXPECT_TRUE(row.isSet(Parse({"/wt", name}))) << name;
    }
}

TEST_F(OptionsTest, Translate_OnlyBehindARenameJob) {
    EXPECT_TRUE(Parse({"/rename", "/translate"}).TranslateNames);
    EXPECT_TRUE(Parse({"/autorename", "/tran"}).TranslateNames);
    EXPECT_FALSE(Parse({"/translate", "/rename"}).TranslateNames);
    EXPECT_FALSE(Parse({"/rename2", "/translate"}).TranslateNames);
}

TEST_F(OptionsTest, Template_OnlyBehindARenameJob) {
    EXPECT_EQ(Parse({"/r", "/template", " %A "}).CustomRenameTemplate, "%A");
    EXPECT_EQ(app.state.RenameFormat, 6);
    EXPECT_EQ(Parse({"/template", "%A", "/r"}).RenameFormat, 0);
    EXPECT_NE(app.state.CustomRenameTemplate, "%A");
}

TEST_F(OptionsTest, OptionWithoutItsValue_StandsAndTheNextIsRead) {
    EXPECT_TRUE(Parse({"/a", "/norm"}).Normalize);
    EXPECT_EQ(app.state.OptArtist, "");
    EXPECT_EQ(Parse({"/to"}).TargetPath, "");
    EXPECT_EQ(Parse({"/norm_level"}).NormalizeLevel, 95);
}

TEST_F(OptionsTest, FormatOption_IsOneDigit) {
    EXPECT_EQ(Parse({"/r", "/f3"}).RenameFormat, 3);
    EXPECT_EQ(Parse({"/r", "/F4"}).RenameFormat, 4);
    EXPECT_EQ(Parse({"/r", "/f12"}).RenameFormat, 1);
    EXPECT_EQ(Parse({"/r", "/f2", "/fx"}).RenameFormat, 0);
    EXPECT_EQ(Parse({"/r", "/f2", "/f"}).RenameFormat, 0);
}

TEST_F(OptionsTest, SeveralOptions_InOneLine) {
    Parse({"/r", "/s", "/f3", "*.mp3"});
    EXPECT_EQ(app.state.JobCode, 1);
    EXPECT_TRUE(app.state.ProcessSubfolders);
    EXPECT_EQ(app.state.RenameFormat, 3);
    EXPECT_EQ(app.state.FileSpec, "*.mp3");
}

TEST_F(OptionsTest, UnknownOption_BecomesFileSpec_LastOneWins) {
    EXPECT_EQ(Parse({"/xyz"}).FileSpec, "/xyz");
    EXPECT_EQ(app.state.JobCode, 0);
    EXPECT_EQ(Parse({"/d", "a.mp3", "/sync"}).FileSpec, "/sync");
    EXPECT_EQ(Parse({"/e", "a.wav", "b.wav"}).FileSpec, "b.wav");
}

TEST_F(OptionsTest, PathTokens_CountAsValuesAndFiles) {
    const std::string sub = app.folder / "out";
    std::filesystem::create_directory(sub);
    EXPECT_EQ(Parse({"/e", "128", app.folder / "x.wav", "/to", sub}).TargetPath, sub);
    EXPECT_EQ(app.state.FileSpec, app.folder / "x.wav");
    EXPECT_EQ(Parse({"/to", "/tmp"}).TargetPath, "/tmp");
    EXPECT_EQ(Parse({"/wt", "/no/such/*.wav"}).FileSpec, "/no/such/*.wav");
}

TEST_F(OptionsTest, OptionThatIsAlsoAFolder_IsTheOption) {
    // "/s" may well exist as a folder of the root; the option comes first.
    EXPECT_TRUE(Parse({"/r", "/s"}).ProcessSubfolders);
}

TEST_F(OptionsTest, FirstTokenIsAFolder_OpensIt) {
    std::filesystem::create_directory(app.folder / "music");
    EXPECT_EQ(Parse({"music", "/e"}).JobCode, 12);
    EXPECT_EQ(app.state.CurrentFolder, app.folder / "music");
    EXPECT_EQ(Parse({app.folder / "music"}).JobCode, 12);
    EXPECT_EQ(Parse({"/"}).CurrentFolder, "/");
}

TEST_F(OptionsTest, FirstTokenIsAFolderWithAColon_OpensItByItsFullPath) {
    std::filesystem::create_directory(app.folder / "A: hits");
    EXPECT_EQ(Parse({"A: hits"}).JobCode, 12);
    EXPECT_EQ(app.state.CurrentFolder, app.folder / "A: hits");
}

TEST_F(OptionsTest, FirstTokenIsAFile_ShowsIt) {
    app.folder.Write("a.mp3", "x");
    EXPECT_EQ(Parse({"a.mp3"}).JobCode, 11);
    EXPECT_EQ(app.state.FileSpec, app.folder / "a.mp3");
}

TEST_F(OptionsTest, FirstTokenNamesNothing_IsTheMainWindow) {
    EXPECT_EQ(Parse({"nothing", "/e"}).JobCode, 0);
    EXPECT_FALSE(app.state.EmbeddingStart);
    EXPECT_EQ(Parse({"C:\\music\\a.mp3"}).JobCode, 0);
    EXPECT_TRUE(Parse({"-Embedding"}).EmbeddingStart);
    EXPECT_FALSE(Parse({"/r", "-Embedding"}).EmbeddingStart);
}

TEST_F(OptionsTest, Embedding_IsExactlyThatWord) {
    for (const char* other : {"-embedding", "-EMBEDDING", "-Embedding ", " -Embedding", "Embedding"}) {
        EXPECT_FALSE(Parse({other}).EmbeddingStart) << other;
        EXPECT_EQ(app.state.JobCode, 0) << other;
    }
    EXPECT_TRUE(Parse({"-Embedding", "/e"}).EmbeddingStart);
    EXPECT_EQ(app.state.JobCode, 0);
}

TEST_F(OptionsTest, Language_AloneIsAJob_WithAValueTheLanguageOfTheRun) {
    EXPECT_EQ(Parse({"/lng"}).JobCode, 21);
    app.folder.Write("my.lng", "1=x");
    EXPECT_EQ(Parse({"/lng", "my.lng"}).JobCode, 0);
    EXPECT_TRUE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.state.ExternalLanguageFile, "my.lng");
    EXPECT_FALSE(Parse({"/lng", "none.lng"}).EnableExternalLanguage);
    app.state.EnableExternalLanguage = true;
    ParseCommandLine(app, CommandLine({"/lng", "0"}));
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.state.JobCode, 0);
}

TEST_F(OptionsTest, Only255Tokens_CanBeReached) {
    std::vector<std::string> tokens(254, "/s");
    tokens.push_back("last");
    tokens.push_back("beyond");
    EXPECT_EQ(Parse(tokens).FileSpec, "last");
}

TEST(OptionTable, EveryName_IsUniqueLowerCaseAndInTheHelp) {
    std::set<std::string> seen;
    const std::string help = HelpText();
    for (const Option& option : OptionTable()) {
        EXPECT_FALSE(option.help.empty());
        EXPECT_NE(help.find(option.help), std::string::npos) << option.names;
        for (const std::string& name : Words(std::string(option.names))) {
            EXPECT_TRUE(seen.insert(name).second) << name;
            EXPECT_EQ(FindOption(name), &option);
            EXPECT_EQ(name, AsciiLower(name));
            EXPECT_NE(help.find(name), std::string::npos);
        }
    }
}

TEST(OptionTable, Help_TellsTheExitStatuses) {
    EXPECT_NE(HelpText().find("Exit status: 0"), std::string::npos);
}

}  // namespace
}  // namespace zefta::test
