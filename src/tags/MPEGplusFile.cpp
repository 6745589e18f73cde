#include "tags/MPEGplusFile.h"

namespace zefta {

void ReadMPEGplusFile(const FileReading&, const std::string&, ID3Tag& tag) {
    tag.Path.clear();
}

}  // namespace zefta
