#pragma once

#include "wave/Kernels.h"

namespace zefta {

void MeasurePlain(std::span<const std::byte> block, Peaks& peaks);
void AmplifyPlain(std::span<std::byte> block, const Gains& gains);

}  // namespace zefta
