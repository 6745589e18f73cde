#include "library/ReverseTemplates.h"

#include <optional>

#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

/// In the order in which they are tried; the order counts more than which one stands first in a name.
constexpr std::string_view Separators[] = {" - ", " # ", " | ", "# ", ". "};
constexpr std::string_view Blank[] = {" "};
/// Characters of the longest number.
constexpr std::size_t LongestNumber = 8;

using SeparatorList = std::span<const std::string_view>;

struct Halves {
    std::string left;
    /// Trimmed.
    std::string right;
};

Halves HalvesAt(std::string_view text, std::size_t at, std::size_t separatorLength) {
    return {std::string(text.substr(0, at)), Trim(text.substr(at + separatorLength))};
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) NextCharacter(text, at);
    return count;
}

std::optional<Halves> SplitBySeparators(std::string_view text) {
    for (const std::string_view separator : Separators) {
        const std::size_t at = text.find(separator);
        if (at != std::string_view::npos) return HalvesAt(text, at, separator.size());
    }
    return std::nullopt;
}

/// "(07)" is stored as "07".
std::string NumberOf(std::string_view text) {
    std::string number = Trim(text);
    if (number.starts_with('(') && number.ends_with(')')) return number.substr(1, number.size() - 2);
    return number;
}

/// Takes the number in front of the first separator that stands near enough to the start; gives what is
/// behind it, "" when there is none.
std::string TakeNumber(const std::string& text, SeparatorList separators, ID3Tag& tag) {
    for (const std::string_view separator : separators) {
        const std::size_t at = text.find(separator);
        if (at == std::string::npos || CharacterCount(std::string_view(text).substr(0, at)) > LongestNumber)
            continue;
        Halves halves = HalvesAt(text, at, separator.size());
        tag.ID3v2Extension.TrackNumber = NumberOf(halves.left);
        return std::move(halves.right);
    }
    return {};
}

/// The place of the bracket that opens the group at the end of the title.
std::size_t GroupAtEnd(const std::string& title, char opening, char closing) {
    return title.ends_with(closing) ? title.rfind(opening) : std::string::npos;
}

void BlankWhenEmpty(std::string& field) {
    if (field.empty()) field = " ";
}

void SplitMixOff(ID3Tag& tag) {
    std::size_t at = GroupAtEnd(tag.Title, '(', ')');
    if (at == std::string::npos) at = GroupAtEnd(tag.Title, '[', ']');
    if (at != std::string::npos) {
        const std::string title = tag.Title;
        tag.Comment = Trim(std::string_view(title).substr(at + 1, title.size() - at - 2));
        tag.Title = Trim(std::string_view(title).substr(0, at));
    }
    BlankWhenEmpty(tag.Title);
    BlankWhenEmpty(tag.Comment);
}

void TakeTitle(const NamedFile& file, ID3Tag& tag) {
    tag.Title = file.text;
    BlankWhenEmpty(tag.Title);
}

void TakeTitleAndMix(const NamedFile& file, ID3Tag& tag) {
    tag.Title = file.text;
    SplitMixOff(tag);
}

/// Nothing: kept, lists hold the template at this place and nobody ever got tags by it.
void TakeNothing(const NamedFile&, ID3Tag&) {}

void TakeNumberAndRest(const NamedFile& file, ID3Tag& tag) {
    tag.Title = TakeNumber(file.text, Separators, tag);
}

template <const auto& NumberSeparators>
void TakeNumberAndTitle(const NamedFile& file, ID3Tag& tag) {
    tag.Title = TakeNumber(file.text, NumberSeparators, tag);
    if (tag.Title.empty()) tag.Title = file.text;
    SplitMixOff(tag);
    BlankWhenEmpty(tag.ID3v2Extension.TrackNumber);
}

void TakeFoldersToo(const NamedFile& file, ID3Tag& tag) {
    TakeNumberAndTitle<Separators>(file, tag);
    const std::string folder = FolderPart(file.path);
    tag.Album = NamePart(folder);
    if (!tag.Album.empty()) tag.Artist = NamePart(FolderPart(folder));
}

/// The two fields around the separator in what the number left, which itself goes to `Rest` first.
template <std::string ID3Tag::*Rest, std::string ID3Tag::*Left, std::string ID3Tag::*Right>
void SplitRest(const std::string& rest, const std::string& text, ID3Tag& tag) {
    tag.*Rest = rest;
    const std::string working = rest.empty() ? text : rest;
    if (auto halves = SplitBySeparators(working)) {
        tag.*Left = std::move(halves->left);
        tag.*Right = std::move(halves->right);
    }
    if (tag.Title.empty()) tag.Title = working;
    SplitMixOff(tag);
    BlankWhenEmpty(tag.ID3v2Extension.TrackNumber);
    BlankWhenEmpty(tag.Artist);
}

void SplitArtistFirst(const std::string& rest, const std::string& text, ID3Tag& tag) {
    SplitRest<&ID3Tag::Artist, &ID3Tag::Artist, &ID3Tag::Title>(rest, text, tag);
}

void TakeArtistAndTitle(const NamedFile& file, ID3Tag& tag) {
    SplitArtistFirst("", file.text, tag);
}

template <const auto& NumberSeparators>
void TakeNumberArtistTitle(const NamedFile& file, ID3Tag& tag) {
    SplitArtistFirst(TakeNumber(file.text, NumberSeparators, tag), file.text, tag);
}

void TakeNumberTitleArtist(const NamedFile& file, ID3Tag& tag) {
    const std::string rest = TakeNumber(file.text, Blank, tag);
    SplitRest<&ID3Tag::Title, &ID3Tag::Title, &ID3Tag::Artist>(rest, file.text, tag);
}

void SplitAtUnderscore(const std::string& text, ID3Tag& tag) {
    if (const std::size_t at = text.rfind('_'); at != std::string::npos) {
        tag.Artist = text.substr(0, at);
        tag.Title = Trim(std::string_view(text).substr(at + 1));
    }
    if (tag.Title.empty()) tag.Title = text;
}

void TakeUnderscoredWithYear(const NamedFile& file, ID3Tag& tag) {
    SplitAtUnderscore(file.text, tag);
    SplitMixOff(tag);
    tag.Year = tag.Comment;
    tag.Comment.clear();
    SplitMixOff(tag);
    BlankWhenEmpty(tag.Artist);
}

void TakeUnderscored(const NamedFile& file, ID3Tag& tag) {
    SplitAtUnderscore(file.text, tag);
    SplitMixOff(tag);
    BlankWhenEmpty(tag.Artist);
}

constexpr ReverseTemplate Templates[] = {
    {"%T", false, TakeTitle},
    {"%N<sep>%T(%M)", false, TakeNumberAndTitle<Separators>},
    {"%N<sep>%A<sep>%T(%M)", false, TakeNumberArtistTitle<Separators>},
    {"%T(%M)", false, TakeTitleAndMix},
    {"%A<sep>%T(%M)", false, TakeArtistAndTitle},
    {"%T(%M)<sep>%A", false, TakeNothing},
    {"%N<sep>%T(%M)<sep>%A", false, TakeNumberAndRest},
    {"%A_%T(%M)(%Y)", true, TakeUnderscoredWithYear},
    {"%A\\%L\\%N<sep>%T(%M)", false, TakeFoldersToo},
    {"%N %T(%M)", false, TakeNumberAndTitle<Blank>},
    // The folders are not looked at. Kept: albums that people entered by hand stay.
    {"%A\\%L\\%N %T(%M)", false, TakeNumberAndTitle<Blank>},
    {"%N %A<sep>%T(%M)", false, TakeNumberArtistTitle<Blank>},
    {"%N %T(%M)<sep>%A", false, TakeNumberTitleArtist},
    {"%A_%T(%M)", true, TakeUnderscored},
};

}  // namespace

std::span<const ReverseTemplate> ReverseTemplates() {
    return Templates;
}

}  // namespace zefta
