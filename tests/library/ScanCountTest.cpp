#include <gtest/gtest.h>

#include "library/ScanCount.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class ScanCountTest : public ::testing::Test {
  protected:
    std::string CountText() { return count.CountText(app.messages); }

    TestApp app;
    ScanCount count;
};

TEST_F(ScanCountTest, Nothing_SaysNothing) {
    EXPECT_EQ(CountText(), "");
    EXPECT_EQ(count.SizeText(), "");
}

TEST_F(ScanCountTest, Folders_AreToldUntilAFileIsMet) {
    count.AddFolder();
    count.AddFolder();
    EXPECT_EQ(CountText(), "2 folders");
    EXPECT_EQ(count.SizeText(), "");
    count.AddFile(2048);
    EXPECT_EQ(CountText(), "1 files");
    EXPECT_EQ(count.SizeText(), "2 K");
}

TEST_F(ScanCountTest, FilesOfOtherKinds_CountForNothing) {
    count.AddFolder();
    count.PassFile();
    EXPECT_EQ(CountText(), "0 files");
    EXPECT_EQ(count.SizeText(), " K");
    count.AddFile(10240);
    count.PassFile();
    EXPECT_EQ(CountText(), "1 files");
    EXPECT_EQ(count.SizeText(), "10 K");
}

TEST_F(ScanCountTest, Sum_IsRoundedOnceAndGrouped) {
    count.AddFile(512);
    EXPECT_EQ(count.SizeText(), " K") << "a half goes to the even number";
    count.AddFile(1);
    EXPECT_EQ(count.SizeText(), "1 K");
    count.AddFile(1234567 * 1024 - 513);
    EXPECT_EQ(count.SizeText(), "1 234 567 K");
}

TEST_F(ScanCountTest, SumBeyond32Bits_StaysWhatItWas) {
    count.AddFile(2147483647);
    count.AddFile(1);
    EXPECT_EQ(count.SizeText(), "2 097 152 K");
    EXPECT_EQ(CountText(), "2 files");
    ScanCount large;
    large.AddFile(std::int64_t{1} << 40);
    large.AddFile(1024);
    EXPECT_EQ(large.SizeText(), "1 K");
}

}  // namespace
}  // namespace zefta::test
