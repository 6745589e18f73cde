#include "tags/ID3Tag.h"

#include "core/Numbers.h"

namespace zefta {

namespace {

std::string TwoDigits(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

constexpr std::int32_t FrameHeaderSize = 10;
/// Header, language and two NUL bytes.
constexpr std::int32_t CommentOverhead = 15;

}  // namespace

std::int32_t ID3v2Extension::GetTagSize(const CodePage& ansi) const {
    std::int64_t size = 0;
    for (const std::string* field : {&TrackNumber, &TrackTitle, &Artist, &AlbumTitle, &Year, &Composer,
                                     &OriginalArtist, &Copyright, &URL, &EncodedBy})
        size += static_cast<std::int64_t>(ansi.Encode(*field).size()) + FrameHeaderSize;
    size += static_cast<std::int64_t>(ansi.Encode(Comments).size()) + CommentOverhead;
    size += static_cast<std::int64_t>(UnknownFrames.size());
    return ToI32(size);
}

void OggVorbisExtension::addExCom(const std::string& text) {
    if (!text.empty()) ExComs.push_back(text);
}

bool OggVorbisExtension::HasLine(std::int16_t index) const {
    return index >= 1 && static_cast<std::size_t>(index) <= ExComs.size();
}

std::string OggVorbisExtension::getExComValue(std::int16_t index) const {
    return HasLine(index) ? ExComs[static_cast<std::size_t>(index) - 1] : std::string();
}

std::string OggVorbisExtension::getExComInOneString() const {
    std::string joined;
    for (const std::string& line : ExComs) {
        if (&line != &ExComs.front()) joined += '\0';
        joined += line;
    }
    return joined;
}

std::int16_t OggVorbisExtension::getExComCount() const {
    return ToI16(static_cast<std::int64_t>(ExComs.size()));
}

void OggVorbisExtension::removeExCom(std::int16_t index) {
    if (HasLine(index)) ExComs.erase(ExComs.begin() + (index - 1));
}

void OggVorbisExtension::removeAllExCom() {
    ExComs.clear();
}

std::string ID3Tag::Time() const {
    return std::to_string(Seconds / 60) + ":" + TwoDigits(Seconds % 60);
}

std::string ID3Tag::Time2x2() const {
    return TwoDigits(Seconds / 60) + ":" + TwoDigits(Seconds % 60);
}

}  // namespace zefta
