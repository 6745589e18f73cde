#include "tags/TemporaryFile.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace zefta {

namespace {

void DeleteIfPossible(FileSystem& files, const std::string& path) {
    try {
        files.DeleteFile(path, Force::Yes);
    } catch (const RuntimeError&) {
    }
}

}  // namespace

TemporaryFile::TemporaryFile(FileSystem& files, std::string target)
    : files_(files), target_(std::move(target)), path_(target_ + ".tmp") {
    CreateInPlaceOfOld();
    pending_ = file_ != nullptr;
}

TemporaryFile::~TemporaryFile() {
    if (!pending_) return;
    file_.reset();
    // When this fails too, the failure that brought us here is the one to tell.
    DeleteIfPossible(files_, path_);
}

/// What stands there is not opened: it may be another name of a file that matters.
void TemporaryFile::CreateInPlaceOfOld() {
    file_ = files_.OpenNew(path_);
    if (file_) return;
    DeleteIfPossible(files_, path_);
    file_ = files_.OpenNew(path_);
}

void TemporaryFile::TakePlace() {
    file_.reset();
    files_.ReplaceFile(path_, target_);
    pending_ = false;
}

}  // namespace zefta
