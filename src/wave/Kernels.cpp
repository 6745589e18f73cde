#include "wave/Kernels.h"

namespace zefta {

const Kernels& PlainKernels() {
    return AvailableKernels().front();
}

const Kernels& BestKernels() {
    static const Kernels& best = AvailableKernels().back();
    return best;
}

}  // namespace zefta
