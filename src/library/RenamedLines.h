#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/RenameWalkers.h"

namespace zefta {

/// What becomes of the lines of the playlists of one folder while files get new names.
class RenamedLines {
  public:
    /// The run has a map. With `renameFiles` the files of lines that it does not know are renamed.
    RenamedLines(RenameRun& run, const std::string& folder, bool renameFiles);

    bool RenamesFiles() const { return renameFiles_; }

    /// The line that stands in the place of this one, both without line end; nothing when it is dropped. A
    /// line that is no UTF-8 is taken as the bytes that it is and, when these name nothing, as text in the
    /// code page.
    std::optional<std::string> NewLine(const std::string& line);

  private:
    /// One way to take a line.
    struct Reading {
        std::string text;
        /// The path that it means, counted from the folder of the list.
        std::string native;
        bool usesBackslashes = false;

        /// Bytes of the folder part with its separator; 0 for a bare name.
        std::size_t FolderLength() const;
        /// `newPath` as a line writes paths that has this text: a folder that stays keeps its bytes.
        std::string InStyle(const std::string& newPath) const;
    };

    std::vector<Reading> ReadingsOf(const std::string& line) const;
    Reading ReadingOf(const std::string& text) const;
    std::optional<std::string> Remembered(const Reading& reading) const;
    std::string FromHere(const RenamedEntry& entry) const;
    std::optional<std::string> NewNameOf(const std::string& line, const std::vector<Reading>& readings);
    std::string Rename(const Reading& reading);
    bool IsFileThatKeptItsName(const std::string& path) const;
    bool NamesSomething(const std::string& text) const;

    RenameRun& run_;
    std::string folder_;
    /// The folder with its closing separator.
    std::string prefix_;
    bool renameFiles_;
};

}  // namespace zefta
