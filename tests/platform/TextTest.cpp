#include <set>

#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta::test {
namespace {

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

class EveryCodePage : public ::testing::TestWithParam<int> {};

TEST_P(EveryCodePage, All256Bytes_AreDifferentCharactersAndComeBack) {
    const CodePage page = LoadCodePage(GetParam());
    std::set<std::string> characters;
    for (const char byte : AllBytes()) characters.insert(page.Decode({&byte, 1}));
    EXPECT_EQ(characters.size(), 256U);
    EXPECT_TRUE(IsValidUtf8(page.Decode(AllBytes())));
    EXPECT_EQ(page.Encode(page.Decode(AllBytes())), AllBytes());
}

INSTANTIATE_TEST_SUITE_P(CodePage, EveryCodePage, ::testing::ValuesIn(KnownCodePages()));

TEST(CodePage, Decode_KnownLetters_AreTheRightOnes) {
    EXPECT_EQ(LoadCodePage(1251).Decode("\xC4\xEE\xEC"), "Дом");
    EXPECT_EQ(LoadCodePage(1252).Decode("caf\xE9 \x80"), "café €");
    EXPECT_EQ(LoadCodePage(1250).Decode("\xA3"), "Ł");
    EXPECT_EQ(LoadCodePage(1253).Decode("\xC1"), "Α");
    EXPECT_EQ(LoadCodePage(1255).Decode("\xF9"), "ש");
    EXPECT_EQ(LoadCodePage(874).Decode("\xA1"), "ก");
}

TEST(CodePage, Decode_UndefinedByte_IsTheCharacterOfItsNumber) {
    EXPECT_EQ(LoadCodePage(1252).Decode("\x81"), "\u0081");
}

TEST(CodePage, Encode_CharacterThatIsMissingOrNoUtf8_IsQuestionMark) {
    EXPECT_EQ(LoadCodePage(1252).Encode("aДb"), "a?b");
    EXPECT_EQ(LoadCodePage(1252).Encode("a\xFF\xC3"), "a??");
}

TEST(CodePage, LoadCodePage_NumberWithoutTable_Is1252) {
    for (const int number : {0, -1, 932, 65001, 1259}) EXPECT_EQ(LoadCodePage(number).Decode("\x80"), "€");
}

TEST(CodePage, ToText_ValidUtf8Stays_OtherBytesAreDecoded) {
    const CodePage page = LoadCodePage(1251);
    EXPECT_EQ(page.ToText("Дом"), "Дом");
    EXPECT_EQ(page.ToText("\xC4\xEE\xEC"), "Дом");
}

TEST(CodePage, OfLanguage_IsTheOneWindowsAssigns) {
    const std::pair<const char*, int> rows[] = {{"ru_RU.UTF-8", 1251}, {"uk", 1251},    {"bg_BG", 1251},
                                                {"pl_PL", 1250},       {"cs", 1250},    {"el_GR", 1253},
                                                {"tr_TR", 1254},       {"he_IL", 1255}, {"ar", 1256},
                                                {"lt_LT", 1257},       {"vi", 1258},    {"th_TH", 874},
                                                {"tg_TJ", 1251},       {"ba_RU", 1251}, {"sah_RU", 1251},
                                                {"tk_TM", 1250},       {"ug_CN", 1256}, {"en_US.UTF-8", 1252},
                                                {"de_DE", 1252},       {"C", 1252},     {"", 1252},
                                                {"ja_JP", 1252}};
    for (const auto& [language, page] : rows) EXPECT_EQ(CodePageOfLanguage(language), page) << language;
}

TEST(CodePage, OfLanguageInTwoScripts_IsTheOneOfTheScript) {
    const std::pair<const char*, int> rows[] = {
        {"sr_RS", 1251},      {"sr_RS.UTF-8@latin", 1250},    {"sr_ME@latin", 1250},
        {"uz_UZ", 1254},      {"uz_UZ.UTF-8@cyrillic", 1251}, {"uz@cyrillic", 1251},
        {"de_DE@euro", 1252}, {"ru_RU@latin", 1251}};
    for (const auto& [language, page] : rows) EXPECT_EQ(CodePageOfLanguage(language), page) << language;
}

TEST(Text, IsValidUtf8_RefusesWhatTheStandardRefuses) {
    for (const char* good : {"", "abc", "é", "€", "😀", "\U0010FFFF"}) EXPECT_TRUE(IsValidUtf8(good)) << good;
    for (const char* bad : {"\x80", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80",
                            "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"})
        EXPECT_FALSE(IsValidUtf8(bad)) << bad;
}

TEST(Text, Case_AllScripts_AndBytesThatAreNoUtf8Stay) {
    EXPECT_EQ(ToLower("ÄБΓ a\xFFZ"), "äбγ a\xFFz");
    EXPECT_EQ(ToUpper("äбγ é\xFE"), "ÄБΓ É\xFE");
}

TEST(Text, EqualsIgnoringCase_IsEqualityOfTheLowerCaseTexts) {
    const std::string texts[] = {"",        "a",     "A",      "ab",         "Ab.MP3", "aB.mp3", "ДОМ.mp3",
                                 "дом.MP3", "домой", "до\xD0", "до\xD0\xFF", "\xFF",   "\xFE",   "\u212A",
                                 "k",       "K",     "[",      "{",          "ẞ",      "ß"};
    for (const std::string& a : texts) {
        for (const std::string& b : texts)
            EXPECT_EQ(EqualsIgnoringCase(a, b), ToLower(a) == ToLower(b)) << a << " " << b;
    }
    EXPECT_TRUE(EqualsIgnoringCase("\u212A", "k"));
}

TEST(Paths, Parts_SplitAtTheLastSeparator) {
    EXPECT_EQ(FolderPart("/a/b.wav"), "/a");
    EXPECT_EQ(FolderPart("b.wav"), "");
    EXPECT_EQ(FolderPart("/b.wav"), "/");
    EXPECT_EQ(NamePart("/a/b.wav"), "b.wav");
    EXPECT_EQ(NamePart("/a/"), "");
    EXPECT_EQ(WithClosingSeparator("/a"), "/a/");
    EXPECT_EQ(WithClosingSeparator("/"), "/");
    EXPECT_EQ(WithClosingSeparator(""), "");
    EXPECT_EQ(JoinPath("/", "b"), "/b");
    EXPECT_EQ(JoinPath("", "b"), "b");
}

TEST(Paths, IsAbsolutePath_KnowsTheFormOfOtherMachines) {
    for (const char* path : {"/", "/a", "C:\\a", "x:\\", "C:/a"}) EXPECT_TRUE(IsAbsolutePath(path)) << path;
    for (const char* path : {"", "a/b", "1:\\", ":\\a", "x:", "A: hits", "A:b\\c", "aC:\\"})
        EXPECT_FALSE(IsAbsolutePath(path)) << path;
}

}  // namespace
}  // namespace zefta::test
