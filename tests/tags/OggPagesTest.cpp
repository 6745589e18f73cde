#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/OggPages.h"

namespace zefta::test {
namespace {

TestPage SomePage(std::size_t packetLength) {
    TestPage page;
    page.flags = 5;
    page.granule = -0x123456789ABCDEF;
    page.serial = 0xFEDCBA98;
    page.number = 0x80000001;
    page.lacing = LacingOf(packetLength);
    page.body = Audio(packetLength);
    return page;
}

TEST(OggPages, Checksum_OfAPageByOggenc_IsTheOneInIt) {
    using namespace std::string_literals;
    const std::string page =
        "OggS\0\2\0\0\0\0\0\0\0\0\x65\xB2\x75\x63\0\0\0\0\x1F\x38\x8A\x56\1\x1E\1vorbis"s
        "\0\0\0\0\2\x44\xAC\0\0\0\0\0\0\x80\xB5\1\0\0\0\0\0\xB8\1"s;
    ASSERT_EQ(page.size(), 58U);
    EXPECT_EQ(OggChecksum(page), 0x568A381FU);
    EXPECT_EQ(SlowOggChecksum(page), 0x568A381FU);
    EXPECT_TRUE(ParseOggPage(page));
}

TEST(OggPages, Checksum_OfEveryLength_FollowsTheDefinition) {
    for (std::size_t length = 0; length < 300; ++length) {
        const std::string bytes = SomePage(length).Bytes();
        EXPECT_EQ(OggChecksum(bytes), SlowOggChecksum(bytes)) << length;
    }
}

TEST(OggPages, Parse_Page_GivesItsFields) {
    const TestPage expected = SomePage(700);
    const std::string bytes = expected.Bytes() + "behind";
    const auto page = ParseOggPage(bytes);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->flags, expected.flags);
    EXPECT_EQ(page->granulePosition, expected.granule);
    EXPECT_EQ(page->serial, expected.serial);
    EXPECT_EQ(page->number, expected.number);
    EXPECT_EQ(page->lacing, expected.lacing);
    EXPECT_EQ(page->body, expected.body);
    EXPECT_EQ(OggPageLength(*page), bytes.size() - 6);
}

TEST(OggPages, Parse_CutAtEveryLength_GivesNothing) {
    const std::string bytes = SomePage(700).Bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ParseOggPage(std::string_view(bytes).substr(0, length))) << length;
}

TEST(OggPages, Parse_AnyDamagedByte_GivesNothing) {
    const std::string bytes = SomePage(700).Bytes();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        EXPECT_FALSE(ParseOggPage(damaged)) << at;
    }
}

TEST(OggPages, Parse_OtherVersion_GivesNothing) {
    TestPage page = SomePage(10);
    page.version = 1;
    EXPECT_FALSE(ParseOggPage(page.Bytes()));
}

TEST(OggPages, Append_WhatWasParsed_GivesTheSameBytes) {
    for (const std::size_t length : {0U, 1U, 254U, 255U, 256U, 64770U}) {
        const std::string bytes = SomePage(length).Bytes();
        std::string rendered = "ahead";
        AppendOggPage(rendered, *ParseOggPage(bytes));
        EXPECT_EQ(rendered, "ahead" + bytes) << length;
    }
}

TEST(OggPages, Renumber_Page_ChangesNumberAndChecksumOnly) {
    TestPage page = SomePage(700);
    std::string bytes = page.Bytes();
    RenumberOggPage(bytes, 17);
    page.number = 17;
    EXPECT_EQ(bytes, page.Bytes());
}

class OggPageReaderTest : public ::testing::Test {
  protected:
    /// The pages that the reader gives, as bytes, and " END" when it reached the end of the file.
    std::string ReadAll(const std::string& bytes) {
        const auto file = files.OpenReadOnly(folder.Write("a.ogg", bytes));
        OggPageReader reader(*file);
        std::string read;
        while (reader.Next()) read += reader.PageBytes();
        EXPECT_EQ(reader.PageBytes(), "");
        EXPECT_FALSE(reader.Next());
        return read + (reader.Rest() == "" ? " END" : "");
    }

    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(OggPageReaderTest, Next_ManyLargeAndSmallPages_GivesEachOnce) {
    std::string bytes;
    for (int i = 0; i < 25; ++i)
        bytes += SomePage(64770).Bytes() + SomePage(static_cast<std::size_t>(i)).Bytes();
    EXPECT_EQ(ReadAll(bytes), bytes + " END");
}

TEST_F(OggPageReaderTest, Next_FileThatEndsWithAFullBuffer_ReachesTheEnd) {
    std::string bytes;
    while (bytes.size() < 4 * 65536 - 27 - 257 - 27) bytes += SomePage(200).Bytes();
    const std::size_t missing = 4 * 65536 - bytes.size();
    TestPage last = SomePage(0);
    last.lacing = std::string(missing - 27, '\0');
    bytes += last.Bytes();
    ASSERT_EQ(bytes.size(), 4U * 65536U);
    EXPECT_EQ(ReadAll(bytes), bytes + " END");
}

TEST_F(OggPageReaderTest, Next_EmptyFile_IsAtItsEnd) {
    EXPECT_EQ(ReadAll(""), " END");
}

TEST_F(OggPageReaderTest, Next_GarbageOrCutPage_StopsAheadOfIt) {
    const std::string page = SomePage(300).Bytes();
    EXPECT_EQ(ReadAll(page + "x" + page), page);
    EXPECT_EQ(ReadAll(page + page.substr(0, page.size() - 1)), page);
    EXPECT_EQ(ReadAll("x" + page), "");
    EXPECT_EQ(ReadAll(page + "x"), page);
}

}  // namespace
}  // namespace zefta::test
