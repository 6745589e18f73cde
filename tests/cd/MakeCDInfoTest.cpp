#include <filesystem>
#include <new>
#include <sstream>

#include <gtest/gtest.h>

#include "cd/CDInfoFile.h"
#include "cd/MakeCDInfo.h"
#include "core/Options.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

/// An MP3 file of 128 kbps that plays `seconds`, with an ID3v1 tag and perhaps an ID3v2 tag in front.
std::string Song(int seconds, const Id3v1& tag, const std::string& frames = "") {
    return Mp3()
        .InFront(frames.empty() ? "" : Id3v2(frames, 500))
        .Behind(tag.Bytes())
        .Size(static_cast<std::size_t>(seconds) * 16000 + (frames.empty() ? 128 : 638))
        .Bytes();
}

/// A folder with two songs: "a.mp3" has both tags, "b.mp3" the short one.
struct CDInfoStage : TestApp {
    std::ostringstream told;

    explicit CDInfoStage(FileSystem* fileSystem = nullptr) : TestApp(fileSystem) {
        const std::string frames = TextFrame("TPE1", "Long Artist") + TextFrame("TIT2", "Long A (Live)") +
                                   TextFrame("TALB", "Long Album");
        const Id3v1 a = {.title = "A", .artist = "Artist", .album = "Album", .comment = "Studio"};
        folder.Write("a.mp3", Song(10, a, frames));
        const Id3v1 b = {
            .title = "B", .artist = "Other", .album = "Other Album", .year = "1999", .comment = "Demo"};
        folder.Write("b.mp3", Song(7, b));
    }

    void Make(const std::string& mask = "*.m3u", const std::string& target = "", bool compilation = false) {
        MakeCDInfo(*this, mask, target, compilation);
    }

    /// The file that one playlist of these lines gives.
    std::string InfoOf(const std::string& lines, bool compilation = false) {
        folder.Write("List.m3u", lines);
        Make("List.m3u", "", compilation);
        return folder.Read("List.zfc");
    }
};

std::string Info(const std::string& names, const std::string& times, const std::string& options) {
    return (names.empty() ? "" : "[Names]\n" + names + "[Times]\n" + times) + "[Options]\n" + options;
}

const std::string BothSongs = Info("01=Long A / Live\n02=B / Demo\n", "01=10\n02=7\n",
                                   "Artist=Long Artist\nTitle=Long Album\nYear=1999\nTracks=2\nLength=17\n"
                                   "Compilation=0\n");
const std::string NoSong = Info("", "", "Artist=\nTitle=\nYear=\nTracks=0\nLength=0\nCompilation=0\n");

}  // namespace

TEST(MakeCDInfo, Playlist_GivesNamesTimesAndTheAlbumOfTheFirstTracks) {
    CDInfoStage app;
    EXPECT_EQ(app.InfoOf("#EXTM3U\n#EXTINF:10,x\na.mp3\nb.mp3\n"), BothSongs);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(app.desktop.servedEvents, 2);
}

TEST(MakeCDInfo, Compilation_PutsTheArtistInFrontAndNamesTheAlbumByThePlaylist) {
    CDInfoStage app;
    EXPECT_EQ(app.InfoOf("b.mp3\na.mp3\n", true),
              Info("01=Other / B / Demo\n02=Long Artist / Long A / Live\n", "01=7\n02=10\n",
                   "Artist=List\nTitle=List\nYear=1999\nTracks=2\nLength=17\nCompilation=1\n"));
}

TEST(MakeCDInfo, AlbumArtistAndTitle_ComeFromTheFirstTrackThatHasThem) {
    CDInfoStage app;
    app.folder.Write("0.mp3", Song(1, {.title = "Zero"}));
    EXPECT_EQ(app.InfoOf("0.mp3\nb.mp3\na.mp3\n"),
              Info("01=Zero / \n02=B / Demo\n03=Long A / Live\n", "01=1\n02=7\n03=10\n",
                   "Artist=Other\nTitle=Other Album\nYear=1999\nTracks=3\nLength=18\nCompilation=0\n"));
}

TEST(MakeCDInfo, PlaylistWithoutTracks_GivesAnAlbumWithoutTracks) {
    for (const std::string lines : {"", "#EXTM3U\n", "\n\n", "a.wav\na.txt\nList.m3u\n"}) {
        CDInfoStage app;
        EXPECT_EQ(app.InfoOf(lines), NoSong) << lines;
    }
}

TEST(MakeCDInfo, EntriesThatCannotBeRead_AreLeftOutAndTheNumbersCloseUp) {
    CDInfoStage app;
    app.files.CreateFolder("folder.mp3");
    ASSERT_EQ(std::system("mkfifo pipe.mp3"), 0);
    EXPECT_EQ(app.InfoOf("absent.mp3\na.mp3\nfolder.mp3\npipe.mp3\nC:\\Music\\x.mp3\nb.mp3\nnone/x.ogg\n"),
              BothSongs);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(MakeCDInfo, FormsOfALine_AllNameTheirFile) {
    for (const std::string form : {"plain", "windows", "absolute", "dots", "mark", "case"}) {
        CDInfoStage app;
        app.files.CreateFolder("sub");
        app.files.MoveFile("b.mp3", "sub/b.mp3");
        const std::map<std::string, std::string> lines = {
            {"plain", "a.mp3\nsub/b.mp3"},
            {"windows", "a.mp3\r\nsub\\b.mp3\r\n"},
            {"absolute", app.folder.Path() + "/a.mp3\n" + app.folder.Path() + "/sub/b.mp3\n"},
            {"dots", ".\\a.mp3\n./sub/../sub/b.mp3\n"},
            {"mark",
             "\xEF\xBB\xBF"
             "a.mp3\nsub/b.mp3\n"},
            {"case", "A.MP3\nSUB\\B.Mp3\n"},
        };
        EXPECT_EQ(app.InfoOf(lines.at(form)), BothSongs) << form;
    }
}

TEST(MakeCDInfo, NamesInTheCodePage_AreFound) {
    CDInfoStage app;
    app.files.MoveFile("a.mp3", "caf\xC3\xA9.mp3");
    app.files.MoveFile("b.mp3", "th\xE9.mp3");
    EXPECT_EQ(app.InfoOf("caf\xE9.mp3\nth\xE9.mp3\n"), BothSongs);
}

TEST(MakeCDInfo, Values_EndAtTheirFirstNul) {
    using namespace std::string_literals;
    CDInfoStage app;
    const std::string frames =
        TextFrame("TPE1", "Shown\0hidden"s) + TextFrame("TIT2", "\0hidden"s) + TextFrame("TALB", "Whole"s);
    app.folder.Write("n.mp3", Song(3, {.title = "Short"}, frames));
    EXPECT_EQ(app.InfoOf("n.mp3\n"),
              Info("01=Short / \n", "01=3\n",
                   "Artist=Shown\nTitle=Whole\nYear=\nTracks=1\nLength=3\nCompilation=0\n"));
}

TEST(MakeCDInfo, PlaylistsWhoseNamesDifferInCaseAlone_DoNotMix) {
    CDInfoStage app;
    std::ostringstream steps;
    app.steps = &steps;
    app.folder.Write("List.m3u", "a.mp3\nb.mp3\n");
    app.folder.Write("LIST.m3u", "a.mp3\nb.mp3\n");
    app.folder.Write("Other.m3u", "a.mp3\nb.mp3\n");
    app.Make();
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #58")) << app.desktop.boxes[0].text;
    const bool firstIsUpper = app.folder.Exists("LIST.zfc");
    EXPECT_NE(firstIsUpper, app.folder.Exists("List.zfc"));
    const std::string second = firstIsUpper ? "List" : "LIST";
    EXPECT_NE(app.desktop.boxes[0].text.find("/" + second + ".zfc"), std::string::npos);
    EXPECT_NE(steps.str().find("refused: " + second + ".m3u: "), std::string::npos);
    EXPECT_EQ(app.folder.Read(firstIsUpper ? "LIST.zfc" : "List.zfc"), BothSongs);
    EXPECT_EQ(app.folder.Read("Other.zfc"), BothSongs);
}

TEST(MakeCDInfo, PlaylistsWhoseNamesDifferInCaseAlone_KeepFilesOfTheirOwn) {
    CDInfoStage app;
    for (const std::string name : {"List", "LIST"}) {
        app.folder.Write(name + ".m3u", "a.mp3\nb.mp3\n");
        app.folder.Write(name + ".zfc", "");
    }
    app.Make();
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(app.folder.Read("List.zfc"), BothSongs);
    EXPECT_EQ(app.folder.Read("LIST.zfc"), BothSongs);
}

TEST(MakeCDInfo, NameWithAnEqualsSign_Survives) {
    CDInfoStage app;
    app.folder.Write("e.mp3", Song(1, {.title = "E=mc2", .artist = "=A=", .album = "B="}));
    app.InfoOf("e.mp3\n");
    CDInfo info;
    LoadCDInfo(app, "List.zfc", info);
    EXPECT_EQ(info.Artist, "=A=");
    EXPECT_EQ(info.Title, "B=");
    ASSERT_EQ(info.Tracks.size(), 1U);
    EXPECT_EQ(info.Tracks[0].Name, "E=mc2 /");
}

TEST(MakeCDInfo, EntryThatMemoryDoesNotSufficeFor_IsLeftOut) {
    class Hungry : public PosixFileSystem {
      public:
        std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
            if (path.ends_with("huge.mp3")) throw std::bad_alloc();
            return PosixFileSystem::OpenReadOnly(path);
        }
    } files;
    CDInfoStage app(&files);
    app.folder.Write("huge.mp3", Song(1, {}));
    EXPECT_EQ(app.InfoOf("huge.mp3\na.mp3\nb.mp3\n"), BothSongs);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(MakeCDInfo, EveryPlaylistOfTheMask_GetsItsFile) {
    CDInfoStage app;
    for (const std::string name : {"One.m3u", "Two.M3U", "Ogg.m3u8", "Other.m3u", "O.txt"})
        app.folder.Write(name, "a.mp3\nb.mp3\n");
    app.Make("*o*.M3U");
    EXPECT_EQ(app.folder.Read("One.zfc"), BothSongs);
    EXPECT_EQ(app.folder.Read("Two.zfc"), BothSongs);
    EXPECT_EQ(app.folder.Read("Other.zfc"), BothSongs);
    EXPECT_FALSE(app.folder.Exists("Ogg.zfc") || app.folder.Exists("Ogg.zfc8") || app.folder.Exists("O.zfc"));
}

TEST(MakeCDInfo, MaskThatIsNoPlaylist_IsRefused) {
    for (const std::string mask : {"*.*", "List.m3u8", "m3u", "", "absent/*.txt"}) {
        CDInfoStage app;
        app.folder.Write("List.m3u", "a.mp3\n");
        app.Make(mask);
        ASSERT_EQ(app.desktop.boxes.size(), 1U) << mask;
        EXPECT_EQ(app.desktop.boxes[0].text, "Error opening the file specified!");
        EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
        EXPECT_FALSE(app.folder.Exists("List.zfc"));
    }
}

TEST(MakeCDInfo, FolderOfTheMask_BecomesCurrentAndHoldsTheFiles) {
    CDInfoStage app;
    app.files.CreateFolder("sub");
    app.folder.Write("sub/List.m3u", "..\\a.mp3\n../b.mp3\n");
    app.Make("SUB\\*.m3u");
    EXPECT_EQ(app.folder.Read("sub/List.zfc"), BothSongs);
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
}

TEST(MakeCDInfo, MissingFolder_Fails76) {
    CDInfoStage app;
    EXPECT_EQ(RuntimeErrorOf([&] { app.Make("absent/*.m3u"); }), 76);
}

TEST(MakeCDInfo, TargetPath_IsMadeAndTakesTheFiles) {
    for (const std::string target : {"out", "OUT\\", "there/out", "there\\out"}) {
        CDInfoStage app;
        app.files.CreateFolder("there");
        app.folder.Write("List.m3u", "a.mp3\nb.mp3\n");
        app.Make("*.m3u", target);
        app.Make("*.m3u", target);
        EXPECT_FALSE(app.folder.Exists("List.zfc")) << target;
        const std::string path = app.files.ToNativePath(target) + "/List.zfc";
        EXPECT_EQ(ReadWholeFile(app.files.FollowLinks(path)), BothSongs) << target;
    }
}

TEST(MakeCDInfo, TargetThatCannotBeMade_LeavesTheFilesBesideThePlaylists) {
    for (const std::string target : {"absent/out", "a.mp3"}) {
        CDInfoStage app;
        app.folder.Write("List.m3u", "a.mp3\nb.mp3\n");
        app.Make("*.m3u", target);
        EXPECT_EQ(app.folder.Read("List.zfc"), BothSongs) << target;
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(MakeCDInfo, OldFile_KeepsWhatTheJobDoesNotWrite) {
    CDInfoStage app;
    app.folder.Write("list.ZFC",
                     "; mine\r\n[Options]\r\nGenre=Rock \r\nArtist=Old \r\nBitrateIndex=3 \r\n"
                     "[Names]\r\n01=Old \r\n09=Beyond \r\n[Selected]\r\n01=-1\r\n");
    app.folder.Write("List.m3u", "a.mp3\n");
    app.Make();
    EXPECT_EQ(app.folder.Read("list.ZFC"),
              "; mine\r\n[Options]\r\nGenre=Rock \r\nArtist=Long Artist\r\nBitrateIndex=3 \r\n"
              "Title=Long Album\r\nYear=\r\nTracks=1\r\nLength=10\r\nCompilation=0\r\n"
              "[Names]\r\n01=Long A / Live\r\n09=Beyond \r\n[Selected]\r\n01=-1\r\n[Times]\r\n01=10\r\n");
    EXPECT_FALSE(app.folder.Exists("List.zfc"));
}

TEST(MakeCDInfo, SecondRun_WritesNothing) {
    CDInfoStage app;
    app.InfoOf("a.mp3\nb.mp3\n");
    const std::string stamp = app.files.ContentStamp("List.zfc");
    app.Make();
    EXPECT_EQ(app.files.ContentStamp("List.zfc"), stamp);
}

TEST(MakeCDInfo, NameOfThePlaylist_BecomesTextAndItsExtensionGoesInAnyCase) {
    CDInfoStage app;
    app.folder.Write("Best.m3u of caf\xE9.M3U", "b.mp3\n");
    app.Make("*.m3u", "", true);
    EXPECT_NE(app.folder.Read("Best.zfc of caf\xE9.zfc").find("Artist=Best of caf\xC3\xA9\n"),
              std::string::npos);
}

TEST(MakeCDInfo, LineBreaksInATag_CannotBreakTheFile) {
    CDInfoStage app;
    app.folder.Write("c.mp3", Song(1, {.title = "x\n02=y", .artist = "z\r[Names]"}));
    EXPECT_EQ(app.InfoOf("c.mp3\n"),
              Info("01=x 02=y / \n", "01=1\n",
                   "Artist=z [Names]\nTitle=\nYear=\nTracks=1\nLength=1\nCompilation=0\n"));
}

TEST(MakeCDInfo, HundredTracks_HaveKeysOfThreeDigitsAtTheEnd) {
    CDInfoStage app;
    std::string lines;
    for (int i = 0; i < 100; ++i) lines += "b.mp3\n";
    const std::string info = app.InfoOf(lines);
    EXPECT_NE(info.find("\n99=B / Demo\n100=B / Demo\n[Times]\n"), std::string::npos);
    EXPECT_NE(info.find("Tracks=100\nLength=700\n"), std::string::npos);
}

TEST(MakeCDInfo, PlaylistThatCannotBeRead_IsToldAndTheOthersAreDone) {
    CDInfoStage app;
    std::filesystem::create_symlink("absent", "a.m3u");
    app.folder.Write("List.m3u", "a.mp3\nb.mp3\n");
    app.Make();
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #53")) << app.desktop.boxes[0].text;
    EXPECT_EQ(app.folder.Read("List.zfc"), BothSongs);
    EXPECT_FALSE(app.folder.Exists("a.zfc"));
}

TEST(MakeCDInfo, ReadOnlyTarget_IsToldAndTheOthersAreDone) {
    CDInfoStage app;
    app.folder.Write("One.m3u", "a.mp3\nb.mp3\n");
    app.folder.Write("Two.m3u", "a.mp3\nb.mp3\n");
    app.files.SetReadOnly(app.folder.Write("One.zfc", "kept"), true);
    app.Make();
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #70")) << app.desktop.boxes[0].text;
    EXPECT_EQ(app.folder.Read("One.zfc"), "kept");
    EXPECT_EQ(app.folder.Read("Two.zfc"), BothSongs);
}

TEST(MakeCDInfo, Preview_TellsEachFileAndEachEntryThatIsLeftOut) {
    CDInfoStage app;
    app.steps = &app.told;
    app.folder.Write("List.m3u", "#EXTM3U\na.mp3\nabsent.mp3\nC:\\x.mp3\nnotes.txt\nb.mp3\n");
    app.Make();
    EXPECT_EQ(app.told.str(),
              "refused: absent.mp3: not found\nrefused: C:\\x.mp3: not found\nwrite: List.zfc: 2 tracks\n");
    app.told.str("");
    app.Make("List.m3u", "out");
    EXPECT_EQ(app.told.str(),
              "folder: out\nrefused: absent.mp3: not found\n"
              "refused: C:\\x.mp3: not found\nwrite: out/List.zfc: 2 tracks\n");
}

TEST(MakeCDInfo, FaultAtAnyOperation_LeavesTheOldFileOrAWholeNewOne) {
    const std::string old = "[Options]\nGenre=Rock \n";
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1;; ++nth) {
            PosixFileSystem real;
            FaultInjectingFileSystem files(real);
            CDInfoStage app(&files);
            app.folder.Write("List.m3u", "a.mp3\nb.mp3\n");
            app.folder.Write("List.zfc", old);
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            app.Make();
            if (files.faults.operations < nth) break;
            const std::string found = app.folder.Read("List.zfc");
            EXPECT_TRUE(found == old || found.find("Compilation=0\n") != std::string::npos) << nth << found;
            EXPECT_TRUE(found != old || app.desktop.HasComplained()) << nth;
            EXPECT_TRUE(found.starts_with(old)) << nth;
        }
    }
}

TEST(MakeCDInfoJob, Options_NameMaskTargetAndCompilation) {
    CDInfoStage app;
    app.folder.Write("List.m3u", "b.mp3\n");
    ASSERT_TRUE(ParseCommandLine(app, CommandLine({"/zfc", "L*.m3u", "/to", "out", "/cmpl"})));
    MakeCDInfoJob(app);
    EXPECT_NE(app.folder.Read("out/List.zfc").find("Title=List\n"), std::string::npos);
}

}  // namespace zefta::test
