#include "encoding/ModeCatalogue.h"

#include <algorithm>
#include <array>

#include "core/FileNames.h"
#include "core/Numbers.h"

namespace zefta {

namespace {

const CustomPreset* NoPreset(const AppState&) {
    return nullptr;
}

template <auto Presets, std::size_t Index>
const CustomPreset* Preset(const AppState& state) {
    return &(state.*Presets)[Index];
}

template <auto Presets, std::size_t Index>
bool HasCode(const AppState& state) {
    return !(state.*Presets)[Index].Code.empty();
}

template <auto Flag>
bool Flagged(const AppState& state) {
    return state.*Flag;
}

template <auto Flags, std::size_t Index>
bool Flagged(const AppState& state) {
    return (state.*Flags)[Index];
}

constexpr auto Lame = &AppState::CustomLAMEPreset;
constexpr auto Ogg = &AppState::CustomOGGPreset;
constexpr auto Mpc = &AppState::CustomMPCPreset;
constexpr auto OggRate = &AppState::EnableOGGb;
constexpr auto OggQuality = &AppState::EnableOGGq;
constexpr auto MpcProfile = &AppState::EnableMPCm;

constexpr EncodingMode Catalogue[] = {
    // clang-format off
    {128, "LAME 128 kbps", "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1 ", Flagged<&AppState::EnableLAME128>, NoPreset},
    {160, "LAME 160 kbps", "lame.exe -m s -h -b 160 --lowpass 18.0 --resample 44.1 ", Flagged<&AppState::EnableLAME160>, NoPreset},
    {192, "LAME 192 kbps", "lame.exe -m s -h -b 192 --lowpass 19.0 ", Flagged<&AppState::EnableLAME192>, NoPreset},
    {256, "LAME 256 kbps", "lame.exe -m s -h -b 256 --lowpass 20.0 ", Flagged<&AppState::EnableLAME256>, NoPreset},
    {320, "LAME 320 kbps", "lame.exe -m s -q0 -b 320 --athtype 1 --lowpass 20.0 ", Flagged<&AppState::EnableLAME320>, NoPreset},
    {555, "LAME VBR (max)", "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 ", Flagged<&AppState::EnableLAMEVBR>, NoPreset},
    {1128, "LAME ABR 128 kbps", "lame.exe -m j -h --lowpass 16.5 --resample 44.1 --abr ", Flagged<&AppState::EnableLAME128ABR>, NoPreset},
    {1160, "LAME ABR 160 kbps", "lame.exe -m s -h --lowpass 18.0 --resample 44.1 --abr ", Flagged<&AppState::EnableLAME160ABR>, NoPreset},
    {1192, "LAME ABR 192 kbps", "lame.exe -m s -h --lowpass 19.0 --abr ", Flagged<&AppState::EnableLAME192ABR>, NoPreset},
    {1256, "LAME ABR 256 kbps", "lame.exe -m s -q0 --lowpass 20.0 --abr ", Flagged<&AppState::EnableLAME256ABR>, NoPreset},
    {9001, "LAME #1 ", "lame.exe ", HasCode<Lame, 0>, Preset<Lame, 0>},
    {9002, "LAME #2 ", "lame.exe ", HasCode<Lame, 1>, Preset<Lame, 1>},
    {9003, "LAME #3 ", "lame.exe ", HasCode<Lame, 2>, Preset<Lame, 2>},
    {2001, "Ogg Vorbis 112 kbps", "oggenc.exe -b112kbps", Flagged<OggRate, 0>, NoPreset},
    {2002, "Ogg Vorbis 128 kbps", "oggenc.exe -b128kbps", Flagged<OggRate, 1>, NoPreset},
    {2003, "Ogg Vorbis 160 kbps", "oggenc.exe -b160kbps", Flagged<OggRate, 2>, NoPreset},
    {2004, "Ogg Vorbis 192 kbps", "oggenc.exe -b192kbps", Flagged<OggRate, 3>, NoPreset},
    {2005, "Ogg Vorbis 256 kbps", "oggenc.exe -b256kbps", Flagged<OggRate, 4>, NoPreset},
    {2006, "Ogg Vorbis 350 kbps", "oggenc.exe -b350kbps", Flagged<OggRate, 5>, NoPreset},
    {2010, "Ogg Vorbis Q=0", "oggenc.exe -q0", Flagged<OggQuality, 0>, NoPreset},
    {2011, "Ogg Vorbis Q=1", "oggenc.exe -q1", Flagged<OggQuality, 1>, NoPreset},
    {2012, "Ogg Vorbis Q=2", "oggenc.exe -q2", Flagged<OggQuality, 2>, NoPreset},
    {2013, "Ogg Vorbis Q=3", "oggenc.exe -q3", Flagged<OggQuality, 3>, NoPreset},
    {2014, "Ogg Vorbis Q=4", "oggenc.exe -q4", Flagged<OggQuality, 4>, NoPreset},
    {2015, "Ogg Vorbis Q=5", "oggenc.exe -q5", Flagged<OggQuality, 5>, NoPreset},
    {2016, "Ogg Vorbis Q=6", "oggenc.exe -q6", Flagged<OggQuality, 6>, NoPreset},
    {2017, "Ogg Vorbis Q=7", "oggenc.exe -q7", Flagged<OggQuality, 7>, NoPreset},
    {2018, "Ogg Vorbis Q=8", "oggenc.exe -q8", Flagged<OggQuality, 8>, NoPreset},
    {2019, "Ogg Vorbis Q=9", "oggenc.exe -q9", Flagged<OggQuality, 9>, NoPreset},
    {2020, "Ogg Vorbis Q=10", "oggenc.exe -q10", Flagged<OggQuality, 10>, NoPreset},
    {2031, "Ogg Vorbis #1 ", "oggenc.exe ", HasCode<Ogg, 0>, Preset<Ogg, 0>},
    {2032, "Ogg Vorbis #2 ", "oggenc.exe ", HasCode<Ogg, 1>, Preset<Ogg, 1>},
    {2033, "Ogg Vorbis #3 ", "oggenc.exe ", HasCode<Ogg, 2>, Preset<Ogg, 2>},
    {3001, "MPEGplus Thumb", " -v --overwrite --thumb -bw 16000 -ms 1 ", Flagged<MpcProfile, 0>, NoPreset},
    {3002, "MPEGplus Radio", " -v --overwrite --radio -bw 18000 -ms 1 ", Flagged<MpcProfile, 1>, NoPreset},
    {3003, "MPEGplus Standard", " -v --overwrite --standard -bw 20000 -ms 2 ", Flagged<MpcProfile, 2>, NoPreset},
    {3004, "MPEGplus Xtreme", " -v --overwrite --xtreme -bw 20000 -ms 0 ", Flagged<MpcProfile, 3>, NoPreset},
    {3005, "MPEGplus Insane", " -v --overwrite --insane -ltq fil -ms 0 ", Flagged<MpcProfile, 4>, NoPreset},
    {3006, "MPEGplus BrainDead", " -v --overwrite --braindead -ltq fil -ms 0 ", Flagged<MpcProfile, 5>, NoPreset},
    {3011, "MPEGplus #1 ", "mppenc.exe ", HasCode<Mpc, 0>, Preset<Mpc, 0>},
    {3012, "MPEGplus #2 ", "mppenc.exe ", HasCode<Mpc, 1>, Preset<Mpc, 1>},
    {3013, "MPEGplus #3 ", "mppenc.exe ", HasCode<Mpc, 2>, Preset<Mpc, 2>},
    // clang-format on
};

}  // namespace

std::span<const EncodingMode> ModeCatalogue() {
    return Catalogue;
}

const EncodingMode* FindMode(std::int32_t code) {
    const auto found = std::find_if(std::begin(Catalogue), std::end(Catalogue),
                                    [&](const EncodingMode& mode) { return mode.code == code; });
    return found == std::end(Catalogue) ? nullptr : found;
}

std::string ModeOptions(const AppState& state, const EncodingMode& mode) {
    const CustomPreset* preset = mode.preset(state);
    return std::string(mode.fragment) + (preset != nullptr ? preset->Code : "");
}

ModeList FillEncodingModes(const AppState& state) {
    constexpr std::int32_t DefaultMode = 320;
    ModeList list;
    for (const EncodingMode& mode : Catalogue) {
        if (!mode.enabled(state)) continue;
        const CustomPreset* preset = mode.preset(state);
        list.items.push_back({std::string(mode.label) + (preset != nullptr ? preset->Name : ""), mode.code});
        if (mode.code == DefaultMode) list.selected = list.items.size() - 1;
    }
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        if (list.items[i].code == state.CompressCD_Bitrate) list.selected = i;
    }
    return list;
}

void ApplyModeCode(AppState& state, std::int32_t code) {
    state.Bitrate = 0;
    if (code == 555) {
        state.UseVBR = true;
    } else if (code > 0 && code < 1000) {
        state.Bitrate = ToI16(std::int64_t{code});
    } else if (code > 1000 && code < 2000) {
        state.UseVBR = true;
        state.Bitrate = ToI16(std::int64_t{code} - 1000);
    } else if (code > 2000 && code < 3000) {
        state.OggVorbisMode = ToByte(std::int64_t{code} - 2000);
        state.UseOggVorbis = true;
    } else if (code > 3000 && code < 4000) {
        state.MPEGplusMode = ToByte(std::int64_t{code} - 3000);
        state.UseMPEGplus = true;
    } else if (code > 9000) {
        state.Bitrate = ToI16(std::int64_t{code});
    }
}

std::string GetMPEGplusModeName(const AppState& state, int mode) {
    constexpr std::array<std::string_view, 6> Names = {"thumb",  "radio",  "standard",
                                                       "xtreme", "insane", "braindead"};
    if (mode >= 1 && mode <= 6) return std::string(Names[static_cast<std::size_t>(mode) - 1]);
    if (mode >= 11 && mode <= 13)
        return MakeFileName(state.CustomMPCPreset[static_cast<std::size_t>(mode) - 11].Name);
    return {};
}

}  // namespace zefta
