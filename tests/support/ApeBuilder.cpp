#include "support/ApeBuilder.h"

#include "core/ByteCodec.h"

namespace zefta::test {

std::string ApeItem(std::string_view key, std::string_view value, std::int32_t flags,
                    std::optional<std::int32_t> length) {
    return ByteCodec::FromLong(length.value_or(static_cast<std::int32_t>(value.size()))) +
           ByteCodec::FromLong(flags) + std::string(key) + '\0' + std::string(value);
}

std::string ApeBlock::Bytes() const {
    return "APETAGEX" + ByteCodec::FromLong(version) + ByteCodec::FromLong(size) +
           ByteCodec::FromLong(count) + std::string(3, '\0') + static_cast<char>(flags) +
           std::string(8, '\0');
}

Ape& Ape::Item(std::string_view key, std::string_view value, std::int32_t flags) {
    return Raw(ApeItem(key, value, flags));
}

Ape& Ape::Raw(std::string_view bytes) {
    items_ += bytes;
    ++itemCount_;
    return *this;
}

Ape& Ape::WithoutHeader() {
    hasHeader_ = false;
    footer_.flags = 0;
    return *this;
}

Ape& Ape::Version(std::int32_t version) {
    footer_.version = version;
    return HeaderVersion(version);
}

Ape& Ape::HeaderVersion(std::int32_t version) {
    header_.version = version;
    return *this;
}

Ape& Ape::HeaderFlags(std::uint8_t flags) {
    header_.flags = flags;
    return *this;
}

Ape& Ape::FooterFlags(std::uint8_t flags) {
    footer_.flags = flags;
    return *this;
}

Ape& Ape::Count(std::int32_t count) {
    count_ = count;
    return *this;
}

Ape& Ape::Size(std::int32_t size) {
    size_ = size;
    return *this;
}

std::string Ape::Bytes() const {
    ApeBlock header = header_;
    ApeBlock footer = footer_;
    header.size = footer.size = size_.value_or(static_cast<std::int32_t>(items_.size()) + 32);
    header.count = footer.count = count_.value_or(itemCount_);
    return (hasHeader_ ? header.Bytes() : "") + items_ + footer.Bytes();
}

}  // namespace zefta::test
