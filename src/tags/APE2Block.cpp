#include "tags/APE2Block.h"

#include <array>
#include <span>

#include "core/ByteCodec.h"

namespace zefta {

std::string APEBlock::Bytes() const {
    std::string bytes(APEMarker);
    bytes += ByteCodec::FromLong(version) + ByteCodec::FromLong(size) + ByteCodec::FromLong(count);
    bytes.append(3, '\0');
    bytes += static_cast<char>(flags);
    return bytes.append(8, '\0');
}

std::optional<APEBlock> ReadAPEBlock(BinaryFile& file, std::int64_t distance) {
    std::array<char, APEBlockSize> buffer{};
    if (!SeekBeforeEnd(file, distance)) return std::nullopt;
    file.Read(std::as_writable_bytes(std::span(buffer)));
    const std::string_view bytes(buffer.data(), buffer.size());
    if (!bytes.starts_with(APEMarker)) return std::nullopt;
    return APEBlock{ByteCodec::ToLong(bytes.substr(8, 4)), ByteCodec::ToLong(bytes.substr(12, 4)),
                    ByteCodec::ToLong(bytes.substr(16, 4)), static_cast<std::uint8_t>(bytes[23])};
}

bool SeekBeforeEnd(BinaryFile& file, std::int64_t distance) {
    if (distance < 0 || distance > file.Size()) return false;
    return file.Seek(static_cast<std::int32_t>(-distance), SeekFrom::End);
}

}  // namespace zefta
