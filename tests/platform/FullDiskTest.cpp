#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/FileSizeLimit.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// Files of this process end at so many bytes while it lives. The signal that goes with it does what it does
/// to any program that has just been started.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_DFL);
        getrlimit(RLIMIT_FSIZE, &former_);
        rlimit limit = former_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &former_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit former_;
};

TEST(FullDisk, Write_PastTheRoomThatIsLeft_Fails61AtTheCall) {
    const TempFolder folder;
    PosixFileSystem files;
    const auto file = files.OpenCreate(folder / "f");
    const FileSizeLimit limit(10);
    FailWritesBeyondTheSizeLimit();
    file->Write("0123456789");
    EXPECT_EQ(RuntimeErrorOf([&] { file->Write("x"); }), 61);
    EXPECT_EQ(folder.Read("f"), "0123456789");
}

TEST(FullDiskDeathTest, Write_PastTheSizeLimitOfAProgramThatDidNotAskForFailures_EndsIt) {
    const TempFolder folder;
    PosixFileSystem files;
    const auto file = files.OpenCreate(folder / "f");
    EXPECT_EXIT(
        {
            const FileSizeLimit limit(0);
            file->Write("x");
        },
        ::testing::KilledBySignal(SIGXFSZ), "");
}

TEST(FullDisk, OutsideTool_MeetsTheSizeLimitAsAnyProgramDoes) {
    const TempFolder folder;
    FailWritesBeyondTheSizeLimit();
    const std::string tool =
        folder.Write("tool", "#!/bin/sh\nkill -XFSZ $$\ntouch '" + (folder / "on") + "'\n");
    ASSERT_EQ(chmod(tool.c_str(), 0700), 0);
    PosixProcesses().RunProgram("\"" + tool + "\"", true, NormalPriority);
    EXPECT_FALSE(folder.Exists("on"));
}

TEST(FullDisk, SettingsStore_KeepsItsContentAndLeavesNothingBehind) {
    const TempFolder folder;
    folder.Write("s.ini", "[S]\nA=1\n");
    IniSettingsStore store(folder / "s.ini");
    const FileSizeLimit limit(10);
    FailWritesBeyondTheSizeLimit();
    store.Apply({{"S", "B", "2"}});
    EXPECT_EQ(store.GetValue("S", "B"), "2");
    EXPECT_EQ(folder.Read("s.ini"), "[S]\nA=1\n");
    EXPECT_FALSE(folder.Exists("s.ini.new"));
}

TEST(FaultInjection, OnlyTheNth_FailsOnceAndGoesOn) {
    const TempFolder folder;
    PosixFileSystem real;
    FaultInjectingFileSystem files(real);
    files.faults.plan = {FaultPlan::Mode::OnlyTheNth, 2, ErrorNumber::DeviceIoError};
    const auto file = files.OpenCreate(folder / "f");
    EXPECT_EQ(RuntimeErrorOf([&] { file->Write("ab"); }), 57);
    file->Write("cd");
    EXPECT_EQ(folder.Read("f"), "acd");
}

TEST(FaultInjection, FromTheNthOn_EverythingFails) {
    const TempFolder folder;
    PosixFileSystem real;
    FaultInjectingFileSystem files(real);
    files.faults.plan = {FaultPlan::Mode::FromTheNthOn, 1, ErrorNumber::DiskFull};
    EXPECT_EQ(files.OpenCreate(folder / "f"), nullptr);
    EXPECT_EQ(RuntimeErrorOf([&] { files.CreateFolder(folder / "sub"); }), 61);
}

}  // namespace
}  // namespace zefta::test
