#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class BlockCopyTest : public ::testing::Test {
  protected:
    /// What a new file holds after `ahead` and `count` bytes from the position 10 of a file on.
    std::string Copied(std::size_t ahead, std::size_t size, std::int32_t count) {
        std::string bytes(size + 10, '\0');
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
        folder.Write("source", bytes);
        expected = std::string(ahead, 'a') + bytes.substr(10, static_cast<std::size_t>(std::max(count, 0)));
        const auto source = files.OpenReadOnly(folder / "source");
        const auto target = counting.OpenCreate(folder / "target");
        source->Seek(10, SeekFrom::Start);
        counting.faults = {};
        CopyInBlocksBehind(std::string(ahead, 'a'), *source, *target, count);
        return folder.Read("target");
    }

    TempFolder folder;
    PosixFileSystem files;
    FaultInjectingFileSystem counting{files};
    std::string expected;
};

TEST_F(BlockCopyTest, CopyInBlocksBehind_AnyLength_IsBothOneBehindTheOther) {
    const auto block = static_cast<std::size_t>(WaveBlockSize);
    for (const std::size_t ahead :
         {std::size_t{0}, std::size_t{512}, block - 1, block, block + 1, 2 * block}) {
        for (const std::size_t size : {std::size_t{0}, std::size_t{1}, block - 512, block - 511, 3 * block})
            EXPECT_TRUE(Copied(ahead, size, static_cast<std::int32_t>(size)) == expected)
                << ahead << " " << size;
    }
}

TEST_F(BlockCopyTest, CopyInBlocksBehind_WhatFitsIntoABlock_IsOneWrite) {
    EXPECT_TRUE(Copied(512, 17000, 17000) == expected);
    EXPECT_EQ(counting.faults.writes, 1);
    EXPECT_TRUE(Copied(512, 100000, 100000) == expected);
    EXPECT_EQ(counting.faults.writes, 4);
}

TEST_F(BlockCopyTest, CopyInBlocksBehind_LessThanCounted_IsWhatIsThere) {
    EXPECT_TRUE(Copied(512, 1000, 3000) == expected);
    EXPECT_TRUE(Copied(512, 1000, -5) == expected);
}

}  // namespace
}  // namespace zefta::test
