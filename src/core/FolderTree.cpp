#include "core/FolderTree.h"

#include <algorithm>

#include "platform/Paths.h"

namespace zefta {

bool FolderTree::Enter(const std::string& folder) {
    const std::string real = files_.FollowLinks(folder);
    if (std::find(way_.begin(), way_.end(), real) != way_.end()) return false;
    const bool isLink = !way_.empty() && real != JoinPath(way_.back(), NamePart(folder));
    // Without this some dozen folders that hold links to each other would be walked for ever.
    if (isLink && !linked_.insert(real).second) return false;
    way_.push_back(real);
    return true;
}

}  // namespace zefta
