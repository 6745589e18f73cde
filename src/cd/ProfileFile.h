#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace zefta {

/// A text of sections and keys: "[Section]" and below it one "key=value" a line. Read once, asked and changed
/// at will, written once.
///
/// Names of sections and keys fold ASCII case; of two equal ones the first counts. A value is all that stands
/// behind the first "=", blanks included. Lines that begin with ';' or '#', and lines that are neither
/// heading nor key, belong to the person who wrote them: everything stays where and as it is but the value
/// that is written, byte order mark and line ends included. The text is UTF-8; a value that is none is in the
/// code page.
class ProfileFile {
  public:
    /// The bytes of the file; none for a new one. The code page has to outlive the object.
    ProfileFile(std::string_view bytes, const CodePage& ansi);

    /// "" for a key that is not there. As OneLine tells it, and as it would be written.
    std::string ReadProfileValue(std::string_view section, std::string_view key) const;

    /// Replaces the value in its place, or adds the key behind the last one of its section, or the section at
    /// the end. The value is written as OneLine tells it: none can reach into the next line.
    void WriteProfileValue(std::string_view section, std::string_view key, std::string_view value);

    std::string Bytes() const;

    /// Whether Bytes gives something other than what was read.
    bool IsChanged() const { return isChanged_; }

  private:
    struct Line {
        /// With its end.
        std::string text;
        /// Where the value begins; 0 for a line that is no key.
        std::size_t valueStart = 0;
    };

    struct Section {
        /// Up to the last key; the heading is the first.
        std::vector<Line> lines;
        /// What stands between the last key and the next heading.
        std::vector<std::string> behindKeys;
    };

    struct Place {
        std::size_t section;
        std::size_t line;
    };

    void AddLine(std::string_view raw, std::string& sectionName);
    void AddKey(std::string_view section, std::string_view key, const std::string& value);
    std::size_t SectionFor(std::string_view name);
    void EndLine(std::string& text) const;

    const CodePage* ansi_;
    std::string byteOrderMark_;
    std::string lineEnd_ = "\n";
    /// The first one has no heading: what stands above all others.
    std::vector<Section> sections_{1};
    std::unordered_map<std::string, std::size_t> sectionsByName_;
    std::unordered_map<std::string, Place> keys_;
    bool isChanged_ = false;
};

/// The content of the file; that of a new one when there is none. RuntimeError 70 when it can't be opened, 7
/// when it is larger than any such file (16 MiB).
ProfileFile ReadProfileFile(FileSystem& files, const CodePage& ansi, const std::string& path);

/// Writes the file as a whole or not at all; one that has not changed is left alone. Run-time failures are
/// those of creating, writing and replacing a file.
void WriteProfileFile(FileSystem& files, const std::string& path, const ProfileFile& profile);

}  // namespace zefta
