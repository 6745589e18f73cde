#include <filesystem>
#include <sstream>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/Version.h"
#include "library/CopyPlaylist.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

std::string BigFile() {
    std::string bytes(100000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 % 251);
    return bytes;
}

class CopyPlaylistTest : public ::testing::Test {
  protected:
    CopyPlaylistTest() {
        app.files.CreateFolder("music");
        app.files.CreateFolder("usb");
    }

    void WriteTracks(const std::vector<std::string>& names) {
        for (const std::string& name : names) app.folder.Write("music/" + name, "bytes of " + name);
    }

    std::string Copy(const std::string& lines, const std::string& target = "usb") {
        app.folder.Write("music/mix.m3u", lines);
        return CopyPlaylist(app, "music/mix.m3u", target);
    }

    std::string NewList() { return app.folder.Read("usb/mix/mix.m3u"); }
    std::string Copied(const std::string& name) { return app.folder.Read("usb/mix/" + name); }
    std::size_t EntryCount(const std::string& folder) { return app.files.List(folder).size(); }

    std::vector<std::string> Boxes() {
        std::vector<std::string> texts;
        for (const auto& box : app.desktop.boxes) texts.push_back(box.text);
        return texts;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
};

TEST(NumberedName, Number_HasAtLeastThreeDigits) {
    EXPECT_EQ(NumberedName(7, "Song.mp3"), "(007) Song.mp3");
    EXPECT_EQ(NumberedName(999, "Song.mp3"), "(999) Song.mp3");
    EXPECT_EQ(NumberedName(1000, "Song.mp3"), "(1000) Song.mp3");
    EXPECT_EQ(NumberedName(123456, ""), "(123456) ");
}

TEST(NumberedName, LongName_IsCutAndKeepsItsExtension) {
    EXPECT_EQ(NumberedName(1, std::string(245, 'x') + ".mp3"), "(001) " + std::string(245, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1, std::string(246, 'x') + ".mp3"), "(001) " + std::string(245, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1000, std::string(251, 'x') + ".mp3"), "(1000) " + std::string(244, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1, "." + std::string(254, 'x')), "(001) ." + std::string(248, 'x'));
}

TEST(NumberedName, LongName_IsCutBetweenCharacters) {
    std::string name;
    for (int i = 0; i < 125; ++i) name += "\xC3\xBC";
    EXPECT_EQ(NumberedName(1, name + ".mp3"), "(001) " + name.substr(0, 244) + ".mp3");
    std::string bytes(250, '\xBC');
    EXPECT_LE(NumberedName(1, bytes + ".mp3").size(), 255U);
}

TEST_F(CopyPlaylistTest, Copy_NumbersTheTracksInTheOrderOfTheList) {
    WriteTracks({"b.mp3", "a.mp3"});
    EXPECT_EQ(Copy("b.mp3\na.mp3\n"), "usb/mix/mix.m3u");
    EXPECT_EQ(NewList(), "(001) b.mp3\n(002) a.mp3\n");
    EXPECT_EQ(Copied("(001) b.mp3"), "bytes of b.mp3");
    EXPECT_EQ(Copied("(002) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(EntryCount("usb/mix"), 3U);
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, Copy_OfAnyLength_KeepsEveryByte) {
    app.folder.Write("music/a.mp3", BigFile());
    app.folder.Write("music/empty.mp3", "");
    Copy("a.mp3\nempty.mp3");
    EXPECT_TRUE(Copied("(001) a.mp3") == BigFile());
    EXPECT_TRUE(app.folder.Read("music/a.mp3") == BigFile());
    EXPECT_EQ(Copied("(002) empty.mp3"), "");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) empty.mp3\n");
}

TEST_F(CopyPlaylistTest, HeaderAndComments_Vanish) {
    WriteTracks({"a.mp3"});
    Copy("\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:215,AC/DC - Title\r\na.mp3\r\n\r\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(CopyPlaylistTest, MissingTrack_TakesNoNumberAndNoLine) {
    WriteTracks({"a.mp3", "c.mp3"});
    Copy("a.mp3\nb.mp3\nC:\\c.mp3\n\\\\server\\share\\c.mp3\nc.mp3\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) c.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(CopyPlaylistTest, ListWithoutTracks_GivesAnEmptyOne) {
    EXPECT_EQ(Copy(""), "usb/mix/mix.m3u");
    EXPECT_EQ(NewList(), "");
    EXPECT_TRUE(app.folder.Exists("usb/mix/mix.m3u"));
}

TEST_F(CopyPlaylistTest, OneFileTwice_IsCopiedTwice) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\na.mp3\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) a.mp3\n");
    EXPECT_EQ(Copied("(001) a.mp3"), Copied("(002) a.mp3"));
}

TEST_F(CopyPlaylistTest, Lines_MayBeFullPathsOrHaveFolders) {
    app.files.CreateFolder("music/sub");
    WriteTracks({"sub/a.mp3", "b.mp3"});
    app.folder.Write("c.mp3", "bytes of c");
    Copy("sub\\a.mp3\n" + app.folder.Path() + "/music/b.mp3\n../c.mp3\nsub\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) b.mp3\n(003) c.mp3\n");
    EXPECT_EQ(Copied("(003) c.mp3"), "bytes of c");
}

TEST_F(CopyPlaylistTest, NameThatIsNoUtf8_KeepsItsBytes) {
    WriteTracks({"M\xFCller.mp3"});
    Copy("M\xFCller.mp3\n");
    EXPECT_EQ(NewList(), "(001) M\xFCller.mp3\n");
    EXPECT_TRUE(app.folder.Exists("usb/mix/(001) M\xFCller.mp3"));
}

TEST_F(CopyPlaylistTest, LongName_IsCut) {
    const std::string name = std::string(251, 'x') + ".mp3";
    WriteTracks({name});
    Copy(name + "\n");
    EXPECT_EQ(NewList(), "(001) " + std::string(245, 'x') + ".mp3\n");
    EXPECT_TRUE(app.folder.Exists("usb/mix/(001) " + std::string(245, 'x') + ".mp3"));
}

TEST_F(CopyPlaylistTest, MoreThan999Tracks_GrowTheNumber) {
    WriteTracks({"a.mp3"});
    std::string lines;
    for (int i = 0; i < 1001; ++i) lines += "a.mp3\n";
    Copy(lines);
    EXPECT_TRUE(app.folder.Exists("usb/mix/(999) a.mp3"));
    EXPECT_TRUE(app.folder.Exists("usb/mix/(1001) a.mp3"));
    EXPECT_EQ(EntryCount("usb/mix"), 1002U);
}

TEST_F(CopyPlaylistTest, NoPlaylistByName_IsRefused) {
    app.folder.Write("music/a.pls", "");
    EXPECT_EQ(CopyPlaylist(app, "music/a.pls", "usb"), "");
    EXPECT_EQ(CopyPlaylist(app, "music/a.m3u8", "usb"), "");
    EXPECT_EQ(Boxes(), (Texts{"Error opening the file specified!", "Error opening the file specified!"}));
    EXPECT_EQ(EntryCount("usb"), 0U);
}

TEST_F(CopyPlaylistTest, MissingPlaylist_IsToldAndNothingIsDone) {
    EXPECT_EQ(CopyPlaylist(app, "music/gone.m3u", "new"), "");
    app.files.CreateFolder("music/folder.m3u");
    EXPECT_EQ(CopyPlaylist(app, "music\\folder.m3u", "new"), "");
    EXPECT_EQ(Boxes(), (Texts{"File \"music/gone.m3u\" not found.", "File \"music/folder.m3u\" not found."}));
    EXPECT_FALSE(app.files.FolderExists("new"));
}

TEST_F(CopyPlaylistTest, PlaylistThatCannotBeRead_IsToldAndNothingIsDone) {
    ASSERT_EQ(mkfifo((app.folder / "music/pipe.m3u").c_str(), 0600), 0);
    EXPECT_EQ(CopyPlaylist(app, "music/pipe.m3u", "new"), "");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text.find("Error #70"), 0U);
    EXPECT_FALSE(app.files.FolderExists("new"));
}

TEST_F(CopyPlaylistTest, Playlist_IsTakenInAnyCase) {
    WriteTracks({"a.mp3"});
    app.folder.Write("music/LOUD.M3U", "A.MP3\n");
    EXPECT_EQ(CopyPlaylist(app, "music/LOUD.M3U", "usb"), "usb/LOUD/LOUD.M3U");
    EXPECT_EQ(app.folder.Read("usb/LOUD/LOUD.M3U"), "(001) a.mp3\n");
    EXPECT_EQ(app.folder.Read("usb/LOUD/(001) a.mp3"), "bytes of a.mp3");
}

TEST_F(CopyPlaylistTest, Names_AreSpelledAsOnTheDiskAndLinksAsInTheirLine) {
    app.files.CreateFolder("music/Sub");
    WriteTracks({"Sub/Song.mp3", "store.mp3"});
    std::filesystem::create_symlink("store.mp3", app.folder / "music/link.mp3");
    Copy("SUB\\SONG.MP3\nlink.mp3\nLINK.mp3\n");
    EXPECT_EQ(NewList(), "(001) Song.mp3\n(002) link.mp3\n(003) LINK.mp3\n");
    EXPECT_EQ(Copied("(003) LINK.mp3"), "bytes of store.mp3");
}

TEST_F(CopyPlaylistTest, TargetFolder_IsMade) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\n", "new");
    EXPECT_EQ(app.folder.Read("new/mix/(001) a.mp3"), "bytes of a.mp3");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, TargetThatCannotBeMade_AsksForAFolder) {
    WriteTracks({"a.mp3"});
    app.desktop.folders = {"usb"};
    Copy("a.mp3\n", "no/such");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text,
              "Select destination folder to place specified playlist and all tracks:");
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "no/such");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
}

TEST_F(CopyPlaylistTest, NoFolderChosen_DoesNothing) {
    WriteTracks({"a.mp3"});
    EXPECT_EQ(Copy("a.mp3\n", ""), "");
    app.desktop.folders = {"nowhere"};
    EXPECT_EQ(Copy("a.mp3\n", ""), "");
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(EntryCount("usb"), 0U);
    EXPECT_EQ(app.desktop.progressViewsOpened, 0);
}

TEST_F(CopyPlaylistTest, NewFolderThatIsThere_AsksAndNoStops) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.desktop.answers = {false};
    EXPECT_EQ(Copy("a.mp3\n"), "");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text, "Folder \"usb/mix\" already exist. Continue?");
    EXPECT_EQ(app.desktop.questions[0].caption, ApplicationTitle());
    EXPECT_EQ(EntryCount("usb/mix"), 0U);
}

TEST_F(CopyPlaylistTest, NewFolderThatIsThere_WithYesOverwritesWhatHasTheName) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/(001) a.mp3", "an older and longer copy of the track");
    app.folder.Write("usb/mix/mix.m3u", "an older and longer list of the tracks");
    app.folder.Write("usb/mix/other.txt", "other");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
    EXPECT_EQ(Copied("other.txt"), "other");
    EXPECT_EQ(EntryCount("usb/mix"), 3U);
}

TEST_F(CopyPlaylistTest, NewFolderThatCannotBeMade_IsToldAndStops) {
    WriteTracks({"a.mp3"});
    app.folder.Write("usb/mix", "a file");
    EXPECT_EQ(Copy("a.mp3\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Unable to create folder: usb/mix"});
    EXPECT_EQ(app.folder.Read("usb/mix"), "a file");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, PlaylistNamedLikeTheParentFolder_IsNotCopiedIntoIt) {
    app.desktop.answers = {true, true};
    for (const char* name : {"music/.m3u", "music/..m3u", "music/...m3u"}) {
        app.folder.Write(name, "");
        EXPECT_EQ(CopyPlaylist(app, name, "usb"), "");
    }
    EXPECT_EQ(Boxes(), (Texts{"Unable to create folder: usb/", "Unable to create folder: usb/.",
                              "Unable to create folder: usb/.."}));
    EXPECT_EQ(EntryCount("usb"), 0U);
}

TEST_F(CopyPlaylistTest, PlaylistThatWouldBeItsOwnCopy_IsRefused) {
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/mix.m3u", "a.mp3\n");
    app.folder.Write("usb/mix/a.mp3", "bytes");
    app.desktop.answers = {true};
    EXPECT_EQ(CopyPlaylist(app, "usb/mix/mix.m3u", "usb"), "");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/mix.m3u\" could not be created."});
    EXPECT_EQ(NewList(), "a.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, TargetInTheFolderOfThePlaylist_Works) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\nmix.m3u\n", "music");
    EXPECT_EQ(app.folder.Read("music/mix/mix.m3u"), "(001) a.mp3\n(002) mix.m3u\n");
    EXPECT_EQ(app.folder.Read("music/mix/(002) mix.m3u"), "a.mp3\nmix.m3u\n");
    EXPECT_EQ(app.folder.Read("music/mix.m3u"), "a.mp3\nmix.m3u\n");
}

TEST_F(CopyPlaylistTest, TrackThatIsItsOwnDestination_IsToldAndStays) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_symlink(app.folder / "music/a.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/(001) a.mp3\" could not be created."});
    EXPECT_EQ(app.folder.Read("music/a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
}

TEST_F(CopyPlaylistTest, HardLinkToTheTrack_LosesNothing) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_hard_link(app.folder / "music/a.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(app.folder.Read("music/a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, TrackThatCannotBeOpened_IsToldKeepsItsLineAndTheOthersGoOn) {
    class Locking : public PosixFileSystem {
      public:
        std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
            return path.ends_with("locked.mp3") ? nullptr : PosixFileSystem::OpenReadOnly(path);
        }
    } files;
    TestApp locked(&files);
    for (const char* folder : {"music", "usb"}) files.CreateFolder(folder);
    locked.folder.Write("music/locked.mp3", "bytes");
    locked.folder.Write("music/b.mp3", "bytes of b");
    locked.folder.Write("music/mix.m3u", "locked.mp3\nb.mp3\n");
    CopyPlaylist(locked, "music/mix.m3u", "usb");
    ASSERT_EQ(locked.desktop.boxes.size(), 1U);
    EXPECT_EQ(locked.desktop.boxes[0].text,
              "File \"" + files.CurrentFolder() + "/music/locked.mp3\" could not be opened.");
    EXPECT_EQ(locked.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(locked.folder.Read("usb/mix/mix.m3u"), "(001) locked.mp3\n(002) b.mp3\n");
    EXPECT_EQ(locked.folder.Read("usb/mix/(002) b.mp3"), "bytes of b");
    EXPECT_EQ(files.List("usb/mix").size(), 2U);
}

TEST_F(CopyPlaylistTest, PipesAndDevices_AreNoFiles) {
    WriteTracks({"b.mp3"});
    ASSERT_EQ(mkfifo((app.folder / "music/pipe.mp3").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", app.folder / "music/zero.mp3");
    Copy("pipe.mp3\n/dev/zero\n/dev/null\nzero.mp3\nPIPE.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(NewList(), "(001) b.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, FileOfTheNameOfACopy_IsNotWrittenOverWhileItIsATrackItself) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/(001) a.mp3", "another song");
    app.desktop.answers = {true};
    Copy("a.mp3\n..\\usb\\mix\\(001) A.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/(001) a.mp3\" could not be created."});
    EXPECT_EQ(Copied("(001) a.mp3"), "another song");
    EXPECT_EQ(Copied("(002) (001) a.mp3"), "another song");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) (001) a.mp3\n");
}

TEST_F(CopyPlaylistTest, TrackThatLeadsToALaterOnesSource_IsNotWrittenThere) {
    WriteTracks({"a.mp3", "b.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_symlink(app.folder / "music/b.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/(001) a.mp3\" could not be created."});
    EXPECT_EQ(app.folder.Read("music/b.mp3"), "bytes of b.mp3");
    EXPECT_EQ(Copied("(002) b.mp3"), "bytes of b.mp3");
}

TEST_F(CopyPlaylistTest, CopyThatWouldTakeThePlaceOfThePlaylist_IsRefused) {
    app.files.CreateFolder("usb/(001) list");
    app.folder.Write("music/list.m3u", "a list as a track");
    app.folder.Write("music/(001) list.m3u", "list.m3u\n");
    app.desktop.answers = {true};
    EXPECT_EQ(CopyPlaylist(app, "music/(001) list.m3u", "usb"), "usb/(001) list/(001) list.m3u");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/(001) list/(001) list.m3u\" could not be created."});
    EXPECT_EQ(app.folder.Read("usb/(001) list/(001) list.m3u"), "(001) list.m3u\n");
    EXPECT_EQ(EntryCount("usb/(001) list"), 1U);
}

TEST_F(CopyPlaylistTest, NewPlaylistThatIsATrackItself_IsRefused) {
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/mix.m3u", "the list of the last time");
    app.desktop.answers = {true};
    EXPECT_EQ(Copy("../usb/mix/mix.m3u\n"), "");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/mix.m3u\" could not be created."});
    EXPECT_EQ(NewList(), "the list of the last time");
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistTest, FileWithTheNameOfTheNewFolder_MayBeATrack) {
    app.folder.Write("usb/mix", "bytes");
    EXPECT_EQ(Copy("../usb/mix\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Unable to create folder: usb/mix"});
    EXPECT_EQ(app.folder.Read("usb/mix"), "bytes");
    app.folder.Write("music/mix", "a file called like the folder");
    Copy("mix\n", "other");
    EXPECT_EQ(app.folder.Read("other/mix/(001) mix"), "a file called like the folder");
}

TEST_F(CopyPlaylistTest, LoneCarriageReturns_EndNoLinesWhichIsTold) {
    WriteTracks({"a.mp3", "b.mp3"});
    Copy("#EXTM3U\ra.mp3\rb.mp3\r");
    EXPECT_EQ(app.desktop.notes, Texts{"mix.m3u: no line names a file; nothing is copied."});
    EXPECT_EQ(NewList(), "");
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistTest, TargetThatIsAFolderOrReadOnly_IsToldAndStays) {
    WriteTracks({"a.mp3", "b.mp3"});
    app.files.CreateFolder("usb/mix");
    app.files.CreateFolder("usb/mix/(001) a.mp3");
    app.folder.Write("usb/mix/(002) b.mp3", "kept");
    app.files.SetReadOnly("usb/mix/(002) b.mp3", true);
    app.desktop.answers = {true};
    Copy("a.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), (Texts{"File \"usb/mix/(001) a.mp3\" could not be created.",
                              "File \"usb/mix/(002) b.mp3\" could not be created."}));
    EXPECT_EQ(Copied("(002) b.mp3"), "kept");
}

TEST_F(CopyPlaylistTest, NewPlaylistThatCannotBeCreated_StopsBeforeAnythingIsCopied) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.files.CreateFolder("usb/mix/mix.m3u");
    app.desktop.answers = {true};
    EXPECT_EQ(Copy("a.mp3\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Error #75\r\n\r\nPath/File access error: usb/mix/mix.m3u"});
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistTest, FileBeyondWhatCanBeCopied_IsToldAndTheOthersGoOn) {
    WriteTracks({"huge.mp3", "b.mp3"});
    std::filesystem::resize_file(app.folder / "music/huge.mp3", 32768LL * 44100);
    Copy("huge.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"Error #6\r\n\r\nOverflow: usb/mix/(001) huge.mp3"});
    EXPECT_EQ(NewList(), "(001) huge.mp3\n(002) b.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, FailureOfAnyOperation_LeavesWholeCopiesOrNone) {
    for (int nth = 1; nth <= 40; ++nth) {
        for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
            TestWorld world;
            FaultInjectingFileSystem files(world.files);
            TestApp fresh(&files);
            for (const char* folder : {"music", "usb", "usb/mix"}) world.files.CreateFolder(folder);
            const std::string text = "a.mp3\nb.mp3\n";
            fresh.folder.Write("music/a.mp3", BigFile());
            fresh.folder.Write("music/b.mp3", BigFile());
            fresh.folder.Write("music/mix.m3u", text);
            fresh.folder.Write("usb/mix/(002) b.mp3", "old");
            fresh.folder.Write("usb/mix/mix.m3u", "old");
            fresh.desktop.answers = {true};
            fresh.desktop.folders = {};
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            const std::string made = CopyPlaylist(fresh, "music/mix.m3u", "usb");
            EXPECT_TRUE(fresh.folder.Read("music/a.mp3") == BigFile());
            EXPECT_EQ(fresh.folder.Read("music/mix.m3u"), text);
            const bool hasFirst = fresh.folder.Exists("usb/mix/(001) a.mp3");
            EXPECT_TRUE(!hasFirst || fresh.folder.Read("usb/mix/(001) a.mp3") == BigFile()) << nth;
            const std::string second = fresh.folder.Read("usb/mix/(002) b.mp3");
            EXPECT_TRUE(second == "old" || second == BigFile()) << nth;
            const std::string list = fresh.folder.Read("usb/mix/mix.m3u");
            EXPECT_EQ(list, made.empty() ? "old" : "(001) a.mp3\n(002) b.mp3\n") << nth;
            const bool isAllDone = hasFirst && second != "old" && !made.empty();
            EXPECT_TRUE(isAllDone || fresh.desktop.HasComplained()) << nth;
        }
    }
}

TEST_F(CopyPlaylistTest, Progress_TellsTheFileAndTheWhole) {
    app.folder.Write("music/a.mp3", std::string(44100, 'a'));
    app.folder.Write("music/b.mp3", std::string(900, 'b'));
    Copy("a.mp3\nb.mp3\n");
    EXPECT_EQ(app.desktop.progressViewsOpened, 1);
    const auto& reports = app.desktop.reports;
    ASSERT_FALSE(reports.empty());
    const ProgressReport& first = reports.front();
    EXPECT_EQ(first.status, "copying playlist mix.m3u");
    EXPECT_EQ(first.labels.at("lblPlaylist"), "mix.m3u");
    EXPECT_EQ(first.labels.at("fraTotal"), "Total:");
    EXPECT_EQ(first.labels.at("fraCurrent"), "Current:");
    const ProgressReport& last = reports.back();
    EXPECT_EQ(last.fileName, app.files.CurrentFolder() + "/music/b.mp3");
    EXPECT_EQ(last.labels.at("lblFile"), last.fileName);
    EXPECT_EQ(last.maximum, 45000);
    EXPECT_EQ(last.value, 45000);
    EXPECT_EQ(last.current.maximum, 900);
    EXPECT_EQ(last.current.value, 900);
    EXPECT_EQ(last.labels.at("lblCurrent"), "900 bytes");
    EXPECT_EQ(last.labels.at("lblCurrentDone"), "900 bytes");
    EXPECT_EQ(last.labels.at("lblWritten"), "45 000 bytes");
    EXPECT_EQ(last.labels.at("lblRemaining"), "0 bytes");
    EXPECT_GT(app.desktop.servedEvents, 5);
}

TEST_F(CopyPlaylistTest, Preview_TellsWhatWouldBeCopied) {
    WriteTracks({"a.mp3"});
    std::ostringstream steps;
    app.steps = &steps;
    Copy("#EXTM3U\ngone.mp3\na.mp3\n", "new");
    const std::string here = app.files.CurrentFolder();
    EXPECT_EQ(steps.str(), "folder: new\nfolder: new/mix\nrefused: gone.mp3: no such file\ncopy: " + here +
                               "/music/a.mp3 -> new/mix/(001) a.mp3\nwrite: new/mix/mix.m3u: 1 entries\n");
    EXPECT_FALSE(app.folder.Exists("new/mix/(001) a.mp3"));
}

TEST_F(CopyPlaylistTest, Preview_TellsWhatWouldBeRefusedAndCountsItsLine) {
    WriteTracks({"a.mp3", "b.mp3", "huge.mp3"});
    std::filesystem::resize_file(app.folder / "music/huge.mp3", 32768LL * 44100);
    app.files.CreateFolder("usb/mix");
    app.files.CreateFolder("usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    std::ostringstream steps;
    app.steps = &steps;
    Copy("a.mp3\nb.mp3\nhuge.mp3\n");
    const std::string music = app.files.CurrentFolder() + "/music/";
    EXPECT_EQ(steps.str(), "refused: " + music + "a.mp3: usb/mix/(001) a.mp3 can't be created\ncopy: " +
                               music + "b.mp3 -> usb/mix/(002) b.mp3\nrefused: " + music +
                               "huge.mp3: Overflow\nwrite: usb/mix/mix.m3u: 3 entries\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, Preview_TellsAListThatNamesNoFile) {
    std::ostringstream steps;
    app.steps = &steps;
    Copy("#EXTM3U\ra.mp3\r");
    EXPECT_NE(steps.str().find("refused: mix.m3u: no line names a file\n"), std::string::npos);
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(CopyPlaylistTest, Job_TakesItsFieldsFromTheRecord) {
    WriteTracks({"a.mp3"});
    app.folder.Write("music/mix.m3u", "a.mp3\n");
    app.state.FileSpec = "music\\mix.m3u";
    app.state.TargetPath = "usb";
    CopyPlaylistJob(app);
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
}

}  // namespace
}  // namespace zefta::test
