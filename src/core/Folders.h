#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace zefta {

/// Makes the folder current. Gives the path, or "" when it is empty or can't be entered; the former folder
/// stays current then.
std::string ChangeToFolder(FileSystem& files, const std::string& path);

/// A mask or path split for a walk over the files of one folder.
struct FolderAndMask {
    /// Absolute.
    std::string folder;
    std::string mask;
};

/// Splits what the command line gave as FileSpec, in native form. Without a folder part the current folder
/// stands; a relative one counts from there.
FolderAndMask SplitFileSpec(const FileSystem& files, const std::string& fileSpec);

/// Those of the names that the mask matches, in their order. One that stands for no other character and is
/// the very name of one means that one alone, be there others that differ from it in case only.
std::vector<std::string> NamesMeant(std::vector<std::string> names, const std::string& mask);

/// The files of the folder, in folder order; pipes and devices are none.
std::vector<std::string> FilesIn(const FileSystem& files, const std::string& folder);

/// The names of the files that the mask means, in folder order; pipes and devices are none. A mask that is
/// the very name of a file means that file alone, also when the name holds what would else stand for other
/// characters.
std::vector<std::string> FilesOf(const FileSystem& files, const FolderAndMask& work);

}  // namespace zefta
