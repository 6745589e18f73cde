#include "library/TextTarget.h"

#include "core/DeleteQuietly.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

TextTarget::TextTarget(FileSystem& files, const std::string& path) : files_(files), path_(path) {
    if (files.FolderExists(path)) throw RuntimeError(ErrorNumber::PathFileAccess, path);
    files.FileExists(path) ? OpenBesideOld() : OpenNew();
    path_ = files.FollowLinks(path);
}

TextTarget::~TextTarget() {
    if (!newFile_) return;
    newFile_.reset();
    // When this fails too, the failure that brought us here is the one to tell.
    DeleteQuietly(files_, path_);
}

void TextTarget::OpenBesideOld() {
    // What refuses to be opened for writing would not refuse to be replaced.
    if (!files_.OpenRead(path_)) throw RuntimeError(ErrorNumber::PermissionDenied, path_);
    besideOld_.emplace(files_, files_.FollowLinks(path_), TemporaryFile::OldFile::Keep);
    if (besideOld_->File() == nullptr) throw RuntimeError(ErrorNumber::PermissionDenied, path_);
}

void TextTarget::OpenNew() {
    newFile_ = files_.OpenCreate(path_);
    if (newFile_) return;
    const std::string folder = FolderPart(path_);
    const bool hasFolder = folder.empty() || files_.FolderExists(folder);
    throw RuntimeError(hasFolder ? ErrorNumber::PermissionDenied : ErrorNumber::PathNotFound, path_);
}

void TextTarget::Put(std::string_view bytes) {
    if (besideOld_) {
        besideOld_->File()->Write(bytes);
        besideOld_->TakePlace();
        return;
    }
    newFile_->Write(bytes);
    newFile_.reset();
}

}  // namespace zefta
