#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/FileNames.h"
#include "platform/Text.h"

namespace zefta::test {
namespace {

using Row = std::pair<std::string, std::string>;

std::string Repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

TEST(MakeFileName, EveryRule) {
    const Row rows[] = {{"AC/DC: Live? \"x\" <y>|z*\\", "AC_DC_ Live_ _x_ _y__z__"},
                        {"a\tb\x7F", "a_b_"},
                        {std::string("a\0b", 3), "a_b"},
                        {"next\u0085line\u009F", "next_line_"},
                        {"no-break\u00A0blank", "no-break\u00A0blank"},
                        {"end. . ", "end"},
                        {" front", " front"},
                        {"...And Justice", "...And Justice"},
                        {"a.b.zfc", "a.b.zfc"},
                        {"Artist - Album.zfc", "Artist - Album.zfc"},
                        {"", ""},
                        {"...", ""},
                        {"  ", ""},
                        {"Дом", "Дом"},
                        {"100% [x] {y} (z)", "100% [x] {y} (z)"}};
    for (const auto& [text, name] : rows) EXPECT_EQ(MakeFileName(text), name);
}

TEST(MakeFileName, BytesThatAreNoUtf8_AreReplaced) {
    EXPECT_EQ(MakeFileName("Caf\xE9 x"), "Caf_ x");
    EXPECT_EQ(MakeFileName("\xD0"), "_");
    EXPECT_EQ(MakeFileName("\xC0\xAF"), "__");
    EXPECT_EQ(MakeFileName("\xED\xA0\x80"), "___");
}

TEST(MakeFileName, DeviceNames_AreChangedWithWhateverExtension) {
    const Row rows[] = {{"con", "con_"},
                        {"NUL.txt", "NUL_.txt"},
                        {"Aux.a.b", "Aux_.a.b"},
                        {"prn .x", "prn _.x"},
                        {"COM1", "COM1_"},
                        {"lpt9.mp3", "lpt9_.mp3"},
                        {"COM\u00B2", "COM\u00B2_"},
                        {"conin$", "conin$_"},
                        {"CONOUT$.x", "CONOUT$_.x"},
                        {"COM0", "COM0"},
                        {"com10", "com10"},
                        {"common", "common"},
                        {"com", "com"},
                        {"a.con", "a.con"}};
    for (const auto& [text, name] : rows) EXPECT_EQ(MakeFileName(text), name);
}

TEST(MakeFileName, LongText_IsCutBetweenWholeCharacters) {
    const std::string text = "a" + Repeated("Д", 200);
    EXPECT_EQ(MakeFileName(text), text.substr(0, 251));
    EXPECT_EQ(MakeFileName("a" + text), ("a" + text).substr(0, 250));
    EXPECT_EQ(MakeFileName(Repeated("x", 251)).size(), 251U);
    EXPECT_EQ(MakeFileName(Repeated("x", 252)).size(), 251U);
}

TEST(MakeFileName, CutThatEndsInABlankOrDot_DropsIt) {
    EXPECT_EQ(MakeFileName(std::string(249, 'x') + ". yyy"), std::string(249, 'x'));
}

TEST(MakeFileName, LongTextWithAnExtension_KeepsIt) {
    const std::string name = MakeFileName(Repeated("Ж", 300) + ".zfc");
    EXPECT_EQ(name, Repeated("Ж", 123) + ".zfc");
    EXPECT_EQ(MakeFileName(std::string(246, 'x') + " yyyy.m3u"), std::string(246, 'x') + ".m3u");
    EXPECT_EQ(MakeFileName(std::string(300, 'x') + ".m u"), std::string(251, 'x'));
}

TEST(MakeFileName, DeviceNameThatACutLaysBare_IsChanged) {
    EXPECT_EQ(MakeFileName("con" + std::string(300, ' ') + "x"), "con_");
    EXPECT_EQ(MakeFileName("nul." + std::string(300, 'x')), "nul_." + std::string(246, 'x'));
}

TEST(MakeFileName, AppliedToItsResult_GivesTheSame) {
    const std::string texts[] = {"AC/DC: Live?",
                                 "end. . ",
                                 "con",
                                 "NUL.txt",
                                 "COM\u00B9 .a",
                                 Repeated("Д. ", 200),
                                 Repeated(". ", 200),
                                 "con" + std::string(300, ' ') + "x",
                                 "con" + std::string(300, ' ') + "x.mp3",
                                 "nul." + std::string(300, '.') + ".mp3",
                                 "nul." + std::string(250, 'x') + ".mp3",
                                 Repeated("\xFF", 300)};
    for (const std::string& text : texts) {
        const std::string name = MakeFileName(text);
        EXPECT_EQ(MakeFileName(name), name) << text;
        EXPECT_LE(name.size(), LongestMadeName) << text;
    }
}

TEST(MakeFileName, EveryCharacter_GivesAValidNameThatStays) {
    for (char32_t character = 1; character < 0x3100; ++character) {
        std::string text = "x";
        AppendUtf8(text, character);
        text += "y";
        const std::string name = MakeFileName(text);
        ASSERT_TRUE(IsValidUtf8(name)) << text;
        ASSERT_EQ(MakeFileName(name), name) << text;
        ASSERT_EQ(name.find_first_of("\\/:*?\"<>|\n\r\t"), std::string::npos) << text;
    }
}

TEST(SpacesToUnderscores, EveryBlank_BecomesOne) {
    EXPECT_EQ(SpacesToUnderscores(" a  b "), "_a__b_");
    EXPECT_EQ(SpacesToUnderscores("a\tb\u00A0c"), "a\tb\u00A0c");
    EXPECT_EQ(SpacesToUnderscores(""), "");
}

TEST(CutToBytes, TakesWholeCharacters) {
    EXPECT_EQ(CutToBytes("abc", 3), "abc");
    EXPECT_EQ(CutToBytes("abc", 2), "ab");
    EXPECT_EQ(CutToBytes("aЖb", 2), "a");
    EXPECT_EQ(CutToBytes("aЖb", 3), "aЖ");
    EXPECT_EQ(CutToBytes("a\xFF\xFE", 2), "a\xFF");
    EXPECT_EQ(CutToBytes("Ж", 1), "");
    EXPECT_EQ(CutToBytes("a", 0), "");
}

TEST(ExtensionStart, IsTheFourthCharacterFromTheEnd) {
    EXPECT_EQ(ExtensionStart("a.mp3"), 1U);
    EXPECT_EQ(ExtensionStart("xmp3"), 0U);
    EXPECT_EQ(ExtensionStart("mp3"), 0U);
    EXPECT_EQ(ExtensionStart("Жmp3"), 0U);
    EXPECT_EQ(ExtensionStart("aЖmp3"), 1U);
    EXPECT_EQ(ExtensionStart("a\xE9mp3"), 1U);
    EXPECT_EQ(ExtensionStart("Ж.mp3"), 2U);
    EXPECT_EQ(ExtensionStart(""), 0U);
}

}  // namespace
}  // namespace zefta::test
