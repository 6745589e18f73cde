#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v2.h"
#include "tags/TemporaryFile.h"

namespace zefta::test {
namespace {

class TemporaryFileTest : public ::testing::Test {
  protected:
    /// Builds "new" beside the file of that name and lets it take the place.
    bool Rebuild(const std::string& name) {
        TemporaryFile fresh(files, folder / name);
        if (!fresh.File()) return false;
        fresh.File()->Write("new");
        fresh.TakePlace();
        return true;
    }

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const FolderEntry& entry : files.List(folder.Path())) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }

    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(TemporaryFileTest, OldOneThatIsALink_GoesAndWhatItLedToStays) {
    folder.Write("c.mp3", "old");
    folder.Write("precious.mp3", "precious");
    std::filesystem::create_symlink("precious.mp3", folder / "c.mp3.tmp");
    EXPECT_TRUE(Rebuild("c.mp3"));
    EXPECT_EQ(folder.Read("c.mp3"), "new");
    EXPECT_EQ(folder.Read("precious.mp3"), "precious");
    EXPECT_EQ(Names(), (std::vector<std::string>{"c.mp3", "precious.mp3"}));
}

TEST_F(TemporaryFileTest, OldOneThatIsALinkToNothing_Goes) {
    folder.Write("c.mp3", "old");
    std::filesystem::create_symlink("nothing", folder / "c.mp3.tmp");
    EXPECT_TRUE(Rebuild("c.mp3"));
    EXPECT_EQ(Names(), std::vector<std::string>{"c.mp3"});
}

TEST_F(TemporaryFileTest, OldOneThatIsAHardLink_GoesAndItsOtherNameStays) {
    folder.Write("c.mp3", "old");
    folder.Write("precious.mp3", "precious");
    std::filesystem::create_hard_link(folder / "precious.mp3", folder / "c.mp3.tmp");
    EXPECT_TRUE(Rebuild("c.mp3"));
    EXPECT_EQ(folder.Read("c.mp3"), "new");
    EXPECT_EQ(folder.Read("precious.mp3"), "precious");
}

TEST_F(TemporaryFileTest, OldOneThatIsAHardLinkOfTheFileItself_Goes) {
    folder.Write("c.mp3", "old");
    std::filesystem::create_hard_link(folder / "c.mp3", folder / "c.mp3.tmp");
    { const TemporaryFile dropped(files, folder / "c.mp3"); }
    EXPECT_EQ(folder.Read("c.mp3"), "old");
    EXPECT_EQ(Names(), std::vector<std::string>{"c.mp3"});
}

TEST_F(TemporaryFileTest, OldOneThatIsReadOnlyOrInAnotherCase_IsReplaced) {
    folder.Write("c.mp3", "old");
    files.SetReadOnly(folder.Write("C.MP3.TMP", "older"), true);
    EXPECT_TRUE(Rebuild("c.mp3"));
    EXPECT_EQ(folder.Read("c.mp3"), "new");
    EXPECT_EQ(Names(), std::vector<std::string>{"c.mp3"});
}

TEST_F(TemporaryFileTest, FolderOfThatName_StaysAndNothingIsBuilt) {
    folder.Write("c.mp3", "old");
    files.CreateFolder(folder / "c.mp3.tmp");
    EXPECT_FALSE(Rebuild("c.mp3"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"c.mp3", "c.mp3.tmp"}));
}

TEST_F(TemporaryFileTest, OldOneThatCannotBeDeleted_IsNoFile) {
    folder.Write("c.mp3.tmp", "older");
    FaultInjectingFileSystem failing(files);
    failing.faults.plan = {FaultPlan::Mode::FromTheNthOn, 2, ErrorNumber::PermissionDenied};
    const TemporaryFile fresh(failing, folder / "c.mp3");
    EXPECT_EQ(fresh.File(), nullptr);
    EXPECT_EQ(folder.Read("c.mp3.tmp"), "older");
}

TEST_F(TemporaryFileTest, NameWithoutRoomForTheEnding_GetsAShorterFreeOne) {
    const std::string name = std::string(251, 'x') + ".mp3";
    const std::string shorter = std::string(249, 'x');
    folder.Write(name, "old");
    folder.Write(shorter + "~1.tmp", "of somebody");
    {
        const TemporaryFile fresh(files, folder / name);
        ASSERT_NE(fresh.File(), nullptr);
        EXPECT_EQ(Names(), (std::vector<std::string>{name, shorter + "~1.tmp", shorter + "~2.tmp"}));
    }
    EXPECT_TRUE(Rebuild(name));
    EXPECT_EQ(folder.Read(name), "new");
    EXPECT_EQ(folder.Read(shorter + "~1.tmp"), "of somebody");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_F(TemporaryFileTest, NameWithoutRoomForTheEnding_IsCutBetweenCharacters) {
    std::string name;
    for (int i = 0; i < 125; ++i) name += "Д";
    name += "a.mp3";
    folder.Write(name, "old");
    const TemporaryFile fresh(files, folder / name);
    ASSERT_NE(fresh.File(), nullptr);
    // There is room for 249 bytes; the letter that would lose its second one goes whole.
    EXPECT_EQ(Names(), (std::vector<std::string>{name.substr(0, 248) + "~1.tmp", name}));
}

TEST_F(TemporaryFileTest, FilesOfKilledRuns_AreInNobodysWay) {
    for (int number = 1; number <= 20; ++number)
        folder.Write("c.mp3~" + std::to_string(number) + ".tmp", "left behind");
    folder.Write("c.mp3.tmp", "left behind");
    TemporaryFile fresh(files, folder / "c.mp3", TemporaryFile::OldFile::Keep);
    ASSERT_NE(fresh.File(), nullptr);
    EXPECT_EQ(fresh.Path(), folder / "c.mp3~21.tmp");
}

TEST_F(TemporaryFileTest, KeepWithEnding_PutsTheNumberInFront) {
    folder.Write("~1c.mp3", "of somebody");
    const TemporaryFile fresh(files, folder / "c.mp3", TemporaryFile::OldFile::KeepWithEnding);
    EXPECT_EQ(fresh.Path(), folder / "~2c.mp3");
    EXPECT_EQ(folder.Read("~1c.mp3"), "of somebody");
}

TEST_F(TemporaryFileTest, KeepWithEnding_CutsALongNameInFrontBetweenCharacters) {
    std::string name;
    for (int i = 0; i < 125; ++i) name += "Д";
    name += "a.mp3";
    const TemporaryFile fresh(files, folder / name, TemporaryFile::OldFile::KeepWithEnding);
    ASSERT_NE(fresh.File(), nullptr);
    EXPECT_EQ(Names(), std::vector<std::string>{"~1" + name.substr(2)});
}

TEST_F(TemporaryFileTest, TargetThatIsNotThere_GetsItsName) {
    EXPECT_TRUE(Rebuild("c.mp3"));
    EXPECT_EQ(folder.Read("c.mp3"), "new");
    EXPECT_EQ(Names(), std::vector<std::string>{"c.mp3"});
}

TEST_F(TemporaryFileTest, LongestName_IsTaggedAndUntagged) {
    const std::string audio = Audio(1000);
    ID3Tag tag;
    tag.Path = folder.Write(std::string(251, 'x') + ".mp3", audio);
    SetID3v2(files, LoadCodePage(1252), tag);
    EXPECT_NE(tag.Path, "");
    EXPECT_TRUE(RemoveID3v2(files, tag));
    EXPECT_EQ(ReadWholeFile(tag.Path), audio);
    EXPECT_EQ(Names().size(), 1U);
}

}  // namespace
}  // namespace zefta::test
