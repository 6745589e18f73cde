#include "wave/ByteRange.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/Numbers.h"

namespace zefta {

FolderAndMask EnterFolderOf(App& app, const std::string& path) {
    FolderAndMask place = SplitFileSpec(app.files, path);
    app.files.SetCurrentFolder(place.folder);
    return place;
}

void CheckByteCount(std::int32_t length) {
    ToI16(std::int64_t{length / ByteRangeBlock});
}

bool CopyBytes(App& app, BinaryFile& source, BinaryFile& target, std::int32_t length) {
    std::array<std::byte, ByteRangeBlock> block;
    while (length > 0) {
        const auto wanted =
            std::span(block).first(static_cast<std::size_t>(std::min(length, ByteRangeBlock)));
        const std::size_t count = source.Read(wanted);
        target.Write(wanted.first(count));
        app.desktop.ServeEvents();
        if (count < wanted.size()) return false;
        length -= static_cast<std::int32_t>(count);
    }
    return true;
}

}  // namespace zefta
