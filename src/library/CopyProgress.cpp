#include "library/CopyProgress.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/Numbers.h"

namespace zefta {

CopyProgress::CopyProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view)
    : app_(app), view_(std::move(view)), bytesWord_(app.messages.GetMessage(33204)) {
    report_.kind = ProgressKind::CopyPlaylist;
    report_.labels["fraTotal"] = app.messages.GetMessage(33202);
    report_.labels["fraCurrent"] = app.messages.GetMessage(33203);
    wave.MinStatus = [this](std::int32_t value) { report_.current.minimum = value; };
    wave.MaxStatus = [this](std::int32_t value) {
        report_.current.maximum = value;
        report_.labels["lblCurrent"] = BytesText(value);
        Show();
    };
    wave.Status = [this](std::int32_t value) { ShowCurrent(value); };
}

void CopyProgress::ShowPlaylist(const std::string& name) {
    const std::string text = app_.ansi.ToText(name);
    report_.status = app_.messages.GetMessage(33201) + text;
    report_.labels["lblPlaylist"] = text;
    Show();
}

void CopyProgress::SetTotal(std::int64_t bytes) {
    constexpr std::int64_t UnitOfLargeTotals = 1024;
    total_ = bytes;
    while (total_ / unit_ > std::numeric_limits<std::int32_t>::max()) unit_ *= UnitOfLargeTotals;
    report_.maximum = ToI32(total_ / unit_);
    SetDone(0);
    Show();
}

void CopyProgress::ShowFile(const std::string& path) {
    report_.fileName = app_.ansi.ToText(path);
    report_.labels["lblFile"] = report_.fileName;
    report_.current = {};
    Show();
}

void CopyProgress::SetBase(std::int64_t bytes) {
    base_ = bytes;
    SetDone(bytes);
    Show();
}

void CopyProgress::ShowCurrent(std::int32_t bytes) {
    report_.current.value = bytes;
    report_.labels["lblCurrentDone"] = BytesText(bytes);
    SetDone(base_ + bytes);
    Show();
}

void CopyProgress::SetDone(std::int64_t bytes) {
    // A file that grew since its size was taken must not lead beyond the end.
    report_.value = ToI32(std::min(bytes, total_) / unit_);
    report_.labels["lblWritten"] = BytesText(bytes);
    report_.labels["lblRemaining"] = BytesText(total_ - bytes);
}

std::string CopyProgress::BytesText(std::int64_t bytes) const {
    return GroupedText(bytes) + bytesWord_;
}

}  // namespace zefta
