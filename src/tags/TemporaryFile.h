#pragma once

#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// A file that is built beside the one whose place it is to take, under that one's name with ".tmp" behind
/// it, or a shorter one with "~1.tmp" where a name can't be that long. Gone again when it is dropped before
/// it took the place, whatever went wrong.
class TemporaryFile {
  public:
    /// An old file of that name is deleted, and of a link the link alone; one of a shortened name stays, and
    /// the next number is taken. File() is null when the new one
    /// can't be created.
    TemporaryFile(FileSystem& files, std::string target);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    BinaryFile* File() const { return file_.get(); }

    /// Closes the file and puts it in the target's place in one step (FileSystem::ReplaceFile).
    void TakePlace();

  private:
    void CreateInPlaceOfOld();
    void CreateUnderShorterName();

    FileSystem& files_;
    std::string target_;
    std::string path_;
    std::unique_ptr<BinaryFile> file_;
    bool pending_ = false;
};

}  // namespace zefta
