#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

namespace zefta {

/// What became of the names of files that a job gave new ones to, so that playlists can learn them. A file
/// that kept its name stands in it too.
class RenameMap {
  public:
    RenameMap() = default;
    RenameMap(RenameMap&&) = default;
    RenameMap& operator=(RenameMap&&) = default;

    /// `path`: the folder as the job knows it, separator, old name. `newName` is relative to the folder of
    /// the file, or to the one of the playlist that named it. A path that has an entry keeps the one it has:
    /// what a playlist means by a name is the file that bore it first.
    void Add(const std::string& path, const std::string& newName);

    /// Null when there is none. A path of that very spelling wins; else one in another case, of any script.
    const std::string* Find(const std::string& path) const;

    std::size_t Count() const { return names_.size(); }

  private:
    std::unordered_map<std::string, std::string> names_;
    /// The value of the first path among those that differ in case only, by the path in lower case. Values of
    /// names_ stay where they are, also when the map is moved; a copy would not do.
    std::unordered_map<std::string, const std::string*> folded_;
};

}  // namespace zefta
