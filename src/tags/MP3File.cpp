#include "tags/MP3File.h"

namespace zefta {

void ReadMP3File(const FileReading&, const std::string&, ID3Tag& tag) {
    tag.Path.clear();
}

}  // namespace zefta
