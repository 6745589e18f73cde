#include <gtest/gtest.h>

#include "encoding/FrameText.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

const CodePage& Western() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

/// As the reader of frames gives bytes.
std::string Read(const std::string& bytes, const CodePage& page = Western()) {
    return TextOfFrame(page.Decode(bytes), page);
}

TEST(FrameText, PlainText_IsTrimmedAndEndsBeforeItsNul) {
    EXPECT_EQ(Read("Song"), "Song");
    EXPECT_EQ(Read(" Caf\xE9 \0"s), "Café");
    EXPECT_EQ(Read("\0"s), "");
    EXPECT_EQ(Read(""), "");
}

TEST(FrameText, SeveralValues_AreJoined) {
    EXPECT_EQ(Read("A\0B\0\0 C\0"s), "A, B, C");
}

TEST(FrameText, Utf16_IsDecodedInBothOrders) {
    EXPECT_EQ(Read("\xFF\xFES\0o\0\xE9\0"s), "Soé");
    EXPECT_EQ(Read("\xFE\xFF\0S\0o\x04\x1F"s), "SoП");
    EXPECT_EQ(Read("\xFF\xFES\0\0\0"s), "S");
    EXPECT_EQ(Read("\xFF\xFES\0x"s), "S");
    EXPECT_EQ(Read("\xFF\xFE"s), "");
}

TEST(FrameText, Utf16_OfAnotherCodePage_IsDecodedToo) {
    EXPECT_EQ(Read("\xFF\xFE\x1F\x04"s, LoadCodePage(1251)), "П");
}

TEST(FrameText, Utf16_SurrogatesArePairedOrLeftOut) {
    EXPECT_EQ(Read("\xFF\xFE\x3D\xD8\x00\xDE"s), "\U0001F600");
    EXPECT_EQ(Read("\xFF\xFE\x3D\xD8"s
                   "A\0"s),
              "A");
    EXPECT_EQ(Read("\xFF\xFE\x00\xDE"s
                   "A\0"s),
              "A");
}

TEST(FrameText, Utf16BehindADescription_IsDecoded) {
    EXPECT_EQ(Read("\0\xFF\xFEh\0i\0"s), "hi");
}

}  // namespace
}  // namespace zefta::test
