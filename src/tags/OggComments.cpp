#include "tags/OggFile.h"

namespace zefta {

void SetOggComments(App&, const ID3Tag&) {}

}  // namespace zefta
