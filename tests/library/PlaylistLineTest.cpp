#include <gtest/gtest.h>

#include "library/PlaylistLine.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class PlaylistLineTest : public ::testing::Test {
  protected:
    std::string PathOf(std::string_view line) {
        return PathOfPlaylistLine(app.files, LoadCodePage(1252), app.folder.Path(), line);
    }

    std::string In(std::string_view name) { return app.folder / name; }

    TestApp app;
};

TEST_F(PlaylistLineTest, RelativeLine_CountsFromTheFolder) {
    EXPECT_EQ(PathOf("a.mp3"), In("a.mp3"));
    EXPECT_EQ(PathOf("sub/a.mp3"), In("sub/a.mp3"));
    EXPECT_EQ(PathOf("../a.mp3"), In("../a.mp3"));
    EXPECT_EQ(PathOf("#EXTM3U"), In("#EXTM3U"));
    EXPECT_EQ(PathOf("A: song.mp3"), In("A: song.mp3"));
    EXPECT_EQ(PathOfPlaylistLine(app.files, app.ansi, "/", "a.mp3"), "/a.mp3");
}

TEST_F(PlaylistLineTest, FullPath_StandsForItself) {
    EXPECT_EQ(PathOf("/music/a.mp3"), "/music/a.mp3");
    app.folder.Write("a.mp3", "x");
    EXPECT_EQ(PathOf(In("a.mp3")), In("a.mp3"));
}

TEST_F(PlaylistLineTest, FullPathOfAnotherMachine_NamesNothing) {
    EXPECT_EQ(PathOf("C:\\Music\\a.mp3"), "");
    EXPECT_EQ(PathOf("c:/Music/a.mp3"), "");
    app.files.CreateFolder("C:");
    app.files.CreateFolder("C:/Music");
    app.folder.Write("C:/Music/a.mp3", "x");
    EXPECT_EQ(PathOf("C:\\Music\\a.mp3"), "");
}

TEST_F(PlaylistLineTest, Backslashes_AreSeparatorsUnlessTheyAreInTheName) {
    app.files.CreateFolder("sub");
    app.folder.Write("sub/a.mp3", "x");
    EXPECT_EQ(PathOf("sub\\a.mp3"), In("sub/a.mp3"));
    EXPECT_EQ(PathOf("sub\\gone.mp3"), In("sub/gone.mp3"));
    app.folder.Write("sub\\a.mp3", "y");
    EXPECT_EQ(PathOf("sub\\a.mp3"), In("sub\\a.mp3"));
    app.folder.Write("C:\\x.mp3", "z");
    EXPECT_EQ(PathOf("C:\\x.mp3"), In("C:\\x.mp3"));
}

TEST_F(PlaylistLineTest, BackslashesOfTheFolder_Stay) {
    app.files.CreateFolder("AC\\DC");
    app.folder.Write("AC\\DC/a.mp3", "x");
    EXPECT_EQ(PathOfPlaylistLine(app.files, app.ansi, In("AC\\DC"), ".\\a.mp3"), In("AC\\DC/./a.mp3"));
}

TEST_F(PlaylistLineTest, LineThatBeginsWithBackslashes_IsRelativeAndMisses) {
    app.folder.Write("a.mp3", "x");
    std::string line = "\\" + In("a.mp3");
    EXPECT_FALSE(app.files.FileExists(PathOf(line)));
    EXPECT_EQ(PathOf("\\\\server\\share\\a.mp3"), In("//server/share/a.mp3"));
}

TEST_F(PlaylistLineTest, BytesThatAreNoUtf8_AreANameOrElseTextInTheCodePage) {
    EXPECT_EQ(PathOf("M\xFCller.mp3"), In("M\xC3\xBCller.mp3"));
    app.folder.Write("M\xFCller.mp3", "x");
    EXPECT_EQ(PathOf("M\xFCller.mp3"), In("M\xFCller.mp3"));
    app.files.CreateFolder("\xE4");
    app.folder.Write("\xE4/\xF6.mp3", "x");
    EXPECT_EQ(PathOf("\xE4\\\xF6.mp3"), In("\xE4/\xF6.mp3"));
    app.files.CreateFolder("\xC3\xBC");
    app.folder.Write("\xC3\xBC/\xC3\xB6.mp3", "x");
    EXPECT_EQ(PathOf("\xFC\\\xF6.mp3"), In("\xC3\xBC/\xC3\xB6.mp3"));
    app.folder.Write("\xC3\xBC\\\xC3\xB6.mp3", "x");
    EXPECT_EQ(PathOf("\xFC\\\xF6.mp3"), In("\xC3\xBC\\\xC3\xB6.mp3"));
}

TEST_F(PlaylistLineTest, LineThatCanNameNothing_GivesNothing) {
    EXPECT_EQ(PathOf(""), "");
    app.folder.Write("a.mp3", "x");
    EXPECT_EQ(PathOf(std::string_view("a.mp3\0junk", 10)), "");
}

}  // namespace
}  // namespace zefta::test
