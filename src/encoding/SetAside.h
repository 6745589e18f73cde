#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace zefta {

/// A path beside the given one that names nothing: "a (label).wav" for "a.wav", then "a (label 2).wav" and
/// on.
std::string FreePathBeside(const FileSystem& files, const std::string& path, const std::string& label);

/// Keeps files safe from a tool that writes over their name. While they are away they bear a name that a
/// person finds and plays, "a (set aside).wav", so that nothing is lost when the program is killed.
class SetAside {
  public:
    explicit SetAside(FileSystem& files) : files_(files) {}
    /// Puts back what is still away, as far as that works.
    ~SetAside();
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;

    /// Moves the files of that name, in any case, out of the way. A folder of that name stays.
    void Take(const std::string& path);

    bool Any() const { return !moves_.empty(); }

    /// Gives the files their names back. A failure names the file that is still away.
    void PutBack();

  private:
    struct Move {
        std::string path;
        std::string asidePath;
    };

    FileSystem& files_;
    std::vector<Move> moves_;
};

}  // namespace zefta
