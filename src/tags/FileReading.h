#pragma once

#include <string>

#include "core/Strings.h"
#include "platform/BufferedFile.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/Paths.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// What becomes of frames and items that the program does not interpret, such as pictures.
enum class UnknownContent : char {
    /// They are read into UnknownFrames, so that a writer can put them back.
    Keep,
    /// They are passed over unread. A record that was read so must not be written.
    PassOver,
    /// As Keep, for a record that goes back into the same file. Frames of ID3v2 are read by the standard
    /// where
    /// the usual way would lose something: sizes that are plain numbers, texts in other encodings, several
    /// frames for one field. ID3Tag::ReadInPart tells where something is left behind. Frames that stand in
    /// front of an MPEGplus stream stay there and are no part of the record.
    Carry,
    /// As Carry, for a record whose values go into another file: no frame stays behind, and texts need not
    /// fit into the code page. What is damaged is read as far as it goes, and ID3Tag::ReadInPart tells so.
    HandOver,
};

/// Whether frames of ID3v2 are read by the standard.
inline bool IsByTheStandard(UnknownContent unknown) {
    return unknown == UnknownContent::Carry || unknown == UnknownContent::HandOver;
}

/// What a reader of whole files needs.
struct FileReading {
    FileSystem& files;
    const CodePage& ansi;
    UnknownContent unknown = UnknownContent::Keep;
};

/// The path as records hold it: each doubled separator made a single one.
inline std::string PathOfRecord(const std::string& path) {
    constexpr char Doubled[] = {PathSeparator, PathSeparator, '\0'};
    if (path.find(Doubled) == std::string::npos) return path;
    return ReplaceAll(path, Doubled, std::string(1, PathSeparator));
}

}  // namespace zefta
