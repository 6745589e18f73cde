#pragma once

#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// A file that is built beside the one whose place it is to take, under that one's name with ".tmp" behind
/// it, or "~1.tmp" to "~999.tmp" where that can't be. Gone again when it is dropped before it took the place,
/// whatever went wrong.
class TemporaryFile {
  public:
    /// What becomes of a file that has the name already.
    enum class OldFile {
        /// It is deleted, and of a link the link alone. One of a numbered name stays.
        Delete,
        /// It stays, and a numbered name is taken.
        Keep,
        /// It stays, and the number stands in front, "~1" to "~999", so that the end of the name still tells
        /// the kind of the file.
        KeepWithEnding,
    };

    /// The name that it has in most cases.
    static std::string PathFor(const std::string& target);

    /// `target`: behind all links. File() is null when the file can't be created.
    TemporaryFile(FileSystem& files, std::string target, OldFile old = OldFile::Delete);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Null when it could not be created, and once it is closed.
    BinaryFile* File() const { return file_.get(); }
    const std::string& Path() const { return path_; }

    /// For those who open it by its path.
    void Close() { file_.reset(); }

    /// Puts the file in the target's place in one step (FileSystem::ReplaceFile) and closes it; gives it the
    /// name alone when there is no target.
    void TakePlace();

  private:
    void CreateInPlaceOfOld();
    void CreateUnderNumberedName(OldFile old);
    bool ReplaceTarget();

    FileSystem& files_;
    std::string target_;
    std::string path_;
    std::unique_ptr<BinaryFile> file_;
    bool pending_ = false;
};

}  // namespace zefta
