#include <sstream>
#include <sys/stat.h>

#include "library/RenamePlaylistsStage.h"
#include "support/CountingFileSystem.h"
#include "support/FaultInjectingFileSystem.h"

namespace zefta::test {
namespace {

class RenamePlaylistsTest : public RenamePlaylistsStage {};

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

}  // namespace
}  // namespace zefta::test
