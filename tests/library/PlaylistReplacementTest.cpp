#include <sstream>
#include <sys/stat.h>

#include "library/RenamePlaylistsStage.h"
#include "support/CountingFileSystem.h"
#include "support/FaultInjectingFileSystem.h"

namespace zefta::test {
namespace {

class PlaylistReplacementTest : public RenamePlaylistsStage {};

// Which lists.

TEST_F(PlaylistReplacementTest, OnlyPlaylistsThatFileSpecMatches) {
    Remember("one.mp3", "New.MP3");
    for (const char* name : {"a.m3u", "b.m3u", "a.txt", "a.m3u8"}) app.folder.Write(name, "one.mp3\n");
    app.state.FileSpec = "A.*";
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("a.m3u"), "New.MP3\n");
    for (const char* name : {"b.m3u", "a.txt", "a.m3u8"})
        EXPECT_EQ(app.folder.Read(name), "one.mp3\n") << name;
}

TEST_F(PlaylistReplacementTest, FolderWithoutPlaylists_HasItsFilesRenamed) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    app.state.FileSpec = "o*.mp3";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "two.mp3"}));
    EXPECT_EQ(run.map->Find(Root() + "/one.mp3")->newName, "A - One.MP3");
}

TEST_F(PlaylistReplacementTest, EmptyPlaylist_CountsAsOne) {
    MakeSong("one.mp3", "One");
    app.folder.Write("list.m3u", "");
    app.state.FileSpec = "*";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(Names(), (Texts{"list.m3u", "one.mp3"}));
}

TEST_F(PlaylistReplacementTest, FolderInFileSpec_ReplacesTheFolder) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "sub\\x.m3u";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("x.m3u"), "one.mp3\n");
    EXPECT_EQ(app.state.FileSpec, "x.m3u");
}

TEST_F(PlaylistReplacementTest, FolderThatDoesNotExist_TheCurrentOneIsTaken) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "none/x.m3u";
    RenamePlaylists(run, Root() + "/neither", false);
    EXPECT_EQ(app.folder.Read("x.m3u"), "New.MP3\n");
}

TEST_F(PlaylistReplacementTest, UnknownWordWithASlash_IsNoFolder) {
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "/unknown";
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.state.FileSpec, "/unknown");
    EXPECT_EQ(app.folder.Read("x.m3u"), "one.mp3\n");
}

TEST_F(PlaylistReplacementTest, NameOfAListThatHoldsABackslash_IsNoFolder) {
    MakeSong("one.mp3", "One");
    app.folder.Write("sub\\x.m3u", "one.mp3\n");
    std::filesystem::create_directory(app.folder / "sub");
    files().SetCurrentFolder("/");
    app.state.FileSpec = "sub\\x.m3u";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub\\x.m3u"), "A - One.MP3\n");
}

TEST_F(PlaylistReplacementTest, Subfolders_WithTheFlag) {
    MakeSong("sub/one.mp3", "One");
    MakeSong("sub/deep/two.mp3", "Two");
    Make("sub/x.m3u", "one.mp3\n");
    Make("sub/deep/x.m3u", "two.mp3\n");
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "one.mp3\n");
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("sub/deep/x.m3u"), "A - Two.MP3\n");
}

TEST_F(PlaylistReplacementTest, FoldersOfArtists_ClearTheFlag) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    app.state.ProcessSubfolders = true;
    app.state.RenameFormat = FormatWithFolder;
    RenamePlaylists(run, Root(), true);
    EXPECT_FALSE(app.state.ProcessSubfolders);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "one.mp3\n");
}

TEST_F(PlaylistReplacementTest, LinksThatLeadBack_End) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    std::filesystem::create_directory_symlink("..", app.folder / "sub/up");
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "A - One.MP3\n");
}

TEST_F(PlaylistReplacementTest, PipesFoldersAndDeadLinks_AreNoPlaylists) {
    Remember("one.mp3", "New.MP3");
    ASSERT_EQ(mkfifo((app.folder / "pipe.m3u").c_str(), 0600), 0);
    std::filesystem::create_directory(app.folder / "folder.m3u");
    std::filesystem::create_symlink("nowhere", app.folder / "dead.m3u");
    EXPECT_EQ(Learned("one.mp3\n"), "New.MP3\n");
}

// Putting the new list in place.

TEST_F(PlaylistReplacementTest, ReadOnlyList_IsReplacedAndStaysReadOnly) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("list.m3u", "one.mp3\n");
    MakeReadOnly("list.m3u");
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("list.m3u"), "New.MP3\n");
    EXPECT_TRUE(files().IsReadOnly(app.folder / "list.m3u"));
}

TEST_F(PlaylistReplacementTest, ListThatIsALink_KeepsTheLink) {
    TempFolder elsewhere;
    elsewhere.Write("real.m3u", "one.mp3\n");
    std::filesystem::create_symlink(elsewhere / "real.m3u", app.folder / "list.m3u");
    Remember("one.mp3", "New.MP3");
    RenamePlaylists(run, Root(), false);
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "list.m3u"));
    EXPECT_EQ(elsewhere.Read("real.m3u"), "New.MP3\n");
}

TEST_F(PlaylistReplacementTest, FileThatHasTheNameOfTheNewList_Stays) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("list.m3u.tmp", "mine");
    EXPECT_EQ(Learned("one.mp3\n"), "New.MP3\n");
    EXPECT_EQ(app.folder.Read("list.m3u.tmp"), "mine");
    EXPECT_EQ(Names(), (Texts{"list.m3u", "list.m3u.tmp"}));
}

TEST_F(PlaylistReplacementTest, EveryFailureOfTheDisk_LeavesTheOldOrTheNewList) {
    const std::string before = "#EXTM3U\none.mp3\n";
    for (int nth = 1; nth < 50; ++nth) {
        FaultInjectingFileSystem faulty(app.files);
        TestApp other(&faulty);
        Prepare(other);
        other.state.FileSpec = AllPlaylists;
        RenameRun run2(other, Root());
        NewRenameMap(run2);
        run2.map->Add(Root() + "/one.mp3", "New.MP3");
        // What a run without any disk could not even take away.
        for (const std::string& name : Names()) std::filesystem::remove(app.folder / name);
        app.folder.Write("list.m3u", before);
        faulty.faults.plan = {FaultPlan::Mode::FromTheNthOn, nth, ErrorNumber::DiskFull};
        const int error = RuntimeErrorOf([&] { RenamePlaylists(run2, Root(), false); });
        EXPECT_EQ(app.folder.Read("list.m3u"), error == 0 ? "#EXTM3U\nNew.MP3\n" : before) << nth;
        if (error == 0) {
            EXPECT_GT(nth, 3);
            return;
        }
    }
    FAIL() << "never ends well";
}

TEST_F(PlaylistReplacementTest, FailureInTheMiddle_TheListLearnsTheNamesThatWereGiven) {
    MakeSong("one.mp3", "One");
    Make("bad.mp3", SongThatFails());
    MakeSong("two.mp3", "Two");
    app.folder.Write("list.m3u", "#EXTM3U\r\none.mp3\r\ngone.mp3\nbad.mp3\ntwo.mp3\n#end");
    EXPECT_EQ(RuntimeErrorOf([&] { RenamePlaylists(run, Root(), true); }), 13);
    EXPECT_EQ(app.folder.Read("list.m3u"), "#EXTM3U\r\nA - One.MP3\r\ngone.mp3\nbad.mp3\ntwo.mp3\n#end");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "bad.mp3", "list.m3u", "two.mp3"}));
}

TEST_F(PlaylistReplacementTest, FailureBeforeAnyRename_LeavesTheListAlone) {
    Make("bad.mp3", SongThatFails());
    app.folder.Write("list.m3u", "#EXTM3U\nbad.mp3\n");
    const std::string before = files().ContentStamp(app.folder / "list.m3u");
    EXPECT_EQ(RuntimeErrorOf([&] { RenamePlaylists(run, Root(), true); }), 13);
    EXPECT_EQ(files().ContentStamp(app.folder / "list.m3u"), before);
}

// Steps of a preview.

TEST_F(PlaylistReplacementTest, Preview_CountsTheLinesOfEachList) {
    std::ostringstream steps;
    app.steps = &steps;
    Remember("one.mp3", "New.MP3");
    Make("sub/x.m3u", "#EXTM3U\n");
    Make("list.m3u", "one.mp3\none.mp3\n");
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(steps.str(), "playlist: list.m3u: 2 lines changed\nin: sub\nunchanged: x.m3u\n");
}

TEST_F(PlaylistReplacementTest, Preview_TellsLinesThatNameNoFile) {
    std::ostringstream steps;
    Make("list.m3u", "#EXTM3U\ngone.mp3\nsub/gone.mp3\n");
    app.steps = &steps;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(steps.str(),
              "in: sub\nrefused: gone.mp3: can't be read\nin: .\n"
              "refused: gone.mp3: no such file\nplaylist: list.m3u: 2 lines changed\n");
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(PlaylistReplacementTest, Preview_DroppedLinesCount) {
    std::ostringstream steps;
    Make("list.m3u", "#EXTM3U\n/absolute.mp3\n");
    app.steps = &steps;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(steps.str(), "playlist: list.m3u: 1 line changed\n");
}

}  // namespace
}  // namespace zefta::test
