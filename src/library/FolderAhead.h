#pragma once

#include <atomic>
#include <future>
#include <optional>
#include <string>
#include <vector>

#include "library/FolderListing.h"
#include "library/ListedFile.h"

namespace zefta {

/// A folder and, as far as they were read, its files.
struct ReadFolder {
    FolderContents contents;
    /// What the first of the entries hold, in their order.
    std::vector<ListedFile> files;
};

/// The folder that the main window is going to show, read by a second thread while the toolkit starts: its
/// names, then the first of its files in the order of the list, as many as a window shows at first.
class FolderAhead {
  public:
    /// Begins at once. `folder` is as the window is told it; a relative one is left to the window. The
    /// services of `reading` outlive the object.
    FolderAhead(const FileReading& reading, const std::string& folder);
    /// Waits for the file at hand, or for the names.
    ~FolderAhead();
    FolderAhead(const FolderAhead&) = delete;
    FolderAhead& operator=(const FolderAhead&) = delete;

    /// Ends the reading and gives what it came to, which are all names and perhaps no file. Empty for any
    /// other folder, for one that could not be read or has other names since, and from the second call on.
    std::optional<ReadFolder> Take(const std::string& folder);

  private:
    struct Reading {
        /// Of the folder, before its names were read.
        std::string stamp;
        ReadFolder folder;
    };

    Reading Read() const;
    void ReadFiles(ReadFolder& folder) const;

    const FileReading reading_;
    const std::string folder_;
    std::atomic<bool> isWanted_ = true;
    /// Behind what the thread uses, which ends with it.
    std::future<Reading> result_;
};

}  // namespace zefta
