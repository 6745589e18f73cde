#pragma once

#include <string>
#include <sys/stat.h>

namespace zefta {

/// A folder that is open for work on its entries, so that the system need not find it for each call. The
/// paths that are given are of entries of the folder; where it could not be opened, as one that may only be
/// entered, they are used as they stand. Results as of the calls of the system: 0, or -1 with errno set.
class OpenFolder {
  public:
    /// "" is the current folder.
    explicit OpenFolder(const std::string& folder);
    ~OpenFolder();
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    bool IsOpen() const { return descriptor_ != -1; }

    /// Of the folder itself, which is open.
    int Status(struct stat& status) const;

    /// Of the entry itself, be it a link.
    int StatusOf(const std::string& path, struct stat& status) const;

    /// A descriptor of the entry; what is made has the usual permissions.
    int Open(const std::string& path, int flags) const;

    /// Takes the place of what has the name.
    int Rename(const std::string& from, const std::string& to) const;

    /// Brings the entries to the disk, so that a rename outlives a stop of the machine. A file system that
    /// can't do this for folders has nothing to lose either.
    void Flush() const;

  private:
    struct Place {
        int folder;
        const char* name;
    };
    Place PlaceOf(const std::string& path) const;

    int descriptor_;
};

}  // namespace zefta
