#include "tags/TemporaryFile.h"

#include <algorithm>
#include <utility>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::string_view Ending = ".tmp";
/// How many names are tried where the usual one is too long or taken.
constexpr int NumberedNames = 9;

/// The beginning of the name, cut between two characters.
std::string_view Beginning(std::string_view name, std::size_t length) {
    const auto isInsideCharacter = [&] {
        return length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80;
    };
    while (length > 0 && isInsideCharacter()) --length;
    return name.substr(0, length);
}

void DeleteIfPossible(FileSystem& files, const std::string& path) {
    try {
        files.DeleteFile(path, Force::Yes);
    } catch (const RuntimeError&) {
    }
}

}  // namespace

TemporaryFile::TemporaryFile(FileSystem& files, std::string target, OldFile old)
    : files_(files), target_(std::move(target)), path_(target_ + std::string(Ending)) {
    const bool fits = NamePart(path_).size() <= LongestName;
    if (fits && old == OldFile::Delete) {
        CreateInPlaceOfOld();
    } else {
        if (fits) file_ = files_.OpenNew(path_);
        CreateUnderNumberedName();
    }
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

/// Two long names may begin alike: what has the numbered one is not ours to delete.
void TemporaryFile::CreateUnderNumberedName() {
    const std::string name = NamePart(target_);
    for (int number = 1; number <= NumberedNames && !file_; ++number) {
        const std::string ending = "~" + std::to_string(number) + std::string(Ending);
        const std::string_view beginning =
            Beginning(name, std::min(name.size(), LongestName - ending.size()));
        path_ = JoinPath(FolderPart(target_), std::string(beginning) + ending);
        file_ = files_.OpenNew(path_);
    }
}

void TemporaryFile::TakePlace() {
    file_.reset();
    files_.ReplaceFile(path_, target_);
    pending_ = false;
}

}  // namespace zefta
