#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/FileSystem.h"
#include "platform/overlay/OverlayFolder.h"

namespace zefta {

/// A file system that looks like another one and keeps every change to itself, in memory: for seeing what a
/// job would do. The other one is only read. Changes that others make while it lives may go unseen.
///
/// May be used by several threads.
class OverlayFileSystem : public FileSystem {
  public:
    explicit OverlayFileSystem(FileSystem& base);

    bool FileExists(const std::string& path) const override;
    bool FolderExists(const std::string& path) const override;
    void DeleteFile(const std::string& path, Force force) override;
    void MoveFile(const std::string& source, const std::string& target) override;
    void ReplaceFile(const std::string& replacement, const std::string& target) override;
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
    std::string CurrentFolder() const override;
    void SetCurrentFolder(const std::string& folder) override;
    std::string FollowLinks(const std::string& path) const override;
    bool CanChangeFolder(const std::string& folder) const override;

  private:
    /// A folder that was looked into, under its full path.
    struct View {
        std::string path;
        /// "" for a folder that would be made.
        std::string basePath;
        OverlayFolder entries;
    };

    struct Place {
        View* view = nullptr;
        OverlayNode* node = nullptr;
    };

    std::string Absolute(const std::string& path) const;
    View* OpenView(const std::string& path, const std::string& basePath) const;
    View* ViewOf(const std::string& folder) const;
    bool IsBelowAView(const std::string& path) const;
    View* ViewBelow(const std::string& path) const;
    View& FolderForChange(const std::string& path) const;
    Place Find(const std::string& path) const;
    Place Look(const std::string& path) const;
    OverlayNode* LookForFile(const std::string& path) const;
    OverlayNode& FileAt(const std::string& path) const;
    bool IsReadOnly(const OverlayNode& node) const;
    void ForgetOtherPaths();
    void MoveViews(const std::string& from, const std::string& to);
    bool IsReadFromDisk(const OverlayNode& node) const;
    std::shared_ptr<OverlayContent> ContentOnDisk(const OverlayNode& node) const;
    std::unique_ptr<BinaryFile> OpenForChange(OverlayNode& node);
    std::unique_ptr<BinaryFile> Create(const std::string& path);

    FileSystem& base_;
    std::string currentFolder_;
    std::shared_ptr<OverlayBudget> budget_ = std::make_shared<OverlayBudget>();
    /// Counts what was made or replaced.
    std::int64_t changes_ = 0;
    mutable std::recursive_mutex mutex_;
    /// By every path that was asked for; several may lead to one folder.
    mutable std::unordered_map<std::string, std::shared_ptr<View>> views_;
};

}  // namespace zefta
