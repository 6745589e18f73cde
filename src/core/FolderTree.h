#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace zefta {

/// The way of a walk over a folder and all below it, links to folders followed. Makes it end: a folder that
/// is being walked is not entered again through a link, and no link leads a second time to one folder.
class FolderTree {
  public:
    explicit FolderTree(const FileSystem& files) : files_(files) {}

    /// Goes from the folder where the walk stands into one of its subfolders, or to where it begins. False,
    /// and the walk stays where it is, when that one is not to be entered.
    bool Enter(const std::string& folder);

    /// Goes back to where the last Enter that gave true was called.
    void Leave() { way_.pop_back(); }

  private:
    const FileSystem& files_;
    /// Behind all links.
    std::vector<std::string> way_;
    std::set<std::string> linked_;
};

}  // namespace zefta
