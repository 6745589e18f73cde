#pragma once

#include <cstdint>
#include <string>

#include "platform/BinaryFile.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Reads the last 128 bytes into the record; true when a tag was found. Leaves the position at the end of the
/// file when there is one, else 125 before the end.
bool ReadID3v1(BinaryFile& file, ID3Tag& tag, const CodePage& ansi);

/// Merges the record into the tag of the file at tag.Path: an empty field leaves the old value in place and
/// takes it over into the record; a Comment of "#" clears the comment. Appends a tag to a file without one.
/// Always writes version 1.1. tag.Path is "" when the file can't be opened.
void SetID3v1(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

/// The same for a file that is open for reading and writing. Gives the bytes that stood in the place of the
/// tag; "" when there was none.
std::string SetID3v1(BinaryFile& file, const CodePage& ansi, ID3Tag& tag);

/// Makes the end of the file what it was before SetID3v1: `before` is what that gave.
void TakeBackID3v1(BinaryFile& file, const std::string& before);

/// The values that SetID3 writes, all of them, whatever stood there before.
struct ID3v1Values {
    std::string Artist;
    std::string Album;
    std::string Year;
    std::string Title;
    std::string Comment;
    std::uint8_t Genre = 255;
    /// Outside 0 to 255: the comment keeps all its 30 bytes (version 1.0).
    std::int16_t Track = -1;
};

/// 1 when the file can't be opened, else 0.
int SetID3(FileSystem& files, const CodePage& ansi, const std::string& path, const ID3v1Values& values);

}  // namespace zefta
