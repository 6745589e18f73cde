#include "platform/posix/IniSettingsStore.h"

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/SmallFile.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/PosixFileSystem.h"

namespace zefta {

namespace {

// Far beyond what all keys together can hold.
constexpr std::size_t LargestStore = 1 << 20;

/// The file that the name leads to, which may have to be made yet.
std::string BehindLinks(const std::string& name) {
    // The system gives up there too.
    constexpr int MostLinks = 40;
    std::error_code ignored;
    std::filesystem::path path = SpellingOnDisk(name);
    for (int i = 0; i < MostLinks && std::filesystem::is_symlink(path, ignored); ++i)
        path = path.parent_path() / std::filesystem::read_symlink(path, ignored);
    return path.string();
}

/// Nothing when something is there that can't be read.
std::optional<std::string> ReadStore(const std::string& path) {
    PosixFileSystem files;
    if (!EntryExists(BehindLinks(path))) return std::string();
    return ReadSmallFile(files, path, LargestStore);
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

/// The new content, which takes the place of the old one as a whole.
struct Replacement {
    std::string name;
    std::unique_ptr<BinaryFile> file;
};

void WriteAndSwap(const std::string& path, Replacement fresh, const std::string& text) {
    PosixFileSystem files;
    fresh.file->Write(text);
    fresh.file->Flush();
    fresh.file.reset();
    if (files.FileExists(path)) {
        files.ReplaceFile(fresh.name, path);
    } else {
        files.MoveFile(fresh.name, path);
    }
}

/// A store that can't be written keeps its old content; the run goes on with the new one.
std::optional<RuntimeError> WriteStore(const std::string& path, const std::string& text) {
    if (text.size() > LargestStore) return RuntimeError(ErrorNumber::OutOfMemory, path);
    const std::string fresh = path + ".new";
    auto file = PosixFileSystem().OpenCreate(fresh);
    if (!file) return RuntimeError(ErrorNumber::PathFileAccess, path);
    try {
        WriteAndSwap(path, {fresh, std::move(file)}, text);
        return std::nullopt;
    } catch (const RuntimeError& error) {
        unlink(fresh.c_str());
        return error;
    }
}

}  // namespace

IniSettingsStore::IniSettingsStore(std::string path)
    : path_(std::move(path)), text_(ReadStore(path_).value_or("")) {}

void IniSettingsStore::ReadAgain() {
    text_ = IniText(ReadStore(path_).value_or(""));
}

std::optional<std::string> IniSettingsStore::GetValue(const std::string& section,
                                                      const std::string& key) const {
    return text_.GetValue(section, key);
}

void IniSettingsStore::Apply(const std::vector<SettingChange>& changes) {
    // Everything happens beside the file itself: a link may lead onto another file system.
    const std::string file = BehindLinks(path_);
    std::error_code ignored;
    std::filesystem::create_directories(FolderPart(file), ignored);
    const StoreLock lock(file);
    const std::optional<std::string> stored = lock.Held() ? ReadStore(file) : std::nullopt;
    if (stored) text_ = IniText(*stored);
    for (const SettingChange& change : changes) text_.Apply(change);
    // What could not be read would be lost to what is written.
    failure_ = stored ? WriteStore(file, text_.Text()) : RuntimeError(ErrorNumber::PathFileAccess, file);
}

}  // namespace zefta
