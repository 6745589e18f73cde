#include <random>

#include <gtest/gtest.h>

#include "platform/BufferedFile.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

std::string Numbered(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(i * 31 + i / 256);
    return bytes;
}

class BufferedFileTest : public ::testing::Test {
  protected:
    std::unique_ptr<BufferedFile> Open(const std::string& bytes, BufferedFile::Windows windows) {
        return std::make_unique<BufferedFile>(counting.OpenReadOnly(folder.Write("file", bytes)), windows);
    }

    /// Reads that reached the file since the last call.
    int Reads() { return std::exchange(counting.faults.operations, 0); }

    TempFolder folder;
    PosixFileSystem files;
    FaultInjectingFileSystem counting{files};
};

TEST_F(BufferedFileTest, AnyWalk_ReadsWhatTheFileItselfReads) {
    std::mt19937 random(7);
    for (const std::size_t size : {0U, 1U, 99U, 100U, 4000U, 12000U, 30000U}) {
        const std::string bytes = Numbered(size);
        for (const BufferedFile::Windows windows :
             {BufferedFile::Windows{0, 0}, {100, 50}, {8192, 300}, {4100, 8192}, {8192, 8192}}) {
            const auto buffered = Open(bytes, windows);
            const auto plain = files.OpenReadOnly(folder / "file");
            ASSERT_EQ(buffered->Size(), plain->Size());
            for (int step = 0; step < 300; ++step) {
                const auto place = static_cast<std::int32_t>(random() % (size + 20));
                const auto count = static_cast<std::int32_t>(random() % (step % 10 == 0 ? 9000 : 40));
                const auto from = static_cast<SeekFrom>(random() % 3);
                const std::int32_t distance = from == SeekFrom::Start ? place : -place;
                EXPECT_EQ(buffered->Seek(distance, from), plain->Seek(distance, from));
                EXPECT_EQ(buffered->ReadBytes(count), plain->ReadBytes(count));
                ASSERT_EQ(buffered->Position(), plain->Position());
            }
        }
    }
}

TEST_F(BufferedFileTest, View_ShowsWhatReadGives) {
    std::mt19937 random(8);
    const std::string bytes = Numbered(30000);
    const auto file = Open(bytes, {4096, 300});
    for (int step = 0; step < 2000; ++step) {
        const std::size_t place = random() % 30100;
        const std::size_t count = random() % 6000;
        const std::string expected = place < bytes.size() ? bytes.substr(place, count) : std::string();
        ASSERT_EQ(file->View(static_cast<std::int32_t>(place), static_cast<std::int32_t>(count)), expected);
        ASSERT_EQ(file->Position(), static_cast<std::int32_t>(place + expected.size()));
    }
    EXPECT_EQ(file->View(0, -1), "");
}

TEST_F(BufferedFileTest, HeadAndTail_AreReadOnceEach) {
    const auto file = Open(Numbered(50000), {1000, 500});
    Reads();
    for (int i = 0; i < 1000; ++i) file->ReadBytes(1);
    EXPECT_EQ(Reads(), 1);
    file->Seek(-500, SeekFrom::End);
    for (int i = 0; i < 500; ++i) file->ReadBytes(1);
    EXPECT_EQ(Reads(), 1);
    file->Seek(0, SeekFrom::Start);
    file->ReadBytes(1000);
    EXPECT_EQ(Reads(), 0);
}

TEST_F(BufferedFileTest, Middle_IsReadInPiecesAndLargeReadsGoPastIt) {
    const auto file = Open(Numbered(50000), {1000, 500});
    Reads();
    file->Seek(2000, SeekFrom::Start);
    for (int i = 0; i < 4096; ++i) file->ReadBytes(1);
    EXPECT_EQ(Reads(), 1);
    file->Seek(20000, SeekFrom::Start);
    EXPECT_EQ(file->ReadBytes(20000).size(), 20000U);
    EXPECT_EQ(Reads(), 1);
}

TEST_F(BufferedFileTest, NothingAskedFor_NothingRead) {
    const auto file = Open(Numbered(50000), {1000, 500});
    Reads();
    file->Seek(-10, SeekFrom::End);
    EXPECT_EQ(file->Position(), 49990);
    EXPECT_EQ(Reads(), 0);
}

TEST_F(BufferedFileTest, DeviceThatFails_IsAFailureOfTheReadAndOfTheNextOne) {
    const auto file = Open(Numbered(50000), {1000, 500});
    counting.faults.plan = {FaultPlan::Mode::FromTheNthOn, 1, ErrorNumber::DeviceIoError};
    EXPECT_EQ(RuntimeErrorOf([&] { file->ReadBytes(1); }), 57);
    EXPECT_EQ(RuntimeErrorOf([&] { file->ReadBytes(1); }), 57);
    counting.faults.plan = {};
    EXPECT_EQ(file->ReadBytes(3), Numbered(3));
}

TEST_F(BufferedFileTest, WritingAFileOpenForReading_IsRefused) {
    const auto file = Open("abc", {10, 10});
    EXPECT_EQ(RuntimeErrorOf([&] { file->Write("x"); }), 70);
    EXPECT_FALSE(file->IsReadOnly());
}

TEST_F(BufferedFileTest, AnyWalkWithWrites_LeavesAndReadsWhatTheFileItselfHas) {
    std::mt19937 random(9);
    for (const std::size_t size : {0U, 99U, 4000U, 12000U, 30000U}) {
        for (const BufferedFile::Windows windows :
             {BufferedFile::Windows{0, 0}, {100, 50}, {2058, 300}, {4100, 8192}}) {
            folder.Write("buffered", Numbered(size));
            folder.Write("plain", Numbered(size));
            BufferedFile buffered(files.OpenRead(folder / "buffered"), windows);
            const auto plain = files.OpenRead(folder / "plain");
            for (int step = 0; step < 400; ++step) {
                const auto place = static_cast<std::int32_t>(random() % (size + 20));
                const auto count = static_cast<std::int32_t>(random() % (step % 10 == 0 ? 9000 : 140));
                const bool isFromEnd = random() % 2 == 0 && place <= plain->Size();
                for (BinaryFile* file : {static_cast<BinaryFile*>(&buffered), plain.get()})
                    file->Seek(isFromEnd ? -place : place, isFromEnd ? SeekFrom::End : SeekFrom::Start);
                const int what = static_cast<int>(random() % 16);
                if (what == 0) {
                    buffered.SetEnd();
                    plain->SetEnd();
                } else if (what < 5) {
                    const std::string bytes = Numbered(static_cast<std::size_t>(count / 2));
                    buffered.Write(bytes);
                    plain->Write(bytes);
                } else {
                    ASSERT_EQ(buffered.ReadBytes(count), plain->ReadBytes(count)) << step;
                }
                ASSERT_EQ(buffered.Position(), plain->Position());
                ASSERT_EQ(buffered.Size(), plain->Size());
            }
            EXPECT_EQ(folder.Read("buffered"), folder.Read("plain"));
        }
    }
}

TEST_F(BufferedFileTest, WriteAtTheEnd_LeavesTheHeadKnown) {
    folder.Write("file", Numbered(50000));
    BufferedFile file(counting.OpenRead(folder / "file"), {1000, 500});
    file.ReadBytes(10);
    file.Seek(-128, SeekFrom::End);
    file.Write(std::string(128, 'x'));
    Reads();
    file.Seek(0, SeekFrom::Start);
    EXPECT_EQ(file.ReadBytes(1000), Numbered(1000));
    EXPECT_EQ(Reads(), 0);
    file.Seek(-129, SeekFrom::End);
    EXPECT_EQ(file.ReadBytes(200), Numbered(50000).substr(49871, 1) + std::string(128, 'x'));
    EXPECT_EQ(Reads(), 1);
}

TEST_F(BufferedFileTest, WriteThatFails_ShowsWhatItLeft) {
    folder.Write("file", Numbered(100));
    BufferedFile file(counting.OpenRead(folder / "file"), {1000, 500});
    EXPECT_EQ(file.ReadBytes(200), Numbered(100));
    counting.faults = {};
    counting.faults.plan = {FaultPlan::Mode::OnlyTheNth, 1, ErrorNumber::DiskFull};
    EXPECT_EQ(RuntimeErrorOf([&] { file.Write(std::string(40, 'x')); }), 61);
    EXPECT_EQ(file.Size(), 120);
    file.Seek(0, SeekFrom::Start);
    EXPECT_EQ(file.ReadBytes(200), Numbered(100) + std::string(20, 'x'));
}

TEST_F(BufferedFileTest, Flush_ReachesTheFile) {
    folder.Write("file", "abc");
    BufferedFile file(counting.OpenRead(folder / "file"), {10, 10});
    Reads();
    file.Flush();
    EXPECT_EQ(Reads(), 1);
}

TEST_F(BufferedFileTest, Seek_BehindWhatPositionsHold_IsAnOverflow) {
    const auto file = Open("abc", {10, 10});
    EXPECT_FALSE(file->Seek(-1, SeekFrom::Start));
    EXPECT_EQ(RuntimeErrorOf([&] { file->Seek(2147483647, SeekFrom::End); }), 6);
}

}  // namespace
}  // namespace zefta::test
