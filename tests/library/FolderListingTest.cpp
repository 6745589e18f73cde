#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "library/FolderListing.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class FolderListingTest : public ::testing::Test {
  protected:
    void Make(std::initializer_list<const char*> names) {
        for (const char* name : names) folder.Write(name, "");
    }

    std::vector<std::string> Names(std::string_view mask = "*") {
        std::vector<std::string> names;
        for (const ListEntry& entry : ListFolder(files, folder.Path(), mask, ansi))
            names.push_back(entry.name);
        return names;
    }

    using Texts = std::vector<std::string>;

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
};

TEST(ListKindOf, EachExtension_InAnyCase) {
    EXPECT_EQ(ListKindOf("a.mp3"), ListKind::MP3);
    EXPECT_EQ(ListKindOf("a.MP3"), ListKind::MP3);
    EXPECT_EQ(ListKindOf("a.Ogg"), ListKind::Ogg);
    EXPECT_EQ(ListKindOf("a.mpc"), ListKind::MPEGplus);
    EXPECT_EQ(ListKindOf("a.mp+"), ListKind::MPEGplus);
    EXPECT_EQ(ListKindOf("a.wav"), ListKind::Wave);
    EXPECT_EQ(ListKindOf("a.m3u"), ListKind::Playlist);
    EXPECT_EQ(ListKindOf("a.lqt"), ListKind::Lqt);
    EXPECT_EQ(ListKindOf(".mp3"), ListKind::MP3);
}

TEST(ListKindOf, OtherFiles_AreNotListed) {
    for (const char* name : {"a.txt", "mp3", "xmp3", "a.mp3.bak", "a.", "", "a.m3u8", "a.mp"})
        EXPECT_EQ(ListKindOf(name), std::nullopt) << name;
}

TEST(SortOrder, Key_HasTheGroupAndTheNameWithoutExtension) {
    const CodePage ansi = LoadCodePage(1252);
    EXPECT_EQ(SortOrder({"a.b", ListKind::Folder}, ansi), "0-a.b");
    EXPECT_EQ(SortOrder({"Mix.m3u", ListKind::Playlist}, ansi), "1-Mix");
    EXPECT_EQ(SortOrder({"a.b.mp3", ListKind::MP3}, ansi), "2-a.b");
    EXPECT_EQ(SortOrder({"x.lqt", ListKind::Lqt}, ansi), "2-x");
    EXPECT_EQ(SortOrder({"caf\xE9.mp3", ListKind::MP3}, ansi), "2-caf\xC3\xA9");
}

TEST_F(FolderListingTest, Order_FoldersThenPlaylistsThenFilesWithoutRegardToCase) {
    Make({"b.mp3", "A.ogg", "c.WAV", "z.m3u", "Zoo.txt", "B2.mpc", "d.lqt"});
    files.CreateFolder(folder.Path() + "/sub");
    files.CreateFolder(folder.Path() + "/Art.mp3");
    EXPECT_EQ(Names(), (Texts{"Art.mp3", "sub", "z.m3u", "A.ogg", "b.mp3", "B2.mpc", "c.WAV", "d.lqt"}));
}

TEST_F(FolderListingTest, Order_OfOneKey_IsByTheExactBytes) {
    Make({"a.ogg", "A.mp3", "a.mp3"});
    EXPECT_EQ(Names(), (Texts{"A.mp3", "a.mp3", "a.ogg"}));
}

TEST_F(FolderListingTest, Order_OfOtherScripts_FoldsTheirCase) {
    Make({"\xD0\x91.mp3", "\xD0\xB0.mp3"});
    EXPECT_EQ(Names(), (Texts{"\xD0\xB0.mp3", "\xD0\x91.mp3"}));
}

TEST_F(FolderListingTest, Mask_ChoosesByNameInAnyCase) {
    Make({"one.MP3", "two.ogg", "three.mp3"});
    EXPECT_EQ(Names("*.mp3"), (Texts{"one.MP3", "three.mp3"}));
    EXPECT_EQ(Names("t*"), (Texts{"three.mp3", "two.ogg"}));
    EXPECT_EQ(Names("*.flac"), Texts{});
}

TEST_F(FolderListingTest, Pipe_IsNotListed) {
    ASSERT_EQ(mkfifo((folder / "pipe.mp3").c_str(), 0600), 0);
    EXPECT_EQ(Names(), Texts{});
}

TEST_F(FolderListingTest, LinkThatLeadsNowhere_IsListedByItsName) {
    std::filesystem::create_symlink("nothing", folder.Path() + "/gone.mp3");
    EXPECT_EQ(Names(), Texts{"gone.mp3"});
}

TEST_F(FolderListingTest, Contents_AreTheListAndTheOtherFiles) {
    Make({"b.mp3", "A.ogg", "x.txt", "README"});
    std::filesystem::create_directory(folder / "sub");
    ASSERT_EQ(mkfifo((folder / "pipe.mp3").c_str(), 0600), 0);
    FolderContents contents = ContentsOf(files, folder.Path(), ansi);
    Texts listed;
    for (const ListEntry& entry : contents.entries) listed.push_back(entry.name);
    EXPECT_EQ(listed, (Texts{"sub", "A.ogg", "b.mp3"}));
    std::sort(contents.otherFiles.begin(), contents.otherFiles.end());
    EXPECT_EQ(contents.otherFiles, (Texts{"README", "x.txt"}));
}

TEST(StandsAbove, IsTheOrderOfTheList) {
    const CodePage ansi = LoadCodePage(1252);
    std::vector<ListEntry> entries = {{"b.mp3", ListKind::MP3}, {"A.ogg", ListKind::Ogg},
                                      {"z", ListKind::Folder},  {"m.m3u", ListKind::Playlist},
                                      {"B.mp3", ListKind::MP3}, {"a.mp3", ListKind::MP3},
                                      {"A", ListKind::Folder},  {"a.b.mp3", ListKind::MP3}};
    SortEntries(entries, ansi);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        for (std::size_t j = 0; j < entries.size(); ++j)
            EXPECT_EQ(StandsAbove(entries[i], entries[j], ansi), i < j) << i << ' ' << j;
    }
}

}  // namespace
}  // namespace zefta::test
