#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "tags/TemporaryFile.h"

namespace zefta {

/// The text file that a job is going to write. Shows at once whether it can be written, and has its content
/// as a whole or not at all: one that was there stays as it is until then.
class TextTarget {
  public:
    /// The file exists from now on, behind a link that led nowhere, too. RuntimeError 75 when a folder has
    /// the name, 76 when its folder is not there, 70 when it can't be created or written: it is read-only,
    /// say. Nothing is left behind then.
    TextTarget(FileSystem& files, const std::string& path);
    /// A file that was made for nothing goes.
    ~TextTarget();
    TextTarget(const TextTarget&) = delete;
    TextTarget& operator=(const TextTarget&) = delete;

    /// Behind all links.
    const std::string& Path() const { return path_; }

    /// To be called once. Run-time failures are those of writing and replacing.
    void Put(std::string_view bytes);

  private:
    void OpenBesideOld();
    void OpenNew();

    FileSystem& files_;
    std::string path_;
    std::optional<TemporaryFile> besideOld_;
    std::unique_ptr<BinaryFile> newFile_;
};

}  // namespace zefta
