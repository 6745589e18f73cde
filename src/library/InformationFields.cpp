#include "library/InformationFields.h"

namespace zefta {

namespace {

std::string& FieldOf(ID3Tag& tag, std::string ID3Tag::*field) {
    return tag.*field;
}

std::string& FieldOf(ID3Tag& tag, std::string ID3v2Extension::*field) {
    return tag.ID3v2Extension.*field;
}

std::string& FieldOf(ID3Tag& tag, std::string OggVorbisExtension::*field) {
    return tag.OggVorbisExtension.*field;
}

template <auto Field>
std::string& Of(FileInformation& information) {
    return FieldOf(information.Tag, Field);
}

std::string& TrackOfID3v1(FileInformation& information) {
    return information.TrackNumber;
}

using Own = ID3Tag;
using Extended = ID3v2Extension;

constexpr InformationField ID3v1[] = {
    {"txtTitle", 33404, Of<&Own::Title>},   {"txtMix", 33408, Of<&Own::Comment>},
    {"txtArtist", 33405, Of<&Own::Artist>}, {"txtAlbum", 33406, Of<&Own::Album>},
    {"txtYear", 33407, Of<&Own::Year>},     {"txtTrackNumber", 33418, TrackOfID3v1},
};

constexpr InformationField ID3v2[] = {
    {"txtTitle2", 33404, Of<&Extended::TrackTitle>},
    {"txtMix2", 33408, Of<&Extended::Mix>},
    {"txtArtist2", 33405, Of<&Extended::Artist>},
    {"txtAlbum2", 33406, Of<&Extended::AlbumTitle>},
    {"txtYear2", 33407, Of<&Extended::Year>},
    {"txtTrackNumber2", 33418, Of<&Extended::TrackNumber>},
    {"cmbGenre", 33421, Of<&Extended::Genre>},
    {"txtComments2", 33412, Of<&Extended::Comments>},
    {"txtComposer", 33415, Of<&Extended::Composer>},
    {"txtOriginalArtist", 33413, Of<&Extended::OriginalArtist>},
    {"txtCopyright", 33414, Of<&Extended::Copyright>},
    {"txtURL", 33416, Of<&Extended::URL>},
    {"txtEncodedBy", 33417, Of<&Extended::EncodedBy>},
};

constexpr InformationField Ogg[] = {
    {"txtTitle", 33505, Of<&Own::Title>},
    {"txtMix", 33506, Of<&Own::Comment>},
    {"txtArtist", 33504, Of<&Own::Artist>},
    {"txtAlbum", 33507, Of<&Own::Album>},
    {"txtYear", 33508, Of<&OggVorbisExtension::DateTime>},
    {"txtTrackNumber", 33510, Of<&Extended::TrackNumber>},
    {"cmbGenre", 33511, Of<&Extended::Genre>},
    {"txtComments", 33512, Of<&Extended::Comments>},
    {"txtEncodedBy", 33513, Of<&Extended::EncodedBy>},
};

/// What an APE tag is written with: addresses and original artists have no place there.
constexpr InformationField MPEGplus[] = {
    {"txtTitle", 33404, Of<&Own::Title>},
    {"txtMix", 33408, Of<&Own::Comment>},
    {"txtArtist", 33405, Of<&Own::Artist>},
    {"txtAlbum", 33406, Of<&Own::Album>},
    {"txtYear", 33407, Of<&Own::Year>},
    {"txtTrackNumber2", 33418, Of<&Extended::TrackNumber>},
    {"cmbGenre", 33421, Of<&Extended::Genre>},
    {"txtComments2", 33412, Of<&Extended::Comments>},
    {"txtComposer", 33415, Of<&Extended::Composer>},
    {"txtCopyright", 33414, Of<&Extended::Copyright>},
    {"txtEncodedBy", 33417, Of<&Extended::EncodedBy>},
};

}  // namespace

std::span<const InformationField> FieldsOfID3v1() {
    return ID3v1;
}

std::span<const InformationField> FieldsOfID3v2() {
    return ID3v2;
}

std::span<const InformationField> FieldsOfOgg() {
    return Ogg;
}

std::span<const InformationField> FieldsOfMPEGplus() {
    return MPEGplus;
}

}  // namespace zefta
