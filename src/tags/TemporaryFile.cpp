#include "tags/TemporaryFile.h"

#include <algorithm>
#include <utility>

#include "core/DeleteQuietly.h"
#include "core/FileNames.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::string_view Ending = ".tmp";
/// What runs that were killed left behind must not be in the way of later ones.
constexpr int NumberedNames = 999;
/// Where so many names can't be had and nothing has the last of them, no other name can.
constexpr int NamesToTry = 9;

/// The end of the name, cut between two characters.
std::string_view EndOf(std::string_view name, std::size_t most) {
    const auto isInsideCharacter = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    std::string_view end = name.substr(name.size() - std::min(name.size(), most));
    while (end.size() < name.size() && !end.empty() && isInsideCharacter(end.front())) end.remove_prefix(1);
    return end;
}

std::string NumberedName(std::string_view name, int number, TemporaryFile::OldFile old) {
    const std::string mark = "~" + std::to_string(number);
    if (old == TemporaryFile::OldFile::KeepWithEnding)
        return mark + std::string(EndOf(name, LongestName - mark.size()));
    const std::string ending = mark + std::string(Ending);
    return std::string(CutToBytes(name, LongestName - ending.size())) + ending;
}

}  // namespace

std::string TemporaryFile::PathFor(const std::string& target) {
    return target + std::string(Ending);
}

TemporaryFile::TemporaryFile(FileSystem& files, std::string target, OldFile old)
    : files_(files), target_(std::move(target)), path_(PathFor(target_)) {
    const bool fits = NamePart(path_).size() <= LongestName;
    if (fits && old == OldFile::Delete) {
        CreateInPlaceOfOld();
    } else {
        if (fits && old == OldFile::Keep) file_ = files_.OpenNew(path_);
        CreateUnderNumberedName(old);
    }
    pending_ = file_ != nullptr;
}

TemporaryFile::~TemporaryFile() {
    if (!pending_) return;
    file_.reset();
    // When this fails too, the failure that brought us here is the one to tell.
    DeleteQuietly(files_, path_);
}

/// What stands there is not opened: it may be another name of a file that matters.
void TemporaryFile::CreateInPlaceOfOld() {
    file_ = files_.OpenNew(path_);
    if (file_) return;
    DeleteQuietly(files_, path_);
    file_ = files_.OpenNew(path_);
}

/// Two long names may begin alike: what has the numbered one is not ours to delete.
void TemporaryFile::CreateUnderNumberedName(OldFile old) {
    const std::string name = NamePart(target_);
    for (int number = 1; number <= NumberedNames && !file_; ++number) {
        const bool isTaken = files_.FileExists(path_) || files_.FolderExists(path_);
        if (number > NamesToTry && !isTaken) return;
        path_ = JoinPath(FolderPart(target_), NumberedName(name, number, old));
        file_ = files_.OpenNew(path_);
    }
}

void TemporaryFile::TakePlace() {
    if (!ReplaceTarget()) {
        Close();
        files_.MoveFile(path_, target_);
    }
    Close();
    pending_ = false;
}

/// False when there is no target.
bool TemporaryFile::ReplaceTarget() {
    if (file_) return files_.ReplaceByOpenFile(*file_, path_, target_);
    if (!files_.FileExists(target_)) return false;
    files_.ReplaceFile(path_, target_);
    return true;
}

}  // namespace zefta
