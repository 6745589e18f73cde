#include "encoding/LeftOut.h"

#include <algorithm>
#include <utility>

namespace zefta {

namespace {

std::string Printable(std::string text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::vector<LeftOut> LeftOutComments(const std::vector<std::string>& keys) {
    constexpr std::size_t Shown = 5;
    std::vector<LeftOut> leftOut;
    for (std::size_t i = 0; i < std::min(keys.size(), Shown); ++i)
        leftOut.push_back({"comment " + keys[i], "it has no field here"});
    if (keys.size() > Shown)
        leftOut.push_back(
            {std::to_string(keys.size() - Shown) + " more comments", "they have no field here"});
    return leftOut;
}

}  // namespace

std::vector<std::string> ExtendedComments(const ID3Tag& tag) {
    std::vector<std::string> lines;
    for (std::int16_t index = 1, count = tag.OggVorbisExtension.getExComCount(); index <= count; ++index) {
        lines.push_back(tag.OggVorbisExtension.getExComValue(index));
        if (index == count) break;
    }
    return lines;
}

std::vector<LeftOut> LeftOutBesideFields(const ID3Tag& source, const CodePage& ansi,
                                         bool (*isCarried)(std::string_view line)) {
    constexpr std::size_t LongestKey = 40;
    std::vector<std::string> keys;
    for (const std::string& line : ExtendedComments(source)) {
        if (!isCarried(line))
            keys.push_back(Printable(ansi.ToText(line.substr(0, std::min(line.find('='), LongestKey)))));
    }
    std::vector<LeftOut> leftOut;
    if (source.ReadInPart) leftOut.push_back({"a part of the tag", "it can't be read"});
    if (!source.ID3v2Extension.UnknownFrames.empty())
        leftOut.push_back({"other frames and items, such as pictures", "they have no field here"});
    if (source.LyricsPresent) leftOut.push_back({"the Lyrics3 block", "such blocks are not written"});
    for (LeftOut& row : LeftOutComments(keys)) leftOut.push_back(std::move(row));
    return leftOut;
}

std::string Described(const std::vector<LeftOut>& leftOut) {
    std::string text;
    for (const LeftOut& row : leftOut)
        text += (text.empty() ? "" : ", ") + row.what + " (" + row.reason + ")";
    return text;
}

}  // namespace zefta
