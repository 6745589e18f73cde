#include <algorithm>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "library/FolderAhead.h"
#include "support/GatedFiles.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class FolderAheadTest : public ::testing::Test {
  protected:
    FileReading Reading() { return {app.files, app.ansi, UnknownContent::PassOver}; }

    void WriteSong(const std::string& name, const std::string& artist) const {
        app.folder.Write(name, Mp3().Size(5000).Behind(Id3v1{.artist = artist}.Bytes()).Bytes());
    }

    /// Changes of a folder are told apart by a clock of some milliseconds.
    static void LetTheClockGoOn() { std::this_thread::sleep_for(std::chrono::milliseconds(50)); }

    GatedFiles gated;
    TestApp app{&gated};
    const std::string folder = app.folder.Path();
};

TEST_F(FolderAheadTest, NamesAndFiles_AreThoseOfTheList) {
    app.files.CreateFolder(app.folder / "sub");
    WriteSong("b.mp3", "Bob");
    WriteSong("a.mp3", "Ann");
    app.folder.Write("gate.mp3", "");
    app.folder.Write("x.txt", "");
    FolderAhead ahead(Reading(), folder);
    gated.WaitForArrival();
    gated.OpenGate();
    const auto read = ahead.Take(folder);
    ASSERT_TRUE(read);
    std::vector<std::string> names;
    for (const ListEntry& entry : read->contents.entries) names.push_back(entry.name);
    EXPECT_EQ(names, (std::vector<std::string>{"sub", "a.mp3", "b.mp3", "gate.mp3"}));
    EXPECT_EQ(read->contents.otherFiles, std::vector<std::string>{"x.txt"});
    ASSERT_EQ(read->files.size(), 4U);
    EXPECT_EQ(read->files[1].tag.Artist, "Ann");
    EXPECT_EQ(read->files[2].tag.Artist, "Bob");
    EXPECT_EQ(read->files[2].bytes, app.files.FileSize(app.folder / "b.mp3"));
    EXPECT_FALSE(ahead.Take(folder)) << "once";
}

TEST_F(FolderAheadTest, Reading_EndsBehindTheFileAtHandWhenItIsAskedFor) {
    app.folder.Write("gate.mp3", "");
    for (int i = 0; i < 20; ++i) WriteSong("z" + std::to_string(i) + ".mp3", "Zoe");
    FolderAhead ahead(Reading(), folder);
    gated.WaitForArrival();
    EXPECT_FALSE(ahead.Take(app.folder / "other")) << "and nobody waits for the folder";
    gated.OpenGate();
    const auto read = ahead.Take(folder);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->contents.entries.size(), 21U);
    EXPECT_EQ(read->files.size(), 1U);
    EXPECT_EQ(gated.opened, 1);
}

TEST_F(FolderAheadTest, NobodyWhoAsks_EndsTheReading) {
    app.folder.Write("gate.mp3", "");
    WriteSong("z.mp3", "Zoe");
    std::thread opener;
    {
        FolderAhead ahead(Reading(), folder);
        gated.WaitForArrival();
        opener = std::thread([this] {
            LetTheClockGoOn();
            gated.OpenGate();
        });
    }
    const int opened = gated.opened;
    opener.join();
    LetTheClockGoOn();
    EXPECT_EQ(gated.opened, opened) << "the thread has ended";
}

TEST_F(FolderAheadTest, FolderWithOtherNamesSince_IsNotGiven) {
    app.folder.Write("gate.mp3", "");
    FolderAhead ahead(Reading(), folder);
    gated.WaitForArrival();
    LetTheClockGoOn();
    app.folder.Write("new.mp3", "");
    gated.OpenGate();
    EXPECT_FALSE(ahead.Take(folder));
}

TEST_F(FolderAheadTest, WhatCannotBeRead_IsLeftToTheWindow) {
    for (const std::string& path :
         {app.folder / "missing", app.folder.Write("a.mp3", ""), std::string("sub")}) {
        FolderAhead ahead(Reading(), path);
        EXPECT_FALSE(ahead.Take(path)) << path;
    }
}

TEST_F(FolderAheadTest, Folder_IsKnownByThePathThatTheWindowShows) {
    app.files.CreateFolder(app.folder / "sub");
    WriteSong("sub/a.mp3", "Ann");
    FolderAhead doubled(Reading(), folder + "//sub/");
    EXPECT_TRUE(doubled.Take(app.folder / "sub/"));
    std::string backslashes = app.folder / "sub";
    std::replace(backslashes.begin(), backslashes.end(), '/', '\\');
    FolderAhead foreign(Reading(), backslashes);
    EXPECT_TRUE(foreign.Take(app.folder / "sub"));
}

TEST_F(FolderAheadTest, LargeFolder_IsReadInPart) {
    constexpr int MostFiles = 32;
    for (int i = 0; i < MostFiles + 5; ++i) app.folder.Write(std::to_string(i) + ".mp3", "");
    FolderAhead ahead(Reading(), folder);
    while (gated.opened < MostFiles) std::this_thread::yield();
    LetTheClockGoOn();
    const auto read = ahead.Take(folder);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->contents.entries.size(), MostFiles + 5U);
    EXPECT_LE(read->files.size(), std::size_t{MostFiles});
    EXPECT_GE(read->files.size(), MostFiles - 1U) << "asked for amid the last one";
    EXPECT_EQ(gated.opened, MostFiles);
}

}  // namespace
}  // namespace zefta::test
