#pragma once

#include <memory>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace zefta::test {

/// Which of the operations that reach the disk fail.
struct FaultPlan {
    enum class Mode { Never, OnlyTheNth, FromTheNthOn };

    Mode mode = Mode::Never;
    int nth = 0;
    ErrorNumber error = ErrorNumber::DiskFull;
};

/// Counts operations and fails as planned; shared with the files that are open.
class FaultCounter {
  public:
    FaultPlan plan;
    int operations = 0;
    /// Those among them that write into a file.
    int writes = 0;

    /// Counts one; true when it is to fail.
    bool NextFails() {
        ++operations;
        if (plan.mode == FaultPlan::Mode::OnlyTheNth) return operations == plan.nth;
        return plan.mode == FaultPlan::Mode::FromTheNthOn && operations >= plan.nth;
    }

    void MayThrow() {
        if (NextFails()) throw RuntimeError(plan.error);
    }
};

/// A file system that fails at operation n: opening gives null, everything else the planned error. Looks that
/// change nothing and read no content (exists, names, positions) always work.
class FaultInjectingFileSystem : public FileSystem {
  public:
    explicit FaultInjectingFileSystem(FileSystem& real) : real_(real) {}

    FaultCounter faults;

    bool FileExists(const std::string& path) const override { return real_.FileExists(path); }
    bool FolderExists(const std::string& path) const override { return real_.FolderExists(path); }
    void DeleteFile(const std::string& path, Force force) override;
    void MoveFile(const std::string& source, const std::string& target) override;
    void ReplaceFile(const std::string& replacement, const std::string& target) override;
    std::unique_ptr<BinaryFile> OpenRead(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenCreate(const std::string& path) override;
    std::unique_ptr<BinaryFile> OpenNew(const std::string& path) override;
    std::int64_t FileSize(const std::string& path) const override { return real_.FileSize(path); }
    std::string ContentStamp(const std::string& path) const override { return real_.ContentStamp(path); }
    bool IsReadOnly(const std::string& path) const override { return real_.IsReadOnly(path); }
    void SetReadOnly(const std::string& path, bool readOnly) override;
    void CopyAttributes(const std::string& source, const std::string& target) override;
    void CreateFolder(const std::string& path) override;
    void DeleteFolder(const std::string& path, Force force) override;
    std::vector<FolderEntry> List(const std::string& folder) const override { return real_.List(folder); }
    bool CanChangeFolder(const std::string& folder) const override { return real_.CanChangeFolder(folder); }
    std::string CurrentFolder() const override { return real_.CurrentFolder(); }
    void SetCurrentFolder(const std::string& folder) override { real_.SetCurrentFolder(folder); }
    std::string FollowLinks(const std::string& path) const override { return real_.FollowLinks(path); }

  private:
    std::unique_ptr<BinaryFile> Wrap(std::unique_ptr<BinaryFile> file);

    FileSystem& real_;
};

}  // namespace zefta::test
