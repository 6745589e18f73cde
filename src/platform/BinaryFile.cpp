#include "platform/BinaryFile.h"

#include <algorithm>

namespace zefta {

std::string BinaryFile::ReadBytes(std::int32_t count) {
    const std::int32_t remaining = std::max(Size() - Position(), 0);
    std::string bytes(static_cast<std::size_t>(std::clamp(count, 0, remaining)), '\0');
    bytes.resize(Read(std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

std::string_view BinaryFile::TextOfField(std::string_view field) {
    field = field.substr(0, field.find('\0'));
    return field.substr(0, field.find_last_not_of(' ') + 1);
}

}  // namespace zefta
