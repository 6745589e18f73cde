#include <gtest/gtest.h>

#include "cd/CDInfoFile.h"
#include "cd/ProfileFile.h"
#include "support/ExpectRuntimeError.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

CDInfo Album() {
    CDInfo info;
    info.Artist = "Artist";
    info.Title = "A = B";
    info.Year = "2001";
    info.Tracks = {{"One", 65, true}, {"Two = 2", 7, false}};
    info.Length = 72;
    info.Source = "/rip";
    info.Target = "/music/";
    info.BitrateIndex = 3;
    info.BitrateText = "LAME 192 kbps";
    info.Compilation = 1;
    info.Genre = "Rock";
    return info;
}

const std::string AlbumText =
    "[Options]\n"
    "Artist=Artist \n"
    "Title=A = B \n"
    "Year=2001 \n"
    "Tracks=2 \n"
    "Length=72 \n"
    "Source=/rip \n"
    "Target=/music/ \n"
    "BitrateIndex=3 \n"
    "BitrateText=LAME 192 kbps \n"
    "Compilation=1\n"
    "Genre=Rock \n"
    "[Names]\n"
    "01=One \n"
    "02=Two = 2 \n"
    "[Times]\n"
    "01=65\n"
    "02=7\n"
    "[Selected]\n"
    "01=-1\n"
    "02=0\n";

CDInfo Loaded(TestApp& app, const std::string& text, CDInfo info = {}) {
    app.folder.Write("a.zfc", text);
    LoadCDInfo(app, "a.zfc", info);
    return info;
}

}  // namespace

TEST(SaveCDInfo, NewFile_HasEveryKeyWithItsEnding) {
    TestApp app;
    SaveCDInfo(app, "a.zfc", Album());
    EXPECT_EQ(app.folder.Read("a.zfc"), AlbumText);
    SaveCDInfo(app, "a.zfc", Album());
    EXPECT_EQ(app.folder.Read("a.zfc"), AlbumText);
}

TEST(SaveCDInfo, EmptyRecord_HasALineForEveryOption) {
    TestApp app;
    SaveCDInfo(app, "a.zfc", {});
    EXPECT_EQ(app.folder.Read("a.zfc"),
              "[Options]\nArtist= \nTitle= \nYear= \nTracks=0 \nLength=0 \nSource= \nTarget= \n"
              "BitrateIndex=0 \nBitrateText= \nCompilation=0\nGenre= \n");
}

TEST(SaveCDInfo, ShorterAlbumOverAnOldFile_LeavesTheKeysBeyondAndTheyAreNotRead) {
    TestApp app;
    CDInfo info = Album();
    info.Tracks.assign(10, {"Old", 9, true});
    SaveCDInfo(app, "a.zfc", info);
    info.Tracks.assign(8, {"New", 8, false});
    SaveCDInfo(app, "a.zfc", info);
    const ProfileFile file = ReadProfileFile(app.files, app.ansi, "a.zfc");
    EXPECT_EQ(file.ReadProfileValue("Names", "08"), "New ");
    EXPECT_EQ(file.ReadProfileValue("Names", "09"), "Old ");
    EXPECT_EQ(file.ReadProfileValue("Selected", "10"), "-1");
    CDInfo loaded;
    LoadCDInfo(app, "a.zfc", loaded);
    ASSERT_EQ(loaded.Tracks.size(), 8U);
    EXPECT_EQ(loaded.Tracks[7].Name, "New");
}

TEST(SaveCDInfo, OldFileOfAPerson_KeepsWhatIsNotOurs) {
    TestApp app;
    app.folder.Write("a.zfc", "; mine\r\n[Options]\r\nArtist=Old\r\nNote=kept\r\n\r\n[Mine]\r\nX=1\r\n");
    CDInfo info;
    info.Artist = "New";
    SaveCDInfo(app, "a.zfc", info);
    const std::string text = app.folder.Read("a.zfc");
    EXPECT_TRUE(text.starts_with("; mine\r\n[Options]\r\nArtist=New \r\nNote=kept\r\nTitle= \r\n")) << text;
    EXPECT_TRUE(text.ends_with("Genre= \r\n\r\n[Mine]\r\nX=1\r\n")) << text;
}

TEST(LoadCDInfo, WhatWasSaved_ComesBackWithoutBlanks) {
    TestApp app;
    const CDInfo info = Loaded(app, AlbumText);
    EXPECT_EQ(info.Artist, "Artist");
    EXPECT_EQ(info.Title, "A = B");
    EXPECT_EQ(info.Year, "2001");
    EXPECT_EQ(info.Length, 72);
    EXPECT_EQ(info.Source, "/rip");
    EXPECT_EQ(info.Target, "/music/");
    EXPECT_EQ(info.BitrateIndex, 3);
    EXPECT_EQ(info.BitrateText, "");
    EXPECT_EQ(info.Compilation, 1);
    EXPECT_EQ(info.Genre, "Rock");
    ASSERT_EQ(info.Tracks.size(), 2U);
    EXPECT_EQ(info.Tracks[0].Name, "One");
    EXPECT_EQ(info.Tracks[0].Seconds, 65);
    EXPECT_TRUE(info.Tracks[0].Selected);
    EXPECT_EQ(info.Tracks[1].Name, "Two = 2");
    EXPECT_FALSE(info.Tracks[1].Selected);
}

TEST(LoadCDInfo, MissingKeys_AreEmptyButForTheFoldersThatStay) {
    TestApp app;
    for (const std::string text : {"", "[Options]\nSource= \nTarget=\n"}) {
        const CDInfo info = Loaded(app, text, Album());
        EXPECT_EQ(info.Artist + info.Title + info.Year + info.Genre, "");
        EXPECT_EQ(info.Length + info.BitrateIndex + info.Compilation, 0);
        EXPECT_TRUE(info.Tracks.empty());
        EXPECT_EQ(info.Source, "/rip");
        EXPECT_EQ(info.Target, "/music/");
        EXPECT_EQ(info.BitrateText, "LAME 192 kbps");
    }
}

TEST(LoadCDInfo, TracksThatHaveNoKeys_AreEmptyOnesAndNotSelected) {
    TestApp app;
    const CDInfo info = Loaded(app, "[Options]\nTracks=3\n[Names]\n02=Two\n");
    ASSERT_EQ(info.Tracks.size(), 3U);
    EXPECT_EQ(info.Tracks[1].Name, "Two");
    EXPECT_EQ(info.Tracks[2].Name, "");
    EXPECT_EQ(info.Tracks[2].Seconds, 0);
    EXPECT_FALSE(info.Tracks[1].Selected);
}

TEST(LoadCDInfo, Numbers_AreTheLeadingDigits) {
    TestApp app;
    const CDInfo info = Loaded(app,
                               "[Options]\nTracks= 2 tracks\nLength=60s\nCompilation=x\n[Times]\n"
                               "01=65 sec\n02=-5\n[Selected]\n01=-1 \n02=-10\n");
    ASSERT_EQ(info.Tracks.size(), 2U);
    EXPECT_EQ(info.Length, 60);
    EXPECT_EQ(info.Compilation, 0);
    EXPECT_EQ(info.Tracks[0].Seconds, 65);
    EXPECT_EQ(info.Tracks[1].Seconds, -5);
    EXPECT_TRUE(info.Tracks[0].Selected);
    EXPECT_FALSE(info.Tracks[1].Selected);
}

TEST(LoadCDInfo, TracksOf0OrBelow_LeaveTheListEmpty) {
    TestApp app;
    for (const std::string count : {"0", "-7", "none"})
        EXPECT_TRUE(Loaded(app, "[Options]\nTracks=" + count + "\n[Names]\n01=x\n").Tracks.empty());
}

TEST(LoadCDInfo, NumberOutOfRange_Fails6AndTheRecordStays) {
    TestApp app;
    for (const std::string text : {"[Options]\nTracks=32768\n", "[Options]\nTracks=2000000000\n",
                                   "[Options]\nTracks=1\nLength=9999999999\n",
                                   "[Options]\nArtist=New\nTracks=1\n[Times]\n01=99999999999\n"}) {
        app.folder.Write("a.zfc", text);
        CDInfo info = Album();
        EXPECT_EQ(RuntimeErrorOf([&] { LoadCDInfo(app, "a.zfc", info); }), 6) << text;
        EXPECT_EQ(info.Artist, "Artist");
        EXPECT_EQ(info.Tracks.size(), 2U);
    }
    EXPECT_EQ(Loaded(app, "[Options]\nTracks=32767\n").Tracks.size(), 32767U);
}

TEST(LoadCDInfo, HundredthTrack_HasAKeyOfThreeDigits) {
    TestApp app;
    CDInfo info;
    for (int i = 1; i <= 100; ++i) info.Tracks.push_back({"Track " + std::to_string(i), i, true});
    SaveCDInfo(app, "a.zfc", info);
    EXPECT_NE(app.folder.Read("a.zfc").find("\n100=Track 100 \n"), std::string::npos);
    CDInfo loaded;
    LoadCDInfo(app, "a.zfc", loaded);
    EXPECT_EQ(loaded.Tracks.at(99).Name, "Track 100");
}

TEST(SaveCDInfo, LineBreaksInAName_CannotBreakTheFile) {
    TestApp app;
    CDInfo info;
    info.Artist = "A\r\n[Options]\nTracks=99";
    info.Tracks = {{"x\n02=y", 1, true}};
    SaveCDInfo(app, "a.zfc", info);
    CDInfo loaded;
    LoadCDInfo(app, "a.zfc", loaded);
    EXPECT_EQ(loaded.Artist, "A [Options] Tracks=99");
    ASSERT_EQ(loaded.Tracks.size(), 1U);
    EXPECT_EQ(loaded.Tracks[0].Name, "x 02=y");
}

TEST(SuggestedCDInfoName, AnyAlbum_GivesANameThatFits) {
    EXPECT_EQ(SuggestedCDInfoName("AC/DC", "Live: 1"), "AC_DC - Live_ 1.zfc");
    EXPECT_EQ(SuggestedCDInfoName("", ""), " - .zfc");
    const std::string name = SuggestedCDInfoName(std::string(300, 'x'), "y");
    EXPECT_TRUE(name.starts_with(std::string(240, 'x')) && name.ends_with(".zfc")) << name;
    EXPECT_LE(name.size(), LongestName);
}

TEST(CDTrackLine, Track_IsShownWithNumberAndTime) {
    EXPECT_EQ(CDTrackLine(1, {"One", 65, true}), "01. One (1:05)");
    EXPECT_EQ(CDTrackLine(100, {"", 3600, true}), "100.  (60:00)");
    EXPECT_EQ(CDTimeText(0), "0:00");
    EXPECT_EQ(CDTimeText(4440), "74:00");
    EXPECT_EQ(CDTimeText(-5), "0:00");
    EXPECT_EQ(CDTimeText(2147483647), "35791394:07");
}

}  // namespace zefta::test
