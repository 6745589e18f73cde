#include "core/ModeWords.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace zefta {

namespace {

constexpr std::int16_t KeepBitrate = 0;

/// A word that names a LAME rate, an Ogg Vorbis mode, or both: a bare "128" selects MP3 and sets the Ogg
/// mode beside it.
struct RateWord {
    std::string_view word;
    std::int16_t bitrate;
    std::uint8_t oggMode;
    bool useOgg;
};

constexpr std::uint8_t KeepMode = 0;

constexpr RateWord RateWords[] = {
    {"112", KeepBitrate, 1, true},   {"128", 128, 2, false},         {"160", 160, 3, false},
    {"192", 192, 4, false},          {"224", 224, KeepMode, false},  {"256", 256, 5, false},
    {"320", 320, KeepMode, false},   {"350", KeepBitrate, 6, true},  {"s1", 9001, KeepMode, false},
    {"s2", 9002, KeepMode, false},   {"s3", 9003, KeepMode, false},  {"ob1", KeepBitrate, 1, true},
    {"ob2", KeepBitrate, 2, true},   {"ob3", KeepBitrate, 3, true},  {"ob4", KeepBitrate, 4, true},
    {"ob5", KeepBitrate, 5, true},   {"ob6", KeepBitrate, 6, true},  {"oq0", KeepBitrate, 10, true},
    {"oq1", KeepBitrate, 11, true},  {"oq2", KeepBitrate, 12, true}, {"oq3", KeepBitrate, 13, true},
    {"oq4", KeepBitrate, 14, true},  {"oq5", KeepBitrate, 15, true}, {"oq6", KeepBitrate, 16, true},
    {"oq7", KeepBitrate, 17, true},  {"oq8", KeepBitrate, 18, true}, {"oq9", KeepBitrate, 19, true},
    {"oq10", KeepBitrate, 20, true},
};

/// The four words of each MPEGplus profile.
constexpr std::array<std::string_view, 4> ProfileWords[] = {
    {"thumb", "mpp1", "mpc1", "m1"},  {"radio", "mpp2", "mpc2", "m2"},  {"standard", "mpp3", "mpc3", "m3"},
    {"xtreme", "mpp4", "mpc4", "m4"}, {"insane", "mpp5", "mpc5", "m5"}, {"braindead", "mpp6", "mpc6", "m6"},
};

bool ApplyRateWord(AppState& state, std::string_view word) {
    const auto row = std::find_if(std::begin(RateWords), std::end(RateWords),
                                  [&](const RateWord& candidate) { return candidate.word == word; });
    if (row == std::end(RateWords)) return false;
    if (row->bitrate != KeepBitrate) state.Bitrate = row->bitrate;
    if (row->oggMode != KeepMode) state.OggVorbisMode = row->oggMode;
    if (row->useOgg) state.UseOggVorbis = true;
    return true;
}

bool ApplyProfileWord(AppState& state, std::string_view word) {
    for (std::size_t profile = 0; profile < std::size(ProfileWords); ++profile) {
        const auto& words = ProfileWords[profile];
        if (std::find(words.begin(), words.end(), word) == words.end()) continue;
        state.UseMPEGplus = true;
        state.MPEGplusMode = static_cast<std::uint8_t>(profile + 1);
        return true;
    }
    return false;
}

/// "os1" to "os3" and "ms1" to "ms3": the encoder is chosen even when the preset is empty, its mode is not.
bool ApplyPresetWord(AppState& state, std::string_view word) {
    const bool ogg = word.starts_with("os");
    if (word.size() != 3 || (!ogg && !word.starts_with("ms")) || word[2] < '1' || word[2] > '3') return false;
    const auto preset = static_cast<std::size_t>(word[2] - '1');
    (ogg ? state.UseOggVorbis : state.UseMPEGplus) = true;
    if ((ogg ? state.CustomOGGPreset : state.CustomMPCPreset)[preset].Code.empty()) return true;
    if (ogg) {
        state.OggVorbisMode = static_cast<std::uint8_t>(31 + preset);
    } else {
        state.MPEGplusMode = static_cast<std::uint8_t>(11 + preset);
    }
    return true;
}

}  // namespace

bool ApplyModeWord(AppState& state, std::string_view word) {
    return ApplyRateWord(state, word) || ApplyProfileWord(state, word) || ApplyPresetWord(state, word);
}

}  // namespace zefta
