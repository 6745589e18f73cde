#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "library/CopyPlaylistStage.h"
#include "support/FaultInjectingFileSystem.h"

namespace zefta::test {
namespace {

class CopyPlaylistRefusalsTest : public CopyPlaylistStage {};

TEST_F(CopyPlaylistRefusalsTest, TrackThatIsItsOwnDestination_IsToldAndStays) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_symlink(app.folder / "music/a.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/(001) a.mp3\" could not be created."});
    EXPECT_EQ(app.folder.Read("music/a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
}

TEST_F(CopyPlaylistRefusalsTest, HardLinkToTheTrack_LosesNothing) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_hard_link(app.folder / "music/a.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(app.folder.Read("music/a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistRefusalsTest, TrackThatCannotBeOpened_IsToldKeepsItsLineAndTheOthersGoOn) {
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

TEST_F(CopyPlaylistRefusalsTest, PipesAndDevices_AreNoFiles) {
    WriteTracks({"b.mp3"});
    ASSERT_EQ(mkfifo((app.folder / "music/pipe.mp3").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", app.folder / "music/zero.mp3");
    Copy("pipe.mp3\n/dev/zero\n/dev/null\nzero.mp3\nPIPE.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(NewList(), "(001) b.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistRefusalsTest, FileOfTheNameOfACopy_IsNotWrittenOverWhileItIsATrackItself) {
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

TEST_F(CopyPlaylistRefusalsTest, TrackThatLeadsToALaterOnesSource_IsNotWrittenThere) {
    WriteTracks({"a.mp3", "b.mp3"});
    app.files.CreateFolder("usb/mix");
    std::filesystem::create_symlink(app.folder / "music/b.mp3", app.folder / "usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    Copy("a.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/(001) a.mp3\" could not be created."});
    EXPECT_EQ(app.folder.Read("music/b.mp3"), "bytes of b.mp3");
    EXPECT_EQ(Copied("(002) b.mp3"), "bytes of b.mp3");
}

TEST_F(CopyPlaylistRefusalsTest, CopyThatWouldTakeThePlaceOfThePlaylist_IsRefused) {
    app.files.CreateFolder("usb/(001) list");
    app.folder.Write("music/list.m3u", "a list as a track");
    app.folder.Write("music/(001) list.m3u", "list.m3u\n");
    app.desktop.answers = {true};
    EXPECT_EQ(CopyPlaylist(app, "music/(001) list.m3u", "usb"), "usb/(001) list/(001) list.m3u");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/(001) list/(001) list.m3u\" could not be created."});
    EXPECT_EQ(app.folder.Read("usb/(001) list/(001) list.m3u"), "(001) list.m3u\n");
    EXPECT_EQ(EntryCount("usb/(001) list"), 1U);
}

TEST_F(CopyPlaylistRefusalsTest, NewPlaylistThatIsATrackItself_IsRefused) {
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/mix.m3u", "the list of the last time");
    app.desktop.answers = {true};
    EXPECT_EQ(Copy("../usb/mix/mix.m3u\n"), "");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/mix.m3u\" could not be created."});
    EXPECT_EQ(NewList(), "the list of the last time");
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistRefusalsTest, FileWithTheNameOfTheNewFolder_MayBeATrack) {
    app.folder.Write("usb/mix", "bytes");
    EXPECT_EQ(Copy("../usb/mix\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Unable to create folder: usb/mix"});
    EXPECT_EQ(app.folder.Read("usb/mix"), "bytes");
    app.folder.Write("music/mix", "a file called like the folder");
    Copy("mix\n", "other");
    EXPECT_EQ(app.folder.Read("other/mix/(001) mix"), "a file called like the folder");
}

TEST_F(CopyPlaylistRefusalsTest, LoneCarriageReturns_EndNoLinesWhichIsTold) {
    WriteTracks({"a.mp3", "b.mp3"});
    Copy("#EXTM3U\ra.mp3\rb.mp3\r");
    EXPECT_EQ(app.desktop.notes, Texts{"mix.m3u: no line names a file; nothing is copied."});
    EXPECT_EQ(NewList(), "");
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistRefusalsTest, TargetThatIsAFolderOrReadOnly_IsToldAndStays) {
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

TEST_F(CopyPlaylistRefusalsTest, NewPlaylistThatCannotBeCreated_StopsBeforeAnythingIsCopied) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.files.CreateFolder("usb/mix/mix.m3u");
    app.desktop.answers = {true};
    EXPECT_EQ(Copy("a.mp3\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Error #75\r\n\r\nPath/File access error: usb/mix/mix.m3u"});
    EXPECT_EQ(EntryCount("usb/mix"), 1U);
}

TEST_F(CopyPlaylistRefusalsTest, FileBeyondWhatCanBeCopied_IsToldAndTheOthersGoOn) {
    WriteTracks({"huge.mp3", "b.mp3"});
    std::filesystem::resize_file(app.folder / "music/huge.mp3", 32768LL * 44100);
    Copy("huge.mp3\nb.mp3\n");
    EXPECT_EQ(Boxes(), Texts{"Error #6\r\n\r\nOverflow: usb/mix/(001) huge.mp3"});
    EXPECT_EQ(NewList(), "(001) huge.mp3\n(002) b.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistRefusalsTest, FailureOfAnyOperation_LeavesWholeCopiesOrNone) {
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

}  // namespace
}  // namespace zefta::test
