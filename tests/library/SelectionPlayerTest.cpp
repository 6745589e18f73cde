#include <memory>

#include "library/SelectionPlayer.h"
#include "library/SelectionStage.h"
#include "support/Mp3Builder.h"

namespace zefta::test {
namespace {

class SelectionPlayerTest : public SelectionStage {
  protected:
    SelectionPlayerTest() { app.TestWorld::machine.temporaryFolder = temporary.Path(); }

    std::size_t TemporaryFiles() const { return app.files.List(temporary.Path()).size(); }

    TempFolder temporary;
    std::unique_ptr<SelectionPlayer> player = std::make_unique<SelectionPlayer>(app);
};

TEST_F(SelectionPlayerTest, Selection_IsAListOfFullPathsOfItsAudio) {
    Select("..");
    Select("sub");
    Select("list.m3u");
    Select("b.mp3");
    Select("a.wav");
    EXPECT_TRUE(player->PlaySelected(selection, false, Watch()));
    ASSERT_EQ(app.desktop.played.size(), 1U);
    EXPECT_EQ(app.desktop.played[0].text, app.folder / "b.mp3" + "\n" + app.folder / "a.wav" + "\n");
    EXPECT_FALSE(app.desktop.played[0].append);
    EXPECT_TRUE(app.desktop.played[0].path.starts_with(temporary / ""));
    EXPECT_TRUE(app.desktop.played[0].path.ends_with(".m3u"));
    EXPECT_EQ(statuses, (Texts{Message(32014, "b.mp3"), Message(32014, "a.wav")}));
}

TEST_F(SelectionPlayerTest, PlaylistsOnly_GiveAnEmptyList) {
    Select("list.m3u");
    EXPECT_TRUE(player->PlaySelected(selection, true, Watch()));
    EXPECT_EQ(app.desktop.played[0].text, "");
    EXPECT_TRUE(app.desktop.played[0].append);
}

TEST_F(SelectionPlayerTest, Root_HasOneSeparator) {
    selection = {"/", {{RowIcon::Compressed, "x.mp3"}}};
    player->PlaySelected(selection, false, Watch());
    EXPECT_EQ(app.desktop.played[0].text, "/x.mp3\n");
}

TEST_F(SelectionPlayerTest, NameWithALineFeed_IsLeftOut) {
    selection.rows = {{RowIcon::Compressed, "a\nb.mp3"}, {RowIcon::Compressed, "c.mp3"}};
    player->PlaySelected(selection, false, Watch());
    EXPECT_EQ(app.desktop.played[0].text, app.folder / "c.mp3" + "\n");
}

TEST_F(SelectionPlayerTest, Lists_StayAsLongAsThePlayerMayRead) {
    Select("a.wav");
    player->PlaySelected(selection, false, Watch());
    player->PlaySelected(selection, true, Watch());
    EXPECT_NE(app.desktop.played[0].path, app.desktop.played[1].path);
    EXPECT_EQ(TemporaryFiles(), 2U);
    player.reset();
    EXPECT_EQ(TemporaryFiles(), 0U);
}

TEST_F(SelectionPlayerTest, ListThatSomebodyDeleted_IsNoFailure) {
    player->PlaySelected(selection, false, Watch());
    std::filesystem::remove(app.desktop.played[0].path);
    EXPECT_NO_THROW(player.reset());
}

TEST_F(SelectionPlayerTest, NoTemporaryFolder_TellsThatNothingPlays) {
    app.TestWorld::machine.temporaryFolder = temporary / "none";
    Select("a.wav");
    EXPECT_FALSE(player->PlaySelected(selection, false, Watch()));
    EXPECT_TRUE(app.desktop.played.empty());
}

TEST_F(SelectionPlayerTest, NoPlayer_IsTold) {
    app.desktop.canPlay = false;
    EXPECT_FALSE(player->PlaySelected(selection, false, Watch()));
    EXPECT_FALSE(player->PlayFolder(app.folder.Path(), false));
}

TEST_F(SelectionPlayerTest, Folder_IsAPlaylistOfFullPaths) {
    app.folder.Write("b.wav", "x");
    app.folder.Write("a.wav", "x");
    EXPECT_TRUE(player->PlayFolder(app.folder.Path(), true));
    ASSERT_EQ(app.desktop.played.size(), 1U);
    EXPECT_EQ(app.desktop.played[0].path, temporary / "Playlist.m3u");
    EXPECT_EQ(app.desktop.played[0].text,
              "#EXTM3U\n" + app.folder / "a.wav" + "\n" + app.folder / "b.wav" + "\n");
    EXPECT_TRUE(app.desktop.played[0].append);
    EXPECT_FALSE(app.state.UsePaths);
    EXPECT_EQ(app.state.TargetPath, temporary / "Playlist.m3u");
}

TEST_F(SelectionPlayerTest, FolderThatCannotBeEntered_PlaysNothing) {
    temporary.Write("Playlist.m3u", "old\n");
    player->PlayFolder(app.folder / "none", false);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.played.empty());
    EXPECT_FALSE(app.state.UsePaths);
}

TEST_F(SelectionPlayerTest, ListThatCannotBeWritten_PlaysNoOlderOne) {
    std::filesystem::create_directories(temporary / "Playlist.m3u");
    player->PlayFolder(app.folder.Path(), false);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.played.empty());
}

TEST_F(SelectionPlayerTest, PlaylistOfAFolder_LiesInItWithBareNames) {
    app.folder.Write("a.wav", "x");
    app.state.TargetPath = "elsewhere.m3u";
    app.state.UsePaths = true;
    app.files.SetCurrentFolder("/");
    MakePlaylistOfFolder(app, app.folder.Path());
    EXPECT_EQ(app.folder.Read("!Playlist.m3u"), "#EXTM3U\na.wav\n");
    EXPECT_EQ(app.state.TargetPath, "");
    EXPECT_FALSE(app.state.UsePaths);
}

}  // namespace
}  // namespace zefta::test
