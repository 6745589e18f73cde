#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <vector>

#include "core/ByteCodec.h"
#include "tags/ID3v2.h"
#include "tags/ID3v2Frames.h"
#include "tags/ID3v2Text.h"

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

/// The stretch of a file that holds the frames. Its beginning is taken at once, since the texts stand there;
/// of the rest nothing is read that is not asked for.
class FrameArea {
  public:
    /// From the position of the file on.
    FrameArea(BinaryFile& file, std::int32_t length)
        : file_(file), start_(file.Position()), length_(std::clamp(file.Size() - start_, 0, length)) {
        const auto wanted = static_cast<std::size_t>(std::min(length_, LengthOfBeginning));
        const auto place = std::as_writable_bytes(std::span(buffer_)).first(wanted);
        beginning_ = {buffer_.data(), file_.Read(place)};
    }
    FrameArea(const FrameArea&) = delete;
    FrameArea& operator=(const FrameArea&) = delete;

    std::int32_t Length() const { return length_; }

    /// Bytes from a place that may lie behind the end; valid until the next call.
    std::string_view Slice(std::int32_t from, std::int32_t count) {
        const std::int32_t at = std::min(from, length_);
        const std::int32_t wanted = std::min(count, length_ - at);
        const auto end = static_cast<std::size_t>(at + wanted);
        if (end <= beginning_.size())
            return beginning_.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(wanted));
        file_.Seek(start_ + at, SeekFrom::Start);
        return slice_ = file_.ReadBytes(wanted);
    }

  private:
    static constexpr std::int32_t LengthOfBeginning = 2048;

    BinaryFile& file_;
    std::int32_t start_;
    std::int32_t length_;
    std::array<char, LengthOfBeginning> buffer_;
    std::string_view beginning_;
    std::string slice_;
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

/// Header and one byte of body.
constexpr std::int32_t ShortestFrame = ID3v2HeaderSize + 1;
constexpr std::string_view NoIdentifier("\0\0\0\0", 4);

/// Whether frames may end at that place: at an identifier, where the fill begins or with the tag.
bool IsBoundary(FrameArea& area, std::int64_t at, std::int32_t size) {
    if (at >= size) return at == size;
    const std::string_view next = area.Slice(static_cast<std::int32_t>(at),
                                             std::min<std::int32_t>(4, size - static_cast<std::int32_t>(at)));
    const auto isOfIdentifier = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
    return next == NoIdentifier.substr(0, next.size()) ||
           (next.size() == NoIdentifier.size() && std::all_of(next.begin(), next.end(), isOfIdentifier));
}

/// The size in four bytes behind an identifier: 7 bits a byte, but the plain number of ID3v2.3 section 3.3
/// where that one alone leads to the end of a frame.
std::int32_t SizeByTheNext(FrameArea& area, std::int32_t at, std::string_view bytes, std::int32_t size) {
    const std::int32_t sevenBit = ByteCodec::SyncSafeToLong(bytes);
    const std::int32_t plain = ByteCodec::ToLongBE(bytes);
    const std::int64_t body = std::int64_t{at} + ID3v2HeaderSize;
    if (plain == sevenBit || plain < 0 || IsBoundary(area, body + sevenBit, size)) return sevenBit;
    return IsBoundary(area, body + plain, size) ? plain : sevenBit;
}

struct KnownFrame {
    const ID3v2Frame* frame;
    /// The whole of it.
    std::string bytes;
};

/// A walk over the frames, and how it ended.
struct Walk {
    ID3v2Extension& tag;
    const CodePage& ansi;
    UnknownContent unknown;
    std::int32_t end = 0;
    /// A frame has text that the record does not hold, or can't give back.
    bool lostText = false;
    /// The frames that have a field, in their order.
    std::vector<KnownFrame> known = {};
};

/// What goes back into the file unchanged is not touched at all.
ID3v2Text TextByTheStandard(const ID3v2Frame& frame, std::string_view body, const Walk& walk) {
    const bool goesBack = walk.unknown == UnknownContent::Carry;
    if (goesBack && IsInCodePage(body))
        return {walk.ansi.Decode(body.substr(std::min<std::size_t>(1, body.size())))};
    ID3v2Text decoded = DecodeID3v2Body(frame.identifier, body, walk.ansi);
    if (goesBack && walk.ansi.Decode(walk.ansi.Encode(decoded.text)) != decoded.text) decoded.isWhole = false;
    return decoded;
}

void ReadByTheStandard(const ID3v2Frame& frame, std::string_view bytes, Walk& walk) {
    using namespace std::string_view_literals;
    constexpr std::size_t FormatFlags = 9;
    walk.known.push_back({&frame, std::string(bytes)});
    const std::string_view body = bytes.substr(std::min<std::size_t>(ID3v2HeaderSize, bytes.size()));
    // Compressed, encrypted, grouped or unsynchronised: the body is no text then.
    const bool isText =
        ByteAt(bytes, FormatFlags) == 0 && (walk.tag.bUnsynchronisation == 0 || IsInCodePage(body) ||
                                            body.find("\xFF\0"sv) == std::string_view::npos);
    if (!isText) {
        walk.lostText = true;
        return;
    }
    const ID3v2Text decoded = TextByTheStandard(frame, body, walk);
    walk.lostText |= !decoded.isWhole;
    if (decoded.isWhole || walk.unknown == UnknownContent::HandOver) frame.read(walk.tag, decoded.text);
}

/// Of several frames for one field the last one fills it; the ones ahead of it go back as they stand, such as
/// comments in other languages. Not those that say the same, or nothing.
void CarryEarlierOnes(Walk& walk) {
    for (const ID3v2Frame& frame : ID3v2Frames()) {
        const auto isOfField = [&](const KnownFrame& known) { return known.frame == &frame; };
        const auto first = std::find_if(walk.known.begin(), walk.known.end(), isOfField);
        const auto last = std::find_if(walk.known.rbegin(), walk.known.rend(), isOfField);
        if (last == walk.known.rend() || first == std::prev(last.base())) continue;
        const std::string written = WriteFrame(frame.identifier, frame.write(walk.tag, walk.ansi));
        for (auto earlier = first; earlier != std::prev(last.base()); ++earlier) {
            const std::string& bytes = earlier->bytes;
            if (isOfField(*earlier) && bytes.size() > ShortestFrame && bytes != last->bytes &&
                bytes != written)
                walk.tag.UnknownFrames += bytes;
        }
    }
}

struct FramePlace {
    /// Null for a frame that has no field.
    const ID3v2Frame* frame;
    std::int32_t at;
    /// At least 1: the encoding byte.
    std::int32_t bodySize;
};

void TakeFrame(FrameArea& area, const FramePlace& place, Walk& walk) {
    const auto& [frame, at, bodySize] = place;
    if (frame != nullptr && IsByTheStandard(walk.unknown)) {
        ReadByTheStandard(*frame, area.Slice(at, ID3v2HeaderSize + bodySize), walk);
    } else if (frame != nullptr) {
        frame->read(walk.tag, walk.ansi.Decode(area.Slice(at + ID3v2HeaderSize + 1, bodySize - 1)));
    } else if (walk.unknown != UnknownContent::PassOver) {
        walk.tag.UnknownFrames += area.Slice(at, bodySize + ID3v2HeaderSize);
    }
}

/// Walks the frames. Sizes are of 7 bits a byte in all versions, no unsynchronisation is undone and the text
/// encoding is not looked at: kept, tags written so far read back the same way. Frames that are carried or
/// handed over are read by the standard where that is another way.
void ReadFrames(FrameArea& area, Walk& walk) {
    const std::int32_t size = walk.tag.TagSize;
    // 0-based here; the bound comes from a count that starts at 1 and misses two places.
    std::int32_t at = walk.tag.bExtendedHeader != 0 ? ByteCodec::SyncSafeToLong(area.Slice(0, 4)) : 0;
    const bool byTheStandard = IsByTheStandard(walk.unknown);
    if (byTheStandard) walk.known.reserve(ID3v2Frames().size());
    const std::int32_t lastPlace = size - (byTheStandard ? ShortestFrame : ShortestFrame + 2);
    while (at <= lastPlace && at < area.Length()) {
        const std::string header(area.Slice(at, 8));
        const std::string_view identifier = std::string_view(header).substr(0, 4);
        if (identifier == NoIdentifier) break;
        const std::string_view sizeBytes = std::string_view(header).substr(identifier.size());
        const std::int32_t bodySize =
            byTheStandard ? SizeByTheNext(area, at, sizeBytes, size) : ByteCodec::SyncSafeToLong(sizeBytes);
        if (bodySize >= size) break;
        if (bodySize >= 1) TakeFrame(area, {FindID3v2Frame(identifier), at, bodySize}, walk);
        at += ID3v2HeaderSize + bodySize;
    }
    walk.end = at;
    if (byTheStandard) CarryEarlierOnes(walk);
}

/// Whether a writer would take something away that was not read: the walk did not get to the fill, or the tag
/// is of a form that is not understood.
bool LeavesSomething(FrameArea& area, const Walk& walk) {
    using namespace std::string_view_literals;
    constexpr std::uint8_t WithShortIdentifiers = 2;
    const ID3v2Extension& tag = walk.tag;
    if (tag.MajorVersion == WithShortIdentifiers && tag.TagSize > 0) return true;
    if (tag.bUnsynchronisation != 0 && tag.UnknownFrames.find("\xFF\0"sv) != std::string::npos) return true;
    if (walk.lostText || walk.end > tag.TagSize) return true;
    return walk.end < std::min(tag.TagSize, area.Length()) && area.Slice(walk.end, 1) != "\0"sv;
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
    Walk walk{extension, ansi, unknown};
    ReadFrames(area, walk);
    if (IsByTheStandard(unknown)) tag.ReadInPart = LeavesSomething(area, walk);
    file.Seek(extension.TagSize + ID3v2HeaderSize, SeekFrom::Start);
}

}  // namespace zefta
