#include "wave/TrimProgress.h"

#include <utility>

namespace zefta {

namespace {

constexpr std::int32_t BytesPerMinute = 10584000;
constexpr std::int32_t BytesPerSecond = 176400;
constexpr double BytesPerMillisecond = 176.4;

std::string Filled(std::int32_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

/// Digits in groups of three.
std::string Grouped(std::int32_t number) {
    std::string text = std::to_string(number);
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    for (std::size_t at = text.size(); at > first + 3;) text.insert(at -= 3, 1, ' ');
    return text;
}

std::string Word(App& app, std::int32_t message) {
    return " " + app.messages.GetMessage(message);
}

std::string Minutes(App& app, std::int32_t bytes) {
    return std::to_string(bytes / BytesPerMinute) + Word(app, 33812) + " " +
           Filled(bytes % BytesPerMinute / BytesPerSecond, 2);
}

}  // namespace

std::string BytesText(App& app, std::int32_t bytes) {
    return Grouped(bytes) + Word(app, 33810);
}

std::string FramesText(App& app, std::int32_t bytes) {
    return std::to_string(bytes / CdFrameBytes) + Word(app, 33811);
}

std::string MinutesSecondsMilliseconds(App& app, std::int32_t bytes) {
    const auto milliseconds =
        static_cast<std::int32_t>(bytes % BytesPerMinute % BytesPerSecond / BytesPerMillisecond);
    return Minutes(app, bytes) + Word(app, 33813) + " " + Filled(milliseconds, 3) + Word(app, 33814);
}

std::string MinutesSeconds(App& app, std::int32_t bytes, std::int32_t unitMessage) {
    return Minutes(app, bytes) + Word(app, unitMessage);
}

TrimProgress::TrimProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view)
    : app_(app), view_(std::move(view)) {
    // Without a view there is nobody to make the texts for.
    if (!view_) return;
    wave.StartOffset = [this](std::int32_t bytes) {
        ShowOffset({"lblStartOffsetValue", "lblFramesBefore", "lblBeforeMSF"}, bytes);
    };
    wave.EndOffset = [this](std::int32_t bytes) {
        ShowOffset({"lblEndOffsetValue", "lblFramesAfter", "lblAfterMSF"}, bytes);
    };
    wave.MinStatus = [this](std::int32_t value) { report_.minimum = value; };
    wave.MaxStatus = [this](std::int32_t value) { report_.maximum = value; };
    wave.Status = [this](std::int32_t value) { ShowValue(value); };
}

void TrimProgress::ShowFile(const std::string& path) {
    report_.fileName = app_.ansi.ToText(path);
    report_.labels.clear();
}

void TrimProgress::ShowStatus(std::int32_t message) {
    report_.status = app_.messages.GetMessage(message);
    Show();
}

void TrimProgress::ShowOffset(const OffsetLabels& labels, std::int32_t bytes) {
    report_.labels[labels.bytes] = BytesText(app_, bytes);
    report_.labels[labels.frames] = FramesText(app_, bytes);
    report_.labels[labels.time] = MinutesSecondsMilliseconds(app_, bytes);
    Show();
}

void TrimProgress::ShowValue(std::int32_t bytes) {
    report_.value = bytes;
    report_.labels["lblMSFWritten"] = MinutesSeconds(app_, bytes, 33815);
    report_.labels["lblMSFRemaining"] = MinutesSeconds(app_, report_.maximum - bytes, 33816);
    Show();
}

void TrimProgress::Show() {
    if (view_) view_->Show(report_);
}

}  // namespace zefta
