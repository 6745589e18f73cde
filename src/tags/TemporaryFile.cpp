#include "tags/TemporaryFile.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace zefta {

TemporaryFile::TemporaryFile(FileSystem& files, std::string target)
    : files_(files),
      target_(std::move(target)),
      path_(target_ + ".tmp"),
      file_(files.OpenCreate(path_)),
      pending_(file_ != nullptr) {}

TemporaryFile::~TemporaryFile() {
    if (!pending_) return;
    file_.reset();
    try {
        files_.DeleteFile(path_, Force::Yes);
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

void TemporaryFile::TakePlace() {
    file_.reset();
    files_.ReplaceFile(path_, target_);
    pending_ = false;
}

}  // namespace zefta
