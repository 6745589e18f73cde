#include <filesystem>
#include <sstream>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/Version.h"
#include "library/CopyPlaylistStage.h"

namespace zefta::test {
namespace {

class CopyPlaylistTest : public CopyPlaylistStage {};

TEST(NumberedName, Number_HasAtLeastThreeDigits) {
    EXPECT_EQ(NumberedName(7, "Song.mp3"), "(007) Song.mp3");
    EXPECT_EQ(NumberedName(999, "Song.mp3"), "(999) Song.mp3");
    EXPECT_EQ(NumberedName(1000, "Song.mp3"), "(1000) Song.mp3");
    EXPECT_EQ(NumberedName(123456, ""), "(123456) ");
}

TEST(NumberedName, LongName_IsCutAndKeepsItsExtension) {
    EXPECT_EQ(NumberedName(1, std::string(245, 'x') + ".mp3"), "(001) " + std::string(245, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1, std::string(246, 'x') + ".mp3"), "(001) " + std::string(245, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1000, std::string(251, 'x') + ".mp3"), "(1000) " + std::string(244, 'x') + ".mp3");
    EXPECT_EQ(NumberedName(1, "." + std::string(254, 'x')), "(001) ." + std::string(248, 'x'));
}

TEST(NumberedName, LongName_IsCutBetweenCharacters) {
    std::string name;
    for (int i = 0; i < 125; ++i) name += "\xC3\xBC";
    EXPECT_EQ(NumberedName(1, name + ".mp3"), "(001) " + name.substr(0, 244) + ".mp3");
    std::string bytes(250, '\xBC');
    EXPECT_LE(NumberedName(1, bytes + ".mp3").size(), 255U);
}

TEST_F(CopyPlaylistTest, Copy_NumbersTheTracksInTheOrderOfTheList) {
    WriteTracks({"b.mp3", "a.mp3"});
    EXPECT_EQ(Copy("b.mp3\na.mp3\n"), "usb/mix/mix.m3u");
    EXPECT_EQ(NewList(), "(001) b.mp3\n(002) a.mp3\n");
    EXPECT_EQ(Copied("(001) b.mp3"), "bytes of b.mp3");
    EXPECT_EQ(Copied("(002) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(EntryCount("usb/mix"), 3U);
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, Copy_OfAnyLength_KeepsEveryByte) {
    app.folder.Write("music/a.mp3", BigFile());
    app.folder.Write("music/empty.mp3", "");
    Copy("a.mp3\nempty.mp3");
    EXPECT_TRUE(Copied("(001) a.mp3") == BigFile());
    EXPECT_TRUE(app.folder.Read("music/a.mp3") == BigFile());
    EXPECT_EQ(Copied("(002) empty.mp3"), "");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) empty.mp3\n");
}

TEST_F(CopyPlaylistTest, HeaderAndComments_Vanish) {
    WriteTracks({"a.mp3"});
    Copy("\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:215,AC/DC - Title\r\na.mp3\r\n\r\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(CopyPlaylistTest, MissingTrack_TakesNoNumberAndNoLine) {
    WriteTracks({"a.mp3", "c.mp3"});
    Copy("a.mp3\nb.mp3\nC:\\c.mp3\n\\\\server\\share\\c.mp3\nc.mp3\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) c.mp3\n");
    EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(CopyPlaylistTest, ListWithoutTracks_GivesAnEmptyOne) {
    EXPECT_EQ(Copy(""), "usb/mix/mix.m3u");
    EXPECT_EQ(NewList(), "");
    EXPECT_TRUE(app.folder.Exists("usb/mix/mix.m3u"));
}

TEST_F(CopyPlaylistTest, OneFileTwice_IsCopiedTwice) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\na.mp3\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) a.mp3\n");
    EXPECT_EQ(Copied("(001) a.mp3"), Copied("(002) a.mp3"));
}

TEST_F(CopyPlaylistTest, Lines_MayBeFullPathsOrHaveFolders) {
    app.files.CreateFolder("music/sub");
    WriteTracks({"sub/a.mp3", "b.mp3"});
    app.folder.Write("c.mp3", "bytes of c");
    Copy("sub\\a.mp3\n" + app.folder.Path() + "/music/b.mp3\n../c.mp3\nsub\n");
    EXPECT_EQ(NewList(), "(001) a.mp3\n(002) b.mp3\n(003) c.mp3\n");
    EXPECT_EQ(Copied("(003) c.mp3"), "bytes of c");
}

TEST_F(CopyPlaylistTest, NameThatIsNoUtf8_KeepsItsBytes) {
    WriteTracks({"M\xFCller.mp3"});
    Copy("M\xFCller.mp3\n");
    EXPECT_EQ(NewList(), "(001) M\xFCller.mp3\n");
    EXPECT_TRUE(app.folder.Exists("usb/mix/(001) M\xFCller.mp3"));
}

TEST_F(CopyPlaylistTest, LongName_IsCut) {
    const std::string name = std::string(251, 'x') + ".mp3";
    WriteTracks({name});
    Copy(name + "\n");
    EXPECT_EQ(NewList(), "(001) " + std::string(245, 'x') + ".mp3\n");
    EXPECT_TRUE(app.folder.Exists("usb/mix/(001) " + std::string(245, 'x') + ".mp3"));
}

TEST_F(CopyPlaylistTest, MoreThan999Tracks_GrowTheNumber) {
    WriteTracks({"a.mp3"});
    std::string lines;
    for (int i = 0; i < 1001; ++i) lines += "a.mp3\n";
    Copy(lines);
    EXPECT_TRUE(app.folder.Exists("usb/mix/(999) a.mp3"));
    EXPECT_TRUE(app.folder.Exists("usb/mix/(1001) a.mp3"));
    EXPECT_EQ(EntryCount("usb/mix"), 1002U);
}

TEST_F(CopyPlaylistTest, NoPlaylistByName_IsRefused) {
    app.folder.Write("music/a.pls", "");
    EXPECT_EQ(CopyPlaylist(app, "music/a.pls", "usb"), "");
    EXPECT_EQ(CopyPlaylist(app, "music/a.m3u8", "usb"), "");
    EXPECT_EQ(Boxes(), (Texts{"Error opening the file specified!", "Error opening the file specified!"}));
    EXPECT_EQ(EntryCount("usb"), 0U);
}

TEST_F(CopyPlaylistTest, MissingPlaylist_IsToldAndNothingIsDone) {
    EXPECT_EQ(CopyPlaylist(app, "music/gone.m3u", "new"), "");
    app.files.CreateFolder("music/folder.m3u");
    EXPECT_EQ(CopyPlaylist(app, "music\\folder.m3u", "new"), "");
    EXPECT_EQ(Boxes(), (Texts{"File \"music/gone.m3u\" not found.", "File \"music/folder.m3u\" not found."}));
    EXPECT_FALSE(app.files.FolderExists("new"));
}

TEST_F(CopyPlaylistTest, PlaylistThatCannotBeRead_IsToldAndNothingIsDone) {
    ASSERT_EQ(mkfifo((app.folder / "music/pipe.m3u").c_str(), 0600), 0);
    EXPECT_EQ(CopyPlaylist(app, "music/pipe.m3u", "new"), "");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text.find("Error #70"), 0U);
    EXPECT_FALSE(app.files.FolderExists("new"));
}

TEST_F(CopyPlaylistTest, Playlist_IsTakenInAnyCase) {
    WriteTracks({"a.mp3"});
    app.folder.Write("music/LOUD.M3U", "A.MP3\n");
    EXPECT_EQ(CopyPlaylist(app, "music/LOUD.M3U", "usb"), "usb/LOUD/LOUD.M3U");
    EXPECT_EQ(app.folder.Read("usb/LOUD/LOUD.M3U"), "(001) a.mp3\n");
    EXPECT_EQ(app.folder.Read("usb/LOUD/(001) a.mp3"), "bytes of a.mp3");
}

TEST_F(CopyPlaylistTest, Names_AreSpelledAsOnTheDiskAndLinksAsInTheirLine) {
    app.files.CreateFolder("music/Sub");
    WriteTracks({"Sub/Song.mp3", "store.mp3"});
    std::filesystem::create_symlink("store.mp3", app.folder / "music/link.mp3");
    Copy("SUB\\SONG.MP3\nlink.mp3\nLINK.mp3\n");
    EXPECT_EQ(NewList(), "(001) Song.mp3\n(002) link.mp3\n(003) LINK.mp3\n");
    EXPECT_EQ(Copied("(003) LINK.mp3"), "bytes of store.mp3");
}

TEST_F(CopyPlaylistTest, TargetFolder_IsMade) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\n", "new");
    EXPECT_EQ(app.folder.Read("new/mix/(001) a.mp3"), "bytes of a.mp3");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, TargetThatCannotBeMade_AsksForAFolder) {
    WriteTracks({"a.mp3"});
    app.desktop.folders = {"usb"};
    Copy("a.mp3\n", "no/such");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text,
              "Select destination folder to place specified playlist and all tracks:");
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "no/such");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
}

TEST_F(CopyPlaylistTest, NoFolderChosen_DoesNothing) {
    WriteTracks({"a.mp3"});
    EXPECT_EQ(Copy("a.mp3\n", ""), "");
    app.desktop.folders = {"nowhere"};
    EXPECT_EQ(Copy("a.mp3\n", ""), "");
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(EntryCount("usb"), 0U);
    EXPECT_EQ(app.desktop.progressViewsOpened, 0);
}

TEST_F(CopyPlaylistTest, NewFolderThatIsThere_AsksAndNoStops) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.desktop.answers = {false};
    EXPECT_EQ(Copy("a.mp3\n"), "");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text, "Folder \"usb/mix\" already exist. Continue?");
    EXPECT_EQ(app.desktop.questions[0].caption, ApplicationTitle());
    EXPECT_EQ(EntryCount("usb/mix"), 0U);
}

TEST_F(CopyPlaylistTest, NewFolderThatIsThere_WithYesOverwritesWhatHasTheName) {
    WriteTracks({"a.mp3"});
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/(001) a.mp3", "an older and longer copy of the track");
    app.folder.Write("usb/mix/mix.m3u", "an older and longer list of the tracks");
    app.folder.Write("usb/mix/other.txt", "other");
    app.desktop.answers = {true};
    Copy("a.mp3\n");
    EXPECT_EQ(Copied("(001) a.mp3"), "bytes of a.mp3");
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
    EXPECT_EQ(Copied("other.txt"), "other");
    EXPECT_EQ(EntryCount("usb/mix"), 3U);
}

TEST_F(CopyPlaylistTest, NewFolderThatCannotBeMade_IsToldAndStops) {
    WriteTracks({"a.mp3"});
    app.folder.Write("usb/mix", "a file");
    EXPECT_EQ(Copy("a.mp3\n"), "");
    EXPECT_EQ(Boxes(), Texts{"Unable to create folder: usb/mix"});
    EXPECT_EQ(app.folder.Read("usb/mix"), "a file");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(CopyPlaylistTest, PlaylistNamedLikeTheParentFolder_IsNotCopiedIntoIt) {
    app.desktop.answers = {true, true};
    for (const char* name : {"music/.m3u", "music/..m3u", "music/...m3u"}) {
        app.folder.Write(name, "");
        EXPECT_EQ(CopyPlaylist(app, name, "usb"), "");
    }
    EXPECT_EQ(Boxes(), (Texts{"Unable to create folder: usb/", "Unable to create folder: usb/.",
                              "Unable to create folder: usb/.."}));
    EXPECT_EQ(EntryCount("usb"), 0U);
}

TEST_F(CopyPlaylistTest, PlaylistThatWouldBeItsOwnCopy_IsRefused) {
    app.files.CreateFolder("usb/mix");
    app.folder.Write("usb/mix/mix.m3u", "a.mp3\n");
    app.folder.Write("usb/mix/a.mp3", "bytes");
    app.desktop.answers = {true};
    EXPECT_EQ(CopyPlaylist(app, "usb/mix/mix.m3u", "usb"), "");
    EXPECT_EQ(Boxes(), Texts{"File \"usb/mix/mix.m3u\" could not be created."});
    EXPECT_EQ(NewList(), "a.mp3\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, TargetInTheFolderOfThePlaylist_Works) {
    WriteTracks({"a.mp3"});
    Copy("a.mp3\nmix.m3u\n", "music");
    EXPECT_EQ(app.folder.Read("music/mix/mix.m3u"), "(001) a.mp3\n(002) mix.m3u\n");
    EXPECT_EQ(app.folder.Read("music/mix/(002) mix.m3u"), "a.mp3\nmix.m3u\n");
    EXPECT_EQ(app.folder.Read("music/mix.m3u"), "a.mp3\nmix.m3u\n");
}

TEST_F(CopyPlaylistTest, Events_AreServedForEachLineAlsoBeforeTheFirstCopy) {
    std::string lines;
    for (int i = 0; i < 50; ++i) lines += "missing" + std::to_string(i) + ".mp3\n";
    const int before = app.desktop.servedEvents;
    Copy(lines);
    EXPECT_GE(app.desktop.servedEvents - before, 50);
}

TEST_F(CopyPlaylistTest, Progress_TellsTheFileAndTheWhole) {
    app.folder.Write("music/a.mp3", std::string(44100, 'a'));
    app.folder.Write("music/b.mp3", std::string(900, 'b'));
    Copy("a.mp3\nb.mp3\n");
    EXPECT_EQ(app.desktop.progressViewsOpened, 1);
    const auto& reports = app.desktop.reports;
    ASSERT_FALSE(reports.empty());
    const ProgressReport& first = reports.front();
    EXPECT_EQ(first.status, "copying playlist mix.m3u");
    EXPECT_EQ(first.labels.at("lblPlaylist"), "mix.m3u");
    EXPECT_EQ(first.labels.at("fraTotal"), "Total:");
    EXPECT_EQ(first.labels.at("fraCurrent"), "Current:");
    const ProgressReport& last = reports.back();
    EXPECT_EQ(last.fileName, app.files.CurrentFolder() + "/music/b.mp3");
    EXPECT_EQ(last.labels.at("lblFile"), last.fileName);
    EXPECT_EQ(last.maximum, 45000);
    EXPECT_EQ(last.value, 45000);
    EXPECT_EQ(last.current.maximum, 900);
    EXPECT_EQ(last.current.value, 900);
    EXPECT_EQ(last.labels.at("lblCurrent"), "900 bytes");
    EXPECT_EQ(last.labels.at("lblCurrentDone"), "900 bytes");
    EXPECT_EQ(last.labels.at("lblWritten"), "45 000 bytes");
    EXPECT_EQ(last.labels.at("lblRemaining"), "0 bytes");
    EXPECT_GT(app.desktop.servedEvents, 5);
}

TEST_F(CopyPlaylistTest, Preview_TellsWhatWouldBeCopied) {
    WriteTracks({"a.mp3"});
    std::ostringstream steps;
    app.steps = &steps;
    Copy("#EXTM3U\ngone.mp3\na.mp3\n", "new");
    const std::string here = app.files.CurrentFolder();
    EXPECT_EQ(steps.str(), "folder: new\nfolder: new/mix\nrefused: gone.mp3: no such file\ncopy: " + here +
                               "/music/a.mp3 -> new/mix/(001) a.mp3\nwrite: new/mix/mix.m3u: 1 entries\n");
    EXPECT_FALSE(app.folder.Exists("new/mix/(001) a.mp3"));
}

TEST_F(CopyPlaylistTest, Preview_TellsWhatWouldBeRefusedAndCountsItsLine) {
    WriteTracks({"a.mp3", "b.mp3", "huge.mp3"});
    std::filesystem::resize_file(app.folder / "music/huge.mp3", 32768LL * 44100);
    app.files.CreateFolder("usb/mix");
    app.files.CreateFolder("usb/mix/(001) a.mp3");
    app.desktop.answers = {true};
    std::ostringstream steps;
    app.steps = &steps;
    Copy("a.mp3\nb.mp3\nhuge.mp3\n");
    const std::string music = app.files.CurrentFolder() + "/music/";
    EXPECT_EQ(steps.str(), "refused: " + music + "a.mp3: usb/mix/(001) a.mp3 can't be created\ncopy: " +
                               music + "b.mp3 -> usb/mix/(002) b.mp3\nrefused: " + music +
                               "huge.mp3: Overflow\nwrite: usb/mix/mix.m3u: 3 entries\n");
    EXPECT_EQ(EntryCount("usb/mix"), 2U);
}

TEST_F(CopyPlaylistTest, Preview_TellsAListThatNamesNoFile) {
    std::ostringstream steps;
    app.steps = &steps;
    Copy("#EXTM3U\ra.mp3\r");
    EXPECT_NE(steps.str().find("refused: mix.m3u: no line names a file\n"), std::string::npos);
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(CopyPlaylistTest, Job_TakesItsFieldsFromTheRecord) {
    WriteTracks({"a.mp3"});
    app.folder.Write("music/mix.m3u", "a.mp3\n");
    app.state.FileSpec = "music\\mix.m3u";
    app.state.TargetPath = "usb";
    CopyPlaylistJob(app);
    EXPECT_EQ(NewList(), "(001) a.mp3\n");
}

}  // namespace
}  // namespace zefta::test
