#include "tags/APE2.h"

namespace zefta {

bool ReadAPE2(BinaryFile&, ID3Tag&, UnknownContent) {
    return false;
}

void SetAPE2(FileSystem&, ID3Tag&) {}

}  // namespace zefta
