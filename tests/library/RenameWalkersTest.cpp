#include <sstream>
#include <sys/stat.h>

#include "library/RenameStage.h"

namespace zefta::test {
namespace {

class RenameWalkers : public RenameStage {
  protected:
    std::string Remembered(const std::string& name) const {
        const RenamedEntry* entry = run.map->Find(Root() + "/" + name);
        return entry == nullptr ? "(none)" : entry->newName;
    }
};

TEST_F(RenameWalkers, FolderFiles_MatchingMask_AreRenamed) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    MakeSong("other.mp3", "Other");
    app.state.FileSpec = "?????.*";
    MakeSong("eight.mp3", "Eight");
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - Eight.MP3", "A - Other.MP3", "one.mp3", "two.mp3"}));
}

TEST_F(RenameWalkers, FolderFiles_MaskAndNameInAnyCase) {
    MakeSong("ONE.mp3", "One");
    MakeSong("two.mp3", "Two");
    app.state.FileSpec = "o*.MP3";
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "two.mp3"}));
    app.state.FileSpec = "TWO.MP3";
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3"}));
}

TEST_F(RenameWalkers, FolderFiles_NameThatIsAMaskToo_MatchesTheOthersAsWell) {
    MakeSong("a?.mp3", "One");
    MakeSong("ab.mp3", "Two");
    MakeSong("b.mp3", "Three");
    app.state.FileSpec = "a?.mp3";
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "A - Two.MP3", "b.mp3"}));
}

TEST_F(RenameWalkers, FolderFiles_OtherKindsAndFoldersAndPipes_AreNotTouched) {
    Make("a.wav", Song("A", "Wave"));
    Make("a.txt", Song("A", "Text"));
    Make("folder.mp3/inside.mp3", Song("A", "Inside"));
    ASSERT_EQ(mkfifo((app.folder / "pipe.mp3").c_str(), 0600), 0);
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"a.txt", "a.wav", "folder.mp3/inside.mp3", "pipe.mp3"}));
    EXPECT_EQ(run.map->Count(), 0U);
}

TEST_F(RenameWalkers, FolderFiles_RefusedFile_KeepsItsNameAndIsRemembered) {
    Make("untagged.mp3", Mp3().Bytes());
    MakeSong("one.mp3", "One");
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "untagged.mp3"}));
    EXPECT_EQ(Remembered("untagged.mp3"), "untagged.mp3");
    EXPECT_EQ(Remembered("one.mp3"), "A - One.MP3");
}

TEST_F(RenameWalkers, FolderFiles_WithoutAMap_MakeNone) {
    MakeSong("one.mp3", "One");
    RenameFolderFiles(run, Root());
    EXPECT_FALSE(run.map.has_value());
}

TEST_F(RenameWalkers, FolderFiles_NewNameThatMatchesToo_IsNotRenamedAgain) {
    // The first rename makes a name that the listing of a folder could still come to.
    for (int i = 0; i < 200; ++i) MakeSong(std::to_string(i) + ".mp3", std::to_string(i));
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(run.map->Count(), 200U);
    for (const std::string& name : Names()) EXPECT_EQ(name.find('{'), std::string::npos) << name;
}

TEST_F(RenameWalkers, FolderFiles_DoNotEnterSubfolders) {
    MakeSong("sub/one.mp3", "One");
    app.state.ProcessSubfolders = true;
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), Texts{"sub/one.mp3"});
}

TEST_F(RenameWalkers, FolderFiles_FolderThatIsNotThere_Is76) {
    EXPECT_EQ(RuntimeErrorOf([&] { RenameFolderFiles(run, Root() + "/none"); }), 76);
}

TEST_F(RenameWalkers, FolderFiles_ConversionFailure_EndsTheWalk) {
    Make("bad.mp3", SongThatFails());
    EXPECT_EQ(RuntimeErrorOf([&] { RenameFolderFiles(run, Root()); }), 13);
    EXPECT_EQ(Names(), Texts{"bad.mp3"});
}

TEST_F(RenameWalkers, FolderFiles_TheSameTagsThrice_AreNumbered) {
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3"}) MakeSong(name, "T");
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - T {2}.MP3", "A - T {3}.MP3", "A - T.MP3"}));
}

TEST_F(RenameWalkers, FolderTree_AllSubfolders) {
    MakeSong("one.mp3", "One");
    MakeSong("a/two.mp3", "Two");
    MakeSong("a/b/c/three.mp3", "Three");
    NewRenameMap(run);
    RenameFolderTree(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "a/A - Two.MP3", "a/b/c/A - Three.MP3"}));
    EXPECT_EQ(Remembered("a/two.mp3"), "A - Two.MP3");
    EXPECT_EQ(Remembered("a/b/c/three.mp3"), "A - Three.MP3");
}

TEST_F(RenameWalkers, FolderTree_LinksToFolders_AreNotEntered) {
    MakeSong("sub/one.mp3", "One");
    TempFolder elsewhere;
    elsewhere.Write("out.mp3", Song("A", "Out"));
    std::filesystem::create_directory_symlink("..", app.folder / "sub/up");
    std::filesystem::create_directory_symlink(elsewhere.Path(), app.folder / "sub/out");
    std::filesystem::create_directory_symlink(app.folder / "sub", app.folder / "twin");
    RenameFolderTree(run, Root());
    EXPECT_EQ(Names(), (Texts{"sub/A - One.MP3", "sub/out", "sub/up", "twin"}));
    EXPECT_TRUE(elsewhere.Exists("out.mp3"));
}

TEST_F(RenameWalkers, FolderTree_RootThatIsALink_IsWalked) {
    MakeSong("real/sub/one.mp3", "One");
    std::filesystem::create_directory_symlink("real", app.folder / "link");
    RenameFolderTree(run, Root() + "/link");
    EXPECT_EQ(Names(), (Texts{"link", "real/sub/A - One.MP3"}));
}

TEST_F(RenameWalkers, FolderTree_FoldersOfArtists_EndsAndRenamesEachFileOnce) {
    app.state.RenameFormat = FormatWithFolder;
    MakeSong("one.mp3", "One");
    Make("two.mp3", Song("New", "Two"));
    MakeSong("A/three.mp3", "Three");
    RenameFolderTree(run, Root());
    EXPECT_EQ(Names(), (Texts{"A/A/Three.MP3", "A/One.MP3", "New/Two.MP3"}));
}

TEST_F(RenameWalkers, FolderTree_FolderOfAnArtistInAnotherCase_RenamesEachFileOnce) {
    app.state.RenameFormat = FormatWithFolder;
    MakeSong("one.mp3", "One");
    std::filesystem::create_directory(app.folder / "a");
    RenameFolderTree(run, Root());
    EXPECT_EQ(Names(), Texts{"a/One.MP3"});
}

TEST_F(RenameWalkers, Folder_TakesTheSubfoldersWhenTheFlagSaysSo) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    RenameFolder(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "sub/two.mp3"}));
    app.state.ProcessSubfolders = true;
    app.state.FileSpec = "two*";
    RenameFolder(run, Root());
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "sub/A - Two.MP3"}));
}

TEST_F(RenameWalkers, FileThatWasRenamedBefore_IsPassedOver) {
    MakeSong("sub/one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    std::filesystem::create_directory_symlink("sub", app.folder / "link");
    RenameOne(run, Root() + "/link", "one.mp3");
    RenameFolderTree(run, Root());
    EXPECT_EQ(Names(), (Texts{"link", "sub/A - One.MP3", "sub/A - Two.MP3"}));
}

TEST_F(RenameWalkers, EventsAreServedOnceForEachFileAndSubfolder) {
    for (const char* name : {"one.mp3", "two.mp3", "sub/three.mp3"}) MakeSong(name, name);
    Make("text.txt", "x");
    RenameFolderTree(run, Root());
    EXPECT_EQ(app.desktop.servedEvents, 3 + 1);
}

TEST_F(RenameWalkers, RuleThatMakesNoName_LeavesTheFileItsOwn) {
    app.state.RenameFormat = 6;
    app.state.CustomRenameTemplate = "%Y";
    MakeSong("one.mp3", "One");
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), Texts{"one.mp3"});
    EXPECT_EQ(Remembered("one.mp3"), "one.mp3");
}

TEST_F(RenameWalkers, FolderOfAnArtistInAnotherCase_IsRememberedAsItIs) {
    app.state.RenameFormat = FormatWithFolder;
    Make("one.mp3", Song("ABBA", "One"));
    std::filesystem::create_directory(app.folder / "abba");
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Remembered("one.mp3"), "abba/One.MP3");
}

TEST_F(RenameWalkers, ConversionFailure_NamesTheFileAndIsToldInAPreview) {
    std::ostringstream steps;
    app.steps = &steps;
    Make("bad.mp3", SongThatFails());
    try {
        RenameFolderFiles(run, Root());
        FAIL() << "no failure";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(), "Type mismatch: " + Root() + "/bad.mp3");
    }
    EXPECT_EQ(steps.str(), "refused: bad.mp3: Type mismatch\n");
}

TEST_F(RenameWalkers, TakeFolderOfFileSpec_FolderPart_IsAbsoluteAndGoes) {
    const std::string other = "/other";
    std::filesystem::create_directory(app.folder / "sub");
    app.state.FileSpec = "sub\\*.mp3";
    EXPECT_EQ(TakeFolderOfFileSpec(app, other), app.files.CurrentFolder() + "/sub");
    EXPECT_EQ(app.state.FileSpec, "*.mp3");
    EXPECT_EQ(TakeFolderOfFileSpec(app, other), other);
    app.state.FileSpec = "/music/x/*.mp3";
    EXPECT_EQ(TakeFolderOfFileSpec(app, other), "/music/x");
    app.state.FileSpec = "/unknown";
    EXPECT_EQ(TakeFolderOfFileSpec(app, other), other);
    EXPECT_EQ(app.state.FileSpec, "/unknown");
}

TEST_F(RenameWalkers, RenameAndRemember_GivesTheNewName) {
    MakeSong("one.mp3", "One");
    NewRenameMap(run);
    EXPECT_EQ(RenameAndRemember(run, Root(), "one.mp3"), "A - One.MP3");
    EXPECT_EQ(Remembered("one.mp3"), "A - One.MP3");
    EXPECT_EQ(RenameAndRemember(run, Root(), "none.mp3"), "none.mp3");
    EXPECT_EQ(Remembered("none.mp3"), "none.mp3");
}

TEST_F(RenameWalkers, NewRenameMap_ClearsTheOldOne) {
    NewRenameMap(run);
    run.map->Add("/a", "b");
    NewRenameMap(run);
    EXPECT_EQ(run.map->Count(), 0U);
    ClearRenameMap(run);
    EXPECT_FALSE(run.map.has_value());
    ClearRenameMap(run);
}

TEST_F(RenameWalkers, Preview_TellsEachFolderOnce) {
    std::ostringstream steps;
    app.steps = &steps;
    TellFolder(run, Root());
    TellFolder(run, Root() + "/a/b");
    TellFolder(run, Root() + "/a/b");
    TellFolder(run, Root());
    EXPECT_EQ(steps.str(), "in: a/b\nin: .\n");
}

TEST_F(RenameWalkers, NamesThatAreNoText_AreRenamedAndRemembered) {
    MakeSong("caf\xE9.mp3", "One");
    NewRenameMap(run);
    RenameFolderFiles(run, Root());
    EXPECT_EQ(Names(), Texts{"A - One.MP3"});
    EXPECT_EQ(Remembered("caf\xE9.mp3"), "A - One.MP3");
}

}  // namespace
}  // namespace zefta::test
