#pragma once

#include <optional>
#include <string>

#include "library/RenameWalkers.h"

namespace zefta {

/// What becomes of the lines of the playlists of one folder while files get new names.
class RenamedLines {
  public:
    /// The run has a map. With `renameFiles` the files of lines that it does not know are renamed.
    RenamedLines(RenameRun& run, const std::string& folder, bool renameFiles);

    /// The line that stands in the place of this one, both without line end; nothing when it is dropped. A
    /// line that is no UTF-8 is taken as the bytes that it is and, when these name nothing, as text in the
    /// code page.
    std::optional<std::string> NewLine(const std::string& line);

  private:
    std::optional<std::string> Remembered(const std::string& text) const;
    std::optional<std::string> NewNameOf(const std::string& line);
    std::string Rename(const std::string& text, const std::string& native);
    std::string NativeForm(const std::string& text) const;
    bool NamesSomething(const std::string& text) const;

    RenameRun& run_;
    std::string folder_;
    /// The folder with its closing separator.
    std::string prefix_;
    bool renameFiles_;
};

}  // namespace zefta
