#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "core/App.h"
#include "wave/WaveFile.h"

namespace zefta {

/// The words beside the numbers of the trim dialog, in the person's language.
struct TrimWords {
    std::string bytes;
    std::string frames;
    std::string minutes;
    std::string seconds;
    std::string milliseconds;
    std::string secondsProcessed;
    std::string secondsRemaining;
};

TrimWords LoadTrimWords(Messages& messages);

/// The captions of the trim dialog by the names of their controls; that of an option button is followed by
/// its index, the format that it stands for.
std::map<std::string, std::string> LoadTrimCaptions(Messages& messages);

// The forms in which the trim dialog shows a number of bytes. Times take every file for 16-bit stereo at
// 44100 Hz.

/// "44 100 bytes".
std::string BytesText(const TrimWords& words, std::int32_t bytes);

/// "18 frames": whole CD frames.
std::string FramesText(const TrimWords& words, std::int32_t bytes);

/// "0 mins 00 secs 250 ms".
std::string TimeText(const TrimWords& words, std::int32_t bytes);

/// "0 mins 02 secs processed".
std::string ProcessedText(const TrimWords& words, std::int32_t bytes);

/// "0 mins 02 secs remaining".
std::string RemainingText(const TrimWords& words, std::int32_t bytes);

/// What the trim dialog shows while a WaveFile works: binds itself to its events and must live as long.
class TrimProgress {
  public:
    /// `view` may be null: nothing is shown then.
    TrimProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view);
    TrimProgress(const TrimProgress&) = delete;
    TrimProgress& operator=(const TrimProgress&) = delete;

    /// A new file begins.
    void ShowFile(const std::string& path);
    /// Shows the status text of that message: scanning, or saving.
    void ShowStatus(std::int32_t message);

  private:
    /// The controls of one end of the file.
    struct OffsetLabels {
        const char* bytes;
        const char* frames;
        const char* time;
    };

    void ShowOffset(const OffsetLabels& labels, std::int32_t bytes);
    void ShowValue(std::int32_t bytes);
    void Show();

    App& app_;
    WaveFile& wave_;
    std::unique_ptr<ProgressView> view_;
    TrimWords words_;
    std::map<std::string, std::string> captions_;
    ProgressReport report_;
};

}  // namespace zefta
