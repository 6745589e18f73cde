#pragma once

#include <cstdint>
#include <string>

#include "platform/BinaryFile.h"

namespace zefta {

/// What is to stand in a file where other bytes are, or behind its end.
struct Replacement {
    std::int32_t place = 0;
    /// What the file has there, as far as it goes: as many bytes as the new ones are.
    std::string oldBytes;
    std::string newBytes;
    /// The file is to end behind the new bytes.
    bool endsFile = false;
};

/// Makes the replacement; writes nothing where it would change nothing, so that the file keeps its time.
/// When a write is refused, the old bytes and the old length come back and the failure goes up.
void Replace(BinaryFile& file, const Replacement& replacement);

}  // namespace zefta
