#include <algorithm>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/StrictFileName.h"
#include "core/Transliteration.h"
#include "platform/Text.h"

namespace zefta::test {
namespace {

bool IsPlain(const std::string& name) {
    const std::string signs = " -_.,()[]{}&'!+";
    return std::all_of(name.begin(), name.end(), [&](char character) {
        const bool isDigit = character >= '0' && character <= '9';
        const bool isLetter = (character | 0x20) >= 'a' && (character | 0x20) <= 'z';
        return isDigit || (isLetter && IsAscii(name)) || signs.find(character) != std::string::npos;
    });
}

TEST(StrictFileName, PlainText_Stays) {
    const std::string text = "azAZ09 -_.,()[]{}&'!+x";
    EXPECT_EQ(StrictFileName(text), text);
    EXPECT_EQ(StrictFileName(""), "");
}

TEST(StrictFileName, OtherAscii_IsAnUnderscore) {
    EXPECT_EQ(StrictFileName("a\"#$%*/:;<=>?@\\^`|~b\t\x7F"), "a__________________b__");
}

TEST(StrictFileName, Letters_AreSpelled) {
    const std::pair<std::string, std::string> rows[] = {
        {"Motörhead", "Motorhead"},
        {"Sigur Rós - Ágætis byrjun", "Sigur Ros - Agaetis byrjun"},
        {"Blixa Großkopf ẞ", "Blixa Grosskopf SS"},
        {"Çırağan Şarkısı", "Ciragan Sarkisi"},
        {"Zażółć gęślą jaźń", "Zazolc gesla jazn"},
        {"Příliš žluťoučký kůň", "Prilis zlutoucky kun"},
        {"Đặng Thái Sơn", "Dang Thai Son"},
        {"Œuvre, Ærø, Þór", "OEuvre, AEro, Thor"},
        {"\uFB01n", "fin"},
        {"Мелодия", "Melodiya"},
        {"Щука, Ёж, Чай, Цой, Хлеб, Жук", "Shchuka, Yozh, Chay, Tsoy, Khleb, Zhuk"},
        {"Объявление, ель", "Obyavlenie, el"},
        {"Київ, їжак, Єва, ґанок", "Kiyiv, yizhak, Yeva, ganok"},
        {"Београд, Ђорђе, Љубав, Његош", "Beograd, Djordje, Ljubav, Njegosh"},
        {"Μίκης Θεοδωράκης", "Mikis Theodorakis"},
        {"\uFF21\uFF22\uFF23\u3000\uFF11\uFF01", "ABC 1!"},
        {"e\u0301le\u0300ve", "eleve"}};
    for (const auto& [text, name] : rows) EXPECT_EQ(StrictFileName(text), name) << text;
}

TEST(StrictFileName, Punctuation_IsItsAsciiTwin) {
    EXPECT_EQ(StrictFileName("don\u2019t \u2013 stop\u2026"), "don't - stop...");
    EXPECT_EQ(StrictFileName("\u201EZitat\u201C \u00ABx\u00BB"), "'Zitat' 'x'");
    EXPECT_EQ(StrictFileName("\u2116 5 \u00D7 2\u00A0\u20AC"), "No 5 x 2 EUR");
    EXPECT_EQ(StrictFileName("so\u00ADft\u200B\uFEFF"), "soft");
    EXPECT_EQ(StrictFileName("a\uFF0Fb\uFF1Ac"), "a_b_c");
}

TEST(StrictFileName, CharactersWithoutSpelling_AreUnderscores) {
    EXPECT_EQ(StrictFileName("東京 2020"), "__ 2020");
    EXPECT_EQ(StrictFileName("\U0001F600x"), "_x");
    EXPECT_EQ(StrictFileName("\u0085\u009F"), "__");
    EXPECT_EQ(StrictFileName("Caf\xE9"), "Caf_");
}

TEST(StrictFileName, BlanksAtTheEnds_Go) {
    EXPECT_EQ(StrictFileName("  a b \u00A0"), "a b");
    EXPECT_EQ(StrictFileName("R.E.M."), "R.E.M.");
    EXPECT_EQ(StrictFileName("   "), "");
}

TEST(StrictFileName, DeviceNamesAndLength_AreThoseOfMakeFileName) {
    EXPECT_EQ(StrictFileName("Con"), "Con_");
    EXPECT_EQ(StrictFileName("СОМ1"), "SOM1");
    EXPECT_EQ(StrictFileName("çon.x"), "con_.x");
    EXPECT_EQ(StrictFileName(std::string(300, 'x')), std::string(251, 'x'));
    EXPECT_EQ(StrictFileName("con" + std::string(300, ' ') + "x"), "con_");
    EXPECT_EQ(StrictFileName(std::string(250, 'x') + "Щ"), std::string(250, 'x') + "S");
}

TEST(StrictFileName, EveryCharacter_GivesAPlainNameThatStays) {
    for (char32_t character = 1; character < 0x10000; ++character) {
        std::string text = "x";
        AppendUtf8(text, character);
        text += "y";
        const std::string name = StrictFileName(text);
        ASSERT_TRUE(IsPlain(name)) << text;
        ASSERT_EQ(StrictFileName(name), name) << text;
    }
}

TEST(AsciiSpelling, LettersOfOneKind_AreSpelledInBothCases) {
    // Each capital with a small twin must have the spelling of it but for the case.
    for (char32_t character = 0xC0; character < 0x1F00; ++character) {
        std::string capital;
        AppendUtf8(capital, character);
        const std::string small = ToLower(capital);
        std::size_t next = 0;
        const auto smallCharacter = NextCharacter(small, next);
        if (small == capital || next != small.size()) continue;
        const auto spelling = AsciiSpelling(character);
        const auto smallSpelling = AsciiSpelling(*smallCharacter);
        if (!spelling || !smallSpelling) continue;
        EXPECT_EQ(ToLower(*spelling), *smallSpelling) << capital;
    }
}

TEST(AsciiSpelling, RussianAlphabet_HasASpellingForEachLetter) {
    for (char32_t character = 0x400; character < 0x460; ++character)
        EXPECT_TRUE(AsciiSpelling(character)) << static_cast<std::uint32_t>(character);
}

TEST(AsciiSpelling, AllOfWesternAndCentralEurope_HasASpelling) {
    for (char32_t character = 0xC0; character < 0x180; ++character) {
        if (character == 0xF7) continue;  // the sign of division
        EXPECT_TRUE(AsciiSpelling(character)) << static_cast<std::uint32_t>(character);
    }
}

TEST(AsciiSpelling, AsciiAndOthers_HaveNone) {
    for (char32_t character = 0; character < 128; ++character) EXPECT_FALSE(AsciiSpelling(character));
    EXPECT_FALSE(AsciiSpelling(U'東'));
}

}  // namespace
}  // namespace zefta::test
