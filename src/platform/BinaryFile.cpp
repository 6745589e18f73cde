#include "platform/BinaryFile.h"

#include <algorithm>

namespace zefta {

std::string BinaryFile::ReadBytes(std::int32_t count) {
    const std::int32_t remaining = std::max(Size() - Position(), 0);
    std::string bytes(static_cast<std::size_t>(std::clamp(count, 0, remaining)), '\0');
    bytes.resize(Read(std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

std::string BinaryFile::ReadText(std::int32_t count) {
    std::string text = ReadBytes(count);
    text.resize(std::min(text.find('\0'), text.size()));
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace zefta
