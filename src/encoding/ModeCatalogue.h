#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"

namespace zefta {

/// A row of the catalogue of encoding modes.
struct EncodingMode {
    /// 1 to 999 LAME rate (555 full VBR), 1001 to 1999 LAME ABR rate, 2001 to 2999 Ogg Vorbis mode, 3001 to
    /// 3999 MPEGplus mode, above 9000 custom LAME preset.
    std::int32_t code;
    /// Fixed text; the name of a custom preset stands behind it.
    std::string_view label;
    /// What the encoder is told: the program's name and its options, or the options alone for MPEGplus.
    /// For an ABR mode the rate stands behind it, for a custom preset its code string.
    std::string_view fragment;
    /// Whether the person lets the mode into the lists; for a custom preset, whether it has a code string.
    bool (*enabled)(const AppState& state);
    /// The custom preset behind the mode; null for a fixed one.
    const CustomPreset* (*preset)(const AppState& state);
};

/// The catalogue in the order of the lists.
std::span<const EncodingMode> ModeCatalogue();

/// The mode of that code, enabled or not; null when the catalogue has none.
const EncodingMode* FindMode(std::int32_t code);

/// The options that a mode stands for, with the preset's code string behind the fragment of a custom one.
std::string ModeOptions(const AppState& state, const EncodingMode& mode);

/// What a drop-down list of modes shows.
struct ModeList {
    struct Item {
        std::string label;
        std::int32_t code;
    };
    std::vector<Item> items;
    /// Index of the selected item.
    std::optional<std::size_t> selected;
};

/// The enabled modes. "LAME 320 kbps" is selected when it is there, unless the last used mode is.
ModeList FillEncodingModes(const AppState& state);

/// Sets the encoder fields of the state from a mode code. The switches UseVBR, UseOggVorbis and UseMPEGplus
/// are only ever set: who uses a state again clears them first. A code of no range leaves Bitrate at 0.
void ApplyModeCode(AppState& state, std::int32_t code);

/// The name of an MPEGplus mode as it stands in file names; "" for a mode that is none.
std::string GetMPEGplusModeName(const AppState& state, int mode);

}  // namespace zefta
