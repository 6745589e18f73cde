#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zefta::test {

/// One item of an APE tag; the length is right unless told otherwise.
std::string ApeItem(std::string_view key, std::string_view value, std::int32_t flags = 0,
                    std::optional<std::int32_t> length = std::nullopt);

/// A header or footer of an APE tag.
struct ApeBlock {
    std::int32_t version = 2000;
    std::int32_t size = 32;
    std::int32_t count = 0;
    std::uint8_t flags = 0x80;

    std::string Bytes() const;
};

/// Builds a whole APE tag, right in all numbers unless told otherwise:
/// `Ape().Item("Artist", "A").Bytes()`.
class Ape {
  public:
    Ape& Item(std::string_view key, std::string_view value, std::int32_t flags = 0);
    /// Bytes among the items that count as one.
    Ape& Raw(std::string_view bytes);

    // What is wrong with the tag.

    Ape& WithoutHeader();
    Ape& Version(std::int32_t version);
    Ape& HeaderVersion(std::int32_t version);
    Ape& HeaderFlags(std::uint8_t flags);
    Ape& FooterFlags(std::uint8_t flags);
    /// In both blocks.
    Ape& Count(std::int32_t count);
    Ape& Size(std::int32_t size);

    std::string Bytes() const;

  private:
    std::string items_;
    std::int32_t itemCount_ = 0;
    bool hasHeader_ = true;
    std::optional<std::int32_t> size_;
    std::optional<std::int32_t> count_;
    ApeBlock header_{.flags = 0xA0};
    ApeBlock footer_;
};

}  // namespace zefta::test
