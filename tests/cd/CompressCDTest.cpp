#include <filesystem>

#include <gtest/gtest.h>

#include "cd/CompressCD.h"
#include "core/GenreTable.h"
#include "core/Version.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using Texts = std::vector<std::string>;

/// A folder "in" with ripped tracks and one "out" for what is made of them.
class CompressCDTest : public ::testing::Test {
  protected:
    CompressCDTest() {
        app.defaultWaveFile = &wave;
        for (const char* name : {"in", "out"}) std::filesystem::create_directories(app.folder / name);
        job.Info.Source = app.folder / "in";
        job.Info.Target = app.folder / "out";
        job.Info.Artist = "Band";
        job.Info.Title = "Debut";
        job.Info.Year = "1999";
        job.Info.Genre = "Jazz";
        job.ModeCode = 128;
        job.Wave.TrimSilence = false;
        app.processes.tool = [this](const RecordingProcesses::Run& run) { PlayTool(run.commandLine); };
        watch.Progress = [this](const std::string& text) { progress.push_back(text); };
        watch.Done = [this](std::size_t track, bool hasResult) {
            done.push_back(track);
            if (!hasResult) without.push_back(track);
        };
    }

    /// Tracks of these names, each with its WAV file.
    void AddTracks(const Texts& names) {
        for (const std::string& name : names) {
            job.Info.Tracks.push_back({name, 10, true});
            WriteWave(job.Info.Tracks.size());
        }
    }
    void WriteWave(std::size_t number) const { app.folder.Write("in/" + TrackWaveName(number), "wave"); }

    void PlayTool(const std::string& commandLine) {
        const auto arguments = SplitCommandLine(commandLine);
        if (arguments.front().text == app.processes.OwnPath() + ".exe") return;
        std::string output = arguments.back().text;
        for (const CommandArgument& argument : arguments) {
            if (argument.text.starts_with("-n"))
                output = JoinPath(app.files.CurrentFolder(), argument.text.substr(2));
        }
        if (output.find(failing) != std::string::npos) return;
        WriteWholeFile(output, StreamFor(output));
    }

    static std::string StreamFor(const std::string& name) {
        if (name.ends_with(".ogg")) return Ogg().Bytes();
        if (name.ends_with(".mpc")) return Mpc8();
        return Mp3().Size(3000).Bytes();
    }

    bool Run() { return CompressCD(app, job, watch); }

    Texts FilesOf(const std::string& name) const {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(app.folder / name))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string Playlist() const { return app.folder.Read("out/Band - Debut.m3u"); }

    Texts CommandLines() const {
        Texts lines;
        for (const auto& run : app.processes.runs) lines.push_back(run.commandLine);
        return lines;
    }

    TestApp app;
    WaveFile wave{app};
    CompressCDJob job;
    CompressCDWatch watch;
    Texts progress;
    std::vector<std::size_t> done;
    /// Those without a result.
    std::vector<std::size_t> without;
    /// Part of the output's name of which the tool makes nothing.
    std::string failing = "//";
};

TEST_F(CompressCDTest, Lame_CommandLinesTagsNamesAndPlaylist) {
    AddTracks({"One / Live", "Guest / Two / Demo"});
    EXPECT_TRUE(Run());
    const std::string in = app.folder / "in";
    const std::string out = app.folder / "out";
    const std::string options = "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   ";
    EXPECT_EQ(CommandLines(), (Texts{options + "\"" + in + "/Track01.WAV\" \"" + out + "/Track01.MP3\"",
                                     options + "\"" + in + "/Track02.WAV\" \"" + out + "/Track02.MP3\""}));
    EXPECT_EQ(FilesOf("out"), (Texts{"Band - Debut.m3u", "Band - One (Live).MP3", "Guest - Two (Demo).MP3"}));
    EXPECT_EQ(Playlist(), "Band - One (Live).MP3\nGuest - Two (Demo).MP3\n");
    const ID3Tag tag = wave.GetMP3FileInfo(out + "/Guest - Two (Demo).MP3");
    EXPECT_EQ(tag.Artist, "Guest");
    EXPECT_EQ(tag.Title, "Two");
    EXPECT_EQ(tag.Comment, "Demo");
    EXPECT_EQ(tag.Album, "Debut");
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Genre, 8);
    EXPECT_EQ(tag.TrackNumber, 2);
    EXPECT_EQ(tag.ID3v2Extension.Artist, "Guest");
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "Two");
    EXPECT_EQ(tag.ID3v2Extension.Mix, "Demo");
    EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "Debut");
    EXPECT_EQ(tag.ID3v2Extension.Year, "1999");
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Jazz");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "2");
    EXPECT_EQ(tag.ID3v2Extension.EncodedBy, ApplicationTitle() + " " + VersionText());
}

TEST_F(CompressCDTest, Ogg_LandsInTheTargetFolderAndTheCurrentOneIsBackAfterwards) {
    job.ModeCode = 2014;
    AddTracks({"One / Live"});
    EXPECT_TRUE(Run());
    EXPECT_EQ(CommandLines(),
              Texts{"oggenc.exe -q4 -n\"Track01.ogg\" \"" + (app.folder / "in") + "/Track01.WAV\""});
    EXPECT_EQ(FilesOf("out"), (Texts{"Band - Debut.m3u", "Band - One (Live).ogg"}));
    EXPECT_EQ(app.files.CurrentFolder(), app.folder.Path());
    const ID3Tag tag = wave.GetOGGFileInfo(app.folder / "out/Band - One (Live).ogg");
    EXPECT_EQ(tag.Title, "One");
    EXPECT_EQ(tag.Comment, "Live");
    EXPECT_EQ(tag.OggVorbisExtension.DateTime, "1999");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "1");
}

TEST_F(CompressCDTest, MPEGplus_WithReducedLevel) {
    job.ModeCode = 3003;
    job.Wave.ReduceLevel = true;
    AddTracks({"One / Live"});
    EXPECT_TRUE(Run());
    EXPECT_EQ(CommandLines(),
              Texts{"mppenc.exe  -v --overwrite --standard -bw 20000 -ms 2   -scale 0.95 \"" +
                    (app.folder / "in") + "/Track01.WAV\" \"" + (app.folder / "out") + "/Track01.mpc\""});
    EXPECT_EQ(Playlist(), "Band - One (Live).mpc\n");
    EXPECT_EQ(wave.GetMPEGplusFileInfo(app.folder / "out/Band - One (Live).mpc").Album, "Debut");
}

TEST_F(CompressCDTest, TrimChild_RunsAheadOfTheEncoder) {
    job.Wave.TrimSilence = job.Wave.Normalize = job.Wave.NormalizeSeparately = true;
    AddTracks({"One / Live"});
    Run();
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(app.processes.runs[0].commandLine,
              "\"/opt/zefta/zefta.exe\" /wavetrim \"" + (app.folder / "in") +
                  "/Track01.WAV\" /f0 /nb /zx /before 1 /after 1 /norm /showexec");
    EXPECT_TRUE(app.state.NormalizeSeparately);
    EXPECT_FALSE(app.state.ReduceLevel);
}

TEST_F(CompressCDTest, Mode_TakesThePlaceOfWhatTheSettingsSay) {
    app.state.UseVBR = app.state.UseOggVorbis = app.state.UseMPEGplus = true;
    job.ModeCode.reset();
    SetModeOfCD(app.state, job);
    EXPECT_EQ(app.state.JobCode, 14);
    EXPECT_EQ(app.state.Bitrate, 320);
    EXPECT_FALSE(app.state.UseVBR || app.state.UseOggVorbis || app.state.UseMPEGplus);
    job.ModeCode = 2014;
    SetModeOfCD(app.state, job);
    EXPECT_TRUE(app.state.UseOggVorbis);
    EXPECT_EQ(app.state.OggVorbisMode, 14);
}

TEST_F(CompressCDTest, OnlySelectedTracks_AreTouched) {
    AddTracks({"One / a", "Two / b", "Three / c"});
    job.Info.Tracks[1].Selected = false;
    job.DeleteAfterCompress = true;
    EXPECT_TRUE(Run());
    EXPECT_EQ(FilesOf("in"), Texts{"Track02.WAV"});
    EXPECT_EQ(Playlist(), "Band - One (a).MP3\nBand - Three (c).MP3\n");
    EXPECT_EQ(done, (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(progress, (Texts{"[1/3] One / a", "[3/3] Three / c"}));
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "out/Band - Three (c).MP3").TrackNumber, 3);
}

TEST_F(CompressCDTest, EncoderThatFails_LeavesNoLineAndTheWaveFileGoesAllTheSame) {
    AddTracks({"One / a", "Two / b"});
    failing = "Track01";
    job.DeleteAfterCompress = true;
    EXPECT_TRUE(Run());
    EXPECT_TRUE(FilesOf("in").empty());
    EXPECT_EQ(Playlist(), "Band - Two (b).MP3\n");
    EXPECT_EQ(done.size(), 2U);
    EXPECT_EQ(without, std::vector<std::size_t>{0});
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(CompressCDTest, EncoderThatThePersonHadEnded_TheWaveFileStays) {
    AddTracks({"One / a", "Two / b"});
    failing = "Track01";
    job.DeleteAfterCompress = true;
    app.desktop.asksToCancel = [this] { return !app.processes.runs.empty(); };
    EXPECT_FALSE(Run());
    EXPECT_EQ(FilesOf("in"), (Texts{"Track01.WAV", "Track02.WAV"}));
}

TEST_F(CompressCDTest, WaveFiles_StayUnlessTheyAreToGo) {
    AddTracks({"One / a"});
    Run();
    EXPECT_EQ(FilesOf("in"), Texts{"Track01.WAV"});
}

TEST_F(CompressCDTest, MissingWaveFile_IsPassedOver) {
    AddTracks({"One / a", "Two / b"});
    std::filesystem::remove(app.folder / "in/Track01.WAV");
    EXPECT_TRUE(Run());
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(Playlist(), "Band - Two (b).MP3\n");
}

TEST_F(CompressCDTest, OldResult_ThatTheEncoderDidNotTouchIsNone) {
    AddTracks({"One / a"});
    failing = "Track01";
    app.folder.Write("out/Track01.mp3", Mp3().Size(3000).Bytes());
    EXPECT_TRUE(Run());
    EXPECT_EQ(FilesOf("out"), (Texts{"Band - Debut.m3u", "Track01.mp3"}));
    EXPECT_EQ(Playlist(), "");
}

TEST_F(CompressCDTest, NoPlaylists_LeavesNoneAndAnOldOneAlone) {
    AddTracks({"One / a"});
    job.NoPlaylists = true;
    Run();
    EXPECT_EQ(FilesOf("out"), Texts{"Band - One (a).MP3"});
    app.folder.Write("out/Band - Debut.m3u", "somebody's own\n");
    Run();
    EXPECT_EQ(Playlist(), "somebody's own\n");
}

TEST_F(CompressCDTest, OldPlaylist_StaysUntilThereIsAResult) {
    AddTracks({"One / a", "Two / b"});
    app.folder.Write("out/Band - Debut.m3u", "old\n");
    failing = "Track";
    Run();
    EXPECT_EQ(Playlist(), "old\n");
    failing = "Track01";
    Run();
    EXPECT_EQ(Playlist(), "Band - Two (b).MP3\n");
}

TEST_F(CompressCDTest, Playlist_HoldsWhatIsDoneWhileTheJobGoesOn) {
    AddTracks({"One / a", "Two / b"});
    Texts lists;
    watch.Progress = [&](const std::string&) { lists.push_back(Playlist()); };
    Run();
    EXPECT_EQ(lists, (Texts{"", "Band - One (a).MP3\n"}));
}

TEST_F(CompressCDTest, PlaylistName_IsOneThatEveryFileSystemTakes) {
    job.Info.Artist = "AC/DC";
    job.Info.Title = "Who?";
    AddTracks({"One / a"});
    Run();
    EXPECT_EQ(FilesOf("out"), (Texts{"AC_DC - One (a).MP3", "AC_DC - Who_.m3u"}));
}

TEST_F(CompressCDTest, Cancel_EndsBehindTheTrackAtHand) {
    AddTracks({"One / a", "Two / b", "Three / c"});
    job.DeleteAfterCompress = true;
    app.desktop.cancelsFromItem = 2;
    EXPECT_FALSE(Run());
    EXPECT_EQ(Playlist(), "Band - One (a).MP3\n");
    EXPECT_EQ(FilesOf("in"), (Texts{"Track02.WAV", "Track03.WAV"}));
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>{0, 0}));
}

TEST_F(CompressCDTest, TrackWithoutAnyText_KeepsTheNameThatTheEncoderGave) {
    job.Info.Artist = "";
    AddTracks({""});
    Run();
    EXPECT_TRUE(app.folder.Exists("out/Track01.MP3"));
    EXPECT_EQ(app.folder.Read("out/ - Debut.m3u"), "Track01.MP3\n");
}

TEST_F(CompressCDTest, UndividedName_IsATitleWhenThatIsAskedFor) {
    AddTracks({"Song"});
    job.NamesAreFree = true;
    Run();
    EXPECT_EQ(Playlist(), "Band - Song.MP3\n");
}

TEST_F(CompressCDTest, Compilation_TakesTheArtistFromTheName) {
    AddTracks({"Guest / Song"});
    job.Info.Compilation = 1;
    Run();
    EXPECT_EQ(Playlist(), "Guest - Song.MP3\n");
}

TEST_F(CompressCDTest, GenreOfThePersonsOwn_HasNoNumber) {
    job.Info.Genre = "Zeuhl";
    AddTracks({"One / a"});
    Run();
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "out/Band - One (a).MP3");
    EXPECT_EQ(tag.Genre, NoGenre);
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Zeuhl");
}

TEST_F(CompressCDTest, TargetFolder_IsMadeWithThoseAboveIt) {
    job.Info.Target = "new/deep/out";
    AddTracks({"One / a"});
    EXPECT_TRUE(Run());
    EXPECT_TRUE(app.folder.Exists("new/deep/out/Band - One (a).MP3"));
}

TEST_F(CompressCDTest, TargetFolder_ThatCannotBeMadeIsToldAndNothingBegins) {
    app.folder.Write("file", "x");
    job.Info.Target = app.folder / "file/out";
    AddTracks({"One / a"});
    EXPECT_FALSE(Run());
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, app.messages.GetMessage(1004, app.folder / "file/out"));
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(CompressCDTest, FailureOfOneTrack_IsToldKeepsItsWaveFileAndTheNextFollows) {
    AddTracks({"One / a", "Two / b"});
    job.DeleteAfterCompress = true;
    app.processes.tool = [this](const RecordingProcesses::Run& run) {
        PlayTool(run.commandLine);
        // No tag can be written to it.
        if (run.commandLine.find("Track01") != std::string::npos)
            app.files.SetReadOnly(app.folder / "out/Track01.MP3", true);
        app.files.SetReadOnly(app.folder / "in/Track02.WAV", true);
    };
    Run();
    EXPECT_EQ(FilesOf("in").back(), "Track02.WAV");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #70")) << app.desktop.boxes[0].text;
    EXPECT_EQ(done.size(), 2U);
}

TEST_F(CompressCDTest, SameNames_AreNumbered) {
    AddTracks({"Song / a", "Song / a"});
    Run();
    EXPECT_EQ(Playlist(), "Band - Song (a).MP3\nBand - Song (a) {2}.MP3\n");
}

TEST(CDNames, Waves_HaveTwoDigitsAtLeast) {
    EXPECT_EQ(TrackWaveName(1), "Track01.WAV");
    EXPECT_EQ(TrackWaveName(12), "Track12.WAV");
    EXPECT_EQ(TrackWaveName(100), "Track100.WAV");
}

}  // namespace
}  // namespace zefta::test
