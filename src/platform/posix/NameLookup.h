#pragma once

#include <string>
#include <vector>

namespace zefta {

/// Whether anything, a broken link included, has exactly this path.
bool EntryExists(const std::string& path);

/// The path in the spelling of the disk: as it stands when something has exactly that path, else with each
/// name that is not there taken in another case when there is one. Names from the first miss on stay as they
/// are. Only a path that is not there costs a look into folders.
std::string SpellingOnDisk(const std::string& path);

/// The names in the folder that equal `name` in all but case, `name` itself among them when it is there, in
/// byte order. None when the folder can't be read.
std::vector<std::string> NamesInAnyCase(const std::string& folder, const std::string& name);

}  // namespace zefta
