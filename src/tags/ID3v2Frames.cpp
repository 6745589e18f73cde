#include "tags/ID3v2Frames.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "core/Strings.h"
#include "tags/ID3v2.h"

namespace zefta {

namespace {

using Text = std::string ID3v2Extension::*;

/// All behind the first occurrence at or behind `from`; the whole text when there is none.
std::string_view Behind(std::string_view text, char separator, std::size_t from) {
    const std::size_t at = text.find(separator, from);
    return at == std::string_view::npos ? text : text.substr(at + 1);
}

template <Text Field>
void ReadText(ID3v2Extension& tag, std::string_view body) {
    tag.*Field = body;
}

template <Text Field>
std::string WriteText(const ID3v2Extension& tag, const CodePage& ansi) {
    return ansi.Encode(tag.*Field);
}

void ReadTrack(ID3v2Extension& tag, std::string_view body) {
    tag.TrackNumber = body == "0" ? std::string_view() : body;
}

/// "Song (Radio Edit)" is a title and a mix.
void ReadTitle(ID3v2Extension& tag, std::string_view body) {
    const std::size_t bracket = body.ends_with(')') ? body.rfind('(') : std::string_view::npos;
    if (bracket == std::string_view::npos) {
        tag.TrackTitle = body;
        tag.Mix.clear();
        return;
    }
    tag.Mix = Trim(body.substr(bracket + 1, body.size() - bracket - 2));
    tag.TrackTitle = Trim(body.substr(0, bracket));
}

std::string WriteTitle(const ID3v2Extension& tag, const CodePage& ansi) {
    const std::string mix = Trim(tag.Mix);
    return ansi.Encode(Trim(tag.TrackTitle) + (mix.empty() ? "" : " (" + mix + ")"));
}

std::ptrdiff_t CountCharacters(std::string_view text) {
    const auto beginsOne = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return std::count_if(text.begin(), text.end(), beginsOne);
}

/// Language and description stand in front of the text.
void ReadComment(ID3v2Extension& tag, std::string_view body) {
    constexpr std::ptrdiff_t LanguageAndDescription = 5;
    tag.Comments =
        CountCharacters(body) < LanguageAndDescription ? std::string_view() : Behind(body, '\0', 1);
}

std::string WriteComment(const ID3v2Extension& tag, const CodePage& ansi) {
    using namespace std::string_literals;
    return "eng\0"s + ansi.Encode(tag.Comments);
}

/// "(17)Rock": the reference by number is dropped.
void ReadGenre(ID3v2Extension& tag, std::string_view body) {
    tag.Genre = body.starts_with('(') ? Behind(body, ')', 1) : body;
}

void ReadUrl(ID3v2Extension& tag, std::string_view body) {
    tag.URL = Behind(body, '\0', 0);
}

std::string WriteUrl(const ID3v2Extension& tag, const CodePage& ansi) {
    return std::string(1, '\0') + ansi.Encode(tag.URL);
}

using E = ID3v2Extension;

constexpr ID3v2Frame Frames[] = {
    {"TRCK", ReadTrack, WriteText<&E::TrackNumber>},
    {"TIT2", ReadTitle, WriteTitle},
    {"TPE1", ReadText<&E::Artist>, WriteText<&E::Artist>},
    {"TALB", ReadText<&E::AlbumTitle>, WriteText<&E::AlbumTitle>},
    {"TYER", ReadText<&E::Year>, WriteText<&E::Year>},
    {"COMM", ReadComment, WriteComment},
    {"TCOM", ReadText<&E::Composer>, WriteText<&E::Composer>},
    {"TCON", ReadGenre, WriteText<&E::Genre>},
    {"TOPE", ReadText<&E::OriginalArtist>, WriteText<&E::OriginalArtist>},
    {"TCOP", ReadText<&E::Copyright>, WriteText<&E::Copyright>},
    {"TENC", ReadText<&E::EncodedBy>, WriteText<&E::EncodedBy>},
    {"WXXX", ReadUrl, WriteUrl},
};

/// The four letters as a number: a tag has many frames, and each is looked up.
constexpr std::uint32_t CodeOf(std::string_view identifier) {
    std::uint32_t code = 0;
    for (const char letter : identifier) code = code << 8 | static_cast<unsigned char>(letter);
    return code;
}

constexpr auto Codes = [] {
    std::array<std::uint32_t, std::size(Frames)> codes = {};
    for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = CodeOf(Frames[i].identifier);
    return codes;
}();

}  // namespace

std::span<const ID3v2Frame> ID3v2Frames() {
    return Frames;
}

const ID3v2Frame* FindID3v2Frame(std::string_view identifier) {
    if (identifier.size() != 4) return nullptr;
    const auto found = std::find(Codes.begin(), Codes.end(), CodeOf(identifier));
    return found == Codes.end() ? nullptr : &Frames[found - Codes.begin()];
}

std::string ID3v2FrameArea(const ID3v2Extension& tag, const CodePage& ansi) {
    constexpr std::size_t UsualLength = 512;
    std::string area;
    area.reserve(UsualLength + tag.UnknownFrames.size());
    for (const ID3v2Frame& frame : Frames) AppendFrame(area, frame.identifier, frame.write(tag, ansi));
    return area += tag.UnknownFrames;
}

}  // namespace zefta
