#include "tags/OggPages.h"

#include <algorithm>
#include <array>
#include <bit>

#include "core/ByteCodec.h"

namespace zefta {

namespace {

constexpr std::string_view PageStart = "OggS";
constexpr char Version = 0;
constexpr std::size_t VersionAt = 4;
constexpr std::size_t FlagsAt = 5;
constexpr std::size_t GranuleAt = 6;
constexpr std::size_t SerialAt = 14;
constexpr std::size_t NumberAt = 18;
constexpr std::size_t ChecksumAt = 22;
constexpr std::size_t SegmentCountAt = 26;
constexpr std::size_t ReadLength = 4 * 65536;

std::uint8_t PageByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint8_t>(bytes[at]);
}

std::uint32_t NumberIn(std::string_view bytes, std::size_t at) {
    return std::bit_cast<std::uint32_t>(ByteCodec::ToLong(bytes.substr(at, 4)));
}

std::string BytesOf(std::uint32_t number) {
    return ByteCodec::FromLong(std::bit_cast<std::int32_t>(number));
}

/// Row n holds the checksums of each byte with n zero bytes behind it, so that 8 bytes go in one step.
using ChecksumTables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr ChecksumTables MakeChecksumTables() {
    ChecksumTables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte << 24;
        for (int bit = 0; bit < 8; ++bit) value = (value << 1) ^ ((value >> 31) * 0x04c11db7U);
        tables[0][byte] = value;
    }
    for (std::size_t row = 1; row < tables.size(); ++row) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t value = tables[row - 1][byte];
            tables[row][byte] = (value << 8) ^ tables[0][value >> 24];
        }
    }
    return tables;
}

constexpr ChecksumTables Tables = MakeChecksumTables();

std::uint32_t EightMore(std::uint32_t checksum, std::string_view bytes) {
    checksum ^= std::uint32_t{PageByteAt(bytes, 0)} << 24 | std::uint32_t{PageByteAt(bytes, 1)} << 16 |
                std::uint32_t{PageByteAt(bytes, 2)} << 8 | std::uint32_t{PageByteAt(bytes, 3)};
    return Tables[7][checksum >> 24] ^ Tables[6][(checksum >> 16) & 0xFF] ^
           Tables[5][(checksum >> 8) & 0xFF] ^ Tables[4][checksum & 0xFF] ^ Tables[3][PageByteAt(bytes, 4)] ^
           Tables[2][PageByteAt(bytes, 5)] ^ Tables[1][PageByteAt(bytes, 6)] ^
           Tables[0][PageByteAt(bytes, 7)];
}

std::uint32_t GoOn(std::uint32_t checksum, std::string_view bytes) {
    for (; bytes.size() >= 8; bytes.remove_prefix(8)) checksum = EightMore(checksum, bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        checksum = (checksum << 8) ^ Tables[0][(checksum >> 24) ^ PageByteAt(bytes, i)];
    return checksum;
}

void PutNumber(std::span<char> page, std::size_t at, std::uint32_t number) {
    const std::string bytes = BytesOf(number);
    std::copy(bytes.begin(), bytes.end(), page.begin() + static_cast<std::ptrdiff_t>(at));
}

void PutChecksum(std::span<char> page) {
    PutNumber(page, ChecksumAt, OggChecksum(std::string_view(page.data(), page.size())));
}

}  // namespace

std::uint32_t OggChecksum(std::string_view page) {
    constexpr std::string_view Zeros("\0\0\0\0", 4);
    const std::uint32_t ahead = GoOn(0, page.substr(0, ChecksumAt));
    return GoOn(GoOn(ahead, Zeros), page.substr(ChecksumAt + Zeros.size()));
}

std::size_t OggPageLength(const OggPage& page) {
    return OggPageHeaderLength + page.lacing.size() + page.body.size();
}

std::optional<OggPage> ParseOggPage(std::string_view bytes) {
    if (bytes.size() < OggPageHeaderLength || !bytes.starts_with(PageStart) || bytes[VersionAt] != Version)
        return std::nullopt;
    OggPage page;
    page.flags = PageByteAt(bytes, FlagsAt);
    page.granulePosition = std::bit_cast<std::int64_t>(std::uint64_t{NumberIn(bytes, GranuleAt + 4)} << 32 |
                                                       NumberIn(bytes, GranuleAt));
    page.serial = NumberIn(bytes, SerialAt);
    page.number = NumberIn(bytes, NumberAt);
    const std::size_t segments = PageByteAt(bytes, SegmentCountAt);
    page.lacing = bytes.substr(OggPageHeaderLength, segments);
    std::size_t length = 0;
    for (std::size_t i = 0; i < page.lacing.size(); ++i) length += PageByteAt(page.lacing, i);
    if (bytes.size() < OggPageHeaderLength + segments + length) return std::nullopt;
    page.body = bytes.substr(OggPageHeaderLength + segments, length);
    if (OggChecksum(bytes.substr(0, OggPageLength(page))) != NumberIn(bytes, ChecksumAt)) return std::nullopt;
    return page;
}

void AppendOggPage(std::string& bytes, const OggPage& page) {
    const std::size_t start = bytes.size();
    const auto granule = std::bit_cast<std::uint64_t>(page.granulePosition);
    bytes.append(PageStart) += Version;
    bytes += static_cast<char>(page.flags);
    bytes +=
        BytesOf(static_cast<std::uint32_t>(granule)) + BytesOf(static_cast<std::uint32_t>(granule >> 32));
    bytes += BytesOf(page.serial) + BytesOf(page.number) + BytesOf(0);
    bytes += static_cast<char>(page.lacing.size());
    bytes.append(page.lacing).append(page.body);
    PutChecksum(std::span(bytes).subspan(start));
}

void RenumberOggPage(std::span<char> page, std::uint32_t number) {
    PutNumber(page, NumberAt, number);
    PutChecksum(page);
}

OggPageReader::OggPageReader(BinaryFile& source) : source_(source) {}

std::optional<OggPage> OggPageReader::Next() {
    pageLength_ = 0;
    if (!sourceEnded_ && buffer_.size() - at_ < OggMaxPageLength) Refill();
    const auto page = ParseOggPage(std::string_view(buffer_).substr(at_));
    if (!page) return std::nullopt;
    pageLength_ = OggPageLength(*page);
    at_ += pageLength_;
    return page;
}

std::string_view OggPageReader::PageBytes() const {
    return std::string_view(buffer_).substr(at_ - pageLength_, pageLength_);
}

void OggPageReader::Refill() {
    buffer_.erase(0, at_);
    at_ = 0;
    const std::size_t held = buffer_.size();
    buffer_.resize(ReadLength);
    const auto free = std::as_writable_bytes(std::span(buffer_).subspan(held));
    const std::size_t count = source_.Read(free);
    sourceEnded_ = count < free.size();
    buffer_.resize(held + count);
}

}  // namespace zefta
