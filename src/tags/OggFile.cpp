#include "tags/OggFile.h"

namespace zefta {

void ReadOGGFile(const FileReading&, const std::string&, ID3Tag& tag) {
    tag.Path.clear();
}

}  // namespace zefta
