#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zefta::ByteCodec {

// Numbers to byte runs and back. A run that is shorter than the number counts as filled up with zero bytes
// at its high end, so that a number cut off by the end of a file reads as its known part.

/// Up to 4 little-endian bytes, zero-extended: 2 bytes give 0 to 65535; 4 bytes may give a negative number.
std::int32_t ToLong(std::string_view bytes);

/// 4 big-endian bytes; what a short run lacks at its low end counts as zero.
std::int32_t ToLongBE(std::string_view bytes);

/// 2 little-endian bytes, signed.
std::int16_t ToShort(std::string_view bytes);

std::string FromLong(std::int32_t value);
std::string FromShort(std::int16_t value);

/// 4 bytes of 7 bits each, most significant first (ID3v2.4 section 6.2); the top bit of each is ignored.
/// 0 to 268435455.
std::int32_t SyncSafeToLong(std::string_view bytes);

/// The reverse. RuntimeError 6 for a value that does not fit into 28 bits.
std::string LongToSyncSafe(std::int32_t value);

/// An amplitude ratio in decibels: 20 times its base-10 logarithm.
double RatioToDb(double ratio);

}  // namespace zefta::ByteCodec
