#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace zefta {

/// What the audio of a WAV file looks like from afar: lowest and highest sample of each column, a column
/// standing for an equal share of the audio.
struct WaveOutline {
    struct Column {
        std::int16_t low = 0;
        std::int16_t high = 0;

        bool operator==(const Column&) const = default;
    };

    /// One or two, all with the same number of columns. None: there is nothing to draw.
    std::vector<std::vector<Column>> channels;
    /// Length of the audio.
    std::int32_t bytes = 0;
};

inline constexpr std::size_t MostOutlineColumns = 1000;

/// The outline of a file in up to `columns` columns, at most MostOutlineColumns; a shorter file has one a
/// sample. Reads no more than a few KB a column, however long the file is, so that a peak between them may
/// be missed. A file without RIFF header is raw audio, 16-bit stereo. Never fails: what is no 16-bit WAV
/// file of one or two channels, or is damaged ahead of its audio, has an empty outline, and audio that ends
/// early an outline of what there is.
WaveOutline ReadWaveOutline(FileSystem& files, const std::string& path, std::size_t columns);

}  // namespace zefta
