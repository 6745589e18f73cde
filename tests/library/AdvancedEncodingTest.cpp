// The advanced encoding without its window: tools are recorded and played.

#include <filesystem>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/EncodedOutput.h"
#include "library/AdvancedEncoding.h"
#include "platform/CommandText.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using Texts = std::vector<std::string>;

TagRow EncodingRow(std::array<std::string, TagColumnCount> cells) {
    return {cells};
}

class AdvancedEncoding : public ::testing::Test {
  protected:
    AdvancedEncoding() {
        app.defaultWaveFile = &wave;
        choice.Mode = 128;
        app.processes.tool = [this](const RecordingProcesses::Run& run) { PlayTool(run); };
    }

    /// Encoders leave a stream of their kind under the last path of their command line, or behind -n.
    void PlayTool(const RecordingProcesses::Run& run) {
        const auto arguments = SplitCommandLine(run.commandLine);
        if (run.commandLine.find("/wavetrim") != std::string::npos) return;
        std::string output = arguments.back().text;
        for (const CommandArgument& argument : arguments) {
            if (argument.quoted && argument.text.starts_with("-n")) output = argument.text.substr(2);
        }
        if (failing.contains(output.substr(output.rfind('/') + 1))) return;
        const std::string kind = AsciiLower(output.substr(output.size() - 3));
        WriteWholeFile(output, kind == "ogg"   ? Ogg().Bytes()
                               : kind == "mpc" ? Mpc8()
                                               : Mp3().Size(4000).Bytes());
    }

    void MakeWave(const std::string& name) { app.folder.Write(name, Wav().Tone(17640).Bytes()); }

    bool Encode(const std::vector<TagRow>& rows) {
        return EncodeRows(
            app, app.folder.Path(), rows, choice,
            {[this](const std::string& text) { statuses.push_back(text); },
             [this](const std::string& name) { done.push_back(name); }, [this] { return isCancelled; }});
    }

    std::string Command(std::size_t index = 0) const { return app.processes.runs.at(index).commandLine; }
    std::string Stored(const char* key) const {
        return app.userSettings.GetValue("Settings", key).value_or("none");
    }

    TestApp app;
    WaveFile wave{app};
    EncodingChoice choice;
    std::set<std::string> failing;
    bool isCancelled = false;
    Texts statuses;
    Texts done;
};

TEST(EncodingRows, AreNumberedFromOne) {
    const std::vector<TagRow> rows = RowsToEncode(Texts{"b.wav", "a.WAV"});
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].Cells, EncodingRow({"b.wav", "1", "", "", "", "", ""}).Cells);
    EXPECT_EQ(rows[1].Cells, EncodingRow({"a.WAV", "2", "", "", "", "", ""}).Cells);
}

TEST(EncodingBoxes, FollowTrimmingNormalisingAndTheMode) {
    struct Case {
        bool trim, normalize;
        const char* mode;
        bool canNormalize, canSeparate, canReduce;
    };
    const Case cases[] = {
        {true, true, "LAME 320 kbps", true, true, false},
        {true, false, "LAME 320 kbps", true, false, true},
        {false, true, "LAME 320 kbps", false, false, false},
        {false, false, "LAME 320 kbps", false, false, true},
        {false, false, "LAME #1 Speech", false, false, true},
        {false, false, "MPEGplus Insane", false, false, true},
        {false, false, "Ogg Vorbis Q=5", false, false, false},
        {false, false, "", false, false, false},
    };
    for (const Case& each : cases) {
        RunSwitches checked;
        checked.TrimSilence = each.trim;
        checked.Normalize = each.normalize;
        const EncodingBoxes boxes = EnabledBoxes(checked, each.mode);
        EXPECT_EQ(boxes.Normalize, each.canNormalize) << each.mode << each.trim << each.normalize;
        EXPECT_EQ(boxes.NormalizeSeparately, each.canSeparate) << each.mode << each.trim << each.normalize;
        EXPECT_EQ(boxes.ReduceLevel, each.canReduce) << each.mode << each.trim << each.normalize;
    }
}

TEST_F(AdvancedEncoding, RetrieveTags_FieldsFoundEmpty_LeaveRoomForTheDefaults) {
    TagRow row = EncodingRow({"Song.wav", "4", "old", "old", "old", "old", " "});
    RetrieveTagsToEncode(app, app.folder.Path(), 13, row);
    EXPECT_EQ(row.Cells, EncodingRow({"Song.wav", "4", "", "Song", "", "old", " "}).Cells);
    row = EncodingRow({"02 - Song (Live).wav", "1", "a", "", "", "l", ""});
    RetrieveTagsToEncode(app, "/music/Band/Record", 8, row);
    EXPECT_EQ(row.Cells,
              EncodingRow({"02 - Song (Live).wav", "02", "Band", "Song", "Live", "Record", ""}).Cells);
}

// Command lines.

TEST_F(AdvancedEncoding, Lame_TrimsNormalisesAndReducesAsChecked) {
    MakeWave("a.wav");
    choice.Checked = {.TrimSilence = true, .ReduceLevel = true, .Normalize = true};
    app.state.ShowExecuteWindows = false;
    app.state.PriorityClass = IdlePriority;
    EXPECT_TRUE(Encode({EncodingRow({"a.wav", "1", "", "", "", "", ""})}));
    const std::string path = app.folder / "a.wav";
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(Command(0), "\"/opt/zefta/zefta.exe\" /wavetrim \"" + path +
                              "\" /f0 /nb /zx /before 1 /after 1 /norm /dontshowexec");
    EXPECT_EQ(
        app.processes.runs[1],
        (RecordingProcesses::Run{"lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   --scale 0.95  \"" +
                                     path + "\" \"" + (app.folder / "a.MP3") + "\"",
                                 false, IdlePriority}));
}

TEST_F(AdvancedEncoding, EachMode_HasItsCommand) {
    MakeWave("a.wav");
    const std::string path = app.folder / "a.wav";
    const std::string mp3 = "\"" + (app.folder / "a.MP3") + "\"";
    const std::map<std::int32_t, std::string> commands = {
        {320, "lame.exe -m s -q0 -b 320 --athtype 1 --lowpass 20.0   \"" + path + "\" " + mp3},
        {555, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0   \"" + path + "\" " + mp3},
        {1192, "lame.exe -m s -h --lowpass 19.0 --abr 192  \"" + path + "\" " + mp3},
        {9002, "lame.exe -m s -q0 -b 320 --lowpass 20.0  \"" + path + "\" " + mp3},
        {2003, "oggenc.exe -b160kbps -n\"a.ogg\" \"" + path + "\""},
        {2018, "oggenc.exe -q8 -n\"a.ogg\" \"" + path + "\""},
        {3003, "mppenc.exe  -v --overwrite --standard -bw 20000 -ms 2  \"" + path + "\" \"" +
                   (app.folder / "a.mpc") + "\""},
    };
    choice.Checked = {.TrimSilence = false};
    for (const auto& [mode, command] : commands) {
        app.processes.runs.clear();
        app.state.UseOggVorbis = app.state.UseMPEGplus = app.state.UseVBR = true;
        choice.Mode = mode;
        Encode({EncodingRow({"a.wav", "1", "", "", "", "", ""})});
        ASSERT_EQ(app.processes.runs.size(), 1U) << mode;
        EXPECT_EQ(Command(), command) << mode;
        EXPECT_EQ(app.state.CompressCD_Bitrate, mode);
    }
}

TEST_F(AdvancedEncoding, FilesToReplace_AreThoseOfTheChosenEncoder) {
    for (const char* name : {"a.MP3", "b.mp3", "a.ogg", "c.mpc"}) app.folder.Write(name, "x");
    const std::vector<TagRow> rows = RowsToEncode(Texts{"a.wav", "b.wav", "c.wav", "xwav"});
    const auto replaced = [&] { return FilesToReplace(app, app.folder.Path(), rows, choice); };
    EXPECT_EQ(replaced(), (Texts{"a.MP3", "b.mp3"}));
    choice.Mode = 2001;
    EXPECT_EQ(replaced(), Texts{"a.ogg"});
    choice.Mode.reset();
    choice.Made = {EncodedOutputPath(app.state, app.folder.Path(), "a.wav")};
    EXPECT_EQ(replaced(), Texts{"b.mp3"});
    EXPECT_FALSE(app.state.UseOggVorbis) << "nothing is chosen yet";
}

TEST_F(AdvancedEncoding, NoMode_EncodesAt320) {
    MakeWave("a.wav");
    choice.Mode = std::nullopt;
    choice.Checked = {.TrimSilence = false};
    Encode({EncodingRow({"a.wav", "1", "", "", "", "", ""})});
    EXPECT_TRUE(Command().starts_with("lame.exe -m s -q0 -b 320 ")) << Command();
    EXPECT_EQ(Stored("CompressCD_Bitrate"), "320");
}

TEST_F(AdvancedEncoding, Settings_OfModeAndEncoderAreStored_AlsoWithoutFiles) {
    choice.Mode = 2015;
    EXPECT_TRUE(Encode({}));
    EXPECT_EQ(Stored("CompressCD_Bitrate"), "2015");
    EXPECT_EQ(Stored("UseOggVorbis"), "True");
    EXPECT_EQ(Stored("OggVorbisMode"), "15");
    EXPECT_EQ(Stored("Bitrate"), "0");
    EXPECT_EQ(Stored("TrimSilence"), "none");
    EXPECT_EQ(app.state.JobCode, 6);
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(AdvancedEncoding, Switches_AreThoseOfTheBoxes_AndReduceLevelGoesBack) {
    app.state.Saved = {.TrimSilence = true, .ReduceLevel = true, .Normalize = false};
    for (const bool separately : {false, true}) {
        choice.Checked = {
            .TrimSilence = separately, .ReduceLevel = false, .Normalize = true, .NormalizeSeparately = true};
        Encode({});
        EXPECT_EQ(app.state.TrimSilence, separately);
        EXPECT_TRUE(app.state.Normalize);
        EXPECT_EQ(app.state.NormalizeSeparately, separately);
        EXPECT_TRUE(app.state.ReduceLevel);
        EXPECT_TRUE(app.state.Saved.TrimSilence);
    }
}

// Tags.

TEST_F(AdvancedEncoding, Mp3_GetsBothTagsOfItsRow) {
    MakeWave("a.wav");
    choice.Defaults = {.Artist = "Default", .Album = "Default Album", .Year = "1984", .Genre = 17};
    EXPECT_TRUE(Encode({EncodingRow({"a.wav", "07", "Artist", "Title", "Mix", "", ""})}));
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_EQ(tag.Artist, "Artist");
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.Comment, "Mix");
    EXPECT_EQ(tag.Album, "Default Album");
    EXPECT_EQ(tag.Year, "1984");
    EXPECT_EQ(tag.TrackNumber, 7);
    EXPECT_EQ(tag.Genre, 17);
    const ID3v2Extension& extension = tag.ID3v2Extension;
    EXPECT_EQ(extension.Artist, "Artist");
    EXPECT_EQ(extension.TrackTitle, "Title");
    EXPECT_EQ(extension.Mix, "Mix");
    EXPECT_EQ(extension.AlbumTitle, "Default Album");
    EXPECT_EQ(extension.Year, "1984");
    EXPECT_EQ(extension.TrackNumber, "07");
    EXPECT_EQ(extension.Genre, "Rock");
    EXPECT_EQ(extension.EncodedBy, "Kestrin Zeftaworks " + VersionText());
}

TEST_F(AdvancedEncoding, EmptyTitle_StaysEmpty_AndABlankKeepsTheDefaultAway) {
    MakeWave("a.wav");
    choice.Defaults = {.Artist = "Default"};
    Encode({EncodingRow({"a.wav", "Intro", " ", "", "", "", ""})});
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_EQ(tag.Title, "");
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "");
    EXPECT_EQ(tag.Artist, "");
    EXPECT_EQ(tag.ID3v2Extension.Artist, "");
    EXPECT_EQ(tag.TrackNumber, 0);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "Intro");
    EXPECT_EQ(tag.Genre, NoGenre);
}

TEST_F(AdvancedEncoding, TrackAboveAByte_StandsInID3v2Alone) {
    MakeWave("a.wav");
    Encode({EncodingRow({"a.wav", "1001", "", "T", "", "", ""})});
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_EQ(tag.TrackNumber, 0);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "1001");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(AdvancedEncoding, OggVorbisAndMPEGplus_HaveTheMixBehindTheTitle) {
    MakeWave("a.wav");
    for (const std::int32_t mode : {2015, 3003}) {
        choice.Mode = mode;
        Encode({EncodingRow({"a.wav", "3", "Artist", "Title", "Mix", "Album", "2001"})});
    }
    EXPECT_NE(app.folder.Read("a.ogg").find("Title (Mix)"), std::string::npos);
    EXPECT_NE(app.folder.Read("a.mpc").find("Title (Mix)"), std::string::npos);
    const ID3Tag ogg = wave.GetOGGFileInfo(app.folder / "a.ogg");
    const ID3Tag mpc = wave.GetMPEGplusFileInfo(app.folder / "a.mpc");
    for (const ID3Tag& tag : {ogg, mpc}) {
        EXPECT_EQ(RowOfRecord("", tag).Cells,
                  EncodingRow({"", "3", "Artist", "Title", "Mix", "Album", "2001"}).Cells);
        EXPECT_EQ(tag.ID3v2Extension.EncodedBy, "Kestrin Zeftaworks " + VersionText());
    }
    Encode({EncodingRow({"a.wav", "3", "", "Title", "", "", ""})});
    EXPECT_EQ(app.folder.Read("a.mpc").find("Title ("), std::string::npos);
}

TEST_F(AdvancedEncoding, Options_OfTheRunAreThoseOfTheRow) {
    MakeWave("a.wav");
    choice.Defaults = {.Year = "1984", .Genre = 3};
    Encode({EncodingRow({"a.wav", "3", "Artist", "Title", "Mix", "Album", ""})});
    EXPECT_EQ(app.state.OptTrack, "3");
    EXPECT_EQ(app.state.OptArtist, "Artist");
    EXPECT_EQ(app.state.OptTitle, "Title");
    EXPECT_EQ(app.state.OptMix, "Mix");
    EXPECT_EQ(app.state.OptAlbum, "Album");
    EXPECT_EQ(app.state.OptYear, "1984");
    EXPECT_EQ(app.state.OptGenreIndex, 3);
}

// Sources.

TEST_F(AdvancedEncoding, DeleteSources_OnlyThoseWithAnOutput) {
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) MakeWave(name);
    failing = {"b.MP3"};
    choice.DeleteSources = true;
    const std::vector<TagRow> rows = RowsToEncode(Texts{"a.wav", "b.wav", "c.wav"});
    EXPECT_TRUE(Encode(rows));
    EXPECT_FALSE(app.folder.Exists("a.wav"));
    EXPECT_TRUE(app.folder.Exists("b.wav"));
    EXPECT_FALSE(app.folder.Exists("c.wav"));
    EXPECT_EQ(done, (Texts{"a.wav", "c.wav"}));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(AdvancedEncoding, KeptSources_StayWithTheirOutput) {
    MakeWave("a.wav");
    EXPECT_TRUE(Encode(RowsToEncode(Texts{"a.wav"})));
    EXPECT_TRUE(app.folder.Exists("a.wav"));
}

TEST_F(AdvancedEncoding, OldFileOfTheOutputsName_IsNoOutput) {
    MakeWave("a.wav");
    const std::string old = Mp3().Size(5000).Bytes();
    app.folder.Write("a.mp3", old);
    failing = {"a.MP3"};
    choice.DeleteSources = true;
    Encode(RowsToEncode(Texts{"a.wav"}));
    EXPECT_TRUE(app.folder.Exists("a.wav"));
    EXPECT_TRUE(app.folder.Read("a.mp3") == old);
    EXPECT_TRUE(done.empty());
}

TEST_F(AdvancedEncoding, OutputThatBreaksOff_KeepsItsSource) {
    MakeWave("a.wav");
    choice.Mode = 2015;
    choice.DeleteSources = true;
    app.processes.tool = [this](const RecordingProcesses::Run&) {
        const std::string whole = Ogg().Bytes();
        app.folder.Write("a.ogg", whole.substr(0, whole.size() - 10));
    };
    Encode(RowsToEncode(Texts{"a.wav"}));
    EXPECT_TRUE(app.folder.Exists("a.wav"));
}

TEST_F(AdvancedEncoding, TwoSourcesOfOneOutput_TheSecondIsRefusedAndStays) {
    MakeWave("a.wav");
    MakeWave("a.WAV");
    choice.DeleteSources = true;
    Encode(RowsToEncode(Texts{"a.wav", "a.WAV"}));
    EXPECT_EQ(app.processes.runs.size(), 2U) << "one child that trims, one encoder";
    EXPECT_FALSE(app.folder.Exists("a.wav"));
    EXPECT_TRUE(app.folder.Exists("a.WAV"));
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("58"), std::string::npos) << app.desktop.boxes[0].text;
}

TEST_F(AdvancedEncoding, OutputOfAFormerRun_IsNotMadeAnew) {
    MakeWave("a.WAV");
    app.folder.Write("a.mp3", "of a.wav");
    choice.Made = {app.folder / "a.mp3"};
    Encode(RowsToEncode(Texts{"a.WAV"}));
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.folder.Read("a.mp3"), "of a.wav");
}

// The run.

TEST_F(AdvancedEncoding, Progress_IsToldAndEventsAreServed) {
    MakeWave("b.wav");
    MakeWave("a.wav");
    Encode(RowsToEncode(Texts{"b.wav", "a.wav"}));
    EXPECT_EQ(statuses, (Texts{"[1/2] b.wav", "[2/2] a.wav"}));
    EXPECT_EQ(app.desktop.servedEvents, 2);
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>{0, 0}));
}

TEST_F(AdvancedEncoding, Cancel_EndsBehindTheFileAtHand) {
    for (const char* name : {"a.wav", "b.wav"}) MakeWave(name);
    choice.Checked.ReduceLevel = true;
    app.processes.tool = [this](const RecordingProcesses::Run& run) {
        PlayTool(run);
        isCancelled = true;
    };
    EXPECT_FALSE(Encode(RowsToEncode(Texts{"a.wav", "b.wav"})));
    EXPECT_EQ(done, (Texts{"a.wav"}));
    EXPECT_FALSE(app.state.ReduceLevel);
    isCancelled = false;
    app.desktop.cancelsFromItem = 1;
    EXPECT_FALSE(Encode(RowsToEncode(Texts{"b.wav"})));
    EXPECT_EQ(done, (Texts{"a.wav"}));
}

TEST_F(AdvancedEncoding, Tools_WorkInTheFolderOfTheList) {
    std::filesystem::create_directories(app.folder / "sub");
    MakeWave("a.wav");
    app.files.SetCurrentFolder(app.folder / "sub");
    choice.Mode = 2015;
    Encode(RowsToEncode(Texts{"a.wav"}));
    EXPECT_TRUE(app.folder.Exists("a.ogg"));
    EXPECT_FALSE(app.folder.Exists("sub/a.ogg"));
}

TEST_F(AdvancedEncoding, FolderThatIsGone_IsToldAndNothingRuns) {
    EXPECT_FALSE(EncodeRows(app, app.folder / "gone", RowsToEncode(Texts{"a.wav"}), choice, {}));
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(AdvancedEncoding, FailureOfOneFile_IsShownAndTheNextFollows) {
    MakeWave("a.wav");
    MakeWave("b.wav");
    choice.DeleteSources = true;
    app.processes.tool = [this](const RecordingProcesses::Run& run) {
        PlayTool(run);
        // A folder under the name of the source can't be deleted as a file.
        if (run.commandLine.starts_with("lame.exe") && app.folder.Exists("a.wav")) {
            std::filesystem::remove(app.folder / "a.wav");
            std::filesystem::create_directories(app.folder / "a.wav");
        }
    };
    EXPECT_TRUE(Encode(RowsToEncode(Texts{"a.wav", "b.wav"})));
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(done, (Texts{"b.wav"}));
}

}  // namespace
}  // namespace zefta::test
