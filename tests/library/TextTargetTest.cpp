#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "library/TextTarget.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class TextTargetTest : public ::testing::Test {
  protected:
    int ErrorOf(const std::string& name) {
        return RuntimeErrorOf([&] { TextTarget target(app.files, app.folder / name); });
    }

    std::size_t EntryCount() { return app.files.List(app.folder.Path()).size(); }

    TestApp app;
};

TEST_F(TextTargetTest, NewFile_IsThereAtOnceAndGoesWhenNothingIsPut) {
    {
        TextTarget target(app.files, app.folder / "a.m3u");
        EXPECT_TRUE(app.folder.Exists("a.m3u"));
        EXPECT_EQ(target.Path(), app.files.FollowLinks(app.folder / "a.m3u"));
    }
    EXPECT_EQ(EntryCount(), 0U);
}

TEST_F(TextTargetTest, Put_OfANewFile_WritesIt) {
    TextTarget(app.files, app.folder / "a.m3u").Put("text\n");
    EXPECT_EQ(app.folder.Read("a.m3u"), "text\n");
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(TextTargetTest, OldFile_StaysUntilItIsReplacedAsAWhole) {
    app.folder.Write("a.m3u", "old, and longer than the new one");
    { TextTarget target(app.files, app.folder / "a.m3u"); }
    EXPECT_EQ(app.folder.Read("a.m3u"), "old, and longer than the new one");
    EXPECT_EQ(EntryCount(), 1U);
    TextTarget(app.files, app.folder / "a.m3u").Put("new");
    EXPECT_EQ(app.folder.Read("a.m3u"), "new");
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(TextTargetTest, OldFileInAnotherCase_KeepsItsName) {
    app.folder.Write("List.M3U", "old");
    TextTarget(app.files, app.folder / "list.m3u").Put("new");
    EXPECT_EQ(app.folder.Read("List.M3U"), "new");
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(TextTargetTest, Link_IsFollowed) {
    app.files.CreateFolder(app.folder / "sub");
    app.folder.Write("sub/real.m3u", "old");
    std::filesystem::create_symlink("sub/real.m3u", app.folder / "a.m3u");
    TextTarget(app.files, app.folder / "a.m3u").Put("new");
    EXPECT_EQ(app.folder.Read("sub/real.m3u"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "a.m3u"));
}

TEST_F(TextTargetTest, LinkThatLeadsNowhere_GetsTheFileBehindIt) {
    std::filesystem::create_symlink("nowhere.m3u", app.folder / "a.m3u");
    { const TextTarget target(app.files, app.folder / "a.m3u"); }
    EXPECT_FALSE(app.folder.Exists("nowhere.m3u"));
    TextTarget(app.files, app.folder / "a.m3u").Put("new");
    EXPECT_EQ(app.folder.Read("nowhere.m3u"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "a.m3u"));
    std::filesystem::create_symlink("missing/nowhere.m3u", app.folder / "b.m3u");
    EXPECT_EQ(ErrorOf("b.m3u"), 70);
}

TEST_F(TextTargetTest, OldTemporaryFile_OfSomeoneElseStays) {
    app.folder.Write("a.m3u", "old");
    app.folder.Write("a.m3u.tmp", "foreign");
    TextTarget(app.files, app.folder / "a.m3u").Put("new");
    EXPECT_EQ(app.folder.Read("a.m3u"), "new");
    EXPECT_EQ(app.folder.Read("a.m3u.tmp"), "foreign");
}

TEST_F(TextTargetTest, TargetThatCannotBeWritten_IsToldAtOnce) {
    app.files.CreateFolder(app.folder / "folder.m3u");
    EXPECT_EQ(ErrorOf("folder.m3u"), 75);
    EXPECT_EQ(ErrorOf("missing/a.m3u"), 76);
    app.folder.Write("a.m3u", "old");
    app.files.SetReadOnly(app.folder / "a.m3u", true);
    EXPECT_EQ(ErrorOf("a.m3u"), 70);
    EXPECT_EQ(ErrorOf("a.m3u/b.m3u"), 76);
    ASSERT_EQ(mkfifo((app.folder / "pipe.m3u").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf("pipe.m3u"), 70);
    EXPECT_EQ(ErrorOf(std::string(300, 'x')), 70);
    EXPECT_EQ(app.folder.Read("a.m3u"), "old");
    EXPECT_EQ(EntryCount(), 3U);
}

TEST_F(TextTargetTest, FailureOfAnyOperation_LeavesTheOldListOrTheNewOne) {
    for (int nth = 1; nth <= 8; ++nth) {
        for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
            TestApp fresh;
            fresh.folder.Write("a.m3u", "old");
            FaultInjectingFileSystem files(fresh.files);
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            const int error = RuntimeErrorOf([&] { TextTarget(files, fresh.folder / "a.m3u").Put("new"); });
            EXPECT_EQ(fresh.folder.Read("a.m3u"), error == 0 ? "new" : "old") << nth;
        }
    }
}

TEST_F(TextTargetTest, DiskThatIsFull_LeavesNoHalfOfANewList) {
    FaultInjectingFileSystem files(app.files);
    files.faults.plan = {FaultPlan::Mode::OnlyTheNth, 2, ErrorNumber::DiskFull};
    EXPECT_EQ(RuntimeErrorOf([&] { TextTarget(files, app.folder / "a.m3u").Put("new"); }), 61);
    EXPECT_EQ(EntryCount(), 0U);
}

}  // namespace
}  // namespace zefta::test
