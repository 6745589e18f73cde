#include <filesystem>
#include <new>
#include <sstream>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "library/Playlist.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

/// At 1152 samples a frame and 44100 Hz: 215 seconds.
constexpr std::int32_t FramesOf215Seconds = 8231;

std::string LongMp3(const std::string& behind = "", const std::string& inFront = "") {
    return Mp3().InFront(inFront).Block("Xing", FramesOf215Seconds).Behind(behind).Bytes();
}

class PlaylistTest : public ::testing::Test {
  protected:
    std::string Made(const std::string& name = "!Playlist.m3u") {
        MakePlaylist(app);
        EXPECT_TRUE(app.desktop.boxes.empty()) << app.desktop.boxes[0].text;
        return app.folder.Read(name);
    }

    void WriteWaves(const std::vector<std::string>& names) {
        for (const std::string& name : names) app.folder.Write(name, "");
    }

    std::string OnlyBox() {
        return app.desktop.boxes.size() == 1 ? app.desktop.boxes[0].text : "(none or more)";
    }

    std::size_t EntryCount() { return app.files.List(app.folder.Path()).size(); }

    TestApp app;
};

TEST_F(PlaylistTest, EmptyFolder_GivesTheHeaderAlone) {
    EXPECT_EQ(Made(), "#EXTM3U\n");
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(PlaylistTest, TargetThatIsAnAudioFile_IsNotReplaced) {
    for (const std::string name : {"a.mp3", "b.WAV", "c.ogg", "d.lqt", "e.mpc", "f.mp+", "xmp3"}) {
        TestApp fresh;
        fresh.folder.Write(name, "audio");
        fresh.state.TargetPath = name;
        MakePlaylist(fresh);
        ASSERT_EQ(fresh.desktop.boxes.size(), 1U) << name;
        EXPECT_EQ(fresh.desktop.boxes[0].text.find("Error #58"), 0U) << fresh.desktop.boxes[0].text;
        EXPECT_NE(fresh.desktop.boxes[0].text.find("/" + name), std::string::npos);
        EXPECT_EQ(fresh.folder.Read(name), "audio");
        EXPECT_EQ(fresh.files.List(fresh.folder.Path()).size(), 1U);
    }
}

TEST_F(PlaylistTest, TargetThatLeadsToAnAudioFile_IsNotReplaced) {
    app.folder.Write("a.mp3", "audio");
    std::filesystem::create_symlink("a.mp3", app.folder / "!Playlist.m3u");
    MakePlaylist(app);
    EXPECT_EQ(OnlyBox().find("Error #58"), 0U);
    EXPECT_EQ(app.folder.Read("a.mp3"), "audio");
}

TEST_F(PlaylistTest, TargetWithTheNameOfAnAudioFileThatIsNotThere_IsWrittenAndNotListed) {
    WriteWaves({"a.wav"});
    app.state.TargetPath = "new.mp3";
    EXPECT_EQ(Made("new.mp3"), "#EXTM3U\na.wav\n");
}

TEST_F(PlaylistTest, TargetThatLeadsNowhere_IsMadeBehindTheLink) {
    WriteWaves({"a.wav"});
    std::filesystem::create_symlink("nowhere.m3u", app.folder / "!Playlist.m3u");
    EXPECT_EQ(Made("nowhere.m3u"), "#EXTM3U\na.wav\n");
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "!Playlist.m3u"));
}

TEST_F(PlaylistTest, TagThatMemoryDoesNotSufficeFor_GivesTheEntryAlone) {
    class Hungry : public PosixFileSystem {
      public:
        std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
            if (path.ends_with("huge.mp3")) throw std::bad_alloc();
            return PosixFileSystem::OpenReadOnly(path);
        }
    } files;
    TestApp hungry(&files);
    hungry.folder.Write("huge.mp3", "");
    MakePlaylist(hungry);
    EXPECT_TRUE(hungry.desktop.boxes.empty());
    EXPECT_EQ(hungry.folder.Read("!Playlist.m3u"), "#EXTM3U\nhuge.mp3\n");
}

TEST_F(PlaylistTest, MadeTwice_DoesNotListItself) {
    WriteWaves({"a.wav"});
    EXPECT_EQ(Made(), "#EXTM3U\na.wav\n");
    EXPECT_EQ(Made(), "#EXTM3U\na.wav\n");
}

TEST_F(PlaylistTest, ListedKinds_AreTheSixInAnyCase) {
    WriteWaves({"1.mp3", "2.WAV", "3.Ogg", "4.lqt", "7.m3u", "8.flac", "9mp3", "10.mp3.bak"});
    for (const char* name : {"5.mpc", "6.MP+"}) app.folder.Write(name, Mpc8());
    app.files.CreateFolder("folder.mp3");
    EXPECT_EQ(Made(),
              "#EXTM3U\n#EXTINF:0,1.mp3\n1.mp3\n2.WAV\n#EXTINF:0,3.Ogg\n3.Ogg\n4.lqt\n#EXTINF:10,5.mpc\n"
              "5.mpc\n#EXTINF:10,6.MP+\n6.MP+\n");
}

TEST_F(PlaylistTest, Id3v1WithAComment_ShowsItInSquareBrackets) {
    app.folder.Write("a.mp3", LongMp3(Id3v1{"Title", "Artist", "", "", "comment"}.Bytes()));
    EXPECT_EQ(Made(), "#EXTM3U\n#EXTINF:215,Artist - Title [comment]\na.mp3\n");
}

TEST_F(PlaylistTest, Id3v2MixAndComment_ShowTheMixOnly) {
    const std::string frames = TextFrame("TPE1", "Artist") + TextFrame("TIT2", "Title (Club Mix)");
    app.folder.Write("a.mp3",
                     LongMp3(Id3v1{"Title", "Artist", "", "", "comment"}.Bytes(), Id3v2(frames, 200)));
    EXPECT_EQ(Made(), "#EXTM3U\n#EXTINF:215,Artist - Title (Club Mix)\na.mp3\n");
}

TEST_F(PlaylistTest, NoTagText_ShowsTheNameOfTheFile) {
    app.folder.Write("song.mp3", LongMp3());
    EXPECT_EQ(Made(), "#EXTM3U\n#EXTINF:215,song.mp3\nsong.mp3\n");
}

TEST_F(PlaylistTest, OggAndMPEGplus_AreReadByTheirReaders) {
    app.folder.Write("a.ogg",
                     Ogg().Comment("ARTIST=A").Comment("TITLE=T").Samples(441000).AudioPages(300).Bytes());
    app.folder.Write("b.mpc", Mpc8());
    EXPECT_EQ(Made(), "#EXTM3U\n#EXTINF:10,A - T\na.ogg\n#EXTINF:10,b.mpc\nb.mpc\n");
}

TEST_F(PlaylistTest, WaveFile_NeverGetsAComment) {
    app.folder.Write("a.wav", Wav().Tone(44100 * 4).Bytes());
    EXPECT_EQ(Made(), "#EXTM3U\na.wav\n");
}

TEST_F(PlaylistTest, TagThatCannotBeRead_GivesTheEntryAlone) {
    std::filesystem::create_symlink("gone", app.folder / "lost.mp3");
    app.folder.Write("big.mp3", LongMp3());
    std::filesystem::resize_file(app.folder / "big.mp3", 2200000000);
    app.folder.Write("no.mpc", "");
    EXPECT_EQ(Made(), "#EXTM3U\nbig.mp3\nlost.mp3\nno.mpc\n");
}

TEST_F(PlaylistTest, PipesAndDevices_StayOut) {
    ASSERT_EQ(mkfifo((app.folder / "pipe.mp3").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", app.folder / "zero.wav");
    EXPECT_EQ(Made(), "#EXTM3U\n");
}

TEST_F(PlaylistTest, Order_IsByTheWholePathWithoutRegardToCase) {
    app.state.ProcessSubfolders = true;
    app.files.CreateFolder("b");
    app.files.CreateFolder("\xD0\x96");
    WriteWaves({"c.wav", "a.wav", "b/a.wav", "B.wav", "\xC3\x84.wav", "\xC3\xA4.WAV", "\xD0\xB6.wav",
                "\xD0\x96/\xD0\x90.wav"});
    // The separator comes after the dot of an extension.
    EXPECT_EQ(Made(),
              "#EXTM3U\na.wav\nB.wav\nb/a.wav\nc.wav\n\xC3\x84.wav\n\xC3\xA4.WAV\n"
              "\xD0\xB6.wav\n\xD0\x96/\xD0\x90.wav\n");
}

TEST_F(PlaylistTest, NamesEqualButForCase_StandInTheOrderOfTheirBytes) {
    WriteWaves({"a.wav", "A.wav", "A.WAV", "a.WAV"});
    EXPECT_EQ(Made(), "#EXTM3U\nA.WAV\nA.wav\na.WAV\na.wav\n");
}

TEST_F(PlaylistTest, NameThatIsNoUtf8_KeepsItsBytes) {
    WriteWaves({"M\xFCller.wav"});
    app.folder.Write("\xE4.mp3", "");
    EXPECT_EQ(Made(), "#EXTM3U\nM\xFCller.wav\n#EXTINF:0,\xC3\xA4.mp3\n\xE4.mp3\n");
}

TEST_F(PlaylistTest, NameWithALineFeed_IsLeftOutAndTold) {
    WriteWaves({"a\nb.wav", "c.wav"});
    MakePlaylist(app);
    EXPECT_EQ(app.folder.Read("!Playlist.m3u"), "#EXTM3U\nc.wav\n");
    EXPECT_EQ(OnlyBox(), "Error #52\r\n\r\nBad file name or number: a\nb.wav");
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
}

TEST_F(PlaylistTest, Subfolders_OnlyWhenAskedFor) {
    app.files.CreateFolder("sub");
    app.files.CreateFolder("sub/inner");
    WriteWaves({"sub/inner/b.wav", "sub/a.wav"});
    EXPECT_EQ(Made(), "#EXTM3U\n");
    app.state.ProcessSubfolders = true;
    EXPECT_EQ(Made(), "#EXTM3U\nsub/a.wav\nsub/inner/b.wav\n");
}

TEST_F(PlaylistTest, FilesOfSubfolders_AreReadWhereTheyLie) {
    app.state.ProcessSubfolders = true;
    app.files.CreateFolder("sub");
    app.folder.Write("sub/a.mp3", LongMp3(Id3v1{"Title", "Artist"}.Bytes()));
    EXPECT_EQ(Made(), "#EXTM3U\n#EXTINF:215,Artist - Title\nsub/a.mp3\n");
}

TEST_F(PlaylistTest, LinkToAParentFolder_ComesToAnEnd) {
    app.state.ProcessSubfolders = true;
    app.files.CreateFolder("sub");
    WriteWaves({"sub/a.wav"});
    std::filesystem::create_directory_symlink("..", app.folder / "sub/up");
    EXPECT_EQ(Made(), "#EXTM3U\nsub/a.wav\n");
}

TEST_F(PlaylistTest, UsePaths_MakesTheEntriesAbsolute) {
    app.state.UsePaths = app.state.ProcessSubfolders = true;
    app.files.CreateFolder("sub");
    WriteWaves({"a.wav", "sub/b.wav"});
    const std::string folder = app.files.CurrentFolder();
    EXPECT_EQ(Made(), "#EXTM3U\n" + folder + "/a.wav\n" + folder + "/sub/b.wav\n");
}

TEST_F(PlaylistTest, UsePathsInAFolderWithALineFeed_WritesNothing) {
    app.files.CreateFolder("a\nb");
    app.folder.Write("a\nb/a.wav", "");
    app.files.SetCurrentFolder("a\nb");
    app.state.UsePaths = true;
    MakePlaylist(app);
    EXPECT_FALSE(app.folder.Exists("a\nb/!Playlist.m3u"));
    EXPECT_NE(OnlyBox().find("Error #52"), std::string::npos);
    app.desktop.boxes.clear();
    app.state.UsePaths = false;
    EXPECT_EQ(Made("a\nb/!Playlist.m3u"), "#EXTM3U\na.wav\n");
}

TEST_F(PlaylistTest, Target_MayLieElsewhereAndUseBackslashes) {
    app.files.CreateFolder("lists");
    WriteWaves({"a.wav"});
    app.state.TargetPath = "lists\\all.m3u";
    EXPECT_EQ(Made("lists/all.m3u"), "#EXTM3U\na.wav\n");
    app.state.TargetPath = app.folder / "full.m3u";
    EXPECT_EQ(Made("full.m3u"), "#EXTM3U\na.wav\n");
    EXPECT_FALSE(app.folder.Exists("!Playlist.m3u"));
    EXPECT_EQ(app.state.TargetPath, app.folder / "full.m3u");
}

TEST_F(PlaylistTest, TargetThatCannotBeCreated_IsToldAndNothingIsWritten) {
    WriteWaves({"a.wav"});
    app.state.TargetPath = "missing/list.m3u";
    MakePlaylist(app);
    EXPECT_EQ(OnlyBox(),
              "Error #76\r\n\r\nPath not found: " + app.files.CurrentFolder() + "/missing/list.m3u");
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    app.desktop.boxes.clear();

    app.files.CreateFolder("list.m3u");
    app.state.TargetPath = "list.m3u";
    MakePlaylist(app);
    EXPECT_NE(OnlyBox().find("Error #75"), std::string::npos);
    app.desktop.boxes.clear();

    app.folder.Write("old.m3u", "old");
    app.files.SetReadOnly("old.m3u", true);
    app.state.TargetPath = "old.m3u";
    MakePlaylist(app);
    EXPECT_NE(OnlyBox().find("Error #70"), std::string::npos);
    EXPECT_EQ(app.folder.Read("old.m3u"), "old");
    EXPECT_EQ(EntryCount(), 3U);
}

TEST_F(PlaylistTest, FailureOfAnyOperation_LeavesAWholePlaylist) {
    const std::string made = "#EXTM3U\na.wav\n";
    for (int nth = 1; nth <= 8; ++nth) {
        for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
            TestWorld world;
            FaultInjectingFileSystem files(world.files);
            TestApp fresh(&files);
            fresh.folder.Write("a.wav", "");
            fresh.folder.Write("!Playlist.m3u", "old");
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            MakePlaylist(fresh);
            const std::string text = fresh.folder.Read("!Playlist.m3u");
            EXPECT_TRUE(text == "old" || text == made) << nth << text;
            EXPECT_EQ(text == "old", fresh.desktop.HasComplained()) << nth;
        }
    }
}

TEST_F(PlaylistTest, MoreFilesThanOneThreadReads_AreAllThereInOrder) {
    std::string expected = "#EXTM3U\n";
    for (int i = 10000; i < 10200; ++i) {
        const std::string name = "Track " + std::to_string(i) + ".mp3";
        app.folder.Write(name, Audio(300) + Id3v1{"T", "A"}.Bytes());
        expected += "#EXTINF:0,A - T\n" + name + "\n";
    }
    EXPECT_EQ(Made(), expected);
}

TEST_F(PlaylistTest, Preview_TellsHowManyEntries) {
    std::ostringstream steps;
    app.steps = &steps;
    WriteWaves({"a.wav", "b.wav", "c\nd.wav"});
    MakePlaylist(app);
    EXPECT_EQ(steps.str(), "refused: c d.wav: Bad file name or number: c d.wav\nwrite: " +
                               app.files.CurrentFolder() + "/!Playlist.m3u: 2 entries\n");
}

}  // namespace
}  // namespace zefta::test
