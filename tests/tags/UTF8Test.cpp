#include <gtest/gtest.h>

#include "tags/UTF8.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST(UTF8, UTF8ToAnsi_ValidText_IsTheTextUpToItsNul) {
    EXPECT_EQ(UTF8ToAnsi(""), "");
    EXPECT_EQ(UTF8ToAnsi("Ä Дом 音 𝄞"), "Ä Дом 音 𝄞");
    EXPECT_EQ(UTF8ToAnsi("Song\0"s), "Song");
    EXPECT_EQ(UTF8ToAnsi("Song\0\xFFrest"s), "Song");
}

TEST(UTF8, UTF8ToAnsi_InvalidText_IsANumberSign) {
    for (const char* bytes : {"\xFF", "a\xC4", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"})
        EXPECT_EQ(UTF8ToAnsi(bytes), "#") << bytes;
}

TEST(UTF8, AnsiToUTF8_Text_HasAFinalNul) {
    EXPECT_EQ(AnsiToUTF8(""), "\0"s);
    EXPECT_EQ(AnsiToUTF8("Ä"), "Ä\0"s);
    EXPECT_EQ(AnsiToUTF8("A\0B"s), "A\0"s);
}

TEST(UTF8, AnsiToUTF8_TextThatIsNone_IsTheInputUnchanged) {
    EXPECT_EQ(AnsiToUTF8("a\xC4"), "a\xC4");
}

TEST(UTF8, AnsiToUTF8_AndBack_IsTheText) {
    for (const char* text : {"", "plain", "Ä", "Дом", "音"}) EXPECT_EQ(UTF8ToAnsi(AnsiToUTF8(text)), text);
}

}  // namespace
}  // namespace zefta::test
