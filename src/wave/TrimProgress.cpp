#include "wave/TrimProgress.h"

#include <utility>

#include "core/Numbers.h"
#include "wave/WaveOutline.h"

namespace zefta {

namespace {

constexpr std::int32_t BytesPerMinute = 10584000;
constexpr std::int32_t BytesPerSecond = 176400;
/// Finer than a dialog is wide.
constexpr std::size_t OutlineColumns = 500;

struct Caption {
    const char* control;
    std::int32_t message;
};

constexpr Caption Captions[] = {
    {"frmTrim", 33802},        {"fraFormatting", 33801},  {"optFormatting0", 33802},
    {"optFormatting1", 33803}, {"optFormatting2", 33804}, {"optFormatting3", 33805},
    {"lblNonstop", 33806},     {"optFormatting4", 33804}, {"optFormatting5", 33805},
    {"fraSilence", 33807},     {"lblStartOffset", 33808}, {"lblEndOffset", 33809},
};

std::string Filled(std::int32_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string MinutesAndSeconds(const TrimWords& words, std::int32_t bytes) {
    return std::to_string(bytes / BytesPerMinute) + " " + words.minutes + " " +
           Filled(bytes % BytesPerMinute / BytesPerSecond, 2);
}

}  // namespace

TrimWords LoadTrimWords(Messages& messages) {
    return {messages.GetMessage(33810), messages.GetMessage(33811), messages.GetMessage(33812),
            messages.GetMessage(33813), messages.GetMessage(33814), messages.GetMessage(33815),
            messages.GetMessage(33816)};
}

std::map<std::string, std::string> LoadTrimCaptions(Messages& messages) {
    std::map<std::string, std::string> captions;
    for (const Caption& caption : Captions) captions[caption.control] = messages.GetMessage(caption.message);
    return captions;
}

std::string BytesText(const TrimWords& words, std::int32_t bytes) {
    return GroupedText(bytes) + " " + words.bytes;
}

std::string FramesText(const TrimWords& words, std::int32_t bytes) {
    return std::to_string(bytes / CdFrameBytes) + " " + words.frames;
}

std::string TimeText(const TrimWords& words, std::int32_t bytes) {
    // 176.4 bytes are a millisecond.
    const std::int32_t milliseconds = bytes % BytesPerMinute % BytesPerSecond * 10 / 1764;
    return MinutesAndSeconds(words, bytes) + " " + words.seconds + " " + Filled(milliseconds, 3) + " " +
           words.milliseconds;
}

std::string ProcessedText(const TrimWords& words, std::int32_t bytes) {
    return MinutesAndSeconds(words, bytes) + " " + words.secondsProcessed;
}

std::string RemainingText(const TrimWords& words, std::int32_t bytes) {
    return MinutesAndSeconds(words, bytes) + " " + words.secondsRemaining;
}

TrimProgress::TrimProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view)
    : app_(app), wave_(wave), view_(std::move(view)) {
    // Without a view there is nobody to make the texts for.
    if (!view_) return;
    words_ = LoadTrimWords(app.messages);
    captions_ = LoadTrimCaptions(app.messages);
    wave.StartOffset = [this](std::int32_t bytes) {
        report_.silenceBefore = bytes;
        ShowOffset({"lblStartOffsetValue", "lblFramesBefore", "lblBeforeMSF"}, bytes);
    };
    wave.EndOffset = [this](std::int32_t bytes) {
        report_.silenceAfter = bytes;
        ShowOffset({"lblEndOffsetValue", "lblFramesAfter", "lblAfterMSF"}, bytes);
    };
    wave.MinStatus = [this](std::int32_t value) { report_.minimum = value; };
    wave.MaxStatus = [this](std::int32_t value) { report_.maximum = value; };
    wave.Status = [this](std::int32_t value) { ShowValue(value); };
}

void TrimProgress::ShowFile(const std::string& path) {
    report_ = {};
    report_.labels = captions_;
    report_.fileName = app_.ansi.ToText(path);
    if (view_ && view_->DrawsOutline())
        report_.outline =
            std::make_shared<const WaveOutline>(ReadWaveOutline(app_.files, path, OutlineColumns));
    report_.labels["optFormatting"] = std::to_string(wave_.Format);
}

void TrimProgress::ShowStatus(std::int32_t message) {
    report_.status = app_.messages.GetMessage(message);
    Show();
}

void TrimProgress::ShowOffset(const OffsetLabels& labels, std::int32_t bytes) {
    report_.labels[labels.bytes] = BytesText(words_, bytes);
    report_.labels[labels.frames] = FramesText(words_, bytes);
    report_.labels[labels.time] = TimeText(words_, bytes);
    Show();
}

void TrimProgress::ShowValue(std::int32_t bytes) {
    report_.value = bytes;
    report_.labels["lblMSFWritten"] = ProcessedText(words_, bytes);
    report_.labels["lblMSFRemaining"] = RemainingText(words_, report_.maximum - bytes);
    Show();
}

void TrimProgress::Show() {
    if (view_) view_->Show(report_);
}

}  // namespace zefta
