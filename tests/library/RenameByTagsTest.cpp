#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "library/RenameByTags.h"
#include "support/ApeBuilder.h"
#include "support/CountingFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

std::string Mp3With(const Id3v1& tag) {
    return Mp3().Behind(tag.Bytes()).Bytes();
}

std::string TaggedSong(const std::string& artist, const std::string& title) {
    return Mp3With({.title = title, .artist = artist});
}

class RenameByTagsTest : public ::testing::Test {
  protected:
    /// Gives the file that name, content and then a new name; the new one, or "<result> name" when it was
    /// refused.
    std::string Renamed(const std::string& name, const std::string& bytes, int mode) {
        app.folder.Write(name, bytes);
        return Rename(name, mode);
    }

    std::string Rename(std::string name, int mode) {
        const int result = wave.RenameFileByTAGsData(app.folder.Path(), name, mode);
        return result == 0 ? name : std::to_string(result) + " " + name;
    }

    std::string ByTemplate(const std::string& text, const std::string& name, const std::string& bytes) {
        app.state.CustomRenameTemplate = text;
        return Renamed(name, bytes, 6);
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(app.folder.Path()))
            names.push_back(entry.path().string().substr(app.folder.Path().size() + 1));
        std::sort(names.begin(), names.end());
        return names;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
    WaveFile wave = WaveFile(app);
};

const std::string SongBytes = TaggedSong("Artist", "Title");
const Id3v1 Filled = {
    .title = "Title", .artist = "Artist", .album = "Album", .year = "1999", .comment = "Mix", .track = 7};

TEST_F(RenameByTagsTest, EveryMode_NamesTheFile) {
    const std::string bytes = Mp3With(Filled);
    app.state.CustomRenameTemplate = "%N3 %L (%Y)";
    const std::string expected[] = {"Artist - Title.MP3",       "Artist - Title (Mix).MP3",
                                    "Title (Mix).MP3",          "Artist/Title (Mix).MP3",
                                    "Artist_-_Title_(Mix).MP3", "007 Album (1999).MP3"};
    for (int mode = 1; mode <= 6; ++mode) {
        const std::string& name = expected[mode - 1];
        EXPECT_EQ(Renamed("a.mp3", bytes, mode), name);
        EXPECT_EQ(app.folder.Read(name), bytes);
        EXPECT_FALSE(app.folder.Exists("a.mp3"));
    }
    EXPECT_EQ(Names().size(), 7U);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameByTagsTest, OtherMode_DoublesTheExtension) {
    EXPECT_EQ(Renamed("a.mp3", SongBytes, 0), "a.mp3.MP3");
    EXPECT_EQ(Renamed("b.mp3", SongBytes, 9), "b.mp3.MP3");
    EXPECT_EQ(Names(), (Texts{"a.mp3.MP3", "b.mp3.MP3"}));
}

TEST_F(RenameByTagsTest, Extension_IsInUpperCaseForMP3Only) {
    EXPECT_EQ(Renamed("a.Mp3", SongBytes, 1), "Artist - Title.MP3");
    const std::string ogg = Ogg().Comment("ARTIST=A").Comment("TITLE=Ogg").Bytes();
    EXPECT_EQ(Renamed("a.OGG", ogg, 1), "A - Ogg.ogg");
    const std::string mpc = Mpc7(100) + Ape().Item("Artist", "A").Item("Title", "Mpc").Bytes();
    EXPECT_EQ(Renamed("a.MPC", mpc, 1), "A - Mpc.mpc");
    EXPECT_EQ(Renamed("a.MP+", mpc, 1), "A - Mpc.mp+");
}

TEST_F(RenameByTagsTest, Extension_IsAlwaysFourCharacters) {
    EXPECT_EQ(Renamed("xmp3", SongBytes, 1), "Artist - TitleXMP3");
    EXPECT_EQ(Renamed("mp3", SongBytes, 1), "Artist - TitleMP3");
    EXPECT_EQ(Renamed("aжmp3", SongBytes, 1), "Artist - TitleЖMP3");
}

TEST_F(RenameByTagsTest, OtherKinds_AreRefusedUnread) {
    for (const std::string name : {"a.wav", "a.m3u", "a.mp2", "a", ""}) {
        std::string given = name;
        EXPECT_EQ(wave.RenameFileByTAGsData(app.folder / "none", given, 1), 3);
        EXPECT_EQ(given, name);
    }
    EXPECT_EQ(Renamed("b.wav", SongBytes, 1), "3 b.wav");
    EXPECT_EQ(Names(), Texts{"b.wav"});
}

TEST_F(RenameByTagsTest, FileThatCannotBeRead_IsRefused) {
    EXPECT_EQ(Rename("none.mp3", 1), "1 none.mp3");
    EXPECT_EQ(Rename("none.ogg", 1), "1 none.ogg");
    EXPECT_EQ(Rename("none.mpc", 1), "1 none.mpc");
    std::filesystem::create_directory(app.folder / "folder.mp3");
    EXPECT_EQ(Rename("folder.mp3", 1), "1 folder.mp3");
    EXPECT_EQ(Names(), Texts{"folder.mp3"});
}

TEST_F(RenameByTagsTest, NeitherArtistNorTitle_IsRefused) {
    EXPECT_EQ(Renamed("a.mp3", Mp3With({.album = "Album", .year = "1999"}), 1), "1 a.mp3");
    EXPECT_EQ(Renamed("a.ogg", Ogg().Comment("ALBUM=L").Bytes(), 1), "1 a.ogg");
    EXPECT_EQ(Renamed("a.mpc", Mpc7(100), 1), "1 a.mpc");
    EXPECT_EQ(Renamed("b.mp3", "", 1), "1 b.mp3");
    EXPECT_EQ(Names(), (Texts{"a.mp3", "a.mpc", "a.ogg", "b.mp3"}));
}

TEST_F(RenameByTagsTest, ArtistOrTitleAlone_IsEnough) {
    EXPECT_EQ(Renamed("a.mp3", TaggedSong("Artist", ""), 1), "Artist -.MP3");
    EXPECT_EQ(Renamed("b.mp3", TaggedSong("", "Title"), 1), " - Title.MP3");
    EXPECT_EQ(Renamed("c.mp3", TaggedSong("", "Title"), 4), "Title.MP3");
}

TEST_F(RenameByTagsTest, MP3_IsRefusedByItsID3v1WhateverID3v2Holds) {
    const std::string id3v2 = Id3v2(TextFrame("TPE1", "A") + TextFrame("TIT2", "T"), 200);
    EXPECT_EQ(Renamed("a.mp3", Mp3().InFront(id3v2).Bytes(), 1), "1 a.mp3");
    EXPECT_EQ(Renamed("a.mp3", Mp3().InFront(id3v2).Behind(Id3v1{.title = "x"}.Bytes()).Bytes(), 1),
              "A - T.MP3");
}

TEST_F(RenameByTagsTest, MP3_TakesEachValueOfID3v2ThatIsThere) {
    const std::string frames =
        TextFrame("TIT2", "Two (Mix Two)") + TextFrame("TYER", "2002") + TextFrame("TRCK", "12");
    const std::string bytes = Mp3().InFront(Id3v2(frames, 200)).Behind(Filled.Bytes()).Bytes();
    EXPECT_EQ(ByTemplate("%N %A %T [%M] %Y %L", "a.mp3", bytes), "12 Artist Two [Mix Two] 2002 Album.MP3");
}

TEST_F(RenameByTagsTest, MP3_TrackThatIsNoNumber_EndsTheCall) {
    const std::string bytes =
        Mp3().InFront(Id3v2(TextFrame("TRCK", "3/12"), 200)).Behind(Filled.Bytes()).Bytes();
    app.folder.Write("a.mp3", bytes);
    for (int mode = 1; mode <= 6; ++mode) EXPECT_EQ(RuntimeErrorOf([&] { Rename("a.mp3", mode); }), 13);
    EXPECT_EQ(Names(), Texts{"a.mp3"});
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(RenameByTagsTest, MP3_TrackOutsideTheRange_IsNone) {
    const std::string bytes =
        Mp3().InFront(Id3v2(TextFrame("TRCK", "256"), 200)).Behind(Filled.Bytes()).Bytes();
    EXPECT_EQ(ByTemplate("%N. %T", "a.mp3", bytes), ". Title.MP3");
}

TEST_F(RenameByTagsTest, MP3_WithoutTrack_HasZero) {
    EXPECT_EQ(ByTemplate("%N %T", "a.mp3", SongBytes), "00 Title.MP3");
    EXPECT_EQ(ByTemplate("%N %T", "a.mp3", Mp3With(Filled)), "07 Title.MP3");
}

TEST_F(RenameByTagsTest, Ogg_TakesDateAndTrackOfItsComments) {
    const Ogg ogg = Ogg().Comment("ARTIST=A").Comment("TITLE=T").Comment("ALBUM=L").Comment("DATE=2003-05");
    EXPECT_EQ(ByTemplate("%N. %A - %T [%M] %Y %L", "a.ogg", ogg.Bytes()), ". A - T  2003-05 L.ogg");
    EXPECT_EQ(ByTemplate("%N %A", "a.ogg", Ogg(ogg).Comment("TRACKNUMBER=3/12").Bytes()), "03 A.ogg");
    EXPECT_EQ(ByTemplate("%N %A", "a.ogg", Ogg(ogg).Comment("TRACKNUMBER=1000").Bytes()), "1000 A.ogg");
}

TEST_F(RenameByTagsTest, MPEGplus_TakesTheItemsOfItsTag) {
    const Ape ape = Ape().Item("Artist", "A").Item("Title", "T (M)").Item("Album", "L").Item("Year", "2004");
    EXPECT_EQ(ByTemplate("%N. %A - %T [%M] %Y %L", "a.mpc", Mpc7(100) + ape.Bytes()),
              ". A - T [M] 2004 L.mpc");
    const std::string numbered = Mpc7(100) + Ape(ape).Item("Track", "5/9").Bytes();
    EXPECT_EQ(ByTemplate("%N %A", "a.mpc", numbered), "05 A.mpc");
}

TEST_F(RenameByTagsTest, Mode5_TurnsTranslationOnForTheRun) {
    const std::string bytes = Mp3With({.title = "G\xE9n\xE9rique", .artist = "Bj\xF6rk"});
    EXPECT_EQ(Renamed("a.mp3", bytes, 1), "Björk - Générique.MP3");
    EXPECT_EQ(Renamed("b.mp3", bytes, 5), "Bjork_-_Generique.MP3");
    EXPECT_EQ(Renamed("c.mp3", bytes, 1), "Bjork - Generique.MP3");
    EXPECT_TRUE(app.state.TranslateNames);
}

TEST_F(RenameByTagsTest, Mode5_TurnsTranslationOnAlsoByARefusedFile) {
    EXPECT_EQ(Rename("a.wav", 5), "3 a.wav");
    EXPECT_TRUE(app.state.TranslateNames);
}

TEST_F(RenameByTagsTest, OtherModes_LeaveTranslationAsItIs) {
    for (const int mode : {1, 2, 3, 4, 6}) Rename("a.wav", mode);
    EXPECT_FALSE(app.state.TranslateNames);
    app.state.TranslateNames = true;
    EXPECT_EQ(Renamed("a.mp3", TaggedSong("Bj\xF6rk", "T"), 1), "Bjork - T.MP3");
    EXPECT_TRUE(app.state.TranslateNames);
}

TEST_F(RenameByTagsTest, Mode4_TakesTheFolderThatIsThereInAnyCase) {
    EXPECT_EQ(Renamed("a.mp3", TaggedSong("Artist", "One"), 4), "Artist/One.MP3");
    EXPECT_EQ(Renamed("b.mp3", TaggedSong("ARTIST", "Two"), 4), "Artist/Two.MP3");
    EXPECT_EQ(Names(), (Texts{"Artist", "Artist/One.MP3", "Artist/Two.MP3"}));
}

TEST_F(RenameByTagsTest, Mode4_NameIsNoSubfolder) {
    EXPECT_EQ(Renamed("a.mp3", TaggedSong("../AC/DC", "x/../y"), 4), ".._AC_DC/x_.._y.MP3");
    EXPECT_EQ(Renamed("b.mp3", TaggedSong("..", "Up"), 4), "Up.MP3");
    EXPECT_EQ(Names(), (Texts{".._AC_DC", ".._AC_DC/x_.._y.MP3", "Up.MP3"}));
}

TEST_F(RenameByTagsTest, Mode4_TitleAbsent_IsTheExtensionInTheFolder) {
    EXPECT_EQ(Renamed("a.mp3", TaggedSong("Artist", ""), 4), "Artist/.MP3");
}

TEST_F(RenameByTagsTest, Mode6_CreatesNoFolders) {
    EXPECT_EQ(ByTemplate("%A\\%L\\%N", "a.mp3", Mp3With(Filled)), "Artist_Album_07.MP3");
}

TEST_F(RenameByTagsTest, EmptyName_LeavesTheFileAlone) {
    EXPECT_EQ(ByTemplate("%M", "a.mp3", SongBytes), ".MP3");
    EXPECT_EQ(ByTemplate("", "b.ogg", Ogg().Comment("ARTIST=A").Bytes()), ".ogg");
    EXPECT_EQ(Renamed("c.mp3", TaggedSong("Artist", ""), 3), ".MP3");
    EXPECT_EQ(Names(), (Texts{"a.mp3", "b.ogg", "c.mp3"}));
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameByTagsTest, EqualTags_AreNumbered) {
    EXPECT_EQ(Renamed("a.mp3", SongBytes, 1), "Artist - Title.MP3");
    EXPECT_EQ(Renamed("b.mp3", SongBytes, 1), "Artist - Title {2}.MP3");
    EXPECT_EQ(Renamed("c.mp3", SongBytes, 1), "Artist - Title {3}.MP3");
    EXPECT_EQ(Renamed("d.mp3", SongBytes, 4), "Artist/Title.MP3");
    EXPECT_EQ(Renamed("e.mp3", SongBytes, 4), "Artist/Title {2}.MP3");
}

TEST_F(RenameByTagsTest, FileThatHasItsName_GetsANumberAndLosesItAgain) {
    EXPECT_EQ(Renamed("Artist - Title.MP3", SongBytes, 1), "Artist - Title {2}.MP3");
    EXPECT_EQ(Rename("Artist - Title {2}.MP3", 1), "Artist - Title.MP3");
    EXPECT_EQ(Names(), Texts{"Artist - Title.MP3"});
}

TEST_F(RenameByTagsTest, FileWithTheNumberThatItWouldGet_GetsTheNextOne) {
    app.folder.Write("Artist - Title.MP3", "x");
    EXPECT_EQ(Renamed("Artist - Title {2}.MP3", SongBytes, 1), "Artist - Title {3}.MP3");
}

TEST_F(RenameByTagsTest, OtherCaseOfItsOwnName_IsARename) {
    EXPECT_EQ(Renamed("artist - title.mp3", SongBytes, 1), "Artist - Title.MP3");
    EXPECT_EQ(Names(), Texts{"Artist - Title.MP3"});
}

TEST_F(RenameByTagsTest, NameTakenInAnotherCase_IsTaken) {
    app.folder.Write("ARTIST - TITLE.mp3", "x");
    EXPECT_EQ(Renamed("a.mp3", SongBytes, 1), "Artist - Title {2}.MP3");
    EXPECT_EQ(app.folder.Read("ARTIST - TITLE.mp3"), "x");
}

TEST_F(RenameByTagsTest, NameTakenByAFolder_IsTaken) {
    std::filesystem::create_directory(app.folder / "Artist - Title.MP3");
    std::filesystem::create_directory(app.folder / "Artist - Title {2}.MP3");
    EXPECT_EQ(Renamed("a.mp3", SongBytes, 1), "Artist - Title {3}.MP3");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameByTagsTest, NameThatLeavesNoRoomForTheNumber_IsCut) {
    const std::string text(400, 't');
    const std::string frames = TextFrame("TIT2", text);
    const std::string bytes = Mp3().InFront(Id3v2(frames, 1000)).Behind(Filled.Bytes()).Bytes();
    EXPECT_EQ(ByTemplate("%T", "a.mp3", bytes), text.substr(0, 251) + ".MP3");
    EXPECT_EQ(ByTemplate("%T", "b.mp3", bytes), text.substr(0, 247) + " {2}.MP3");
    EXPECT_EQ(ByTemplate("%T", "c.mp3", bytes), text.substr(0, 247) + " {3}.MP3");
}

TEST_F(RenameByTagsTest, CutForTheNumber_LiesBetweenCharactersAndLeavesTheFolder) {
    std::string title;
    for (int i = 0; i < 200; ++i) title += "ж";
    const std::string ogg = Ogg().Comment("ARTIST=A").Comment("TITLE=" + title).Bytes();
    EXPECT_EQ(Renamed("a.ogg", ogg, 4), "A/" + title.substr(0, 250) + ".ogg");
    EXPECT_EQ(Renamed("b.ogg", ogg, 4), "A/" + title.substr(0, 246) + " {2}.ogg");
}

TEST_F(RenameByTagsTest, NameOfTheFile_MayBeNoUtf8) {
    EXPECT_EQ(Renamed("caf\xE9.mp3", SongBytes, 1), "Artist - Title.MP3");
    EXPECT_EQ(Renamed("caf\xE9.mp3", SongBytes, 9), "caf\xE9.mp3.MP3");
    EXPECT_EQ(Renamed("\xE9mp3", SongBytes, 9), "\xE9mp3\xE9MP3");
    EXPECT_EQ(app.folder.Read("Artist - Title.MP3"), SongBytes);
    EXPECT_EQ(app.folder.Read("caf\xE9.mp3.MP3"), SongBytes);
}

TEST_F(RenameByTagsTest, FileInAnyFolder_StaysInIt) {
    std::filesystem::create_directory(app.folder / "sub");
    app.folder.Write("sub/a.mp3", SongBytes);
    std::string name = "a.mp3";
    EXPECT_EQ(wave.RenameFileByTAGsData("sub", name, 1), 0);
    EXPECT_EQ(name, "Artist - Title.MP3");
    app.folder.Write("b.mp3", SongBytes);
    name = "b.mp3";
    EXPECT_EQ(wave.RenameFileByTAGsData("", name, 1), 0);
    EXPECT_EQ(Names(), (Texts{"Artist - Title.MP3", "sub", "sub/Artist - Title.MP3"}));
}

TEST_F(RenameByTagsTest, ReadOnlyFile_IsRenamed) {
    app.folder.Write("a.mp3", SongBytes);
    app.files.SetReadOnly(app.folder / "a.mp3", true);
    EXPECT_EQ(Rename("a.mp3", 1), "Artist - Title.MP3");
    EXPECT_TRUE(app.files.IsReadOnly(app.folder / "Artist - Title.MP3"));
}

TEST_F(RenameByTagsTest, Link_IsRenamedItself) {
    app.folder.Write("real.bin", SongBytes);
    std::filesystem::create_symlink("real.bin", app.folder / "a.mp3");
    EXPECT_EQ(Rename("a.mp3", 1), "Artist - Title.MP3");
    EXPECT_EQ(Names(), (Texts{"Artist - Title.MP3", "real.bin"}));
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "Artist - Title.MP3"));
}

TEST_F(RenameByTagsTest, Steps_AreToldInAPreview) {
    std::ostringstream steps;
    app.steps = &steps;
    app.state.CustomRenameTemplate = "%M";
    Renamed("a.mp3", SongBytes, 1);
    Renamed("b.mp3", SongBytes, 1);
    Renamed("c.mp3", SongBytes, 4);
    Renamed("d.mp3", SongBytes, 6);
    Rename("e.wav", 1);
    Rename("f.mp3", 1);
    Renamed("g.mp3", TaggedSong("", ""), 1);
    EXPECT_EQ(steps.str(),
              "rename: a.mp3 -> Artist - Title.MP3\n"
              "collision: Artist - Title.MP3 is taken\n"
              "rename: b.mp3 -> Artist - Title {2}.MP3\n"
              "folder: Artist\n"
              "rename: c.mp3 -> Artist/Title.MP3\n"
              "unchanged: d.mp3\n"
              "refused: e.wav: no kind of file that has tags\n"
              "refused: f.mp3: can't be read\n"
              "refused: g.mp3: holds neither artist nor title\n");
}

TEST(ReadForRename, ChangesNothingAndOpensTheFileOnce) {
    CountingFileSystem files;
    TestApp app(&files);
    app.folder.Write("a.mp3", SongBytes);
    const FileReading reading = {files, app.ansi, UnknownContent::PassOver};
    const RenamePlan plan = ReadForRename(reading, {4, {}, false}, app.folder.Path(), "a.mp3");
    EXPECT_EQ(plan.result, 0);
    EXPECT_EQ(plan.reason, "");
    EXPECT_EQ(plan.extension, ".MP3");
    EXPECT_EQ(plan.wanted.folder, "Artist");
    EXPECT_EQ(plan.wanted.name, "Title");
    EXPECT_EQ(files.count.opens, 1);
    EXPECT_TRUE(app.folder.Exists("a.mp3"));
    EXPECT_FALSE(app.folder.Exists("Artist"));
}

}  // namespace
}  // namespace zefta::test
