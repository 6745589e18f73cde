#pragma once

#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// A file that is built beside the one whose place it is to take, under that one's name with ".tmp" behind
/// it, or "~1.tmp" and so on where that can't be. Gone again when it is dropped before
/// it took the place, whatever went wrong.
class TemporaryFile {
  public:
    /// What becomes of a file that has the name already.
    enum class OldFile {
        /// It is deleted, and of a link the link alone. One of a numbered name stays.
        Delete,
        /// It stays, and a numbered name is taken.
        Keep,
    };

    /// File() is null when the file can't be created.
    TemporaryFile(FileSystem& files, std::string target, OldFile old = OldFile::Delete);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    BinaryFile* File() const { return file_.get(); }

    /// Closes the file and puts it in the target's place in one step (FileSystem::ReplaceFile).
    void TakePlace();

  private:
    void CreateInPlaceOfOld();
    void CreateUnderNumberedName();

    FileSystem& files_;
    std::string target_;
    std::string path_;
    std::unique_ptr<BinaryFile> file_;
    bool pending_ = false;
};

}  // namespace zefta
