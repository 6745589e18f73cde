#include <memory>
#include <optional>

#include "core/ByteCodec.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "tags/APE2.h"
#include "tags/APE2Block.h"
#include "tags/APE2Items.h"
#include "tags/MPEGplusStream.h"
#include "tags/Replacement.h"

namespace zefta {

namespace {

constexpr std::int32_t ID3v1Length = 128;
constexpr std::string_view ID3v1Marker = "TAG";

/// The tag as it stands on disk.
std::string TagBytes(const ID3Tag& tag) {
    std::string items;
    std::int64_t count = 0;
    for (const APEItem& item : APEItems()) {
        const std::string bytes = WriteAPEItem(item.key, item.write(tag));
        items += bytes;
        count += bytes.empty() ? 0 : 1;
    }
    if (const std::string& unknown = tag.ID3v2Extension.UnknownFrames; !unknown.empty()) {
        items += unknown;
        count += tag.TrackNumber;
    }
    APEBlock block;
    block.size = ToI32(static_cast<std::int64_t>(items.size()) + APEBlockSize);
    block.count = ToI32(count);
    block.flags = APEFlags::HasHeader | APEFlags::IsHeader;
    const std::string header = block.Bytes();
    block.flags = APEFlags::HasHeader;
    return header + items + block.Bytes();
}

/// What a file gets that has no place for a tag: a footer that counts nothing.
std::string LoneFooter() {
    APEBlock block;
    block.size = APEBlockSize;
    block.flags = APEFlags::HasHeader;
    return block.Bytes();
}

/// Start of the tag with a header at the end of the file. The position is left at it, or where looking for it
/// ended.
std::optional<std::int32_t> OldTagPlace(BinaryFile& file) {
    SeekBeforeEnd(file, APEBlockSize);
    if (file.ReadBytes(8) != APEMarker) return std::nullopt;
    if (ByteCodec::ToLong(file.ReadBytes(4)) != APEVersion) return std::nullopt;
    const bool isInside =
        SeekBeforeEnd(file, std::int64_t{ByteCodec::ToLong(file.ReadBytes(4))} + APEBlockSize);
    const std::int32_t place = file.Position();
    if (file.ReadBytes(8) != APEMarker || !isInside) return std::nullopt;
    file.Seek(place, SeekFrom::Start);
    return place;
}

/// Where a new tag begins in a version 8 stream: decoders need its end.
std::int32_t PlaceInVersion8(BinaryFile& file) {
    const bool hasID3v1 = SeekBeforeEnd(file, ID3v1Length) && file.ReadBytes(3) == ID3v1Marker;
    return file.Size() - (hasID3v1 ? ID3v1Length : 0);
}

/// Where the new tag begins, which becomes the position. 0 when there is no place for one. The last 128 bytes
/// of an untagged file are taken for an ID3v1 tag, whether they are one or not. Kept: a tag behind them would
/// be another place than the one where all files so far have theirs.
std::int32_t TagPlace(BinaryFile& file) {
    if (const std::optional<std::int32_t> old = OldTagPlace(file)) return *old;
    const std::int32_t position = file.Position();
    if (IsVersion8Stream(file)) {
        file.Seek(PlaceInVersion8(file), SeekFrom::Start);
        return file.Position();
    }
    file.Seek(position, SeekFrom::Start);
    return SeekBeforeEnd(file, ID3v1Length) ? file.Position() : 0;
}

/// Makes the bytes the end of the file, from the current position on.
void ReplaceEnd(BinaryFile& file, const std::string& bytes) {
    const std::int32_t place = file.Position();
    const std::int32_t end = ToI32(place + static_cast<std::int64_t>(bytes.size()));
    Replace(file, {place, file.ReadBytes(end - place), bytes, true});
}

}  // namespace

void SetAPE2(FileSystem& files, ID3Tag& tag) {
    if (!IsMPEGplusFile(tag.Path)) return;
    const auto file = files.OpenRead(tag.Path);
    if (!file) {
        tag.Path.clear();
        return;
    }
    const bool hasPlace = TagPlace(*file) > 0;
    ReplaceEnd(*file, hasPlace ? TagBytes(tag) : LoneFooter());
}

}  // namespace zefta
