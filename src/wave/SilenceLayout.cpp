#include "wave/SilenceLayout.h"

#include <algorithm>

#include "core/Numbers.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

struct FormatRow {
    std::int32_t format;
    SilenceLayout layout;
    bool wholeFrames;
};

constexpr FormatRow Formats[] = {
    {1, {2 * CdFrameBytes, 5 * CdFrameBytes}, true},   // normal track
    {2, {30 * CdFrameBytes, 5 * CdFrameBytes}, true},  // first track
    {3, {2 * CdFrameBytes, 60 * CdFrameBytes}, true},  // last track
    {4, {30 * CdFrameBytes, 0}, false},                // first track of a NON-STOP run
    {5, {0, 60 * CdFrameBytes}, false},                // last track of a NON-STOP run
};

std::int32_t FramesToBytes(std::int32_t frames) {
    return Multiply(std::max(frames, 0), CdFrameBytes);
}

}  // namespace

SilenceLayout LayoutOf(const WaveFile& wave) {
    const auto row = std::find_if(std::begin(Formats), std::end(Formats), [&](const FormatRow& candidate) {
        return candidate.format == wave.Format;
    });
    if (row == std::end(Formats)) return {FramesToBytes(wave.Before), FramesToBytes(wave.After)};
    SilenceLayout layout = row->layout;
    const std::int32_t audio = Subtract(wave.TrimEnd, wave.TrimStart);
    const std::int32_t beyond = Add(Add(layout.before, layout.after), audio) % CdFrameBytes;
    if (row->wholeFrames && beyond > 0) layout.after += CdFrameBytes - beyond;
    return layout;
}

}  // namespace zefta
