#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/App.h"
#include "wave/WaveFile.h"

namespace zefta {

// The forms in which the trim dialog shows numbers of bytes. Times take every file for 16-bit stereo at
// 44100 Hz.

/// "44 100 bytes".
std::string BytesText(App& app, std::int32_t bytes);

/// "18 frames": whole CD frames.
std::string FramesText(App& app, std::int32_t bytes);

/// "0 mins 00 secs 250 ms".
std::string MinutesSecondsMilliseconds(App& app, std::int32_t bytes);

/// "0 mins 02 " and the unit, such as message 33815.
std::string MinutesSeconds(App& app, std::int32_t bytes, std::int32_t unitMessage);

/// What the trim dialog shows while a WaveFile works: binds itself to its events.
class TrimProgress {
  public:
    /// `view` may be null: nothing is shown then.
    TrimProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view);

    void ShowFile(const std::string& path);
    /// Shows the status text of that message: scanning, or saving.
    void ShowStatus(std::int32_t message);

  private:
    /// The labels of one end of the file.
    struct OffsetLabels {
        const char* bytes;
        const char* frames;
        const char* time;
    };

    void ShowOffset(const OffsetLabels& labels, std::int32_t bytes);
    void ShowValue(std::int32_t bytes);
    void Show();

    App& app_;
    std::unique_ptr<ProgressView> view_;
    ProgressReport report_;
};

}  // namespace zefta
