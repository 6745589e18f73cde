#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

namespace zefta {

/// What became of one name.
struct RenamedEntry {
    std::string newName;
    /// The folder, with closing separator, that `newName` counts from when a playlist named the file; "" for
    /// a bare name that a walk gave.
    std::string countsFrom;
};

/// What became of the names of files that a job gave new ones to, so that playlists can learn them. A file
/// that kept its name stands in it too.
class RenameMap {
  public:
    RenameMap() = default;
    RenameMap(RenameMap&&) = default;
    RenameMap& operator=(RenameMap&&) = default;

    // Paths are taken as LexicalPath gives them: a list may write "./a.mp3".

    /// `path`: the folder as the job knows it, separator, old name. A path that has an entry keeps the one it
    /// has: what a playlist means by a name is the file that bore it first.
    void Add(const std::string& path, const std::string& newName, const std::string& countsFrom = {});

    /// Null when there is none. A path of that very spelling wins; else one in another case, of any script.
    const RenamedEntry* Find(const std::string& path) const;

    /// Whether there is an entry for that very spelling.
    bool Holds(const std::string& path) const;

    std::size_t Count() const { return names_.size(); }

  private:
    std::unordered_map<std::string, RenamedEntry> names_;
    /// The value of the first path among those that differ in case only, by the path in lower case. Values of
    /// names_ stay where they are, also when the map is moved; a copy would not do.
    std::unordered_map<std::string, const RenamedEntry*> folded_;
};

}  // namespace zefta
