// What stands when the person ends work on many files: what was done, and all lists true.

#include "library/ChangeTagsWalkers.h"
#include "library/CopyPlaylist.h"
#include "library/Playlist.h"
#include "library/RenameCommands.h"
#include "library/RenameJobs.h"
#include "library/RenameStage.h"

namespace zefta::test {
namespace {

class Cancel : public RenameStage {
  protected:
    Cancel() {
        MakeSong("1.mp3", "One");
        MakeSong("2.mp3", "Two");
        MakeSong("3.mp3", "Three");
    }

    /// The person cancels in front of that item.
    void CancelAt(std::size_t item) { app.desktop.cancelsFromItem = item; }

    std::size_t CountRenamed() const {
        const Texts names = Names();
        return static_cast<std::size_t>(
            std::count_if(names.begin(), names.end(),
                          [](const std::string& name) { return name.find("A - ") != std::string::npos; }));
    }
};

TEST_F(Cancel, RenameInATree_LeavesTheRestAlone) {
    MakeSong("sub/4.mp3", "Four");
    app.state.ProcessSubfolders = true;
    CancelAt(3);
    RenameJob(app);
    EXPECT_EQ(CountRenamed(), 2U);
    EXPECT_TRUE(app.folder.Exists("sub/4.mp3"));
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>{0, 0}));
}

TEST_F(Cancel, RenameInATreeWithoutFiles_AnswersInEachFolder) {
    for (int i = 0; i < 20; ++i) std::filesystem::create_directories(app.folder / ("s/" + std::to_string(i)));
    app.state.ProcessSubfolders = true;
    app.state.FileSpec = "*.ogg";
    RenameWithPlaylistsJob(app);
    EXPECT_EQ(app.desktop.servedEvents, 2 * 21) << "the walk of the files, and that of the lists";
    app.desktop.servedEvents = 0;
    app.desktop.asksToCancel = [this] { return app.desktop.servedEvents >= 3; };
    RenameJob(app);
    EXPECT_EQ(app.desktop.servedEvents, 3);
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>{0, 0}));
}

TEST_F(Cancel, RenameInATree_ListsOfSubfoldersLearnAllTheSame) {
    for (int i = 0; i < 5; ++i) Make("sub" + std::to_string(i) + "/l.m3u", "../1.mp3\n../2.mp3\n../3.mp3\n");
    app.state.ProcessSubfolders = true;
    CancelAt(2);
    RenameWithPlaylistsJob(app);
    EXPECT_EQ(CountRenamed(), 1U);
    for (int i = 0; i < 5; ++i)
        EXPECT_NE(app.folder.Read("sub" + std::to_string(i) + "/l.m3u").find("A - "), std::string::npos) << i;
}

TEST_F(Cancel, RenameWithPlaylists_TheListsLearnTheNamesGiven) {
    Make("all.m3u", "1.mp3\n2.mp3\n3.mp3\n");
    CancelAt(2);
    RenameWithPlaylistsJob(app);
    EXPECT_EQ(CountRenamed(), 1U);
    const std::string list = app.folder.Read("all.m3u");
    for (const std::string& name : Names()) {
        if (name == "all.m3u") continue;
        EXPECT_NE(list.find(name + "\n"), std::string::npos) << name << " in " << list;
    }
}

TEST_F(Cancel, RenameByPlaylists_LinesBehindStayAndAllListsLearn) {
    Make("a.m3u", "#EXTM3U\n1.mp3\n2.mp3\n#EXTINF:1,Three\n3.mp3\n");
    Make("b.m3u", "3.mp3\n1.mp3\n");
    app.state.FileSpec = "a.m3u";
    CancelAt(4);
    RenameByPlaylistsJob(app);
    EXPECT_EQ(app.folder.Read("a.m3u"), "#EXTM3U\nA - One.MP3\nA - Two.MP3\n#EXTINF:1,Three\n3.mp3\n");
    EXPECT_EQ(app.folder.Read("b.m3u"), "3.mp3\nA - One.MP3\n");
    EXPECT_TRUE(app.folder.Exists("3.mp3"));
}

TEST_F(Cancel, RenameByPlaylists_TheNextListIsNotBegun) {
    Make("a.m3u", "1.mp3\n");
    Make("b.m3u", "1.mp3\n2.mp3\n");
    CancelAt(2);
    RenameFilesOfPlaylists(app, Root(), {"a.m3u", "b.m3u"});
    EXPECT_EQ(app.folder.Read("a.m3u"), "A - One.MP3\n");
    EXPECT_EQ(app.folder.Read("b.m3u"), "A - One.MP3\n2.mp3\n");
}

TEST_F(Cancel, RenameOfASelection_EndsBehindTheFileAtHand) {
    Texts told;
    CancelAt(2);
    RenameSelectedFiles(app, Root(), {"1.mp3", "2.mp3", "3.mp3"},
                        [&](const std::string& old, const std::string&) { told.push_back(old); });
    EXPECT_EQ(told, (Texts{"1.mp3"}));
}

TEST_F(Cancel, ExtendedRenameOfASelection_TheListsLearn) {
    Make("all.m3u", "1.mp3\n2.mp3\n");
    CancelAt(2);
    RenameExtended(app,
                   {.folder = Root(),
                    .filter = ExtendedRename::Filter::SelectedFiles,
                    .mask = {},
                    .selected = {"1.mp3", "2.mp3"},
                    .updatePlaylists = true},
                   [](const std::string&, const std::string&) {});
    EXPECT_EQ(app.folder.Read("all.m3u"), "A - One.MP3\n2.mp3\n");
}

TEST_F(Cancel, ChangeTags_FilesBehindStay) {
    MakeSong("sub/4.mp3", "Four");
    app.state.OptAlbum = "New ";
    app.state.ProcessSubfolders = true;
    CancelAt(2);
    ChangeTagsJob(app);
    std::size_t changed = 0;
    for (const std::string& name : Names())
        changed += wave.GetMP3FileInfo(app.folder / name).Album == "New" ? 1U : 0U;
    EXPECT_EQ(changed, 1U);
}

TEST_F(Cancel, CopyOfAPlaylist_TheCopyHoldsTheTracksUpToThere) {
    Make("mix.m3u", "3.mp3\n2.mp3\n1.mp3\n");
    std::filesystem::create_directories(app.folder / "usb");
    CancelAt(3);
    CopyPlaylist(app, app.folder / "mix.m3u", app.folder / "usb");
    EXPECT_EQ(app.folder.Read("usb/mix/mix.m3u"), "(001) 3.mp3\n(002) 2.mp3\n");
    EXPECT_FALSE(app.folder.Exists("usb/mix/(003) 1.mp3"));
}

TEST_F(Cancel, MakingAPlaylist_LeavesTheFormerOne) {
    Make("!Playlist.m3u", "old\n");
    CancelAt(1);
    MakePlaylist(app);
    EXPECT_EQ(app.folder.Read("!Playlist.m3u"), "old\n");
    app.desktop.cancelsFromItem = 0;
    MakePlaylist(app);
    EXPECT_NE(app.folder.Read("!Playlist.m3u"), "old\n");
}

}  // namespace
}  // namespace zefta::test
