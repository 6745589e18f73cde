#include <sys/stat.h>

#include "library/SelectionFiles.h"
#include "library/SelectionStage.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

namespace fs = std::filesystem;

class SelectionFiles : public SelectionStage {
  protected:
    bool Delete() { return DeleteSelected(app, selection); }

    std::optional<std::string> Rename(const std::string& answer) {
        app.desktop.inputs.push_back(answer);
        return RenameEntry(app, app.folder.Path(), selection.rows.back());
    }
};

TEST_F(SelectionFiles, Delete_OneRow_IsAskedByName) {
    Select("a.mp3");
    AnswerYes();
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Question(), Message(32003) + ": " + Message(32002, "a.mp3"));
    EXPECT_FALSE(app.desktop.questions[0].noIsDefault);
    EXPECT_FALSE(app.folder.Exists("a.mp3"));
}

TEST_F(SelectionFiles, Delete_SeveralRows_AreAskedAboutOnce) {
    Select("a.mp3");
    Select("b.wav");
    AnswerYes();
    EXPECT_TRUE(Delete());
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(Question(), Message(32003) + ": " + Message(32018));
    EXPECT_FALSE(app.folder.Exists("a.mp3"));
    EXPECT_FALSE(app.folder.Exists("b.wav"));
}

TEST_F(SelectionFiles, Delete_AnswerNo_LeavesAll) {
    Select("a.mp3");
    EXPECT_FALSE(Delete());
    EXPECT_TRUE(app.folder.Exists("a.mp3"));
}

TEST_F(SelectionFiles, Delete_WayUp_IsNeverTaken) {
    Select("..");
    EXPECT_FALSE(Delete());
    EXPECT_TRUE(app.desktop.questions.empty());
    Select("a.mp3");
    AnswerYes();
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Question(), Message(32003) + ": " + Message(32002, "a.mp3"));
    EXPECT_TRUE(fs::exists(app.folder.Path()));
}

TEST_F(SelectionFiles, Delete_NothingSelected_AsksNothing) {
    EXPECT_FALSE(Delete());
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(SelectionFiles, Delete_EmptyFolder_GoesWithoutASecondQuestion) {
    Select("sub");
    AnswerYes();
    Delete();
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_FALSE(app.folder.Exists("sub"));
}

TEST_F(SelectionFiles, Delete_FolderThatHoldsAnything_AsksTwice) {
    Select("files");
    app.folder.Write("files/text.txt", "x");
    Select("folders");
    fs::create_directories(app.folder / "folders/inner");
    app.desktop.answers = {true, true, false};
    Delete();
    ASSERT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_EQ(Question(1), Message(32003) + ": " + Message(32019, app.folder / "files"));
    EXPECT_FALSE(app.folder.Exists("files"));
    EXPECT_TRUE(app.folder.Exists("folders/inner"));
}

TEST_F(SelectionFiles, Delete_Failure_IsToldAndTheNextFollows) {
    Select("locked.mp3");
    Select("gone.mp3");
    Select("b.mp3");
    chmod((app.folder / "locked.mp3").c_str(), 0444);
    fs::remove(app.folder / "gone.mp3");
    app.desktop.hasTrash = true;
    AnswerYes();
    EXPECT_TRUE(Delete());
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_NE(app.desktop.boxes[0].text.find("#70"), std::string::npos) << app.desktop.boxes[0].text;
    EXPECT_TRUE(app.folder.Exists("locked.mp3"));
    EXPECT_FALSE(app.folder.Exists("b.mp3"));
}

TEST_F(SelectionFiles, Delete_WithATrash_MovesThereAfterTheQuestions) {
    Select("a.mp3");
    Select("sub");
    app.folder.Write("sub/x.txt", "x");
    app.desktop.hasTrash = true;
    AnswerYes(2);
    Delete();
    EXPECT_EQ(app.desktop.trash, (Texts{app.folder / "a.mp3", app.folder / "sub"}));
    EXPECT_EQ(app.desktop.questions.size(), 2U);
}

TEST_F(SelectionFiles, Delete_FileThatIsAFolderByNow_AsksTwice) {
    fs::create_directories(app.folder / "a.mp3");
    app.folder.Write("a.mp3/song.mp3", "x");
    selection.rows = {{RowIcon::Compressed, "a.mp3"}};
    app.desktop.hasTrash = true;
    app.desktop.answers = {true, false};
    Delete();
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_TRUE(app.folder.Exists("a.mp3/song.mp3"));
}

TEST_F(SelectionFiles, Delete_Link_LeavesWhatItLeadsTo) {
    fs::create_directories(app.folder / "target");
    app.folder.Write("target/x.mp3", "x");
    fs::create_directory_symlink(app.folder / "target", app.folder / "link");
    fs::create_symlink(app.folder / "none", app.folder / "dangling.mp3");
    selection.rows = {{RowIcon::Folder, "link"}, {RowIcon::Compressed, "dangling.mp3"}};
    AnswerYes();
    Delete();
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_TRUE(app.folder.Exists("target/x.mp3"));
    EXPECT_FALSE(fs::is_symlink(app.folder / "link"));
    EXPECT_FALSE(fs::is_symlink(app.folder / "dangling.mp3"));
}

TEST_F(SelectionFiles, Delete_Cancelled_LeavesTheRest) {
    Select("a.mp3");
    Select("b.mp3");
    AnswerYes();
    app.desktop.cancelsFromItem = 2;
    EXPECT_TRUE(Delete());
    EXPECT_FALSE(app.folder.Exists("a.mp3"));
    EXPECT_TRUE(app.folder.Exists("b.mp3"));
}

TEST(EditableName, IsWithoutTheExtensionWhereverItStands) {
    const std::pair<SelectedRow, const char*> cases[] = {
        {{RowIcon::Compressed, "a.mp3"}, "a"},
        {{RowIcon::Compressed, "a.MP3.mp3"}, "a"},
        {{RowIcon::Compressed, "a.mp3 live.MP3"}, "a live"},
        {{RowIcon::Wave, "a.b.wav"}, "a.b"},
        {{RowIcon::Folder, "live.mp3"}, "live.mp3"},
    };
    for (const auto& [row, name] : cases) EXPECT_EQ(EditableName(row), name);
}

TEST_F(SelectionFiles, Rename_File_KeepsItsExtension) {
    Select("a.mp3");
    EXPECT_EQ(Rename("b"), "b.mp3");
    EXPECT_EQ(Question(), Message(32003) + ": " + Message(32004));
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "a");
    EXPECT_TRUE(app.folder.Exists("b.mp3"));
    EXPECT_FALSE(app.folder.Exists("a.mp3"));
}

TEST_F(SelectionFiles, Rename_Folder_TakesTheWholeAnswer) {
    Select("live.2001");
    EXPECT_EQ(Rename("dead.x"), "dead.x");
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "live.2001");
    EXPECT_TRUE(app.folder.Exists("dead.x"));
}

TEST_F(SelectionFiles, Rename_EmptyAnswerOrTheNameOffered_DoesNothing) {
    Select("a.mp3");
    EXPECT_EQ(Rename(""), std::nullopt);
    EXPECT_EQ(Rename("a"), std::nullopt);
    EXPECT_TRUE(app.folder.Exists("a.mp3"));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(SelectionFiles, Rename_PastedLines_BecomeOne) {
    Select("a.mp3");
    EXPECT_EQ(Rename("a\n"), std::nullopt) << "the name offered";
    EXPECT_EQ(Rename("\r\n"), std::nullopt);
    EXPECT_EQ(Rename("One\tTwo\r\n"), "One Two.mp3");
    EXPECT_TRUE(app.folder.Exists("One Two.mp3"));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(SelectionFiles, Rename_CaseAlone_Succeeds) {
    Select("a.mp3");
    EXPECT_EQ(Rename("A"), "A.mp3");
    EXPECT_TRUE(app.folder.Exists("A.mp3"));
}

TEST_F(SelectionFiles, Rename_NameThatIsTaken_IsTold) {
    Select("b.mp3", "old");
    Select("a.mp3");
    EXPECT_EQ(Rename("B"), std::nullopt);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("#58"), std::string::npos);
    EXPECT_EQ(app.folder.Read("b.mp3"), "old");
}

TEST_F(SelectionFiles, Rename_WayUp_AsksNothing) {
    Select("..");
    EXPECT_EQ(Rename("x"), std::nullopt);
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(SelectionFiles, Rename_NameThatIsNoUtf8_IsOfferedAsText) {
    Select("\xD6l.mp3");
    EXPECT_EQ(Rename(""), std::nullopt);
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "Öl");
    EXPECT_EQ(Rename("Öle"), "Öle.mp3");
    EXPECT_TRUE(app.folder.Exists("Öle.mp3"));
}

std::string SongOf(const std::string& title) {
    Id3v1 tag;
    tag.artist = "A";
    tag.title = title;
    return Mp3().Behind(tag.Bytes()).Bytes();
}

TEST_F(SelectionFiles, RenameByTags_AsksWithTheTemplate) {
    Select("1.mp3", SongOf("One"));
    Select("sub.mp3x");
    selection.rows.push_back({RowIcon::Folder, "folder.mp3"});
    Select("2.mp3", "no tags");
    AnswerYes();
    Texts told;
    EXPECT_TRUE(RenameSelected(app, selection, {1, "Artist - Title.MP3"},
                               [&](const std::string& oldName, const std::string& newName) {
                                   told.push_back(oldName + " -> " + newName);
                               }));
    EXPECT_EQ(Question(), Message(32004) + ": " + Message(32023, "Artist - Title.MP3"));
    EXPECT_EQ(told, (Texts{"1.mp3 -> A - One.MP3"}));
    EXPECT_EQ(app.state.RenameFormat, 1);
}

TEST_F(SelectionFiles, RenamesOfMore_AskAndWork) {
    Select("1.mp3", SongOf("One"));
    app.folder.Write("2.mp3", SongOf("Two"));
    Select("list.m3u", "2.mp3\n");
    const std::string folder = app.folder.Path();
    EXPECT_FALSE(RenameAllInFolder(app, folder, 1));
    EXPECT_FALSE(RenameByAllPlaylists(app, folder, 1));
    EXPECT_FALSE(RenameBySelectedPlaylists(app, selection, 1));
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(Question(i), Message(32004) + ": " + Message(32009));
    AnswerYes(3);
    EXPECT_TRUE(RenameBySelectedPlaylists(app, selection, 1));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - Two.MP3\n");
    EXPECT_TRUE(app.folder.Exists("1.mp3"));
    EXPECT_TRUE(RenameAllInFolder(app, folder, 3));
    EXPECT_TRUE(app.folder.Exists("One.MP3"));
    EXPECT_TRUE(app.folder.Exists("Two.MP3"));
    app.folder.Write("list.m3u", "Two.MP3\n");
    EXPECT_TRUE(RenameByAllPlaylists(app, folder, 1));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - Two.MP3\n");
}

}  // namespace
}  // namespace zefta::test
