#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace zefta::fuzz {

/// Files of one folder, held in memory: names are exact, and there are no folders, links or attributes.
/// Opened files see each other's writes.
class MemoryFileSystem : public FileSystem {
  public:
    using Content = std::shared_ptr<std::string>;

    std::map<std::string, Content> files;

    void Put(const std::string& path, std::string_view bytes) {
        files[path] = std::make_shared<std::string>(bytes);
    }
    /// "" for a file that is not there.
    std::string Get(const std::string& path) const;

    bool FileExists(const std::string& path) const override { return files.contains(path); }
    bool FolderExists(const std::string&) const override { return false; }
    void DeleteFile(const std::string& path, Force force) override;
    void MoveFile(const std::string& source, const std::string& target) override;
    void ReplaceFile(const std::string& replacement, const std::string& target) override;
    std::unique_ptr<BinaryFile> OpenRead(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenCreate(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenNew(const std::string& path) override;
    std::int64_t FileSize(const std::string& path) const override;
    /// The content itself is as good a stamp as any.
    std::string ContentStamp(const std::string& path) const override { return Get(path); }
    bool IsReadOnly(const std::string&) const override { return false; }
    void SetReadOnly(const std::string&, bool) override {}
    void CopyAttributes(const std::string&, const std::string&) override {}
    void CreateFolder(const std::string&) override {}
    void DeleteFolder(const std::string&, Force) override {}
    std::vector<FolderEntry> List(const std::string& folder) const override;
    bool CanChangeFolder(const std::string&) const override { return true; }
    std::string CurrentFolder() const override { return "/"; }
    void SetCurrentFolder(const std::string&) override {}
    std::string FollowLinks(const std::string& path) const override { return path; }

  private:
    Content Find(const std::string& path) const;
};

}  // namespace zefta::fuzz
