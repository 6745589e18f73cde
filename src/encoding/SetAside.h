#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// A path beside the given one that names nothing: "a (label).wav" for "a.wav", then "a (label 2).wav" and
/// on.
std::string FreePathBeside(const FileSystem& files, const std::string& path, const std::string& label);

/// Deletes a file of ours that nobody is to find, read-only or not.
void DropIfThere(FileSystem& files, const std::string& path);

/// Keeps a file safe from a tool that writes over its name. While it is away it bears a name that a person
/// finds and plays, "a (set aside).wav", so that nothing is lost when the program is killed.
class SetAside {
  public:
    explicit SetAside(FileSystem& files) : files_(files) {}
    /// Puts back a file that is still away, when that works.
    ~SetAside();
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;

    /// Moves the file of that name, in any case, out of the way. Without one, or when it is a folder, there
    /// is nothing to do. RuntimeError 58 when two names differ from it in nothing but case: they could not be
    /// given back.
    void Take(const std::string& path);

    bool IsAway() const { return !asidePath_.empty(); }

    /// Gives the file its name back. A failure names the file under which it still lies.
    void PutBack();

  private:
    FileSystem& files_;
    std::string path_;
    std::string asidePath_;
};

}  // namespace zefta
