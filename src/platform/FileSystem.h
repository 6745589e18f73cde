#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/BinaryFile.h"

namespace zefta {

/// Whether an operation clears the read-only attribute that is in its way.
enum class Force : bool { No, Yes };

/// Bytes of the longest name that a file or folder can have.
inline constexpr std::size_t LongestName = 255;

struct FolderEntry {
    std::string name;
    bool isFolder = false;
    /// A pipe, socket or device: no tool is to be given it, since it may wait for ever.
    bool isSpecial = false;
};

/// The files and folders of the machine.
///
/// A path is a string of bytes in the platform's own form; a relative one counts from the current folder.
/// Names are looked up exactly first; a name that is not there in that spelling is taken in another case
/// (ASCII and all scripts) when there is one. Links are followed by everything but DeleteFile and MoveFile,
/// which work on the link itself.
///
/// A file is read-only when its owner has no right to write it. Nobody, root included, opens such a file
/// for writing or deletes it without force.
///
/// Failures are RuntimeErrors: 53 no such file, 58 the name is taken, 61 disk full, 70 permission denied or
/// read-only, 75 the name is of the wrong kind (a folder, not a file), 76 no such folder, 52 impossible name,
/// 57 anything else that the device reports.
class FileSystem {
  public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    virtual bool FileExists(const std::string& path) const = 0;
    virtual bool FolderExists(const std::string& path) const = 0;

    virtual void DeleteFile(const std::string& path, Force force) = 0;

    /// Gives the file or folder a new path. 58 when the target exists in any case, unless it is the source
    /// itself under a spelling that differs from its own.
    virtual void MoveFile(const std::string& source, const std::string& target) = 0;

    /// Puts the content of `replacement` in the place of `target`, in one step that leaves either the old or
    /// the new content under the target's name at every moment, also when the machine stops. The new file
    /// takes over permissions, owner and extended attributes of the old one, and is on the disk before the
    /// names change. Both must lie in one folder, and `target` must exist.
    virtual void ReplaceFile(const std::string& replacement, const std::string& target) = 0;

    /// The same for a replacement that is still open: `written` is what OpenNew gave for its path. False, and
    /// nothing has changed, when there is no target.
    virtual bool ReplaceByOpenFile(BinaryFile& written, const std::string& replacement,
                                   const std::string& target);

    /// Opens for reading and writing; null when that can't be done. Never creates.
    virtual std::unique_ptr<BinaryFile> OpenRead(const std::string& path) = 0;

    /// Opens for reading; null when that can't be done.
    virtual std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) = 0;

    /// Creates the file, or empties the one that exists; null when that can't be done.
    virtual std::unique_ptr<BinaryFile> OpenCreate(const std::string& path) = 0;

    /// Creates the file; null when that can't be done, and when anything has that name in any case, be it a
    /// link that leads nowhere.
    virtual std::unique_ptr<BinaryFile> OpenNew(const std::string& path) = 0;

    /// Bytes of the file; 53 when there is none.
    virtual std::int64_t FileSize(const std::string& path) const = 0;

    /// A text that is another one as soon as the file was written to, replaced or made anew; "" when there is
    /// none.
    virtual std::string ContentStamp(const std::string& path) const = 0;

    virtual bool IsReadOnly(const std::string& path) const = 0;
    virtual void SetReadOnly(const std::string& path, bool readOnly) = 0;

    /// Gives `target` the permissions, the owner and the extended attributes of `source`, as far as the
    /// person may.
    virtual void CopyAttributes(const std::string& source, const std::string& target) = 0;

    virtual void CreateFolder(const std::string& path) = 0;

    /// Deletes the folder with all that it holds.
    virtual void DeleteFolder(const std::string& path, Force force) = 0;

    /// The entries of the folder in directory order, without "." and "..".
    virtual std::vector<FolderEntry> List(const std::string& folder) const = 0;

    /// Whether the person may make, rename and delete entries of the folder.
    virtual bool CanChangeFolder(const std::string& folder) const = 0;

    virtual std::string CurrentFolder() const = 0;
    virtual void SetCurrentFolder(const std::string& folder) = 0;

    /// The path behind all links, in the spelling of the disk; the path as given when it names nothing.
    virtual std::string FollowLinks(const std::string& path) const = 0;

    /// Brings a path that came from outside to native form: kept when it names something as it stands, else
    /// with every backslash turned into the separator.
    std::string ToNativePath(const std::string& path) const;
};

}  // namespace zefta
