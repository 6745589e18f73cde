#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "tags/APE2.h"
#include "tags/APE2Block.h"
#include "tags/APE2Items.h"
#include "tags/UTF8.h"

namespace zefta {

namespace {

/// Positions in the file.
struct Stretch {
    std::int32_t start;
    std::int32_t end;
};

struct ItemPlace {
    /// Row of the table; null when the item is not interpreted.
    const APEItem* row;
    std::int32_t start;
    Stretch value;
};

/// Prefix and key of a usual item.
constexpr std::int32_t HeadLength = 64;

/// The bytes from `position` on, as many as fit into the buffer and lie before `end`.
std::string_view Look(BinaryFile& file, Stretch stretch, std::span<char> buffer) {
    const auto wanted = static_cast<std::size_t>(std::max(stretch.end - stretch.start, 0));
    const auto bytes = buffer.first(std::min(wanted, buffer.size()));
    file.Seek(stretch.start, SeekFrom::Start);
    return {bytes.data(), file.Read(std::as_writable_bytes(bytes))};
}

std::optional<std::int32_t> FindNul(BinaryFile& file, Stretch stretch) {
    std::array<char, 4096> buffer;
    while (true) {
        const std::string_view bytes = Look(file, stretch, buffer);
        if (bytes.empty()) return std::nullopt;
        if (const std::size_t nul = bytes.find('\0'); nul != std::string_view::npos)
            return stretch.start + static_cast<std::int32_t>(nul);
        stretch.start += static_cast<std::int32_t>(bytes.size());
    }
}

/// The item at the start of the stretch; nothing when it does not lie in there whole.
std::optional<ItemPlace> ItemAt(BinaryFile& file, Stretch items) {
    std::array<char, HeadLength> buffer;
    const std::string_view head = Look(file, items, buffer);
    const std::size_t nul = head.find('\0', APEItemPrefix);
    const bool isShort = nul != std::string_view::npos;
    const auto headEnd = items.start + static_cast<std::int32_t>(isShort ? nul : head.size());
    const std::optional<std::int32_t> keyEnd =
        isShort ? std::optional(headEnd) : FindNul(file, {headEnd, items.end});
    if (!keyEnd) return std::nullopt;
    const std::int32_t length = ByteCodec::ToLong(head);
    const std::int32_t start = *keyEnd + 1;
    if (length < 0 || length > items.end - start) return std::nullopt;
    const std::string_view key = isShort ? head.substr(APEItemPrefix, nul - APEItemPrefix) : "";
    return ItemPlace{FindAPEItem(key), items.start, {start, start + length}};
}

std::string Slice(BinaryFile& file, Stretch stretch) {
    file.Seek(stretch.start, SeekFrom::Start);
    return file.ReadBytes(stretch.end - stretch.start);
}

void TakeItem(BinaryFile& file, const ItemPlace& item, ID3Tag& tag, UnknownContent unknown) {
    if (item.row != nullptr) {
        const std::string value = Slice(file, item.value);
        if (!IsWholeUtf8(value)) tag.ReadInPart = true;
        item.row->read(tag, Trim(UTF8ToAnsi(value)));
        return;
    }
    // Besides a track the field counts these items. Kept: the writer takes the number from there.
    tag.TrackNumber = ToByte(std::int64_t{tag.TrackNumber} + 1);
    if (unknown != UnknownContent::PassOver)
        tag.ID3v2Extension.UnknownFrames += Slice(file, {item.start, item.value.end});
}

}  // namespace

bool ReadAPE2(BinaryFile& file, ID3Tag& tag, UnknownContent unknown) {
    const std::optional<APEBlock> footer = ReadAPEBlock(file, APEBlockSize);
    if (!footer) return false;
    if (footer->version != APEVersion) return true;
    ID3v2Extension& extension = tag.ID3v2Extension;
    extension.TagSize = footer->size;
    extension.UnknownFrames.clear();
    if ((footer->flags & APEFlags::HasHeader) == 0) return true;
    const std::int64_t distance = std::int64_t{footer->size} + APEBlockSize;
    const std::optional<APEBlock> header = ReadAPEBlock(file, distance);
    constexpr std::uint8_t headerFlags = APEFlags::HasHeader | APEFlags::IsHeader;
    if (!header || header->version != APEVersion || (header->flags & headerFlags) != headerFlags) return true;
    extension.MajorVersion = APEVersion % 1000;
    extension.MinorVersion = 0;
    extension.TagSize = header->size;
    const std::int32_t end = file.Size();
    Stretch items{end - footer->size, end - APEBlockSize};
    for (std::int32_t n = 0; n < header->count; ++n) {
        const std::optional<ItemPlace> item = ItemAt(file, items);
        if (!item) break;
        TakeItem(file, *item, tag, unknown);
        items.start = item->value.end;
    }
    if (items.start != items.end) tag.ReadInPart = true;
    return true;
}

}  // namespace zefta
