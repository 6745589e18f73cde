#include "core/Transliteration.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <vector>

namespace zefta {

namespace {

struct LetterRow {
    std::string_view ascii;
    std::u32string_view characters;
};

// clang-format off

/// Letters with marks, to their base letter; ligatures and letters that are none of the 26.
constexpr LetterRow Latin[] = {
    {"A", U"ÀÁÂÃÄÅĀĂĄǍǞǠǺȀȂȦȺḀẠẢẤẦẨẪẬẮẰẲẴẶ"},
    {"a", U"àáâãäåāăąǎǟǡǻȁȃȧḁẚạảấầẩẫậắằẳẵặ"},
    {"B", U"ƁƂɃḂḄḆ"},
    {"b", U"ƃḃḅḇ"},
    {"C", U"ÇĆĈĊČƇȻḈ"},
    {"c", U"çćĉċčƈȼḉ"},
    {"D", U"ÐĎĐƉƊƋḊḌḎḐḒ"},
    {"d", U"ðďđƌḋḍḏḑḓ"},
    {"E", U"ÈÉÊËĒĔĖĘĚƎƏƐȄȆȨɆḔḖḘḚḜẸẺẼẾỀỂỄỆ"},
    {"e", U"èéêëēĕėęěǝȅȇȩɇḕḗḙḛḝẹẻẽếềểễệ"},
    {"F", U"ƑḞ"},
    {"f", U"ƒḟ"},
    {"G", U"ĜĞĠĢƓǤǦǴḠ"},
    {"g", U"ĝğġģǥǧǵḡ"},
    {"H", U"ĤĦȞḢḤḦḨḪ"},
    {"h", U"ĥħȟḣḥḧḩḫẖ"},
    {"I", U"ÌÍÎÏĨĪĬĮİƗǏȈȊḬḮỈỊ"},
    {"i", U"ìíîïĩīĭįıǐȉȋḭḯỉị"},
    {"J", U"ĴɈ"},
    {"j", U"ĵǰɉ"},
    {"K", U"ĶƘǨḰḲḴ"},
    {"k", U"ķĸƙǩḱḳḵ"},
    {"L", U"ĹĻĽĿŁȽḶḸḺḼ"},
    {"l", U"ĺļľŀłƚḷḹḻḽ"},
    {"M", U"ḾṀṂ"},
    {"m", U"ḿṁṃ"},
    {"N", U"ÑŃŅŇŊƝǸṄṆṈṊ"},
    {"n", U"ñńņňŋƞǹṅṇṉṋ"},
    {"O", U"ÒÓÔÕÖØŌŎŐƆƟƠǑǪǬǾȌȎȪȬȮȰṌṎṐṒỌỎỐỒỔỖỘỚỜỞỠỢ"},
    {"o", U"òóôõöøōŏőơǒǫǭǿȍȏȫȭȯȱṍṏṑṓọỏốồổỗộớờởỡợ"},
    {"P", U"ƤṔṖ"},
    {"p", U"ƥṕṗ"},
    {"R", U"ŔŖŘȐȒɌṘṚṜṞ"},
    {"r", U"ŕŗřȑȓɍṙṛṝṟ"},
    {"S", U"ŚŜŞŠȘṠṢṤṦṨ"},
    {"s", U"śŝşšſșṡṣṥṧṩẛ"},
    {"T", U"ŢŤŦƬƮȚȾṪṬṮṰ"},
    {"t", U"ţťŧƫƭțṫṭṯṱẗ"},
    {"U", U"ÙÚÛÜŨŪŬŮŰŲƯǓǕǗǙǛȔȖɄṲṴṶṸṺỤỦỨỪỬỮỰ"},
    {"u", U"ùúûüũūŭůűųưǔǖǘǚǜȕȗṳṵṷṹṻụủứừửữự"},
    {"V", U"ƲṼṾ"},
    {"v", U"ṽṿ"},
    {"W", U"ŴẀẂẄẆẈ"},
    {"w", U"ŵẁẃẅẇẉẘ"},
    {"X", U"ẊẌ"},
    {"x", U"ẋẍ"},
    {"Y", U"ÝŶŸƳȲɎẎỲỴỶỸ"},
    {"y", U"ýÿŷƴȳɏẏẙỳỵỷỹ"},
    {"Z", U"ŹŻŽƵȤẐẒẔ"},
    {"z", U"źżžƶȥẑẓẕ"},
    {"'n", U"ŉ"},
    {"AE", U"ÆǢǼ"},
    {"ae", U"æǣǽ"},
    {"DZ", U"ǄǱ"},
    {"Dz", U"ǅǲ"},
    {"dz", U"ǆǳ"},
    {"ff", U"ﬀ"},
    {"ffi", U"ﬃ"},
    {"ffl", U"ﬄ"},
    {"fi", U"ﬁ"},
    {"fl", U"ﬂ"},
    {"IJ", U"Ĳ"},
    {"ij", U"ĳ"},
    {"LJ", U"Ǉ"},
    {"Lj", U"ǈ"},
    {"lj", U"ǉ"},
    {"NJ", U"Ǌ"},
    {"Nj", U"ǋ"},
    {"nj", U"ǌ"},
    {"OE", U"Œ"},
    {"oe", U"œ"},
    {"SS", U"ẞ"},
    {"ss", U"ß"},
    {"st", U"ﬅﬆ"},
    {"Th", U"Þ"},
    {"th", U"þ"},
};

/// Russian by the usual English table; letters of the other Slavic languages by theirs.
constexpr LetterRow Cyrillic[] = {
    {"A", U"А"},
    {"B", U"Б"},
    {"V", U"В"},
    {"G", U"ГҐЃ"},
    {"D", U"Д"},
    {"E", U"ЕЭЀ"},
    {"Yo", U"Ё"},
    {"Zh", U"Ж"},
    {"Z", U"З"},
    {"I", U"ИІЍ"},
    {"Y", U"ЙЫ"},
    {"K", U"КЌ"},
    {"L", U"Л"},
    {"M", U"М"},
    {"N", U"Н"},
    {"O", U"О"},
    {"P", U"П"},
    {"R", U"Р"},
    {"S", U"С"},
    {"T", U"Т"},
    {"U", U"УЎ"},
    {"F", U"Ф"},
    {"Kh", U"Х"},
    {"Ts", U"Ц"},
    {"Ch", U"Ч"},
    {"Sh", U"Ш"},
    {"Shch", U"Щ"},
    {"Yu", U"Ю"},
    {"Ya", U"Я"},
    {"Ye", U"Є"},
    {"Yi", U"Ї"},
    {"J", U"Ј"},
    {"Lj", U"Љ"},
    {"Nj", U"Њ"},
    {"Dj", U"Ђ"},
    {"C", U"Ћ"},
    {"Dz", U"Ѕ"},
    {"Dzh", U"Џ"},
    {"a", U"а"},
    {"b", U"б"},
    {"v", U"в"},
    {"g", U"гґѓ"},
    {"d", U"д"},
    {"e", U"еэѐ"},
    {"yo", U"ё"},
    {"zh", U"ж"},
    {"z", U"з"},
    {"i", U"иіѝ"},
    {"y", U"йы"},
    {"k", U"кќ"},
    {"l", U"л"},
    {"m", U"м"},
    {"n", U"н"},
    {"o", U"о"},
    {"p", U"п"},
    {"r", U"р"},
    {"s", U"с"},
    {"t", U"т"},
    {"u", U"уў"},
    {"f", U"ф"},
    {"kh", U"х"},
    {"ts", U"ц"},
    {"ch", U"ч"},
    {"sh", U"ш"},
    {"shch", U"щ"},
    {"yu", U"ю"},
    {"ya", U"я"},
    {"ye", U"є"},
    {"yi", U"ї"},
    {"j", U"ј"},
    {"lj", U"љ"},
    {"nj", U"њ"},
    {"dj", U"ђ"},
    {"c", U"ћ"},
    {"dz", U"ѕ"},
    {"dzh", U"џ"},
};

/// By the sound of today.
constexpr LetterRow Greek[] = {
    {"A", U"ΑΆ"},
    {"V", U"Β"},
    {"G", U"Γ"},
    {"D", U"Δ"},
    {"E", U"ΕΈ"},
    {"Z", U"Ζ"},
    {"I", U"ΗΉΙΊΪ"},
    {"Th", U"Θ"},
    {"K", U"Κ"},
    {"L", U"Λ"},
    {"M", U"Μ"},
    {"N", U"Ν"},
    {"X", U"Ξ"},
    {"O", U"ΟΌΩΏ"},
    {"P", U"Π"},
    {"R", U"Ρ"},
    {"S", U"Σ"},
    {"T", U"Τ"},
    {"Y", U"ΥΎΫ"},
    {"F", U"Φ"},
    {"Ch", U"Χ"},
    {"Ps", U"Ψ"},
    {"a", U"αά"},
    {"v", U"β"},
    {"g", U"γ"},
    {"d", U"δ"},
    {"e", U"εέ"},
    {"z", U"ζ"},
    {"i", U"ηήιίϊΐ"},
    {"th", U"θ"},
    {"k", U"κ"},
    {"l", U"λ"},
    {"m", U"μ"},
    {"n", U"ν"},
    {"x", U"ξ"},
    {"o", U"οόωώ"},
    {"p", U"π"},
    {"r", U"ρ"},
    {"s", U"σς"},
    {"t", U"τ"},
    {"y", U"υύϋΰ"},
    {"f", U"φ"},
    {"ch", U"χ"},
    {"ps", U"ψ"},
};

/// Twins of ASCII characters and signs that can be spelled.
constexpr LetterRow Punctuation[] = {
    {" ", U"\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u202F\u205F\u3000"},
    {"-", U"\u2010\u2011\u2012\u2013\u2014\u2015\u2212"},
    {"'", U"\u00B4\u02B9\u02BB\u02BC\u2018\u2019\u201A\u201B\u201C\u201D\u201E\u201F\u2032\u2033\u00AB\u00BB\u2039\u203A"},
    {"...", U"\u2026"},
    {".", U"\u00B7\u2022"},
    {"x", U"\u00D7"},
    {"No", U"\u2116"},
    {"!", U"\u00A1"},
    {"1", U"\u00B9"},
    {"2", U"\u00B2"},
    {"3", U"\u00B3"},
    {"a", U"\u00AA"},
    {"o", U"\u00BA"},
    {"1-4", U"\u00BC"},
    {"1-2", U"\u00BD"},
    {"3-4", U"\u00BE"},
    {"(c)", U"\u00A9"},
    {"(r)", U"\u00AE"},
    {"TM", U"\u2122"},
    {"EUR", U"\u20AC"},
};

// clang-format on

/// First and last character of a run.
struct Run {
    char32_t first;
    char32_t last;
};

/// Combining marks, the soft and the hard sign, soft hyphen, joiners, marks of direction, variation selectors
/// and the byte order mark.
constexpr Run Silent[] = {{0x00AD, 0x00AD}, {0x0300, 0x036F}, {0x042A, 0x042A}, {0x042C, 0x042C},
                          {0x044A, 0x044A}, {0x044C, 0x044C}, {0x0483, 0x0489}, {0x1AB0, 0x1AFF},
                          {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2069},
                          {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}};

/// The wide twins of the printable ASCII characters, in their order.
constexpr Run Wide = {0xFF01, 0xFF5E};

constexpr std::array<char, 94> PrintableAscii = [] {
    std::array<char, 94> characters{};
    for (std::size_t i = 0; i < characters.size(); ++i) characters[i] = static_cast<char>('!' + i);
    return characters;
}();

bool IsIn(const Run& run, char32_t character) {
    return character >= run.first && character <= run.last;
}

bool IsSilent(char32_t character) {
    return std::any_of(std::begin(Silent), std::end(Silent),
                       [character](const Run& run) { return IsIn(run, character); });
}

struct Spelling {
    char32_t character;
    std::string_view ascii;
};

bool ComesEarlier(const Spelling& a, const Spelling& b) {
    return a.character < b.character;
}

void Append(std::vector<Spelling>& spellings, std::span<const LetterRow> rows) {
    for (const LetterRow& row : rows) {
        for (const char32_t character : row.characters) spellings.push_back({character, row.ascii});
    }
}

/// All rows, in rising order of their characters.
const std::vector<Spelling>& Spellings() {
    static const std::vector<Spelling> all = [] {
        std::vector<Spelling> spellings;
        for (const std::span<const LetterRow> rows :
             {std::span<const LetterRow>(Latin), std::span<const LetterRow>(Cyrillic),
              std::span<const LetterRow>(Greek), std::span<const LetterRow>(Punctuation)})
            Append(spellings, rows);
        std::sort(spellings.begin(), spellings.end(), ComesEarlier);
        return spellings;
    }();
    return all;
}

}  // namespace

std::optional<std::string_view> AsciiSpelling(char32_t character) {
    if (character < 128) return std::nullopt;
    if (IsSilent(character)) return std::string_view();
    if (IsIn(Wide, character)) return std::string_view(&PrintableAscii[character - Wide.first], 1);
    const std::vector<Spelling>& all = Spellings();
    const auto found = std::lower_bound(all.begin(), all.end(), Spelling{character, {}}, ComesEarlier);
    if (found == all.end() || found->character != character) return std::nullopt;
    return found->ascii;
}

}  // namespace zefta
