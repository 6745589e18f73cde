#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

#include "platform/FileSystem.h"
#include "platform/posix/FolderIndex.h"
#include "platform/posix/RealFolder.h"

namespace zefta {

class OpenFolder;

class PosixFileSystem : public FileSystem {
  public:
    bool FileExists(const std::string& path) const override;
    bool FolderExists(const std::string& path) const override;
    void DeleteFile(const std::string& path, Force force) override;
    void MoveFile(const std::string& source, const std::string& target) override;
    void ReplaceFile(const std::string& replacement, const std::string& target) override;
    bool ReplaceByOpenFile(BinaryFile& written, const std::string& replacement,
                           const std::string& target) override;
    std::unique_ptr<BinaryFile> OpenRead(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenCreate(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenNew(const std::string& path) override;
    std::int64_t FileSize(const std::string& path) const override;
    std::string ContentStamp(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    void SetReadOnly(const std::string& path, bool readOnly) override;
    void CopyAttributes(const std::string& source, const std::string& target) override;
    void CreateFolder(const std::string& path) override;
    void DeleteFolder(const std::string& path, Force force) override;
    std::vector<FolderEntry> List(const std::string& folder) const override;
    bool CanChangeFolder(const std::string& folder) const override;
    std::string CurrentFolder() const override;
    void SetCurrentFolder(const std::string& folder) override;
    std::string FollowLinks(const std::string& path) const override;

  private:
    using FileStatus = struct stat;

    std::string Spelled(const std::string& path) const;
    std::optional<FileStatus> StatusOf(const std::string& path) const;
    FolderEntry EntryOf(const std::string& folder, const std::string& name, unsigned char type) const;
    bool MoveWithinFolder(const std::string& source, const std::string& target);
    void TakeName(const OpenFolder& folder, const std::string& from, const std::string& to);
    std::unique_ptr<BinaryFile> OpenExisting(const std::string& path, int flags) const;

    mutable FolderIndex index_;
    mutable RealFolder realFolder_;
};

}  // namespace zefta
