#include "library/RenameCommands.h"
#include "library/RenameStage.h"

namespace zefta::test {
namespace {

class RenameCommands : public RenameStage {
  protected:
    RenamedFile Record() {
        return [this](const std::string& oldName, const std::string& newName) {
            told.push_back(oldName + " -> " + newName);
        };
    }

    void Extended(ExtendedRename choice) {
        choice.folder = Root();
        RenameExtended(app, choice, Record());
    }

    using Filter = ExtendedRename::Filter;

    Texts told;
};

TEST_F(RenameCommands, SelectedFiles_CompressedOnesAreRenamed) {
    MakeSong("one.mp3", "One");
    Make("untagged.mp3", Mp3().Bytes());
    Make("bad.mp3", SongThatFails());
    Make("text.txt", "x");
    MakeSong("two.mp3", "Two");
    RenameSelectedFiles(app, Root(), {"one.mp3", "untagged.mp3", "bad.mp3", "text.txt", "two.mp3"}, Record());
    EXPECT_EQ(told, (Texts{"one.mp3 -> A - One.MP3", "two.mp3 -> A - Two.MP3"}));
    EXPECT_EQ(app.desktop.servedEvents, 4);
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3", "bad.mp3", "text.txt", "untagged.mp3"}));
}

TEST_F(RenameCommands, AllFiles_WithoutSubfoldersAndPlaylists) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Make("list.m3u", "one.mp3\n");
    app.state.FileSpec = "none";
    app.state.ProcessSubfolders = true;
    RenameAllFiles(app, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u", "sub/two.mp3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "one.mp3\n");
    EXPECT_EQ(app.state.FileSpec, "*.*");
    EXPECT_FALSE(app.state.ProcessSubfolders);
}

TEST_F(RenameCommands, AllFiles_FolderThatIsGone_IsPassedOver) {
    RenameAllFiles(app, Root() + "/none");
    EXPECT_FALSE(app.desktop.HasComplained());
}

TEST_F(RenameCommands, FilesOfAllPlaylists_AreRenamed) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    Make("a.m3u", "#EXTM3U\none.mp3\n");
    app.state.ProcessSubfolders = true;
    RenameFilesOfAllPlaylists(app, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "a.m3u", "two.mp3"}));
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - One.MP3\n");
    EXPECT_FALSE(app.state.ProcessSubfolders);
}

TEST_F(RenameCommands, FilesOfPlaylists_AreRenamedAndTheOtherListsLearn) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    MakeSong("three.mp3", "Three");
    Make("a.m3u", "one.mp3\n");
    Make("b.m3u", "two.mp3\none.mp3\n");
    Make("c.m3u", "#EXTM3U\none.mp3\ntwo.mp3\nthree.mp3\n");
    RenameFilesOfPlaylists(app, Root(), {"a.m3u", "b.m3u"});
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("b.m3u"), "A - Two.MP3\nA - One.MP3\n");
    EXPECT_EQ(app.folder.Read("c.m3u"), "#EXTM3U\nA - One.MP3\nA - Two.MP3\nthree.mp3\n");
}

TEST_F(RenameCommands, FilesOfPlaylists_FailureInOne_GoesOnWithTheNext) {
    Make("bad.mp3", SongThatFails());
    MakeSong("two.mp3", "Two");
    Make("a.m3u", "bad.mp3\n");
    Make("b.m3u", "two.mp3\n");
    Make("c.m3u", "two.mp3\n");
    RenameFilesOfPlaylists(app, Root(), {"a.m3u", "b.m3u"});
    EXPECT_EQ(app.folder.Read("b.m3u"), "A - Two.MP3\n");
    EXPECT_EQ(app.folder.Read("c.m3u"), "A - Two.MP3\n");
    EXPECT_FALSE(app.desktop.HasComplained());
}

TEST_F(RenameCommands, Extended_SelectedFiles) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    Make("list.m3u", "#EXTM3U\none.mp3\ntwo.mp3\n");
    app.state.ProcessSubfolders = true;
    Extended(
        {.folder = {}, .filter = Filter::SelectedFiles, .mask = {}, .selected = {"one.mp3", "list.m3u"}});
    EXPECT_EQ(told, (Texts{"one.mp3 -> A - One.MP3", "list.m3u -> list.m3u"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "#EXTM3U\none.mp3\ntwo.mp3\n");
    EXPECT_FALSE(app.state.ProcessSubfolders);
    EXPECT_EQ(app.desktop.servedEvents, 2);
}

TEST_F(RenameCommands, Extended_SelectedFilesAndPlaylists) {
    MakeSong("one.mp3", "One");
    Make("list.m3u", "#EXTM3U\none.mp3\ntwo.mp3\n");
    Extended({.folder = {},
              .filter = Filter::SelectedFiles,
              .mask = {},
              .selected = {"one.mp3"},
              .updatePlaylists = true});
    EXPECT_EQ(app.folder.Read("list.m3u"), "#EXTM3U\nA - One.MP3\ntwo.mp3\n");
}

TEST_F(RenameCommands, Extended_ByMaskWithPlaylistsAndSubfolders) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    MakeSong("sub/once.mp3", "Once");
    Make("list.m3u", "one.mp3\ntwo.mp3\n");
    Make("sub/list.m3u", "once.mp3\n");
    Extended({.folder = {},
              .filter = Filter::FilesByMask,
              .mask = "ON*",
              .processSubfolders = true,
              .updatePlaylists = true});
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u", "sub/A - Once.MP3", "sub/list.m3u", "two.mp3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - One.MP3\ntwo.mp3\n");
    EXPECT_EQ(app.folder.Read("sub/list.m3u"), "A - Once.MP3\n");
}

TEST_F(RenameCommands, Extended_WithoutPlaylists_LeavesSubfoldersAlone) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Make("list.m3u", "one.mp3\n");
    Extended({.folder = {}, .filter = Filter::AllFiles, .mask = "none", .processSubfolders = true});
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u", "sub/two.mp3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "one.mp3\n");
}

TEST_F(RenameCommands, Extended_FoldersOfArtists_LeaveSubfoldersAlone) {
    app.state.RenameFormat = FormatWithFolder;
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Make("list.m3u", "one.mp3\n");
    Extended({.folder = {}, .mask = {}, .processSubfolders = true, .updatePlaylists = true});
    EXPECT_EQ(Names(), (Texts{"A/One.MP3", "list.m3u", "sub/two.mp3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A/One.MP3\n");
}

TEST_F(RenameCommands, Extended_FailureInASelection_TheListsLearnTheNamesGivenBefore) {
    MakeSong("one.mp3", "One");
    Make("bad.mp3", SongThatFails());
    Make("list.m3u", "one.mp3\nbad.mp3\n");
    const ExtendedRename choice = {.folder = {},
                                   .filter = Filter::SelectedFiles,
                                   .mask = {},
                                   .selected = {"one.mp3", "bad.mp3"},
                                   .updatePlaylists = true};
    EXPECT_EQ(RuntimeErrorOf([&] { Extended(choice); }), 13);
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - One.MP3\nbad.mp3\n");
}

TEST_F(RenameCommands, FilesOfPlaylists_NewNameThatWasAnothersOldName_StaysTrue) {
    MakeSong("A - One.mp3", "Two");
    MakeSong("x.mp3", "One");
    Make("a.m3u", "A - One.mp3\nx.mp3\n");
    RenameFilesOfPlaylists(app, Root(), {"a.m3u"});
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - Two.MP3\nA - One.MP3\n");
}

TEST_F(RenameCommands, Extended_Failure_EndsIt) {
    Make("bad.mp3", SongThatFails());
    EXPECT_EQ(RuntimeErrorOf([&] { Extended({.folder = {}, .mask = {}, .updatePlaylists = true}); }), 13);
}

}  // namespace
}  // namespace zefta::test
