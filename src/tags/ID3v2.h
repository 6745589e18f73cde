#pragma once

#include <memory>
#include <string>

#include "platform/BinaryFile.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Reads the tag at the start of the file; tag.ID3v2Present tells whether there is one. Leaves the position
/// behind the tag, or at 0. UnknownFrames of the record is what this tag holds, whatever stood there.
void ReadID3v2(BinaryFile& file, ID3Tag& tag, const CodePage& ansi,
               UnknownContent unknown = UnknownContent::Keep);

/// Writes the record's ID3v2Extension to the MP3 file at tag.Path: in the place of the old tag when the
/// estimate says that it fits, else into a new file that takes the old one's place. Does nothing for a file
/// that is no MP3 by name. tag.Path is "" when the file can't be opened or rebuilt.
/// Run-time failures: 5 when the frames overrun the tag's old place, 6 when more than 32767 bytes are to be
/// filled up; the frames stand in the file then. 5, with the file untouched, when the old tag reaches beyond
/// the end of the file.
void SetID3v2(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

/// The same, but never over what follows the old tag: a tag that SetID3v2 would write where its frames do not
/// fit goes into a new file, with room for them and a tenth more. What every job writes with.
void SetID3v2WithRoom(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

/// SetID3v2WithRoom for a file that is open for reading and writing: the MP3 file at tag.Path.
void SetID3v2WithRoom(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi, ID3Tag& tag);

/// SetID3v2WithRoom without its failure 6: a tag that would leave more than 32767 bytes of the old one's
/// place to be filled up goes into a new file with a length of its own, and the fill of a new file is written
/// however long it is. At no moment has the file neither of the two tags.
void SetWholeID3v2(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi, ID3Tag& tag);

/// Takes the tag off the file at tag.Path; true when there was one. RuntimeError 5, with the file untouched,
/// when the tag reaches beyond the end of the file.
bool RemoveID3v2(FileSystem& files, const ID3Tag& tag);

/// One text frame with its header and encoding byte. The text is trimmed of blanks.
std::string WriteFrame(std::string_view identifier, std::string_view text);

/// The same behind what an area of frames has already.
void AppendFrame(std::string& area, std::string_view identifier, std::string_view text);

}  // namespace zefta
