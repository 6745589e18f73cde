#pragma once

#include <cstdint>
#include <string>

#include "core/Messages.h"

namespace zefta {

/// Counts what a scan of a folder has met, and tells it for the status bar.
class ScanCount {
  public:
    void AddFolder() { ++folders_; }
    /// A file that is listed. A size with which the sum leaves 32 bits adds nothing to it.
    void AddFile(std::int64_t bytes);
    /// A file that is not listed: it counts for nothing, but the files are being counted now.
    void PassFile() { hasMetFiles_ = true; }

    /// How many folders, and once a file was met how many files; "" before either.
    std::string CountText(Messages& messages) const;
    /// The sum of the files in kilobytes; "" before a file was met.
    std::string SizeText() const;

  private:
    std::int64_t folders_ = 0;
    std::int64_t files_ = 0;
    std::int32_t bytes_ = 0;
    bool hasMetFiles_ = false;
};

}  // namespace zefta
