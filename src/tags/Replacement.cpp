#include "tags/Replacement.h"

#include "core/Numbers.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

void PutBack(BinaryFile& file, const Replacement& replacement, std::int32_t size) {
    try {
        file.Seek(replacement.place, SeekFrom::Start);
        file.Write(replacement.oldBytes);
        if (file.Size() == size) return;
        file.Seek(size, SeekFrom::Start);
        file.SetEnd();
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

}  // namespace

void Replace(BinaryFile& file, const Replacement& replacement) {
    const std::int32_t oldSize = file.Size();
    const std::int32_t end =
        ToI32(replacement.place + static_cast<std::int64_t>(replacement.newBytes.size()));
    const bool cuts = replacement.endsFile && end < oldSize;
    if (replacement.oldBytes == replacement.newBytes && !cuts) return;
    try {
        file.Seek(replacement.place, SeekFrom::Start);
        file.Write(replacement.newBytes);
        if (cuts) file.SetEnd();
    } catch (const RuntimeError&) {
        PutBack(file, replacement, oldSize);
        throw;
    }
}

}  // namespace zefta
