#include "tags/CompressedFile.h"

#include "core/FileKind.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"

namespace zefta {

ID3Tag ReadCompressedFile(const FileReading& reading, const std::string& path) {
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

}  // namespace zefta
