#include <sstream>
#include <sys/stat.h>

#include "library/RenamePlaylists.h"
#include "library/RenameStage.h"
#include "support/CountingFileSystem.h"
#include "support/FaultInjectingFileSystem.h"

namespace zefta::test {
namespace {

class RenamePlaylistsTest : public RenameStage {
  protected:
    RenamePlaylistsTest() { app.state.FileSpec = AllPlaylists; }

    /// The bytes that the list has after the files of all lists were renamed.
    std::string Renamed(const std::string& list) { return After(list, true); }

    /// The bytes that the list has after the lists learned what the map holds.
    std::string Learned(const std::string& list) { return After(list, false); }

    std::string After(const std::string& list, bool renameFiles) {
        app.folder.Write("list.m3u", list);
        // It is another list of that name.
        run.finishedLines.clear();
        RenamePlaylists(run, Root(), renameFiles);
        return app.folder.Read("list.m3u");
    }

    void Remember(const std::string& oldName, const std::string& newName) {
        if (!run.map) NewRenameMap(run);
        run.map->Add(Root() + "/" + oldName, newName);
    }

    void MakeReadOnly(const std::string& name) { files().SetReadOnly(app.folder / name, true); }

    FileSystem& files() { return app.files; }
};

// Renaming the files of lists.

TEST_F(RenamePlaylistsTest, BareNames_AreRenamedAndWritten) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    EXPECT_EQ(Renamed("one.mp3\ntwo.mp3\n"), "A - One.MP3\nA - Two.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, CommentsAndNamesOfNothing_AreDropped) {
    MakeSong("one.mp3", "One");
    EXPECT_EQ(Renamed("#EXTM3U\n#EXTINF:215,One\none.mp3\n\ngone.mp3\n"), "A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, CommentThatHoldsASlash_IsDroppedAsWell) {
    MakeSong("one.mp3", "One");
    EXPECT_EQ(Renamed("#EXTINF:215,AC/DC - One\none.mp3\n"), "A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, NameThatBeginsLikeAComment_IsRenamed) {
    MakeSong("#1.mp3", "One");
    MakeSong("#2/2.mp3", "Two");
    EXPECT_EQ(Renamed("#1.mp3\n#2/2.mp3\n"), "A - One.MP3\n#2/A - Two.MP3\n");
}

TEST_F(RenamePlaylistsTest, FolderOfThatName_NamesNoFile) {
    std::filesystem::create_directory(app.folder / "dir.mp3");
    EXPECT_EQ(Renamed("dir.mp3\n"), "");
}

TEST_F(RenamePlaylistsTest, RefusedFile_KeepsItsLineAndIsRemembered) {
    Make("untagged.mp3", Mp3().Bytes());
    Make("text.txt", "x");
    EXPECT_EQ(Renamed("untagged.mp3\ntext.txt\n"), "untagged.mp3\ntext.txt\n");
    ASSERT_NE(run.map->Find(Root() + "/untagged.mp3"), nullptr);
    EXPECT_EQ(run.map->Find(Root() + "/untagged.mp3")->newName, "untagged.mp3");
}

TEST_F(RenamePlaylistsTest, TwoListsNameOneFile_TheSecondOnlyLearnsTheName) {
    MakeSong("one.mp3", "One");
    app.folder.Write("other.m3u", "one.mp3\n");
    EXPECT_EQ(Renamed("one.mp3\n"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("other.m3u"), "A - One.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u", "other.m3u"}));
}

TEST_F(RenamePlaylistsTest, ListNamesAFileTwice_TheSecondLineComesFromTheMap) {
    MakeSong("one.mp3", "One");
    EXPECT_EQ(Renamed("one.mp3\nONE.MP3\none.mp3\n"), "A - One.MP3\nA - One.MP3\nA - One.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, NameInAnotherCase_IsFound) {
    MakeSong("One.mp3", "Uno");
    EXPECT_EQ(Renamed("ONE.MP3\n"), "A - Uno.MP3\n");
}

TEST_F(RenamePlaylistsTest, Subfolder_IsKeptBeforeTheNewName) {
    MakeSong("cd1/one.mp3", "One");
    MakeSong("cd1/deep/two.mp3", "Two");
    EXPECT_EQ(Renamed("cd1\\one.mp3\ncd1\\deep\\two.mp3\n"), "cd1\\A - One.MP3\ncd1\\deep\\A - Two.MP3\n");
    EXPECT_EQ(Names(), (Texts{"cd1/A - One.MP3", "cd1/deep/A - Two.MP3", "list.m3u"}));
    EXPECT_EQ(run.map->Find(Root() + "/cd1/one.mp3")->newName, "cd1/A - One.MP3");
}

TEST_F(RenamePlaylistsTest, Separators_AreThoseOfTheLine) {
    MakeSong("cd1/deep/one.mp3", "One");
    const std::string expected = "cd1/deep/A - One.MP3\ncd1\\deep\\A - One.MP3\ncd1\\deep/A - One.MP3\n";
    EXPECT_EQ(Renamed("cd1/deep/one.mp3\ncd1\\deep\\one.mp3\ncd1\\deep/one.mp3\n"), expected);
    EXPECT_EQ(Names(), (Texts{"cd1/deep/A - One.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, FolderOfTheArtist_TakesTheSeparatorsOfTheLine) {
    app.state.RenameFormat = FormatWithFolder;
    MakeSong("one.mp3", "One");
    MakeSong("cd1/two.mp3", "Two");
    MakeSong("cd1/three.mp3", "Three");
    EXPECT_EQ(Renamed("one.mp3\ncd1\\two.mp3\ncd1/three.mp3\n"),
              "A/One.MP3\ncd1\\A\\Two.MP3\ncd1/A/Three.MP3\n");
}

TEST_F(RenamePlaylistsTest, BackslashThatIsPartOfAName_IsNoSeparator) {
    MakeSong("cd1\\one.mp3", "One");
    MakeSong("cd1/one.mp3", "Other");
    EXPECT_EQ(Renamed("cd1\\one.mp3\ncd1/one.mp3\ncd1\\one.mp3\n"),
              "A - One.MP3\ncd1/A - Other.MP3\nA - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, LineWithSubfolderThatNamesNothing_Stays) {
    EXPECT_EQ(Renamed("cd1\\gone.mp3\ncd1/gone.mp3\nsub\\\n\\\\server\\share\\a.mp3\n"),
              "cd1\\gone.mp3\ncd1/gone.mp3\nsub\\\n\\\\server\\share\\a.mp3\n");
    EXPECT_EQ(run.map->Find(Root() + "/cd1/gone.mp3")->newName, "cd1/gone.mp3");
}

TEST_F(RenamePlaylistsTest, AbsoluteEntries_Stay) {
    MakeSong("one.mp3", "One");
    const std::string list = "C:\\Music\\one.mp3\n" + Root() + "/one.mp3\n?:\\x.mp3\n";
    EXPECT_EQ(Renamed(list), list);
    EXPECT_TRUE(app.folder.Exists("one.mp3"));
}

TEST_F(RenamePlaylistsTest, AbsoluteEntry_StaysAlsoWhenItsFileWasRenamed) {
    MakeSong("one.mp3", "One");
    const std::string absolute = Root() + "/one.mp3\n";
    EXPECT_EQ(Renamed("one.mp3\n" + absolute), "A - One.MP3\n" + absolute);
    EXPECT_EQ(Learned("one.mp3\n" + absolute), "A - One.MP3\n" + absolute);
}

TEST_F(RenamePlaylistsTest, StaleTemporaryList_IsTreatedLikeAnyOther) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    app.folder.Write("temp.m3u", "#EXTM3U\ntwo.mp3\n");
    EXPECT_EQ(Renamed("one.mp3\n"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("temp.m3u"), "A - Two.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3", "list.m3u", "temp.m3u"}));
}

TEST_F(RenamePlaylistsTest, EventsAreServedForEachLine) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    Renamed("#EXTM3U\none.mp3\none.mp3\n/absolute.mp3\ngone.mp3\ntwo.mp3\n");
    EXPECT_EQ(app.desktop.servedEvents, 6);
}

TEST_F(RenamePlaylistsTest, TwinsInAnotherCase_AreTwoFiles) {
    MakeSong("x.mp3", "Small");
    MakeSong("X.mp3", "Large");
    EXPECT_EQ(Renamed("x.mp3\nX.mp3\nx.MP3\n"), "A - Small.MP3\nA - Large.MP3\nA - Small.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - Large.MP3", "A - Small.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, TwinOfAFileThatIsRefused_IsRenamed) {
    Make("x.mp3", Mp3().Bytes());
    MakeSong("X.mp3", "Large");
    EXPECT_EQ(Renamed("x.mp3\nX.mp3\n"), "x.mp3\nA - Large.MP3\n");
}

TEST_F(RenamePlaylistsTest, LearningALineOfATwin_LeavesIt) {
    MakeSong("X.mp3", "Large");
    Remember("x.mp3", "New.MP3");
    EXPECT_EQ(Learned("X.mp3\nx.mp3\n"), "X.mp3\nNew.MP3\n");
}

TEST_F(RenamePlaylistsTest, NewNameThatDiffersInCaseOnly_IsTheSameFile) {
    MakeSong("a - one.mp3", "One");
    EXPECT_EQ(Renamed("a - one.mp3\nA - ONE.mp3\nA - One.MP3\n"), "A - One.MP3\nA - One.MP3\nA - One.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, PathsWithDots_AreTheSameFile) {
    std::filesystem::create_directory(app.folder / "sub");
    MakeSong("x.mp3", "One");
    MakeSong("y.mp3", "Two");
    EXPECT_EQ(Renamed("./x.mp3\nx.mp3\nsub/../x.mp3\ny.mp3\n.\\y.mp3\n"),
              "./A - One.MP3\n./A - One.MP3\n./A - One.MP3\nA - Two.MP3\nA - Two.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3", "list.m3u"}));
}

TEST_F(RenamePlaylistsTest, ListOfTheSubfolder_GetsTheNameAsItCountsFromThere) {
    app.state.ProcessSubfolders = true;
    MakeSong("s/x.mp3", "One");
    MakeSong("y.mp3", "Two");
    Make("s/list.m3u", "x.mp3\n../y.mp3\n");
    EXPECT_EQ(Renamed("s/x.mp3\ny.mp3\n"), "s/A - One.MP3\nA - Two.MP3\n");
    EXPECT_EQ(app.folder.Read("s/list.m3u"), "A - One.MP3\n../A - Two.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - Two.MP3", "list.m3u", "s/A - One.MP3", "s/list.m3u"}));
}

TEST_F(RenamePlaylistsTest, SubfolderWithoutLists_ItsFilesAreNotRenamedTwice) {
    app.state.ProcessSubfolders = true;
    app.state.FileSpec = "*";
    MakeSong("s/x.mp3", "One");
    MakeSong("s/y.mp3", "Two");
    EXPECT_EQ(Renamed("s\\x.mp3\n"), "s\\A - One.MP3\n");
    EXPECT_EQ(Names(), (Texts{"list.m3u", "s/A - One.MP3", "s/A - Two.MP3"}));
}

TEST_F(RenamePlaylistsTest, LineThatNamesWhatTheRunHasPutThere_Stays) {
    MakeSong("sub/x.mp3", "One");
    std::filesystem::create_directory_symlink("sub", app.folder / "link");
    EXPECT_EQ(Renamed("sub/x.mp3\nlink/A - One.MP3\n"), "sub/A - One.MP3\nlink/A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, RuleThatMakesNoName_LeavesLineAndFile) {
    app.state.RenameFormat = 6;
    app.state.CustomRenameTemplate = "%Y";
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    EXPECT_EQ(Renamed("one.mp3\nsub\\two.mp3\none.mp3\n"), "one.mp3\nsub\\two.mp3\none.mp3\n");
    EXPECT_EQ(Names(), (Texts{"list.m3u", "one.mp3", "sub/two.mp3"}));
}

TEST_F(RenamePlaylistsTest, LinesThatNameNoFile_AreNoted) {
    MakeSong("one.mp3", "One");
    Renamed("#EXTM3U\n\none.mp3\ngone.mp3\n");
    Renamed("gone.mp3\nfar.mp3\nsub/gone.mp3\n");
    EXPECT_EQ(app.desktop.notes, (Texts{"list.m3u: 1 line names no file and was left out.",
                                        "list.m3u: 2 lines name no file and were left out."}));
}

// What a pass that renames has written.

TEST_F(RenamePlaylistsTest, ListThatWasWritten_IsNotLookedUpAgain) {
    MakeSong("A - One.mp3", "Two");
    MakeSong("x.mp3", "One");
    app.folder.Write("list.m3u", "A - One.mp3\nx.mp3\n");
    Make("zz/other.m3u", "../A - One.mp3\n");
    RenamePlaylists(run, Root(), true);
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - Two.MP3\nA - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, ListThatWasWrittenUpToAFailure_LearnsTheRest) {
    MakeSong("A - One.mp3", "Two");
    MakeSong("x.mp3", "One");
    MakeSong("late.mp3", "Late");
    Make("bad.mp3", SongThatFails());
    app.folder.Write("a.m3u", "A - One.mp3\nx.mp3\nbad.mp3\nlate.mp3\n");
    app.folder.Write("b.m3u", "late.mp3\n");
    app.state.FileSpec = "a.m3u";
    EXPECT_EQ(RuntimeErrorOf([&] { RenamePlaylists(run, Root(), true); }), 13);
    app.state.FileSpec = "b.m3u";
    RenamePlaylists(run, Root(), true);
    app.state.FileSpec = AllPlaylists;
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - Two.MP3\nA - One.MP3\nbad.mp3\nA - Late.MP3\n");
}

TEST_F(RenamePlaylistsTest, ListThatTwoNamesLeadTo_IsWrittenOnce) {
    MakeSong("A - One.mp3", "Two");
    MakeSong("x.mp3", "One");
    app.folder.Write("list.m3u", "A - One.mp3\nx.mp3\n");
    std::filesystem::create_symlink("list.m3u", app.folder / "link.m3u");
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - Two.MP3\nA - One.MP3\n");
}

// Learning names from the map.

TEST_F(RenamePlaylistsTest, WithoutRenaming_OnlyLinesOfTheMapChange) {
    MakeSong("one.mp3", "One");
    Remember("two.mp3", "New.MP3");
    EXPECT_EQ(Learned("#EXTM3U\n#EXTINF:1,x\none.mp3\n\ntwo.mp3\ngone.mp3\nsub\\x.mp3"),
              "#EXTM3U\n#EXTINF:1,x\none.mp3\n\nNew.MP3\ngone.mp3\nsub\\x.mp3");
    EXPECT_TRUE(app.folder.Exists("one.mp3"));
}

TEST_F(RenamePlaylistsTest, LineInAnotherCase_TakesTheNameFromTheMap) {
    Remember("\xC3\xBC/One.mp3", "\xC3\xBC/New.MP3");
    EXPECT_EQ(Learned("\xC3\x9C\\ONE.mp3\n"), "\xC3\xBC\\New.MP3\n");
}

TEST_F(RenamePlaylistsTest, FileOfASubfolderRenamedByTheWalk_LosesTheSubfolder) {
    MakeSong("sub/one.mp3", "One");
    NewRenameMap(run);
    app.state.FileSpec = "*.*";
    RenameFolderTree(run, Root());
    app.state.FileSpec = AllPlaylists;
    EXPECT_EQ(Learned("sub\\one.mp3\n"), "A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, UnchangedList_IsNotWritten) {
    app.folder.Write("list.m3u", "#EXTM3U\r\none.mp3");
    const std::string before = files().ContentStamp(app.folder / "list.m3u");
    Remember("two.mp3", "New.MP3");
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(files().ContentStamp(app.folder / "list.m3u"), before);
}

TEST_F(RenamePlaylistsTest, Map_IsMadeWhenThereIsNone) {
    EXPECT_EQ(Learned("one.mp3\n"), "one.mp3\n");
    EXPECT_TRUE(run.map.has_value());
}

// Bytes.

TEST_F(RenamePlaylistsTest, LineEndsAndByteOrderMark_Stay) {
    Remember("one.mp3", "New 1.MP3");
    Remember("two.mp3", "New 2.MP3");
    EXPECT_EQ(Learned("\xEF\xBB\xBFone.mp3\r\nx\ntwo.mp3\nx\r\none.mp3"),
              "\xEF\xBB\xBFNew 1.MP3\r\nx\nNew 2.MP3\nx\r\nNew 1.MP3");
}

TEST_F(RenamePlaylistsTest, LineInTheCodePage_FindsTheNameInUtf8) {
    MakeSong("caf\xC3\xA9/s\xC3\xB6ng.mp3", "\xD6l");
    MakeSong("\xC3\xA9t\xC3\xA9.mp3", "One");
    EXPECT_EQ(Renamed("caf\xE9\\s\xF6ng.mp3\n\xE9t\xE9.mp3\n"),
              "caf\xC3\xA9\\A - \xC3\x96l.MP3\nA - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, LineInTheCodePage_OfAFileThatKeepsItsName_KeepsItsBytes) {
    Make("caf\xC3\xA9.mp3", Mp3().Bytes());
    const std::string list = "caf\xE9.mp3\ncaf\xE9.mp3\n";
    EXPECT_EQ(Renamed(list), list);
    EXPECT_EQ(Learned(list), list);
}

TEST_F(RenamePlaylistsTest, LineWhoseVeryBytesNameAFile_IsTakenAsThese) {
    MakeSong("caf\xE9.mp3", "Bytes");
    MakeSong("caf\xC3\xA9.mp3", "Text");
    EXPECT_EQ(Renamed("caf\xE9.mp3\ncaf\xE9.mp3\n"), "A - Bytes.MP3\nA - Bytes.MP3\n");
    EXPECT_TRUE(app.folder.Exists("caf\xC3\xA9.mp3"));
}

TEST_F(RenamePlaylistsTest, LineInTheCodePage_LearnsFromTheMap) {
    Remember("caf\xC3\xA9.mp3", "New.MP3");
    Remember("sub/caf\xC3\xA9.mp3", "sub/New.MP3");
    EXPECT_EQ(Learned("caf\xE9.mp3\nsub\\caf\xE9.mp3\n"), "New.MP3\nsub\\New.MP3\n");
}

TEST_F(RenamePlaylistsTest, NoTextOfLines_IsLeftAlone) {
    MakeSong("a", "One");
    for (const std::string& list : {std::string("\xFF\xFE"
                                                "a\0.\0m\0p\0003\0\n\0",
                                                14),
                                    std::string("a.mp3\rb.mp3\r"), std::string(100, '\0')}) {
        EXPECT_EQ(Renamed(list), list);
        EXPECT_EQ(Learned(list), list);
    }
    EXPECT_EQ(app.desktop.notes.size(), 6U);
    EXPECT_EQ(app.desktop.notes[0], "list.m3u: no text of lines; left as it is.");
    EXPECT_FALSE(app.desktop.HasComplained());
}

TEST_F(RenamePlaylistsTest, EmptyList_Stays) {
    EXPECT_EQ(Renamed(""), "");
    EXPECT_EQ(Renamed("\xEF\xBB\xBF"), "\xEF\xBB\xBF");
}

TEST_F(RenamePlaylistsTest, LineOfAMillionBytes_NamesNothing) {
    const std::string bare(1000000, 'x');
    const std::string path = std::string(500000, 'x') + "/" + std::string(500000, 'y') + ".mp3";
    EXPECT_EQ(Renamed(bare + "\n" + path + "\n"), path + "\n");
}

// Which lists.

TEST_F(RenamePlaylistsTest, OnlyPlaylistsThatFileSpecMatches) {
    Remember("one.mp3", "New.MP3");
    for (const char* name : {"a.m3u", "b.m3u", "a.txt", "a.m3u8"}) app.folder.Write(name, "one.mp3\n");
    app.state.FileSpec = "A.*";
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("a.m3u"), "New.MP3\n");
    for (const char* name : {"b.m3u", "a.txt", "a.m3u8"})
        EXPECT_EQ(app.folder.Read(name), "one.mp3\n") << name;
}

TEST_F(RenamePlaylistsTest, FolderWithoutPlaylists_HasItsFilesRenamed) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    app.state.FileSpec = "o*.mp3";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "two.mp3"}));
    EXPECT_EQ(run.map->Find(Root() + "/one.mp3")->newName, "A - One.MP3");
}

TEST_F(RenamePlaylistsTest, EmptyPlaylist_CountsAsOne) {
    MakeSong("one.mp3", "One");
    app.folder.Write("list.m3u", "");
    app.state.FileSpec = "*";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(Names(), (Texts{"list.m3u", "one.mp3"}));
}

TEST_F(RenamePlaylistsTest, FolderInFileSpec_ReplacesTheFolder) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "sub\\x.m3u";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("x.m3u"), "one.mp3\n");
    EXPECT_EQ(app.state.FileSpec, "x.m3u");
}

TEST_F(RenamePlaylistsTest, FolderThatDoesNotExist_TheCurrentOneIsTaken) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "none/x.m3u";
    RenamePlaylists(run, Root() + "/neither", false);
    EXPECT_EQ(app.folder.Read("x.m3u"), "New.MP3\n");
}

TEST_F(RenamePlaylistsTest, UnknownWordWithASlash_IsNoFolder) {
    app.folder.Write("x.m3u", "one.mp3\n");
    app.state.FileSpec = "/unknown";
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.state.FileSpec, "/unknown");
    EXPECT_EQ(app.folder.Read("x.m3u"), "one.mp3\n");
}

TEST_F(RenamePlaylistsTest, NameOfAListThatHoldsABackslash_IsNoFolder) {
    MakeSong("one.mp3", "One");
    app.folder.Write("sub\\x.m3u", "one.mp3\n");
    std::filesystem::create_directory(app.folder / "sub");
    files().SetCurrentFolder("/");
    app.state.FileSpec = "sub\\x.m3u";
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub\\x.m3u"), "A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, Subfolders_WithTheFlag) {
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

TEST_F(RenamePlaylistsTest, FoldersOfArtists_ClearTheFlag) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    app.state.ProcessSubfolders = true;
    app.state.RenameFormat = FormatWithFolder;
    RenamePlaylists(run, Root(), true);
    EXPECT_FALSE(app.state.ProcessSubfolders);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "one.mp3\n");
}

TEST_F(RenamePlaylistsTest, LinksThatLeadBack_End) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/x.m3u", "one.mp3\n");
    std::filesystem::create_directory_symlink("..", app.folder / "sub/up");
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(app.folder.Read("sub/x.m3u"), "A - One.MP3\n");
}

TEST_F(RenamePlaylistsTest, PipesFoldersAndDeadLinks_AreNoPlaylists) {
    Remember("one.mp3", "New.MP3");
    ASSERT_EQ(mkfifo((app.folder / "pipe.m3u").c_str(), 0600), 0);
    std::filesystem::create_directory(app.folder / "folder.m3u");
    std::filesystem::create_symlink("nowhere", app.folder / "dead.m3u");
    EXPECT_EQ(Learned("one.mp3\n"), "New.MP3\n");
}

// Putting the new list in place.

TEST_F(RenamePlaylistsTest, ReadOnlyList_IsReplacedAndStaysReadOnly) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("list.m3u", "one.mp3\n");
    MakeReadOnly("list.m3u");
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(app.folder.Read("list.m3u"), "New.MP3\n");
    EXPECT_TRUE(files().IsReadOnly(app.folder / "list.m3u"));
}

TEST_F(RenamePlaylistsTest, ListThatIsALink_KeepsTheLink) {
    TempFolder elsewhere;
    elsewhere.Write("real.m3u", "one.mp3\n");
    std::filesystem::create_symlink(elsewhere / "real.m3u", app.folder / "list.m3u");
    Remember("one.mp3", "New.MP3");
    RenamePlaylists(run, Root(), false);
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "list.m3u"));
    EXPECT_EQ(elsewhere.Read("real.m3u"), "New.MP3\n");
}

TEST_F(RenamePlaylistsTest, FileThatHasTheNameOfTheNewList_Stays) {
    Remember("one.mp3", "New.MP3");
    app.folder.Write("list.m3u.tmp", "mine");
    EXPECT_EQ(Learned("one.mp3\n"), "New.MP3\n");
    EXPECT_EQ(app.folder.Read("list.m3u.tmp"), "mine");
    EXPECT_EQ(Names(), (Texts{"list.m3u", "list.m3u.tmp"}));
}

TEST_F(RenamePlaylistsTest, EveryFailureOfTheDisk_LeavesTheOldOrTheNewList) {
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

TEST_F(RenamePlaylistsTest, FailureInTheMiddle_TheListLearnsTheNamesThatWereGiven) {
    MakeSong("one.mp3", "One");
    Make("bad.mp3", SongThatFails());
    MakeSong("two.mp3", "Two");
    app.folder.Write("list.m3u", "#EXTM3U\r\none.mp3\r\ngone.mp3\nbad.mp3\ntwo.mp3\n#end");
    EXPECT_EQ(RuntimeErrorOf([&] { RenamePlaylists(run, Root(), true); }), 13);
    EXPECT_EQ(app.folder.Read("list.m3u"), "#EXTM3U\r\nA - One.MP3\r\ngone.mp3\nbad.mp3\ntwo.mp3\n#end");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "bad.mp3", "list.m3u", "two.mp3"}));
}

TEST_F(RenamePlaylistsTest, FailureBeforeAnyRename_LeavesTheListAlone) {
    Make("bad.mp3", SongThatFails());
    app.folder.Write("list.m3u", "#EXTM3U\nbad.mp3\n");
    const std::string before = files().ContentStamp(app.folder / "list.m3u");
    EXPECT_EQ(RuntimeErrorOf([&] { RenamePlaylists(run, Root(), true); }), 13);
    EXPECT_EQ(files().ContentStamp(app.folder / "list.m3u"), before);
}

// Steps of a preview.

TEST_F(RenamePlaylistsTest, Preview_CountsTheLinesOfEachList) {
    std::ostringstream steps;
    app.steps = &steps;
    Remember("one.mp3", "New.MP3");
    Make("sub/x.m3u", "#EXTM3U\n");
    Make("list.m3u", "one.mp3\none.mp3\n");
    app.state.ProcessSubfolders = true;
    RenamePlaylists(run, Root(), false);
    EXPECT_EQ(steps.str(), "playlist: list.m3u: 2 lines changed\nin: sub\nunchanged: x.m3u\n");
}

TEST_F(RenamePlaylistsTest, Preview_TellsLinesThatNameNoFile) {
    std::ostringstream steps;
    Make("list.m3u", "#EXTM3U\ngone.mp3\nsub/gone.mp3\n");
    app.steps = &steps;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(steps.str(),
              "in: sub\nrefused: gone.mp3: can't be read\nin: .\n"
              "refused: gone.mp3: no such file\nplaylist: list.m3u: 2 lines changed\n");
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(RenamePlaylistsTest, Preview_DroppedLinesCount) {
    std::ostringstream steps;
    Make("list.m3u", "#EXTM3U\n/absolute.mp3\n");
    app.steps = &steps;
    RenamePlaylists(run, Root(), true);
    EXPECT_EQ(steps.str(), "playlist: list.m3u: 1 line changed\n");
}

}  // namespace
}  // namespace zefta::test
