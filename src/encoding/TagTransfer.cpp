#include "encoding/TagTransfer.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "core/GenreTable.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/ValueText.h"
#include "tags/TrackNumber.h"

namespace zefta {

namespace {

using E = ID3v2Extension;
using Top = std::string ID3Tag::*;
using Extended = std::string ID3v2Extension::*;

/// The record that is read, and what it takes to read its values.
struct Source {
    const ID3Tag& tag;
    const CodePage& ansi;

    bool IsMP3() const { return !tag.IsOggVorbisFile && !tag.IsMpegPlusFile; }
};

using Reader = std::string (*)(const Source& source);
using Writer = void (*)(ID3Tag& tag, const std::string& value);

// Extended comments.

/// The value of an extended comment that begins with the key; nothing for another one.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
    if (!EqualsIgnoringAsciiCase(line.substr(0, key.size()), key)) return std::nullopt;
    return line.substr(key.size());
}

/// The values of all comments of that key.
std::string Comments(const Source& source, std::string_view key) {
    std::string joined;
    for (const std::string& line : ExtendedComments(source.tag)) {
        const auto value = ValueOf(line, key);
        const std::string text = value ? Trim(source.ansi.ToText(*value)) : "";
        if (!text.empty()) joined += (joined.empty() ? "" : ", ") + text;
    }
    return joined;
}

// Readers.

std::string Value(const Source& source, Extended field) {
    return ValueText(source.tag.ID3v2Extension.*field);
}

template <Extended First, Top Second>
std::string Either(const Source& source) {
    const std::string value = Value(source, First);
    return value.empty() ? ValueText(source.tag.*Second) : value;
}

std::string ReadMix(const Source& source) {
    // The comment of an MP3 file's record is one; that of the others is their mix.
    return source.IsMP3() ? Value(source, &E::Mix) : Either<&E::Mix, &ID3Tag::Comment>(source);
}

std::string ReadComment(const Source& source) {
    return source.IsMP3() ? Either<&E::Comments, &ID3Tag::Comment>(source) : Value(source, &E::Comments);
}

std::string ReadYear(const Source& source) {
    const std::string date = source.tag.IsOggVorbisFile ? Trim(source.tag.OggVorbisExtension.DateTime) : "";
    return date.empty() ? Either<&E::Year, &ID3Tag::Year>(source) : date;
}

std::string ReadTrack(const Source& source) {
    const std::string track = Value(source, &E::TrackNumber);
    return track.empty() ? TrackTextOf(source.tag) : track;
}

std::string ReadGenre(const Source& source) {
    const std::string genre = Value(source, &E::Genre);
    return genre.empty() ? GenreNameFromIndex(source.tag.Genre) : genre;
}

/// The fields for which Ogg Vorbis has extended comments.
struct CommentField {
    std::string_view key;
    Extended field;
};

constexpr CommentField Composer = {"composer=", &E::Composer};
constexpr CommentField OriginalArtist = {"original artist=", &E::OriginalArtist};
constexpr CommentField Copyright = {"copyright=", &E::Copyright};
constexpr CommentField Url = {"url=", &E::URL};
constexpr CommentField CommentFields[] = {Composer, OriginalArtist, Copyright, Url};

template <const CommentField& Field>
std::string ReadCommentField(const Source& source) {
    return source.tag.IsOggVorbisFile ? Comments(source, Field.key) : Value(source, Field.field);
}

// Writers.

template <Top Field>
void ToTop(ID3Tag& tag, const std::string& value) {
    tag.*Field = value;
}

template <Extended Field>
void ToExtension(ID3Tag& tag, const std::string& value) {
    tag.ID3v2Extension.*Field = value;
}

template <Top First, Extended Second>
void ToBoth(ID3Tag& tag, const std::string& value) {
    tag.*First = value;
    tag.ID3v2Extension.*Second = value;
}

void WriteDate(ID3Tag& tag, const std::string& value) {
    tag.OggVorbisExtension.DateTime = value;
}

/// "3/12" is track 3 where only a number has a place; 0 when there is none that fits.
std::uint8_t TrackByte(const std::string& text) {
    int number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') break;
        number = number * 10 + (digit - '0');
        if (number > 255) return 0;
    }
    return static_cast<std::uint8_t>(number);
}

void WriteTrack(ID3Tag& tag, const std::string& value) {
    tag.ID3v2Extension.TrackNumber = value;
    tag.TrackNumber = TrackByte(value);
}

/// A name that is not in the table leaves the number alone; the first one in there stands for no other.
void WriteGenre(ID3Tag& tag, const std::string& value) {
    tag.ID3v2Extension.Genre = value;
    const std::uint8_t index = GenreIndexFromName(value);
    if (EqualsIgnoringAsciiCase(GenreNameFromIndex(index), Trim(value))) tag.Genre = index;
}

template <const CommentField& Field>
void WriteCommentField(ID3Tag& tag, const std::string& value) {
    tag.OggVorbisExtension.addExCom(std::string(Field.key) + value);
}

/// A field that is carried; a kind without a place for it has no writer.
struct TransferRow {
    std::string_view name;
    Reader read;
    Writer toMP3;
    Writer toMPEGplus;
    Writer toOggVorbis;
};

/// Where each writer of tags looks: that of Ogg comments and of APE tags takes the mix from the record's
/// Comment, that of ID3v2 from the extension.
constexpr TransferRow Rows[] = {
    // clang-format off
    {"artist",   Either<&E::Artist, &ID3Tag::Artist>,    ToBoth<&ID3Tag::Artist, &E::Artist>,    ToBoth<&ID3Tag::Artist, &E::Artist>,    ToTop<&ID3Tag::Artist>},
    {"title",    Either<&E::TrackTitle, &ID3Tag::Title>, ToBoth<&ID3Tag::Title, &E::TrackTitle>, ToBoth<&ID3Tag::Title, &E::TrackTitle>, ToTop<&ID3Tag::Title>},
    {"album",    Either<&E::AlbumTitle, &ID3Tag::Album>, ToBoth<&ID3Tag::Album, &E::AlbumTitle>, ToBoth<&ID3Tag::Album, &E::AlbumTitle>, ToTop<&ID3Tag::Album>},
    {"mix",      ReadMix,                                ToExtension<&E::Mix>,                   ToBoth<&ID3Tag::Comment, &E::Mix>,      ToTop<&ID3Tag::Comment>},
    {"year",     ReadYear,                               ToBoth<&ID3Tag::Year, &E::Year>,        ToBoth<&ID3Tag::Year, &E::Year>,        WriteDate},
    {"comment",  ReadComment,                            ToBoth<&ID3Tag::Comment, &E::Comments>, ToExtension<&E::Comments>,              ToExtension<&E::Comments>},
    {"track",    ReadTrack,                              WriteTrack,                             WriteTrack,                             ToExtension<&E::TrackNumber>},
    {"genre",    ReadGenre,                              WriteGenre,                             WriteGenre,                             ToExtension<&E::Genre>},
    {"composer", ReadCommentField<Composer>,             ToExtension<&E::Composer>,              ToExtension<&E::Composer>,              WriteCommentField<Composer>},
    {"original artist", ReadCommentField<OriginalArtist>, ToExtension<&E::OriginalArtist>,       nullptr,                                WriteCommentField<OriginalArtist>},
    {"copyright", ReadCommentField<Copyright>,           ToExtension<&E::Copyright>,             ToExtension<&E::Copyright>,             WriteCommentField<Copyright>},
    {"URL",      ReadCommentField<Url>,                  ToExtension<&E::URL>,                   nullptr,                                WriteCommentField<Url>},
    // clang-format on
};

Writer WriterOf(const TransferRow& row, TargetKind target) {
    switch (target) {
        case TargetKind::OggVorbis:
            return row.toOggVorbis;
        case TargetKind::MPEGplus:
            return row.toMPEGplus;
        case TargetKind::MP3:
            break;
    }
    return row.toMP3;
}

bool LosesLetters(const std::string& value, const CodePage& ansi) {
    return ansi.Decode(ansi.Encode(value)) != value;
}

void Carry(const TransferRow& row, const std::string& value, TargetKind target, TransferredTag& result) {
    const std::string name(row.name);
    if (const Writer write = WriterOf(row, target)) {
        write(result.tag, value);
        result.carried.push_back(name);
    } else {
        result.leftOut.push_back({name, "MPEGplus tags have no place for it"});
    }
}

bool IsCarried(std::string_view line) {
    return std::any_of(std::begin(CommentFields), std::end(CommentFields),
                       [&](const CommentField& field) { return ValueOf(line, field.key).has_value(); });
}

}  // namespace

TransferredTag TransferTag(const ID3Tag& sourceTag, TargetKind target, const CodePage& ansi) {
    const Source source = {sourceTag, ansi};
    TransferredTag result;
    result.tag.Genre = sourceTag.Genre;
    for (const TransferRow& row : Rows) {
        const std::string value = row.read(source);
        if (value.empty()) continue;
        Carry(row, value, target, result);
        if (target == TargetKind::MP3 && LosesLetters(value, ansi))
            result.leftOut.push_back(
                {"letters of the " + std::string(row.name), "the code page of MP3 tags lacks them"});
    }
    result.tag.ID3v2Extension.EncodedBy = ApplicationTitle() + " " + VersionText();
    for (LeftOut& row : LeftOutBesideFields(sourceTag, ansi, IsCarried))
        result.leftOut.push_back(std::move(row));
    return result;
}

std::string DescribeTransfer(const TransferredTag& transferred) {
    std::string carried;
    for (const std::string& name : transferred.carried) carried += (carried.empty() ? "" : ", ") + name;
    std::string text = "carried " + (carried.empty() ? "no tags" : carried);
    if (!transferred.leftOut.empty()) text += "; left out " + Described(transferred.leftOut);
    return text;
}

}  // namespace zefta
