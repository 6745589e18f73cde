#include "tags/CompressedFile.h"

#include <new>

#include "core/FileKind.h"
#include "platform/RuntimeError.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"

namespace zefta {

namespace {

ID3Tag ReadByKind(const FileReading& reading, const std::string& path) {
    ID3Tag tag;
    if (IsMP3File(path)) {
        ReadMP3File(reading, path, tag);
    } else if (IsOggFile(path)) {
        ReadOGGFile(reading, path, tag);
    } else if (IsMPEGplusFile(path)) {
        ReadMPEGplusFile(reading, path, tag);
    }
    return tag;
}

}  // namespace

ID3Tag ReadCompressedFile(const FileReading& reading, const std::string& path) {
    try {
        return ReadByKind(reading, path);
    } catch (const std::bad_alloc&) {
        throw RuntimeError(ErrorNumber::OutOfMemory, path);
    }
}

}  // namespace zefta
