// What stands on the disk after a rewrite that went wrong: the audio as it was, whole, under its own name or
// the backup's.

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "support/FaultInjectingFileSystem.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

struct FaultyWave {
    PosixFileSystem real;
    FaultInjectingFileSystem files{real};
    WaveStage stage{&files};

    /// Scans without faults and rewrites with them. -1 for a run-time failure.
    std::int32_t Run(const std::string& source, const FaultPlan& plan) {
        EXPECT_EQ(stage.Scan(source), 0);
        files.faults.operations = 0;
        files.faults.plan = plan;
        std::int32_t code = -1;
        const int failure = RuntimeErrorOf([&] { code = stage.wave.ProcessWave(false); });
        EXPECT_TRUE(failure == 0 || failure == 61) << failure;
        return code;
    }

    bool Holds(const std::string& name, const std::string& content) const {
        return stage.app.folder.Exists(name) && stage.app.folder.Read(name) == content;
    }
};

/// Runs with a fault at every operation in turn until a run comes through without one; gives their number.
template <typename Check>
int WithEveryFault(FaultPlan::Mode mode, const std::string& source, std::int32_t format, Check check) {
    for (int nth = 1;; ++nth) {
        FaultyWave faulty;
        faulty.stage.wave.Format = format;
        faulty.stage.app.folder.Write("a.wav.BAK", "former");
        const std::int32_t code = faulty.Run(source, {mode, nth, ErrorNumber::DiskFull});
        check(faulty, code, nth);
        if (faulty.files.faults.operations < nth) return nth - 1;
    }
}

}  // namespace

TEST(ProcessWaveFaults, Rewrite_FaultAtAnyOperation_LeavesTheAudioWhole) {
    const std::string source = Wav().Silence(600).Tone(2 * Block).Silence(600).Bytes();
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        const int operations =
            WithEveryFault(mode, source, 1, [&](const FaultyWave& faulty, std::int32_t code, int nth) {
                EXPECT_TRUE(faulty.Holds("a.wav", source) || faulty.Holds("a.wav.BAK", source)) << nth;
                if (code == 0) {
                    EXPECT_EQ(faulty.stage.app.folder.Read("a.wav").size(), 44 + 45 * 2352U) << nth;
                }
            });
        // Delete, move, open, create; header, silence twice, two blocks and a rest of nothing; attributes.
        EXPECT_EQ(operations, 12);
    }
}

TEST(ProcessWaveFaults, Unchanged_FaultAtAnyOperation_LeavesTheAudioWhole) {
    const std::string source = Wav().Tone(2 * Block).Bytes();
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        const int operations =
            WithEveryFault(mode, source, 0, [&](const FaultyWave& faulty, std::int32_t code, int nth) {
                EXPECT_TRUE(faulty.Holds("a.wav", source) || faulty.Holds("a.wav.BAK", source)) << nth;
                if (code == 0) {
                    EXPECT_TRUE(faulty.Holds("a.wav", source)) << nth;
                    EXPECT_FALSE(faulty.stage.app.folder.Exists("a.wav.BAK")) << nth;
                }
            });
        EXPECT_EQ(operations, 6);
    }
}

TEST(ProcessWaveFaults, Backup_CannotBeOpened_Is1AndStaysUnderItsName) {
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    FaultyWave faulty;
    EXPECT_EQ(faulty.Run(source, {FaultPlan::Mode::OnlyTheNth, 2, ErrorNumber::DiskFull}), 1);
    EXPECT_FALSE(faulty.stage.app.folder.Exists("a.wav"));
    EXPECT_TRUE(faulty.Holds("a.wav.BAK", source));
}

TEST(ProcessWaveFaults, NewFile_CannotBeCreated_Is2AndTheBackupStaysUnderItsName) {
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    FaultyWave faulty;
    EXPECT_EQ(faulty.Run(source, {FaultPlan::Mode::OnlyTheNth, 3, ErrorNumber::DiskFull}), 2);
    EXPECT_FALSE(faulty.stage.app.folder.Exists("a.wav"));
    EXPECT_TRUE(faulty.Holds("a.wav.BAK", source));
}

TEST(ProcessWaveFaults, FullDisk_PutsTheFormerFileBackSoThatASecondTryLosesNothing) {
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    FaultyWave faulty;
    EXPECT_EQ(faulty.Run(source, {FaultPlan::Mode::OnlyTheNth, 6, ErrorNumber::DiskFull}), -1);
    EXPECT_TRUE(faulty.Holds("a.wav", source));
    EXPECT_FALSE(faulty.stage.app.folder.Exists("a.wav.BAK"));
}

TEST(ProcessWaveFaults, FileCutShortBesideABackup_IsLeftWithIt) {
    const std::string whole = Wav().Silence(600).Tone(2 * Block).Silence(600).Bytes();
    const std::string stump = whole.substr(0, whole.size() - Block);
    FaultyWave faulty;
    faulty.stage.app.folder.Write("a.wav.BAK", whole);
    EXPECT_EQ(faulty.stage.Scan(stump), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { faulty.stage.wave.ProcessWave(false); }), 58);
    EXPECT_TRUE(faulty.Holds("a.wav", stump));
    EXPECT_TRUE(faulty.Holds("a.wav.BAK", whole));
}

TEST(ProcessWaveFaults, DiskThatTakesNothingMore_LeavesBothFiles) {
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    FaultyWave faulty;
    EXPECT_EQ(faulty.Run(source, {FaultPlan::Mode::FromTheNthOn, 6, ErrorNumber::DiskFull}), -1);
    EXPECT_TRUE(faulty.stage.app.folder.Exists("a.wav"));
    EXPECT_TRUE(faulty.Holds("a.wav.BAK", source));
}

}  // namespace zefta::test
