#include "tags/OggCommentKeys.h"

#include "core/Strings.h"
#include "tags/MixTitle.h"
#include "tags/UTF8.h"

namespace zefta {

namespace {

void Append(std::string& field, const OggValue& value) {
    if (!field.empty()) field += ", ";
    field += UTF8ToAnsi(Trim(value.bytes));
}

/// As it stands when it is UTF-8, so that the record holds UTF-8 in any case.
std::string Undecoded(const OggValue& value) {
    return value.ansi.ToText(Trim(value.bytes));
}

void ReadYear(ID3Tag& tag, const OggValue& value) {
    tag.Year = Undecoded(value);
    if (tag.OggVorbisExtension.DateTime.empty()) tag.OggVorbisExtension.DateTime = tag.Year;
}

void ReadDate(ID3Tag& tag, const OggValue& value) {
    constexpr std::size_t YearLength = 4;
    tag.OggVorbisExtension.DateTime = Undecoded(value);
    if (value.bytes.size() == YearLength) tag.Year = value.ansi.ToText(value.bytes);
}

void ReadTitle(ID3Tag& tag, const OggValue& value) {
    Append(tag.Title, value);
    if (const auto split = SplitMix(tag.Title)) {
        tag.Title = split->title;
        tag.Comment = split->mix;
    }
}

auto& FieldOf(auto& tag, std::string ID3Tag::*field) {
    return tag.*field;
}

auto& FieldOf(auto& tag, std::string ID3v2Extension::*field) {
    return tag.ID3v2Extension.*field;
}

/// A key whose values join in one field.
template <auto Field>
constexpr OggCommentKey Appending(std::string_view key) {
    return {key, [](ID3Tag& tag, const OggValue& value) { Append(FieldOf(tag, Field), value); },
            [](const ID3Tag& tag) { return Trim(FieldOf(tag, Field)); }};
}

constexpr OggCommentKey Keys[] = {
    Appending<&ID3Tag::Artist>("artist="),
    Appending<&ID3Tag::Album>("album="),
    {"tracknumber=",
     [](ID3Tag& tag, const OggValue& value) { tag.ID3v2Extension.TrackNumber = Undecoded(value); },
     [](const ID3Tag& tag) { return Trim(tag.ID3v2Extension.TrackNumber); }},
    {"year=", ReadYear, nullptr},
    {"date=", ReadDate, [](const ID3Tag& tag) { return Trim(tag.OggVorbisExtension.DateTime); }},
    {"title=", ReadTitle, [](const ID3Tag& tag) { return JoinMix(tag.Title, tag.Comment); }},
    Appending<&ID3v2Extension::Genre>("genre="),
    Appending<&ID3v2Extension::Comments>("comment="),
    Appending<&ID3v2Extension::EncodedBy>("encoded by="),
    {"encoded by ", Appending<&ID3v2Extension::EncodedBy>({}).read, nullptr},
};

}  // namespace

std::span<const OggCommentKey> OggCommentKeys() {
    return Keys;
}

void ReadOggComment(ID3Tag& tag, std::string_view line, const CodePage& ansi) {
    for (const OggCommentKey& row : Keys) {
        if (!EqualsIgnoringAsciiCase(line.substr(0, row.key.size()), row.key)) continue;
        const std::string_view value = line.substr(row.key.size());
        if (!IsWholeUtf8(value)) tag.ReadInPart = true;
        row.read(tag, {value, ansi});
        return;
    }
    tag.OggVorbisExtension.addExCom(Trim(line));
}

}  // namespace zefta
