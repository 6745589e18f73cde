#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zefta {

class FolderIndex;

/// Whether anything, a broken link included, has exactly this path.
bool EntryExists(const std::string& path);

/// The path in the spelling of the disk: as it stands when something has exactly that path, else with each
/// name that is not there taken in another case when there is one. Names from the first miss on stay as they
/// are. Only a path that is not there costs a look into folders, or into the index.
std::string SpellingOnDisk(const std::string& path, FolderIndex* index = nullptr);

/// The names in the folder that equal `name` in all but case, `name` itself among them when it is there, in
/// byte order. None when the folder can't be read.
std::vector<std::string> NamesInAnyCase(const std::string& folder, const std::string& name);

/// Each name of the folder, "" for the current one, in directory order. None when it can't be read.
void ForEachName(const std::string& folder, const std::function<void(const char* name)>& step);

}  // namespace zefta
