#include "core/ByteCodec.h"

#include <cmath>

#include "platform/RuntimeError.h"

namespace zefta::ByteCodec {

namespace {

constexpr std::int32_t MaxSyncSafe = (1 << 28) - 1;

std::uint32_t LittleEndian(std::string_view bytes, std::size_t width) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < width && i < bytes.size(); ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return value;
}

std::string LittleEndianBytes(std::uint32_t value, std::size_t width) {
    std::string bytes(width, '\0');
    for (std::size_t i = 0; i < width; ++i) bytes[i] = static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

}  // namespace

std::int32_t ToLong(std::string_view bytes) {
    return static_cast<std::int32_t>(LittleEndian(bytes, 4));
}

std::int32_t ToLongBE(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    return static_cast<std::int32_t>(value);
}

std::int16_t ToShort(std::string_view bytes) {
    return static_cast<std::int16_t>(LittleEndian(bytes, 2));
}

std::string FromLong(std::int32_t value) {
    return LittleEndianBytes(static_cast<std::uint32_t>(value), 4);
}

std::string FromShort(std::int16_t value) {
    return LittleEndianBytes(static_cast<std::uint16_t>(value), 2);
}

std::int32_t SyncSafeToLong(std::string_view bytes) {
    std::int32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const int byte = i < bytes.size() ? static_cast<unsigned char>(bytes[i]) & 0x7F : 0;
        value = (value << 7) | byte;
    }
    return value;
}

std::string LongToSyncSafe(std::int32_t value) {
    if (value < 0 || value > MaxSyncSafe) throw RuntimeError(ErrorNumber::Overflow);
    std::string bytes(4, '\0');
    for (std::size_t i = 0; i < 4; ++i) bytes[i] = static_cast<char>((value >> (7 * (3 - i))) & 0x7F);
    return bytes;
}

double RatioToDb(double ratio) {
    return 20 * std::log10(ratio);
}

}  // namespace zefta::ByteCodec
