// What is the same for all kinds: what is passed over or refused, same bytes, values of the options.

#include <filesystem>
#include <sys/stat.h>

#include "library/ChangeTagsStage.h"
#include "support/ApeBuilder.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST_F(ChangeTagsTest, ValuesThatAreNoUtf8OrSeveral_AreRefused) {
    const std::pair<std::string, std::string> files[] = {
        {"a.ogg", Ogg().Comment("artist=caf\xE9").Bytes()},
        {"b.ogg", Ogg().Comment("title=a\0b"s).Bytes()},
        {"a.mpc", Mpc8() + Ape().Item("Artist", "caf\xE9").Bytes()},
        {"b.mpc", Mpc8() + Ape().Item("Artist", "One\0Two"s).Bytes()},
    };
    for (const auto& [name, bytes] : files) {
        EXPECT_TRUE(Changed(name, bytes, All) == bytes) << name;
        EXPECT_EQ(StepsOf(name, All), "refused: " + name + ": its tag holds more than can be carried over\n");
    }
    EXPECT_EQ(app.desktop.boxes.size(), 8U);
}

// What is passed over.

TEST_F(ChangeTagsTest, FileThatCannotBeRead_IsPassedOverSilently) {
    Change("none.mp3", All);
    app.folder.Write("a.mpc", "MP+\7"s + std::string(500, '\0'));
    app.folder.Write("b.mp3", Audio(500) + "LYRICSEND" + Audio(100));
    const std::string mpc = app.folder.Read("a.mpc");
    const std::string mp3 = app.folder.Read("b.mp3");
    Change("a.mpc", All);
    Change("b.mp3", All);
    EXPECT_TRUE(app.folder.Read("a.mpc") == mpc);
    EXPECT_TRUE(app.folder.Read("b.mp3") == mp3);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(app.desktop.notes.size(), 2U);
    EXPECT_EQ(StepsOf("none.mp3", All), "refused: none.mp3: it can't be opened\n");
    EXPECT_EQ(StepsOf("b.mp3", All), "refused: b.mp3: it can't be read: Type mismatch\n");
}

TEST_F(ChangeTagsTest, ReadOnly_AnsweredNo_IsPassedOver) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) {
        const std::string bytes = name == "a.mp3"s   ? Mp3().Size(2000).Bytes()
                                  : name == "a.ogg"s ? Ogg().Bytes()
                                                     : Mpc8();
        app.folder.Write(name, bytes);
        app.files.SetReadOnly(app.folder / name, true);
        app.desktop.answers = {false};
        Change(name, All);
        EXPECT_TRUE(app.folder.Read(name) == bytes);
        EXPECT_TRUE(app.files.IsReadOnly(app.folder / name));
        EXPECT_EQ(app.desktop.questions.back().text,
                  "File \"" + (app.folder / name) + "\"\r\nis market as read only!\r\n\r\nContinue anyway?");
        EXPECT_FALSE(app.desktop.questions.back().noIsDefault);
    }
    EXPECT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(StepsOf("a.mp3", All), "refused: a.mp3: read only\n");
}

TEST_F(ChangeTagsTest, ReadOnly_AnsweredYes_IsWrittenAndStaysWritable) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) {
        app.folder.Write(name, name == "a.mp3"s   ? Mp3().Size(2000).Bytes()
                               : name == "a.ogg"s ? Ogg().Bytes()
                                                  : Mpc8());
        app.files.SetReadOnly(app.folder / name, true);
        app.desktop.answers = {true};
        Change(name, All);
        EXPECT_FALSE(app.files.IsReadOnly(app.folder / name));
    }
    EXPECT_EQ(Mp3Now("a.mp3").Artist, "New Artist");
    EXPECT_EQ(OggNow("a.ogg").Artist, "New Artist");
    EXPECT_EQ(MpcNow("a.mpc").Artist, "New Artist");
}

// Same bytes.

struct Place {
    ino_t inode;
    timespec time;
};

Place PlaceOf(const std::string& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return {status.st_ino, status.st_mtim};
}

TEST_F(ChangeTagsTest, SecondTime_LeavesTimeAndFileAlone) {
    const std::string frames = TextFrame("TPE1", "Artist") + RawFrame("APIC", std::string(90, 'p'));
    const std::string longTitle(100, 't');
    app.folder.Write("in place.mp3", Id3v2(frames, 900) + Mp3().Size(2000).Bytes() + Id3v1{"T"}.Bytes());
    app.folder.Write("grown.mp3", Id3v2(TextFrame("TPE1", longTitle), 130) + Mp3().Size(2000).Bytes());
    app.folder.Write("new.mp3", Mp3().Size(2000).Bytes());
    app.folder.Write("blanks.mp3",
                     Mp3().Size(2000).Behind(Id3v1{.title = "T", .padding = ' '}.Bytes()).Bytes());
    app.folder.Write("a.ogg", Ogg().Comment("title=a (b) (c)").Bytes());
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("publisher", "P").Bytes());
    app.folder.Write("new.mpc", Mpc8());
    app.folder.Write("old.mpc", Mpc7(1000) + Audio(3000) + Id3v1{"T"}.Bytes());
    for (const TagValues& values :
         {All, Clear, TagValues{.Genre = "Nothing known ", .GenreIndex = 0}, TagValues{}}) {
        for (const auto& entry : std::filesystem::directory_iterator(app.folder.Path())) {
            const std::string name = entry.path().filename().string();
            Change(name, values);
            const std::string bytes = app.folder.Read(name);
            const Place before = PlaceOf(app.folder / name);
            Change(name, values);
            const Place after = PlaceOf(app.folder / name);
            EXPECT_TRUE(app.folder.Read(name) == bytes) << name;
            EXPECT_EQ(after.inode, before.inode) << name;
            EXPECT_EQ(after.time.tv_sec, before.time.tv_sec) << name;
            EXPECT_EQ(after.time.tv_nsec, before.time.tv_nsec) << name;
            EXPECT_EQ(StepsOf(name, values), "unchanged: " + name + "\n");
        }
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ChangeTagsTest, ValuesOfOptions_AreTakenOneByOne) {
    app.state.OptArtist = "A ";
    app.state.OptTitle = "T ";
    app.state.OptMix = "M ";
    app.state.OptAlbum = "L ";
    app.state.OptYear = "Y ";
    app.state.OptTrack = "7";
    app.state.OptGenre = "Rock ";
    app.state.OptGenreIndex = 17;
    const TagValues values = ValuesOfOptions(app.state);
    EXPECT_EQ(
        values.Artist + values.Title + values.Mix + values.Album + values.Year + values.Track + values.Genre,
        "A T M L Y 7Rock ");
    EXPECT_EQ(values.GenreIndex, 17);
}

}  // namespace
}  // namespace zefta::test
