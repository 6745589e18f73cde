#include <algorithm>

#include "core/ByteCodec.h"
#include "tags/ID3v2.h"
#include "tags/ID3v2Frames.h"

namespace zefta {

namespace {

// Values of the header's flag byte.
constexpr std::uint8_t Unsynchronisation = 128;
constexpr std::uint8_t ExtendedHeader = 64;
constexpr std::uint8_t ExperimentalIndicator = 32;
constexpr std::uint8_t FooterPresent = 16;

std::uint8_t ByteAt(std::string_view bytes, std::size_t index) {
    return index < bytes.size() ? static_cast<std::uint8_t>(bytes[index]) : std::uint8_t{0};
}

/// The stretch of a file that holds the frames: what is not asked for is not read.
class FrameArea {
  public:
    /// From the position of the file on.
    FrameArea(BinaryFile& file, std::int32_t length)
        : file_(file), start_(file.Position()), length_(std::clamp(file.Size() - start_, 0, length)) {}

    std::int32_t Length() const { return length_; }

    /// Bytes from a place that may lie behind the end.
    std::string Slice(std::int32_t from, std::int32_t count) {
        const std::int32_t at = std::min(from, length_);
        file_.Seek(start_ + at, SeekFrom::Start);
        return file_.ReadBytes(std::min(count, length_ - at));
    }

  private:
    BinaryFile& file_;
    std::int32_t start_;
    std::int32_t length_;
};

void ReadHeader(std::string_view header, ID3v2Extension& tag) {
    tag.MajorVersion = ByteAt(header, 0);
    tag.MinorVersion = ByteAt(header, 1);
    const std::uint8_t flags = ByteAt(header, 2);
    tag.bUnsynchronisation = flags & Unsynchronisation;
    tag.bExtendedHeader = flags & ExtendedHeader;
    tag.bExperimentalIndicator = flags & ExperimentalIndicator;
    tag.bFooterPresent = flags & FooterPresent;
    tag.TagSize = ByteCodec::SyncSafeToLong(header.substr(std::min<std::size_t>(3, header.size())));
}

/// Walks the frames. Sizes are of 7 bits a byte in all versions, no unsynchronisation is undone and the text
/// encoding is not looked at: kept, tags written so far read back the same way.
void ReadFrames(FrameArea& area, ID3v2Extension& tag, const CodePage& ansi, UnknownContent unknown) {
    using namespace std::string_view_literals;
    const std::int32_t size = tag.TagSize;
    // 0-based here; the bounds come from a count that starts at 1.
    std::int32_t at = tag.bExtendedHeader != 0 ? ByteCodec::SyncSafeToLong(area.Slice(0, 4)) : 0;
    while (at + 1 + 11 < size && at < area.Length()) {
        const std::string header = area.Slice(at, 8);
        const std::string_view identifier = std::string_view(header).substr(0, 4);
        if (identifier == "\0\0\0\0"sv) return;
        const std::int32_t bodySize =
            ByteCodec::SyncSafeToLong(std::string_view(header).substr(identifier.size()));
        if (bodySize >= size) return;
        if (const ID3v2Frame* frame = FindID3v2Frame(identifier); bodySize >= 1 && frame != nullptr) {
            frame->read(tag, area.Slice(at + ID3v2HeaderSize + 1, bodySize - 1), ansi);
        } else if (bodySize >= 1 && unknown == UnknownContent::Keep) {
            tag.UnknownFrames += area.Slice(at, bodySize + ID3v2HeaderSize);
        }
        at += ID3v2HeaderSize + bodySize;
    }
}

}  // namespace

void ReadID3v2(BinaryFile& file, ID3Tag& tag, const CodePage& ansi, UnknownContent unknown) {
    file.Seek(0, SeekFrom::Start);
    if (file.ReadBytes(3) != "ID3") {
        file.Seek(0, SeekFrom::Start);
        return;
    }
    tag.ID3v2Present = true;
    ID3v2Extension& extension = tag.ID3v2Extension;
    ReadHeader(file.ReadBytes(7), extension);
    const std::int32_t surplus = extension.bFooterPresent != 0 ? 20 : 10;
    FrameArea area(file, extension.TagSize + surplus);
    extension.UnknownFrames.clear();
    ReadFrames(area, extension, ansi, unknown);
    file.Seek(extension.TagSize + ID3v2HeaderSize, SeekFrom::Start);
}

}  // namespace zefta
