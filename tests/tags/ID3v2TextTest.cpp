#include <gtest/gtest.h>

#include "tags/ID3v2Text.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

const CodePage& Western() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

ID3v2Text Decode(const std::string& body, std::string_view identifier = "TPE1") {
    return DecodeID3v2Body(identifier, body, Western());
}

/// The text of a body that is sound.
std::string TextOf(const std::string& body, std::string_view identifier = "TPE1") {
    const ID3v2Text decoded = Decode(body, identifier);
    EXPECT_TRUE(decoded.isWhole);
    return decoded.text;
}

TEST(ID3v2Text, CodePage_IsDecodedAndEndsBeforeItsNuls) {
    EXPECT_EQ(TextOf("\0Song"s), "Song");
    EXPECT_EQ(TextOf("\0 Caf\xE9 \0\0"s), " Café ");
    EXPECT_EQ(TextOf("\0A\0B\0"s), "A\0B"s);
    EXPECT_EQ(TextOf("\0"s), "");
    EXPECT_EQ(TextOf(""), "");
    EXPECT_EQ(DecodeID3v2Body("TPE1", "\0\xCA\xE8"s, LoadCodePage(1251)).text, "Ки");
}

TEST(ID3v2Text, OtherEncodingByte_CountsAsTheCodePage) {
    EXPECT_EQ(TextOf("\x04"
                     "Caf\xE9"s),
              "Café");
    EXPECT_EQ(TextOf("\xFFSong"s), "Song");
}

TEST(ID3v2Text, Utf16_IsDecodedByItsMark) {
    EXPECT_EQ(TextOf("\1\xFF\xFES\0o\0\xE9\0"s), "Soé");
    EXPECT_EQ(TextOf("\1\xFE\xFF\0S\0o\x04\x1F"s), "SoП");
    EXPECT_EQ(TextOf("\1\xFF\xFES\0\0\0"s), "S");
    EXPECT_EQ(TextOf("\1S\0o\0"s), "So");
    EXPECT_EQ(TextOf("\1\xFF\xFE"s), "");
    EXPECT_EQ(TextOf("\1\xFF\xFE\x3D\xD8\x00\xDE"s), "\U0001F600");
}

TEST(ID3v2Text, Utf16BigEndian_IsDecoded) {
    EXPECT_EQ(TextOf("\2\0S\0o\x04\x1F\0\0"s), "SoП");
    EXPECT_EQ(TextOf("\2\xFE\xFF\0S"s), "S");
    EXPECT_EQ(TextOf("\2\xD8\x3D\xDE\x00"s), "\U0001F600");
}

TEST(ID3v2Text, Utf8_IsTakenAsItStands) {
    EXPECT_EQ(TextOf("\3Кино\0"s), "Кино");
    EXPECT_EQ(TextOf("\3\U0001F600"s), "\U0001F600");
}

TEST(ID3v2Text, SeveralValues_KeepTheNulsBetweenThemButNoMarks) {
    EXPECT_EQ(TextOf("\1\xFF\xFE"
                     "A\0\0\0\xFF\xFE"
                     "B\0\0\0"s),
              "A\0B"s);
    EXPECT_EQ(TextOf("\3A\0B"s), "A\0B"s);
}

TEST(ID3v2Text, DamagedText_IsReadAsFarAsItGoesAndTold) {
    const struct {
        std::string body, text;
    } rows[] = {{"\1\xFF\xFES\0x"s, "S"},
                {"\1\xFF\xFE\x3D\xD8"s, ""},
                {"\1\xFF\xFE\x3D\xD8"
                 "A\0"s,
                 "A"},
                {"\1\xFF\xFE\x00\xDE"
                 "A\0"s,
                 "A"},
                {"\2\0A\0"s, "A"},
                {"\3"
                 "Caf\xE9"s,
                 "Café"}};
    for (const auto& row : rows) {
        const ID3v2Text decoded = Decode(row.body);
        EXPECT_EQ(decoded.text, row.text);
        EXPECT_FALSE(decoded.isWhole) << row.text;
    }
}

TEST(ID3v2Text, Comment_KeepsItsLanguageAndDropsItsDescription) {
    EXPECT_EQ(TextOf("\0rusabout\0Text\0"s, "COMM"), "rus\0Text"s);
    EXPECT_EQ(TextOf("\3eng\0Кино"s, "COMM"), "eng\0Кино"s);
    EXPECT_EQ(TextOf("\1eng\xFF\xFE"
                     "d\0\0\0\xFF\xFEh\0i\0"s,
                     "COMM"),
              "eng\0hi"s);
    EXPECT_EQ(TextOf("\2eng\0d\0\0\0h\0i"s, "COMM"), "eng\0hi"s);
    EXPECT_EQ(TextOf("\1eng\xFF\xFEh\0i\0"s, "COMM"), "eng\0hi"s);
    EXPECT_EQ(TextOf("\3en"s, "COMM"), "en\0"s);
    EXPECT_EQ(TextOf("", "COMM"), "\0"s);
}

TEST(ID3v2Text, Address_IsInTheCodePageWhateverItsDescriptionIsIn) {
    EXPECT_EQ(TextOf("\1\xFF\xFE"
                     "d\0\0\0http://x\0"s,
                     "WXXX"),
              "\0http://x"s);
    EXPECT_EQ(TextOf("\3d\0http://x"s, "WXXX"), "\0http://x"s);
    EXPECT_EQ(TextOf("\0\0http://x"s, "WXXX"), "\0http://x"s);
}

TEST(ID3v2Text, IsInCodePage_IsToldByTheEncodingByte) {
    for (const char* body : {"", "\4x", "\xFFx"}) EXPECT_TRUE(IsInCodePage(body));
    EXPECT_TRUE(IsInCodePage("\0x"s));
    for (const char* body : {"\1x", "\2x", "\3x"}) EXPECT_FALSE(IsInCodePage(body));
}

}  // namespace
}  // namespace zefta::test
