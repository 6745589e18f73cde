#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/App.h"
#include "wave/WaveFile.h"

namespace zefta {

/// What the dialog shows while a playlist is copied: binds itself to the events of the WaveFile that copies
/// and must live as long. Numbers of bytes; totals may be larger than any file.
class CopyProgress {
  public:
    CopyProgress(App& app, WaveFile& wave, std::unique_ptr<ProgressView> view);
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;

    void ShowPlaylist(const std::string& name);
    /// The whole job is that large. Its scale counts in units that fit it.
    void SetTotal(std::int64_t bytes);
    /// A track begins.
    void ShowFile(const std::string& path);
    /// So much is done of the whole job when a track begins or has ended.
    void SetBase(std::int64_t bytes);

  private:
    void ShowCurrent(std::int32_t bytes);
    void SetDone(std::int64_t bytes);
    void Show() { view_->Show(report_); }
    std::string BytesText(std::int64_t bytes) const;

    App& app_;
    std::unique_ptr<ProgressView> view_;
    std::string bytesWord_;
    ProgressReport report_;
    std::int64_t total_ = 0;
    std::int64_t base_ = 0;
    std::int64_t unit_ = 1;
};

}  // namespace zefta
