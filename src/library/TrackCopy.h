#pragma once

#include <string>
#include <unordered_set>

#include "core/App.h"
#include "wave/WaveFile.h"

namespace zefta {

/// Copies files one by one by WaveFile::CopyWave with its events. In a preview it tells what would be copied
/// and what not, and copies nothing.
class TrackCopier {
  public:
    /// `kept`: what is never written to, each behind all links: all that is still to be copied, above all.
    TrackCopier(App& app, WaveFile& wave, std::unordered_set<std::string> kept);

    bool IsKept(const std::string& path) const { return kept_.contains(app_.files.FollowLinks(path)); }
    void Keep(const std::string& path) { kept_.insert(app_.files.FollowLinks(path)); }

    /// After it `target` has either its whole content or what it had before. False when the file can't be
    /// copied, which a box has told then: the source can't be opened (message 1006), the target can't be
    /// created or is kept (message 1007), or a run-time failure.
    bool Copy(const std::string& source, const std::string& target);

  private:
    bool MayBeWritten(const std::string& target) const;
    std::int32_t TryToCopy(const std::string& source, const std::string& target);
    std::int32_t CopyOrFail(const std::string& source, const std::string& target);

    App& app_;
    WaveFile& wave_;
    std::unordered_set<std::string> kept_;
};

}  // namespace zefta
