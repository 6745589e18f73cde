#include "platform/posix/IniSettingsStore.h"

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/posix/PosixFileSystem.h"

namespace zefta {

namespace {

std::string ReadFile(const std::string& path) {
    PosixFileSystem files;
    const auto file = files.OpenReadOnly(path);
    return file ? file->ReadBytes(file->Size()) : std::string();
}

/// Held from the reading to the swap. The lock lies on a file of its own, since the store itself is replaced.
class StoreLock {
  public:
    explicit StoreLock(const std::string& path)
        : descriptor_(open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (descriptor_ >= 0) flock(descriptor_, LOCK_EX);
    }
    ~StoreLock() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

    bool Held() const { return descriptor_ >= 0; }

  private:
    int descriptor_;
};

void WriteAndSwap(const std::string& path, const std::string& text) {
    PosixFileSystem files;
    const std::string fresh = path + ".new";
    {
        const auto file = files.OpenCreate(fresh);
        if (!file) return;
        file->Write(text);
        file->Flush();
    }
    if (files.FileExists(path)) {
        files.ReplaceFile(fresh, path);
    } else {
        files.MoveFile(fresh, path);
    }
}

}  // namespace

IniSettingsStore::IniSettingsStore(std::string path) : path_(std::move(path)), text_(ReadFile(path_)) {}

std::optional<std::string> IniSettingsStore::GetValue(const std::string& section,
                                                      const std::string& key) const {
    return text_.GetValue(section, key);
}

void IniSettingsStore::Apply(const std::vector<SettingChange>& changes) {
    std::error_code ignored;
    std::filesystem::create_directories(FolderPart(path_), ignored);
    const StoreLock lock(path_);
    if (lock.Held()) text_ = IniText(ReadFile(path_));
    for (const SettingChange& change : changes) text_.Apply(change);
    if (!lock.Held()) return;
    try {
        WriteAndSwap(path_, text_.Text());
    } catch (const RuntimeError&) {
        // A store that can't be written keeps its old content; the run goes on with the new one.
    }
}

}  // namespace zefta
