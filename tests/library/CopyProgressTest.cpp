#include <gtest/gtest.h>

#include "library/CopyProgress.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class CopyProgressTest : public ::testing::Test {
  protected:
    const ProgressReport& Last() { return app.desktop.reports.back(); }
    std::string Label(const char* name) { return Last().labels.at(name); }

    TestApp app;
    WaveFile wave{app};
    CopyProgress progress{app, wave, app.desktop.OpenProgress()};
};

TEST_F(CopyProgressTest, Status_ShowsTheFileAndWhatIsDoneOfAll) {
    progress.SetTotal(1000000);
    progress.ShowFile("/music/a.mp3");
    progress.SetBase(200000);
    wave.MinStatus(0);
    wave.MaxStatus(300000);
    wave.Status(44100);
    EXPECT_EQ(Last().maximum, 1000000);
    EXPECT_EQ(Last().value, 244100);
    EXPECT_EQ(Last().current.maximum, 300000);
    EXPECT_EQ(Last().current.value, 44100);
    EXPECT_EQ(Label("lblCurrent"), "300 000 bytes");
    EXPECT_EQ(Label("lblCurrentDone"), "44 100 bytes");
    EXPECT_EQ(Label("lblWritten"), "244 100 bytes");
    EXPECT_EQ(Label("lblRemaining"), "755 900 bytes");
}

TEST_F(CopyProgressTest, NextFile_ResetsTheScaleOfTheFile) {
    progress.SetTotal(100);
    wave.MaxStatus(50);
    wave.Status(50);
    progress.ShowFile("/music/b.mp3");
    EXPECT_EQ(Last().current.maximum, 0);
    EXPECT_EQ(Last().current.value, 0);
}

TEST_F(CopyProgressTest, TotalsBeyond32Bits_FitTheScale) {
    progress.SetTotal(2147483647);
    EXPECT_EQ(Last().maximum, 2147483647);
    progress.SetTotal(5000000000);
    EXPECT_EQ(Last().maximum, 4882812);
    progress.SetBase(4000000000);
    wave.Status(1000000000);
    EXPECT_EQ(Last().value, 4882812);
    EXPECT_EQ(Label("lblWritten"), "5 000 000 000 bytes");
    EXPECT_EQ(Label("lblRemaining"), "0 bytes");
    progress.SetTotal(std::int64_t{1} << 50);
    EXPECT_EQ(Last().maximum, 1 << 30);
}

TEST_F(CopyProgressTest, FileThatGrew_DoesNotLeadBeyondTheEnd) {
    progress.SetTotal(100);
    wave.Status(150);
    EXPECT_EQ(Last().value, 100);
}

TEST_F(CopyProgressTest, NothingToCopy_IsNoDivisionByZero) {
    progress.SetTotal(0);
    EXPECT_EQ(Last().maximum, 0);
    EXPECT_EQ(Label("lblRemaining"), "0 bytes");
}

}  // namespace
}  // namespace zefta::test
