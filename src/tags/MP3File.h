#pragma once

#include <memory>
#include <string>

#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Fills a fresh record with the tags (ID3v1, Lyrics3, ID3v2) and the measures of an MP3 file. The stream is
/// measured by one frame header, a Xing or Info block near it and the size of the file; no frame is walked.
///
/// A file that can't be opened leaves tag.Path "". A file that is no MP3 stream has no stream values.
/// Run-time failures, with the record filled up to there: 6 when a measure does not fit (files of 256 MiB and
/// more), 11 when a Xing block counts no time or its stream has no sample rate, 57 when the device fails; and
/// those of the tag readers.
void ReadMP3File(const FileReading& reading, const std::string& path, ID3Tag& tag);

/// The file as tags are read, and then written: what was read for the one is there for the other. Null for
/// none.
std::unique_ptr<BufferedFile> ThroughTagWindows(std::unique_ptr<BinaryFile> file);

/// As ReadMP3File from an open file, for a record that goes back into it (UnknownContent::Carry): nothing is
/// measured.
void ReadMP3Tags(BufferedFile& file, const CodePage& ansi, ID3Tag& tag);

/// SetID3v1 and then SetID3v2WithRoom on the MP3 file at tag.Path, which is open for reading and writing.
/// When the second one fails (a full disk), the first one is taken back, and the file has the bytes that it
/// had.
void SetMP3Tags(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi, ID3Tag& tag);

/// The same, opening it; tag.Path is "" when that can't be done.
void SetMP3Tags(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

/// The same with SetWholeID3v2 for the second one.
void SetWholeMP3Tags(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

}  // namespace zefta
