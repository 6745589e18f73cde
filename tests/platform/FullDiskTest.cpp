#include <csignal>
#include <sys/resource.h>

#include <gtest/gtest.h>

#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// Files of this process end at so many bytes while it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
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
    file->Write("0123456789");
    EXPECT_EQ(RuntimeErrorOf([&] { file->Write("x"); }), 61);
    EXPECT_EQ(folder.Read("f"), "0123456789");
}

TEST(FullDisk, SettingsStore_KeepsItsContentAndLeavesNothingBehind) {
    const TempFolder folder;
    folder.Write("s.ini", "[S]\nA=1\n");
    IniSettingsStore store(folder / "s.ini");
    const FileSizeLimit limit(10);
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
