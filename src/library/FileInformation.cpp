#include "library/FileInformation.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/FileKind.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "tags/MixTitle.h"
#include "tags/TagText.h"

namespace zefta {

namespace {

constexpr std::string_view LineEnd = "\r\n";

std::string Line(std::int64_t number, std::string_view unit) {
    return std::to_string(number).append(" ").append(unit).append(LineEnd);
}

std::string_view ChannelText(std::int32_t mode) {
    constexpr std::array<std::string_view, 3> Texts = {" Stereo", " Joint Stereo", " Dual Channel"};
    const auto row = static_cast<std::size_t>(mode);
    return mode >= 0 && row < Texts.size() ? Texts[row] : std::string_view();
}

/// Name of a profile of the record; "" when unknown.
std::string_view ProfileText(std::uint8_t profile) {
    constexpr std::array<std::string_view, 6> Names = {
        "", "MPEGplus Thumb", "MPEGplus Radio", "MPEGplus Standard", "MPEGplus Xtreme", "MPEGplus Insane",
    };
    return profile < Names.size() ? Names[profile] : std::string_view();
}

}  // namespace

std::string MeasuresText(const ID3Tag& tag) {
    if (tag.Path.empty()) return {};
    std::string text = Line(tag.Length, "bytes");
    if (IsMP3File(tag.Path)) text += Line(tag.Frames, "frames");
    text += Line(tag.Seconds, "seconds");
    text += Line(tag.Bitrate, tag.VBR ? "kbps (VBR)" : "kbps");
    // The reader of Ogg Vorbis takes neither rate nor channels.
    if (IsOggFile(tag.Path)) return text;
    text += Line(tag.SampleRate, "kHz");
    if (const std::string_view channels = ChannelText(tag.ChannelMode); !channels.empty())
        text.append(channels).append(LineEnd);
    return text;
}

std::string EncoderText(const ID3Tag& tag) {
    std::string text(ShownText(tag.Encoder));
    // Without a blank between them the encoder's measures follow its name, and are no text.
    const auto isControl = [](char character) { return static_cast<unsigned char>(character) < ' '; };
    text.erase(std::find_if(text.begin(), text.end(), isControl), text.end());
    if (!tag.IsMpegPlusFile) return text;
    text += " SV" + std::to_string(tag.MPEGplusExtension.StreamVersion);
    const std::string_view profile = ProfileText(tag.MPEGplusExtension.StreamProfile);
    return profile.empty() ? text : text.append("\n").append(profile);
}

std::string UnknownFramesText(App& app, const ID3Tag& tag) {
    const std::string text = app.messages.GetMessage(33420);
    const std::string& frames = tag.ID3v2Extension.UnknownFrames;
    if (frames.empty()) return text;
    const double tenths = std::nearbyint(static_cast<double>(frames.size()) / 1024 * 10);
    return text + " (" + NumberText(tenths / 10) + "K)";
}

bool IsYearText(std::string_view text) {
    return text.empty() || NumberText(std::abs(LeadingNumber(text))) == text;
}

LyricsCopy CopyOfLyrics(const std::string& title, const std::string& artist) {
    LyricsCopy copy;
    if (const auto split = SplitMix(title)) {
        copy.title = split->title;
        copy.mix = split->mix;
    } else if (!title.empty()) {
        copy.title = title;
    }
    if (!artist.empty()) copy.artist = artist;
    return copy;
}

ExtendedComment SplitExtendedComment(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return {std::string(line), {}};
    return {std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))};
}

std::string JoinExtendedComment(const ExtendedComment& comment) {
    if (comment.name.empty()) return {};
    return Trim(comment.name) + "=" + Trim(comment.value);
}

}  // namespace zefta
