#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <sys/types.h>

namespace zefta {

class FolderIndex;

/// The folder of which was last found out that no link leads to it, so that a job on its files does not
/// look at each part of its path for each of them. Known for a second, and only as long as the same folder
/// is there. May be used by several threads.
class RealFolder {
  public:
    /// Whether that is the folder in which the path lies. `index` may have seen it just now.
    bool IsPartOf(const std::string& path, FolderIndex& index);

    /// The path has no links in it and names something.
    void Learn(const std::string& path);

  private:
    std::mutex mutex_;
    std::string folder_;
    dev_t device_ = 0;
    ino_t node_ = 0;
    std::chrono::steady_clock::time_point when_;
};

}  // namespace zefta
