#include <filesystem>

#include <gtest/gtest.h>

#include "core/TextLines.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class TextLinesTest : public ::testing::Test {
  protected:
    TempFolder folder;
    PosixFileSystem files;

    TextLines Read(const std::string& bytes) { return ReadTextLines(files, folder.Write("list.m3u", bytes)); }
};

TEST_F(TextLinesTest, Lines_KeepTheirOwnEnds) {
    const TextLines text = Read("one\r\ntwo\n\r\nlast\r");
    ASSERT_EQ(text.lines.size(), 4U);
    EXPECT_EQ(text.lines[0].text + "|" + text.lines[0].end, "one|\r\n");
    EXPECT_EQ(text.lines[1].text + "|" + text.lines[1].end, "two|\n");
    EXPECT_EQ(text.lines[2].text + "|" + text.lines[2].end, "|\r\n");
    EXPECT_EQ(text.lines[3].text + "|" + text.lines[3].end, "last\r|");
    EXPECT_FALSE(text.hasByteOrderMark);
}

TEST_F(TextLinesTest, AnyFile_ComesBackByteForByte) {
    using namespace std::string_literals;
    for (const std::string& bytes :
         {""s, "\n"s, "\xEF\xBB\xBF"s, "\xEF\xBB\xBF#EXTM3U\r\na\\b\xFF.mp3\n\n"s, "a\0b\r"s})
        EXPECT_EQ(BytesOf(Read(bytes)), bytes);
}

TEST_F(TextLinesTest, ByteOrderMark_IsNoPartOfTheFirstLine) {
    const TextLines text = Read("\xEF\xBB\xBF#EXTM3U\n");
    EXPECT_TRUE(text.hasByteOrderMark);
    EXPECT_EQ(text.lines.at(0).text, "#EXTM3U");
}

TEST_F(TextLinesTest, MissingFileOrFolder_Fails) {
    EXPECT_EQ(RuntimeErrorOf([&] { ReadTextLines(files, folder / "none"); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { ReadTextLines(files, folder.Path()); }), 53);
}

TEST_F(TextLinesTest, FileFarTooLarge_FailsBeforeItIsRead) {
    const std::string path = folder.Write("huge.m3u", "");
    std::filesystem::resize_file(path, std::uintmax_t{1} << 33);
    EXPECT_EQ(RuntimeErrorOf([&] { ReadTextLines(files, path); }), 7);
}

TEST_F(TextLinesTest, MoreLinesThanAnyListHas_FailBeforeTheyAreHeld) {
    EXPECT_EQ(Read(std::string(1000000, '\n')).lines.size(), 1000000U);
    EXPECT_EQ(RuntimeErrorOf([&] { Read(std::string(1000001, '\n')); }), 7);
}

}  // namespace
}  // namespace zefta::test
