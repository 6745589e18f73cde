#include <algorithm>
#include <cstdint>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/MessageTable.h"
#include "core/Strings.h"
#include "platform/Text.h"

namespace zefta::test {
namespace {

constexpr Language Languages[] = {Language::English, Language::Russian};

std::string TextOf(Language language, std::int32_t id) {
    return std::string(FindMessage(language, id).value_or("(missing)"));
}

std::size_t Count(std::string_view text, std::string_view what) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += what.size()) ++count;
    return count;
}

enum class Script { None, Digit, Latin, Cyrillic };

Script ScriptOf(char32_t character) {
    if ((character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z'))
        return Script::Latin;
    if (character >= '0' && character <= '9') return Script::Digit;
    return character >= 0x400 && character <= 0x4FF ? Script::Cyrillic : Script::None;
}

struct Word {
    std::string text;
    bool hasLatin = false;
    bool hasCyrillic = false;
};

/// The runs of letters and digits.
std::vector<Word> WordsOf(std::string_view message) {
    const std::string text = ReplaceAll(message, "\\n", " ") + " ";
    std::vector<Word> words;
    Word word;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = NextCharacter(text, position).value_or(' ');
        const Script script = ScriptOf(character);
        if (script == Script::None) {
            if (!word.text.empty()) words.push_back(word);
            word = {};
            continue;
        }
        AppendUtf8(word.text, character);
        word.hasLatin |= script == Script::Latin;
        word.hasCyrillic |= script == Script::Cyrillic;
    }
    return words;
}

/// The character behind "&", in lower case; "" when the caption has none.
std::string AcceleratorOf(std::string_view caption) {
    std::size_t position = caption.find('&');
    if (position == caption.npos) return {};
    std::string letter;
    AppendUtf8(letter, NextCharacter(caption, ++position).value_or('?'));
    return ToLower(letter);
}

TEST(MessageTable, Tables_Have357RisingNumbersAndValidTexts) {
    for (const Language language : Languages) {
        const auto table = MessageTable(language);
        ASSERT_EQ(table.size(), 357U);
        for (std::size_t i = 0; i < table.size(); ++i) {
            EXPECT_TRUE(i == 0 || table[i - 1].id < table[i].id) << table[i].id;
            EXPECT_EQ(table[i].id, MessageTable(Language::English)[i].id);
            EXPECT_FALSE(table[i].text.empty()) << table[i].id;
            EXPECT_TRUE(IsValidUtf8(table[i].text)) << table[i].id;
        }
    }
}

TEST(MessageTable, OddSpellings_AreKept) {
    const std::pair<int, const char*> rows[] = {
        {0, "ENGLISH"},
        {3, "%1\\zeftaa.exe"},
        {1011, "An error occured while processing file \"%1\":\\n\\n%2."},
        {1032, "We can not created the file."},
        {10009, "File \"%1\"\\nis market as read only!\\n\\nContinue anyway?"},
        {10010, "File \"%1\"is not a valid WAVe file.\\n\\nReencode it to desired format?"},
        {32009, "Are you shure?"},
        {32014, "Enquee: %1"},
        {32019, "The fodler %1 is not empty! Delete anyway?"},
        {32175, "&Enquee all audio files "},
        {32196, "&Check fo new version"},
        {33201, "copying playlist "},
        {33204, " bytes"},
        {33731, "Separetely if difference is more than 0.5db"}};
    for (const auto& [id, text] : rows) EXPECT_EQ(FindMessage(Language::English, id), text);
    EXPECT_EQ(FindMessage(Language::Russian, 1), "zefta_rus.chm");
    EXPECT_EQ(FindMessage(Language::Russian, 2), "zeftarus.exe");
    EXPECT_EQ(FindMessage(Language::Russian, 3), "\"%1\\zeftaa.exe\" /r");
    EXPECT_EQ(FindMessage(Language::English, 7), std::nullopt);
}

TEST(MessageTable, LanguageOfTag_RussianForRussianOnly) {
    EXPECT_EQ(LanguageOfTag("ru_RU.UTF-8"), Language::Russian);
    for (const char* tag : {"", "C", "en_US", "uk_UA"}) EXPECT_EQ(LanguageOfTag(tag), Language::English);
}

TEST(MessageTable, EnglishTexts_StandLetterForLetter) {
    // FNV-1a over "number TAB text LF" of all rows: language files and people's habits go by these texts.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const Message& message : MessageTable(Language::English)) {
        for (const char byte : std::to_string(message.id) + "\t" + std::string(message.text) + "\n")
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    EXPECT_EQ(hash, 0x4F352376CB3D142EU);
}

TEST(MessageTable, EachNumber_LiesInASection) {
    const struct {
        std::int32_t first, last;
    } sections[] = {{0, 6},         {999, 1014},    {1020, 1028},   {1030, 1034},   {10000, 10010},
                    {32000, 32023}, {32100, 32196}, {32300, 32313}, {33000, 33112}, {33200, 33204},
                    {33300, 33320}, {33400, 33423}, {33500, 33519}, {33600, 33608}, {33700, 33746},
                    {33800, 33818}, {33900, 33904}, {34000, 34010}, {34100, 34115}};
    for (const Message& message : MessageTable(Language::English)) {
        EXPECT_TRUE(std::any_of(std::begin(sections), std::end(sections), [&](const auto& section) {
            return message.id >= section.first && message.id <= section.last;
        })) << message.id;
    }
    for (const auto& section : sections) {
        EXPECT_TRUE(FindMessage(Language::English, section.first)) << section.first;
        EXPECT_TRUE(FindMessage(Language::English, section.last)) << section.last;
    }
}

TEST(MessageTable, Headings_StandAtTheStartsOfTheSections) {
    const std::pair<std::int32_t, const char*> headings[] = {
        {999, "*** ERROR MESSAGES ***"},
        {1020, "*** WAVETRIM - ScanWave Error Codes ***"},
        {1030, "*** WAVETRIM - ProcessWave Error Codes ***"},
        {10000, "*** NORMAL MESSAGES ***"},
        {32000, "*** MAIN ***"},
        {32100, "*** MAIN - MENU ***"},
        {32110, "=> Audio"},
        {32130, "=> Compressed"},
        {32150, "=> Playlist"},
        {32170, "=> Tools"},
        {32190, "=> Help"},
        {32300, "*** MAIN - TOOLBAR ***"},
        {33000, "*** COMPRESS CD ***"},
        {33100, "=> custom messages"},
        {33200, "*** COPY PLAYLIST ***"},
        {33300, "*** ADVANCED ENCODING ***"},
        {33400, "*** MP3/MPEGplus file info ***"},
        {33500, "*** OGG VORBIS file info ***"},
        {33600, "*** AGENT ***"},
        {33700, "*** OPTIONS ***"},
        {33800, "*** WAVETRIM ***"},
        {33900, "*** EXIT WINDOWS ***"},
        {34000, "*** ADVANCED RENAME ***"},
        {34100, "*** MASSIVE TAGS UPDATE ***"},
        {34107, "*** ADVANCED TAGS UPDATE ***"},
    };
    std::vector<std::pair<std::int32_t, std::string_view>> found;
    for (const Message& message : MessageTable(Language::English)) {
        if (IsHeading(message.text)) found.emplace_back(message.id, message.text);
    }
    EXPECT_EQ(found, (std::vector<std::pair<std::int32_t, std::string_view>>(std::begin(headings),
                                                                             std::end(headings))));
    for (const auto& [id, text] : headings)
        EXPECT_EQ(TextOf(Language::Russian, id).substr(0, 2), std::string(text).substr(0, 2)) << id;
}

TEST(MessageTable, LastRowAndItsNeighbours_AreFoundOrNot) {
    for (const Language language : Languages) {
        EXPECT_TRUE(FindMessage(language, 34115));
        for (const std::int32_t id : {-1, 7, 34116, 65535, INT32_MIN, INT32_MAX})
            EXPECT_FALSE(FindMessage(language, id)) << id;
    }
}

TEST(MessageTable, Russian_HasTheMarksAndOuterBlanksOfEnglish) {
    for (const Message& message : MessageTable(Language::English)) {
        const std::string russian = TextOf(Language::Russian, message.id);
        for (const char* mark : {"%1", "%2", "%3", "%4", "%5", "%", "\\n"})
            EXPECT_EQ(Count(message.text, mark), Count(russian, mark)) << message.id << " " << mark;
        EXPECT_EQ(message.text.starts_with(' '), russian.starts_with(' ')) << message.id;
        EXPECT_EQ(message.text.ends_with(' '), russian.ends_with(' ')) << message.id;
        EXPECT_EQ(message.text.ends_with("..."), russian.ends_with("...")) << message.id;
    }
}

TEST(MessageTable, Russian_IsTranslatedButForNames) {
    const std::set<std::int32_t> names = {0,     1,     2,     3,     4,     5,     6,    33403,
                                          33409, 33411, 33416, 33716, 33722, 33743, 33744};
    std::set<std::int32_t> withoutRussian;
    for (const Message& message : MessageTable(Language::Russian)) {
        const auto words = WordsOf(message.text);
        if (std::none_of(words.begin(), words.end(), [](const Word& word) { return word.hasCyrillic; }))
            withoutRussian.insert(message.id);
    }
    EXPECT_EQ(withoutRussian, names);
}

TEST(MessageTable, Russian_HasNoLatinLookAlikes) {
    std::set<std::string> latinOfEnglish;
    for (const Message& message : MessageTable(Language::English)) {
        for (const Word& word : WordsOf(message.text)) latinOfEnglish.insert(word.text);
    }
    const std::string lookAlikes = "aceopxyABCEHKMOPTXY";
    for (const Message& message : MessageTable(Language::Russian)) {
        if (message.id <= 6) continue;
        for (const Word& word : WordsOf(message.text)) {
            EXPECT_FALSE(word.hasLatin && word.hasCyrillic) << message.id << " " << word.text;
            if (!word.hasLatin) continue;
            EXPECT_TRUE(latinOfEnglish.contains(word.text)) << message.id << " " << word.text;
            EXPECT_FALSE(word.text.size() == 1 && lookAlikes.find(word.text) != std::string::npos)
                << message.id << " " << word.text;
        }
    }
}

TEST(MessageTable, Russian_ToolbarTips_NameTheSameKeys) {
    for (std::int32_t id = 32301; id <= 32313; ++id) {
        const std::string english = TextOf(Language::English, id);
        const std::string russian = TextOf(Language::Russian, id);
        const std::string keys = english.substr(std::min(english.find('('), english.size()));
        EXPECT_EQ(russian.substr(std::min(russian.find('('), russian.size())), keys) << id;
    }
}

TEST(MessageTable, Russian_AcceleratorsOfAMenu_AreDistinct) {
    const std::vector<std::int32_t> barCaptions = {32101, 32111, 32131, 32151, 32171, 32191};
    std::vector<std::vector<std::int32_t>> menus = {barCaptions};
    for (const std::int32_t bar : barCaptions) {
        menus.emplace_back();
        for (std::int32_t id = bar + 1; id < bar + 16 && FindMessage(Language::Russian, id); ++id) {
            if (!IsHeading(TextOf(Language::Russian, id))) menus.back().push_back(id);
        }
        EXPECT_GE(menus.back().size(), 4U) << bar;
    }
    for (const auto& menu : menus) {
        std::set<std::string> taken;
        for (const std::int32_t id : menu) {
            const std::string letter = AcceleratorOf(TextOf(Language::Russian, id));
            EXPECT_EQ(letter.empty(), AcceleratorOf(TextOf(Language::English, id)).empty()) << id;
            const bool isNew = letter.empty() || taken.insert(letter).second;
            EXPECT_TRUE(isNew) << id << " " << letter;
        }
    }
}

TEST(MessageTable, WebAddresses_AreTheSameInBothLanguagesAndHaveNoScheme) {
    for (const std::int32_t id : {4, 5, 6}) {
        EXPECT_EQ(TextOf(Language::English, id).find("://"), std::string::npos) << id;
        EXPECT_EQ(TextOf(Language::English, id), TextOf(Language::Russian, id));
    }
}

}  // namespace
}  // namespace zefta::test
