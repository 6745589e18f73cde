#include <map>
#include <sstream>

#include "core/TextLines.h"
#include "library/RenameJobs.h"
#include "library/RenameStage.h"
#include "platform/overlay/OverlayFileSystem.h"

namespace zefta::test {
namespace {

class RenameJobs : public RenameStage {
  protected:
    void Run(void (*job)(App&), const std::string& fileSpec, bool subfolders = false) {
        app.state.FileSpec = fileSpec;
        app.state.ProcessSubfolders = subfolders;
        job(app);
    }

    /// A folder with all that a job may come to, and lists of every kind of line.
    void MakeManyFiles() {
        for (const char* name : {"one.mp3", "sub/three.mp3", "sub/deep/four.mp3"}) MakeSong(name, name);
        for (const char* name : {"1.mp3", "2.mp3", "sub/1.mp3"}) MakeSong(name, "Same");
        Make("untagged.mp3", Mp3().Bytes());
        Make("list.m3u", "#EXTM3U\r\none.mp3\r\n1.mp3\r\nsub\\three.mp3\r\ngone.mp3\r\nuntagged.mp3");
        Make("sub/list.m3u", "1.mp3\n../2.mp3\n/absolute.mp3\n");
    }

    using Tree = std::map<std::string, std::string>;

    /// The bytes of all files by their paths, as that file system shows them.
    static Tree TreeOf(FileSystem& files, const std::string& folder) {
        Tree tree;
        for (const FolderEntry& entry : files.List(folder)) {
            const std::string path = folder + "/" + entry.name;
            if (entry.isFolder) {
                tree.merge(TreeOf(files, path));
            } else {
                tree[path] = BytesOf(ReadTextLines(files, path));
            }
        }
        return tree;
    }

    /// The steps of the job run on an overlay of the folder.
    std::string Preview(void (*job)(App&), std::int16_t format, FileSystem& overlay) {
        TestApp world(&overlay);
        overlay.SetCurrentFolder(Root());
        std::ostringstream steps;
        world.steps = &steps;
        world.state = app.state;
        world.state.RenameFormat = format;
        world.state.ProcessSubfolders = true;
        job(world);
        return steps.str();
    }
};

TEST_F(RenameJobs, Rename_TheFilesOfTheCurrentFolder) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Make("list.m3u", "one.mp3\n");
    Run(RenameJob, "*.*");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "list.m3u", "sub/two.mp3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "one.mp3\n");
}

TEST_F(RenameJobs, Rename_TheTree) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Run(RenameJob, "*.*", true);
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "sub/A - Two.MP3"}));
}

TEST_F(RenameJobs, Rename_FolderInTheMask) {
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    MakeSong("sub/three.mp3", "Three");
    Run(RenameJob, "sub\\t*o.mp3");
    EXPECT_EQ(Names(), (Texts{"one.mp3", "sub/A - Two.MP3", "sub/three.mp3"}));
    Run(RenameJob, Root() + "/sub/three.mp3");
    EXPECT_EQ(Names(), (Texts{"one.mp3", "sub/A - Three.MP3", "sub/A - Two.MP3"}));
}

TEST_F(RenameJobs, Rename_FolderThatIsNotThere_Is76) {
    EXPECT_EQ(RuntimeErrorOf([&] { Run(RenameJob, "none/*.mp3"); }), 76);
}

TEST_F(RenameJobs, Rename_UnknownWordWithASlash_MeansNoFiles) {
    MakeSong("one.mp3", "One");
    for (void (*job)(App&) : {RenameJob, RenameWithPlaylistsJob, RenameByPlaylistsJob})
        Run(job, "/unknown", true);
    EXPECT_EQ(Names(), Texts{"one.mp3"});
}

TEST_F(RenameJobs, RenameWithPlaylists_WritesTheNewNames) {
    MakeSong("one.mp3", "One");
    Make("list.m3u", "#EXTM3U\n#EXTINF:1,One\none.mp3\ngone.mp3\n");
    Run(RenameWithPlaylistsJob, "*.*");
    EXPECT_EQ(app.folder.Read("list.m3u"), "#EXTM3U\n#EXTINF:1,One\nA - One.MP3\ngone.mp3\n");
    EXPECT_EQ(app.state.FileSpec, "*.m3u");
}

TEST_F(RenameJobs, RenameWithPlaylists_OnlyMatchingFilesChange) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    Make("list.m3u", "one.mp3\ntwo.mp3\n");
    Run(RenameWithPlaylistsJob, "o*");
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - One.MP3\ntwo.mp3\n");
}

TEST_F(RenameJobs, RenameWithPlaylists_ListsOfSubfolders) {
    MakeSong("sub/two.mp3", "Two");
    Make("sub/list.m3u", "two.mp3\n");
    Make("above.m3u", "sub/two.mp3\n");
    Run(RenameWithPlaylistsJob, "*.*", true);
    EXPECT_EQ(app.folder.Read("sub/list.m3u"), "A - Two.MP3\n");
    EXPECT_EQ(app.folder.Read("above.m3u"), "A - Two.MP3\n");
}

TEST_F(RenameJobs, RenameWithPlaylists_FolderInTheMask_ListsOfThatFolder) {
    MakeSong("sub/two.mp3", "Two");
    Make("sub/list.m3u", "two.mp3\n");
    Run(RenameWithPlaylistsJob, "sub/*.mp3");
    EXPECT_EQ(app.folder.Read("sub/list.m3u"), "A - Two.MP3\n");
}

TEST_F(RenameJobs, RenameWithPlaylists_FoldersOfArtists) {
    app.state.RenameFormat = FormatWithFolder;
    MakeSong("one.mp3", "One");
    MakeSong("sub/two.mp3", "Two");
    Make("list.m3u", "one.mp3\n");
    Run(RenameWithPlaylistsJob, "*.*", true);
    EXPECT_EQ(Names(), (Texts{"A/One.MP3", "list.m3u", "sub/A/Two.MP3"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A/One.MP3\n");
}

TEST_F(RenameJobs, RenameByPlaylists_OneList_TheOthersLearn) {
    MakeSong("one.mp3", "One");
    MakeSong("two.mp3", "Two");
    Make("a.m3u", "#EXTM3U\none.mp3\n");
    Make("b.m3u", "#EXTM3U\ntwo.mp3\none.mp3\n");
    Run(RenameByPlaylistsJob, "a.m3u");
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("b.m3u"), "#EXTM3U\ntwo.mp3\nA - One.MP3\n");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "a.m3u", "b.m3u", "two.mp3"}));
}

TEST_F(RenameJobs, RenameByPlaylists_MaskOfFiles_RenamesThemWhereThereIsNoList) {
    MakeSong("one.mp3", "One");
    Make("b.m3u", "one.mp3\n");
    Run(RenameByPlaylistsJob, "*.mp3");
    EXPECT_EQ(Names(), (Texts{"A - One.MP3", "b.m3u"}));
    EXPECT_EQ(app.folder.Read("b.m3u"), "A - One.MP3\n");
}

TEST_F(RenameJobs, RenameByPlaylists_ListInASubfolder) {
    MakeSong("sub/one.mp3", "One");
    Make("sub/a.m3u", "one.mp3\n");
    Run(RenameByPlaylistsJob, "sub/a.m3u");
    EXPECT_EQ(app.folder.Read("sub/a.m3u"), "A - One.MP3\n");
}

TEST_F(RenameJobs, RenameByPlaylists_TwiceOverFilesOfTheSameTags_TheListStaysTrue) {
    const std::string first =
        Mp3().Behind(Id3v1{.title = "T", .artist = "A", .comment = "first"}.Bytes()).Bytes();
    const std::string second = Song("A", "T");
    Make("1.mp3", first);
    Make("2.mp3", second);
    Make("list.m3u", "1.mp3\n2.mp3\n");
    Run(RenameByPlaylistsJob, "*.m3u");
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - T.MP3\nA - T {2}.MP3\n");
    Run(RenameByPlaylistsJob, "*.m3u");
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - T {3}.MP3\nA - T.MP3\n");
    EXPECT_EQ(app.folder.Read("A - T {3}.MP3"), first);
    EXPECT_EQ(app.folder.Read("A - T.MP3"), second);
}

TEST_F(RenameJobs, RenameWithPlaylists_Failure_TheListsLearnTheNamesGivenBefore) {
    MakeSong("one.mp3", "One");
    Make("sub/bad.mp3", SongThatFails());
    Make("list.m3u", "one.mp3\nsub/bad.mp3\n");
    EXPECT_EQ(RuntimeErrorOf([&] { Run(RenameWithPlaylistsJob, "*.*", true); }), 13);
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - One.MP3\nsub/bad.mp3\n");
}

TEST_F(RenameJobs, RenameWithPlaylists_FolderThatIsNotThere_TouchesNoOther) {
    Make("list.m3u", "one.mp3\n");
    std::ostringstream steps;
    app.steps = &steps;
    EXPECT_EQ(RuntimeErrorOf([&] { Run(RenameWithPlaylistsJob, "none/*.mp3"); }), 76);
    EXPECT_EQ(steps.str(), "");
}

TEST_F(RenameJobs, RenameByPlaylists_Failure_TheOtherListsLearnTheNamesGivenBefore) {
    MakeSong("one.mp3", "One");
    Make("bad.mp3", SongThatFails());
    Make("a.m3u", "one.mp3\nbad.mp3\n");
    Make("b.m3u", "one.mp3\n");
    EXPECT_EQ(RuntimeErrorOf([&] { Run(RenameByPlaylistsJob, "a.m3u"); }), 13);
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - One.MP3\nbad.mp3\n");
    EXPECT_EQ(app.folder.Read("b.m3u"), "A - One.MP3\n");
}

TEST_F(RenameJobs, Preview_TellsAndDoesWhatARealRunDoes) {
    for (void (*job)(App&) : {RenameJob, RenameWithPlaylistsJob, RenameByPlaylistsJob}) {
        for (const std::int16_t format : {std::int16_t{1}, std::int16_t{4}}) {
            for (const std::string& name : Names()) std::filesystem::remove(app.folder / name);
            MakeManyFiles();
            app.state.FileSpec = "*";
            const Tree before = TreeOf(app.files, Root());
            OverlayFileSystem overlay(app.files);
            const std::string steps = Preview(job, format, overlay);
            const Tree shown = TreeOf(overlay, Root());
            EXPECT_EQ(TreeOf(app.files, Root()), before);
            EXPECT_NE(shown, before);
            std::ostringstream realSteps;
            app.steps = &realSteps;
            app.state.RenameFormat = format;
            Run(job, "*", true);
            EXPECT_EQ(steps, realSteps.str());
            EXPECT_TRUE(TreeOf(app.files, Root()) == shown);
        }
    }
}

}  // namespace
}  // namespace zefta::test
