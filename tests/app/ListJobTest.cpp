#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "app/Entry.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

const std::string Header = "File\tSize\tBitrate\tTime\tArtist\tTitle\tYear\tAlbum\n";

class ListJobTest : public ::testing::Test {
  protected:
    /// What the program prints; the status is kept.
    std::string Run(const std::vector<std::string>& arguments) {
        std::ostringstream output;
        status = RunZefta(app, arguments, output);
        return output.str();
    }

    void WriteTagged(const std::string& name, const std::string& artist) {
        app.folder.Write(name, Audio(700) + Id3v1{"Song", artist, "Album", "1999", "Mix"}.Bytes());
    }

    TestApp app;
    int status = -1;
};

TEST_F(ListJobTest, List_OfTheCurrentFolder_IsTheTableInListOrder) {
    WriteTagged("b.mp3", "B");
    WriteTagged("A.mp3", "A");
    app.folder.Write("list.m3u", "");
    app.folder.Write("notes.txt", "x");
    app.files.CreateFolder("sub");
    EXPECT_EQ(Run({"/list"}), Header + "sub\t \t\t\t\t\t\t\n" + "list.m3u\t \t\t\t\t\t\t\n" +
                                  "A.mp3\t828\t0\t0:00\tA\tSong (Mix)\t1999\tAlbum\n" +
                                  "b.mp3\t828\t0\t0:00\tB\tSong (Mix)\t1999\tAlbum\n");
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ListJobTest, List_OfAFolderMaskOrFile_InAnyCaseOfTheOption) {
    app.files.CreateFolder("sub");
    WriteTagged("sub/one.mp3", "1");
    WriteTagged("sub/two.mp3", "2");
    app.folder.Write("sub/x.ogg", "");
    const std::string one = "one.mp3\t828\t0\t0:00\t1\tSong (Mix)\t1999\tAlbum\n";
    const std::string two = "two.mp3\t828\t0\t0:00\t2\tSong (Mix)\t1999\tAlbum\n";
    const std::string ogg = "x.ogg\t \t0\t0:00\t\t\t\t\n";
    EXPECT_EQ(Run({"/LIST", "sub"}), Header + one + two + ogg);
    EXPECT_EQ(Run({"/list", app.folder.Path() + "/sub"}), Header + one + two + ogg);
    EXPECT_EQ(Run({"/list", "sub/*.mp3"}), Header + one + two);
    EXPECT_EQ(Run({"/list", "sub\\T*"}), Header + two);
    EXPECT_EQ(Run({"/list", "sub/two.mp3", "sub/one.mp3"}), Header + two + one);
    EXPECT_EQ(Run({"/list", "*.flac"}), Header);
    EXPECT_EQ(status, 0);
}

TEST_F(ListJobTest, Json_IsOneObjectALine) {
    app.folder.Write("w.wav", Wav().Tone(44100 * 4).Bytes());
    app.files.CreateFolder("sub \"1\"");
    EXPECT_EQ(
        Run({"/list", "/json"}),
        "{\"file\":\"sub \\\"1\\\"\",\"kind\":\"folder\",\"bytes\":0,\"bitrate\":0,\"vbr\":false,"
        "\"seconds\":0,\"sampleRate\":0,\"channelMode\":0,\"artist\":\"\",\"title\":\"\",\"year\":\"\","
        "\"album\":\"\",\"sortOrder\":\"0-sub \\\"1\\\"\"}\n"
        "{\"file\":\"w.wav\",\"kind\":\"wav\",\"bytes\":176444,\"bitrate\":0,\"vbr\":false,"
        "\"seconds\":1,\"sampleRate\":44100,\"channelMode\":0,\"artist\":\"\",\"title\":\"\",\"year\":\"\","
        "\"album\":\"\",\"sortOrder\":\"2-w\"}\n");
}

TEST_F(ListJobTest, Json_OfEachKind_NamesIt) {
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc", "d.mp+", "e.lqt", "f.m3u", "g.wav"})
        app.folder.Write(name, "");
    const std::string text = Run({"/list", "*", "/json"});
    for (const char* kind : {"mp3", "ogg", "mpc", "lqt", "playlist", "wav"})
        EXPECT_NE(text.find(std::string("\"kind\":\"") + kind + "\""), std::string::npos) << kind;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 7);
}

TEST_F(ListJobTest, ControlCharactersInTags_StayInTheirCell) {
    app.folder.Write("a.mp3", Audio(700) + Id3v1{"Ti\ttle", "Ar\ntist", "", "", ""}.Bytes());
    EXPECT_EQ(Run({"/list"}), Header + "a.mp3\t828\t0\t0:00\tAr tist\tTi tle\t\t\n");
    const std::string json = Run({"/list", "/json"});
    EXPECT_NE(json.find("\"artist\":\"Ar\\u000atist\",\"title\":\"Ti\\u0009tle\""), std::string::npos);
}

TEST_F(ListJobTest, FolderThatIsNotThere_IsToldAndTheOthersAreListed) {
    WriteTagged("a.mp3", "A");
    const std::string text = Run({"/list", "absent/*.mp3", "a.mp3"});
    EXPECT_EQ(text, Header + "a.mp3\t828\t0\t0:00\tA\tSong (Mix)\t1999\tAlbum\n");
    EXPECT_EQ(status, 1);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("76"), std::string::npos);
}

TEST_F(ListJobTest, FileThatCannotBeRead_HasItsRowAndNoBox) {
    // A Xing block that counts no frames ends the reader; a link leads nowhere; a folder is named as a file.
    const std::string frame = std::string("\xFF\xFB\x90\x04", 4) + std::string(32, '\0') + "Xing" +
                              std::string(8, '\0') + std::string(400, '\0');
    app.folder.Write("b.mp3", frame + Id3v1{"Song", "Artist", "", "", ""}.Bytes());
    WriteTagged("c.mp3", "C");
    std::filesystem::create_symlink("nothing", app.folder / "a.mp3");
    const std::string text = Run({"/list"});
    EXPECT_NE(text.find("a.mp3\t \t0\t0:00\t\t\t\t\n"), std::string::npos) << text;
    EXPECT_NE(text.find("b.mp3\t576\t"), std::string::npos) << text;
    EXPECT_NE(text.find("\tArtist\tSong\t"), std::string::npos) << text;
    EXPECT_NE(text.find("c.mp3\t828\t"), std::string::npos) << text;
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ListJobTest, FileAbove2GiB_ShowsItsSize) {
    app.folder.Write("big.mp3", "");
    std::filesystem::resize_file(app.folder / "big.mp3", std::uintmax_t{3} << 30);
    app.folder.Write("big.wav", "");
    std::filesystem::resize_file(app.folder / "big.wav", std::uintmax_t{3} << 30);
    const std::string text = Run({"/list"});
    EXPECT_NE(text.find("big.mp3\t3072 M\t0\t0:00\t"), std::string::npos) << text;
    EXPECT_NE(text.find("big.wav\t3072 M\tRAW\t\t"), std::string::npos) << text;
}

TEST_F(ListJobTest, LargeFolder_IsListedInOrderWithEveryRowItsOwn) {
    std::string expected = Header;
    for (int i = 1000; i < 1300; ++i) {
        const std::string number = std::to_string(i);
        WriteTagged(number + ".mp3", "Artist " + number);
        expected += number + ".mp3\t828\t0\t0:00\tArtist " + number + "\tSong (Mix)\t1999\tAlbum\n";
    }
    for (int round = 0; round < 5; ++round) EXPECT_EQ(Run({"/list"}), expected);
    const std::string json = Run({"/list", "/json"});
    EXPECT_EQ(std::count(json.begin(), json.end(), '\n'), 300);
}

TEST_F(ListJobTest, NoArgumentOrFolderWithoutADisplay_IsTheList) {
    app.files.CreateFolder("sub");
    WriteTagged("sub/a.mp3", "A");
    const std::string row = "a.mp3\t828\t0\t0:00\tA\tSong (Mix)\t1999\tAlbum\n";
    EXPECT_EQ(Run({}), Header + "sub\t \t\t\t\t\t\t\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Run({"sub"}), Header + row);
    EXPECT_EQ(Run({app.folder.Path() + "/sub"}), Header + row);
}

TEST_F(ListJobTest, OutputThatTakesNothing_IsAFailure) {
    WriteTagged("a.mp3", "A");
    std::ofstream full("/dev/full");
    EXPECT_EQ(RunZefta(app, {"/list"}, full), 1);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("57"), std::string::npos);
    full.clear();
    EXPECT_EQ(RunZefta(app, {"--help"}, full), 1);
}

TEST_F(ListJobTest, CurrentFolderThatIsGone_IsAFailure) {
    app.files.CreateFolder("gone");
    app.files.SetCurrentFolder("gone");
    app.files.DeleteFolder(app.folder / "gone", Force::Yes);
    EXPECT_EQ(Run({"/list"}), Header);
    EXPECT_EQ(status, 1);
    app.files.SetCurrentFolder(app.folder.Path());
}

TEST(ListJobFaults, EveryReadFailing_StillListsEveryFile) {
    PosixFileSystem real;
    FaultInjectingFileSystem failing(real);
    TestApp app(&failing);
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc", "d.wav"}) app.folder.Write(name, Audio(9000));
    for (int n = 1; n < 30; ++n) {
        failing.faults.operations = 0;
        failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DeviceIoError};
        std::ostringstream output;
        EXPECT_EQ(RunZefta(app, {"/list"}, output), 0);
        const std::string text = output.str();
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5) << text;
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

}  // namespace
}  // namespace zefta::test
