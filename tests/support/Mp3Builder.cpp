#include "support/Mp3Builder.h"

#include <algorithm>

#include "support/TagBuilders.h"

namespace zefta::test {

namespace {

std::string BigEndian(std::int32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> shift & 0xFF);
    return bytes;
}

}  // namespace

Mp3& Mp3::InFront(std::string_view bytes) {
    inFront_ = bytes;
    return *this;
}

Mp3& Mp3::Header(std::string_view bytes) {
    header_ = bytes;
    return *this;
}

Mp3& Mp3::Block(std::string_view marker, std::int32_t frames, std::string_view encoder) {
    std::string name(encoder);
    name.resize(16, '\0');
    // Flags that promise nothing but the frame count.
    block_ = std::string(marker) + BigEndian(1) + BigEndian(frames);
    block_.resize(120, '\x11');
    block_ += name;
    return *this;
}

Mp3& Mp3::BlockAt(std::size_t offset) {
    blockAt_ = offset;
    return *this;
}

Mp3& Mp3::Behind(std::string_view bytes) {
    behind_ = bytes;
    return *this;
}

Mp3& Mp3::Size(std::size_t size) {
    size_ = size;
    return *this;
}

std::string Mp3::Bytes() const {
    std::string bytes = inFront_ + header_;
    if (!block_.empty()) {
        bytes.resize(inFront_.size() + blockAt_, '\0');
        bytes += block_;
    }
    const std::size_t used = bytes.size() + behind_.size();
    return bytes + Audio(std::max(size_, used) - used) + behind_;
}

}  // namespace zefta::test
