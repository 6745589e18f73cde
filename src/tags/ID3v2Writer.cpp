#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "core/BlockCopy.h"
#include "core/ByteCodec.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "platform/RuntimeError.h"
#include "tags/ID3v2.h"
#include "tags/ID3v2Frames.h"
#include "tags/Replacement.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

constexpr std::string_view HeaderMarker = "ID3";
constexpr std::size_t SizePosition = 6;
constexpr std::size_t SizeLength = 4;
/// Whole tag of a rebuilt file: a tenth above the estimate, so that a slightly longer one fits in its place
/// the next time.
constexpr double Reserve = 1.1;
constexpr int SmallestTag = 512;
/// The count of bytes to fill up is held in 16 bits.
constexpr std::int64_t LargestFill = 32767;

/// Where a tag is to stand.
struct TagPlan {
    /// In the old tag's place; else in a new file.
    bool inPlace = false;
    /// The tag's size field.
    std::int32_t size = 0;
};

TagPlan PlanTag(std::int32_t estimate, std::optional<std::int32_t> oldSize) {
    if (oldSize && estimate <= *oldSize) return {true, *oldSize};
    return {false, ToI32(std::max<double>(estimate * Reserve, SmallestTag)) - ID3v2HeaderSize};
}

struct RenderedTag {
    std::string bytes;
    /// A tag that does not come out even: its frames are written, its fill is not.
    std::optional<ErrorNumber> failure;
};

/// Header, frames and fill of a tag whose size field is `size`.
RenderedTag RenderTag(const std::string& frames, std::int32_t size) {
    using namespace std::string_literals;
    RenderedTag rendered;
    rendered.bytes.reserve(ID3v2HeaderSize + frames.size() + std::size_t{SmallestTag});
    rendered.bytes += HeaderMarker;
    rendered.bytes += "\3\0\0"s;
    rendered.bytes += ByteCodec::LongToSyncSafe(size);
    rendered.bytes += frames;
    const std::int64_t fill =
        std::int64_t{size} + ID3v2HeaderSize - static_cast<std::int64_t>(rendered.bytes.size());
    if (fill < 0) {
        rendered.failure = ErrorNumber::InvalidProcedureCall;
    } else if (fill > LargestFill) {
        rendered.failure = ErrorNumber::Overflow;
    } else {
        rendered.bytes.append(static_cast<std::size_t>(fill), '\0');
    }
    return rendered;
}

/// Header and all of a usual tag.
constexpr std::int32_t UsualLength = 1024;

std::string ReadStart(BinaryFile& file, std::int32_t length) {
    file.Seek(0, SeekFrom::Start);
    return file.ReadBytes(length);
}

/// Size field of the tag that a file of `fileSize` bytes begins with; nothing when there is no tag.
/// RuntimeError 5 for a tag that reaches beyond the end of the file: nobody knows where the audio begins.
std::optional<std::int32_t> OldTagSize(std::string_view start, std::int32_t fileSize) {
    if (!start.starts_with(HeaderMarker)) return std::nullopt;
    const std::int32_t size =
        ByteCodec::SyncSafeToLong(start.substr(std::min(start.size(), SizePosition), SizeLength));
    if (Add(size, ID3v2HeaderSize) > fileSize) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return size;
}

/// `start`: what the file begins with, at least its header.
void WriteWhereItDiffers(BinaryFile& file, std::string start, const std::string& bytes) {
    if (start.size() < bytes.size()) start = ReadStart(file, static_cast<std::int32_t>(bytes.size()));
    Replace(file, {0, start.substr(0, bytes.size()), bytes});
}

/// A file that is to have a tag of that length in front of what lies behind `audioStart`.
struct Rebuilding {
    BinaryFile& old;
    std::int32_t audioStart;
    std::int32_t tagLength;
};

/// The new file at `path`. False when it can't be created.
bool Rebuild(FileSystem& files, const std::string& path, const RenderedTag& tag, const Rebuilding& work) {
    const auto& [old, audioStart, tagLength] = work;
    TemporaryFile fresh(files, path);
    if (!fresh.File()) return false;
    // Frames that overrun their place take the first bytes of what lies behind it, as they do in place.
    const std::int32_t overrun = std::max(static_cast<std::int32_t>(tag.bytes.size()) - tagLength, 0);
    old.Seek(Add(audioStart, overrun), SeekFrom::Start);
    std::string whole = tag.bytes;
    whole.resize(std::max(whole.size(), static_cast<std::size_t>(tagLength)));
    CopyInBlocksBehind(whole, old, *fresh.File(), old.Size() - audioStart - overrun);
    fresh.TakePlace();
    return true;
}

/// By what a writer plans the place of a tag.
enum class Planning : char {
    Estimate,
    /// The length of the frames where the plan by the estimate would be too small for them.
    TrueLength,
    /// The same, and anew where the old place would leave more to fill up than is counted.
    Whole,
};

TagPlan PlanFrames(const ID3v2Extension& tag, const CodePage& ansi, std::size_t frames,
                   std::optional<std::int32_t> oldSize) {
    const TagPlan plan = PlanTag(tag.GetTagSize(ansi), oldSize);
    if (frames <= static_cast<std::size_t>(plan.size)) return plan;
    // More than the old tag has in any case, so that this one is never in place.
    return PlanTag(ToI32(static_cast<std::int64_t>(frames) + ID3v2HeaderSize), oldSize);
}

/// Whether a frame of that kind is among the ones that are carried. A run of bytes in a picture may pass for
/// one, which does no harm.
bool HoldsFrame(std::string_view carried, std::string_view identifier) {
    constexpr std::string_view NoFlags("\0\0", 2);
    constexpr std::size_t FlagsPosition = 8;
    for (std::size_t at = carried.find(identifier); at != std::string_view::npos;
         at = carried.find(identifier, at + 1)) {
        const std::string_view frame = carried.substr(at);
        if (frame.size() <= static_cast<std::size_t>(ID3v2HeaderSize)) return false;
        const std::int32_t size = ByteCodec::SyncSafeToLong(frame.substr(identifier.size(), SizeLength));
        const bool fits = static_cast<std::size_t>(size) <= frame.size() - ID3v2HeaderSize;
        if (fits && frame.substr(FlagsPosition, NoFlags.size()) == NoFlags) return true;
    }
    return false;
}

/// The frames with those of carried fields once more at their end: of several the last one counts, and it is
/// not to be one that was only carried.
std::string FramesThatReadBack(const ID3v2Extension& tag, const CodePage& ansi) {
    std::string area = ID3v2FrameArea(tag, ansi);
    for (const ID3v2Frame& frame : ID3v2Frames()) {
        if (HoldsFrame(tag.UnknownFrames, frame.identifier))
            AppendFrame(area, frame.identifier, frame.write(tag, ansi));
    }
    return area;
}

/// What a tag is written with.
struct TagWriting {
    FileSystem& files;
    const CodePage& ansi;
    Planning planning;
};

/// The place of a tag and what is written there.
struct PlannedTag {
    TagPlan plan;
    RenderedTag rendered;
};

PlannedTag PlanAndRender(const TagWriting& writing, const ID3v2Extension& tag,
                         std::optional<std::int32_t> oldSize) {
    const CodePage& ansi = writing.ansi;
    const bool byEstimate = writing.planning == Planning::Estimate;
    const std::string frames = byEstimate ? ID3v2FrameArea(tag, ansi) : FramesThatReadBack(tag, ansi);
    TagPlan plan =
        byEstimate ? PlanTag(tag.GetTagSize(ansi), oldSize) : PlanFrames(tag, ansi, frames.size(), oldSize);
    RenderedTag rendered = RenderTag(frames, plan.size);
    if (writing.planning != Planning::Whole || rendered.failure != ErrorNumber::Overflow)
        return {plan, std::move(rendered)};
    if (plan.inPlace) {
        plan = PlanFrames(tag, ansi, frames.size(), std::nullopt);
        rendered = RenderTag(frames, plan.size);
    }
    // What a new file lacks is filled up however much it is.
    if (rendered.failure == ErrorNumber::Overflow) rendered.failure.reset();
    return {plan, std::move(rendered)};
}

void WriteTag(const TagWriting& writing, std::unique_ptr<BinaryFile> file, ID3Tag& tag) {
    FileSystem& files = writing.files;
    std::string start = ReadStart(*file, UsualLength);
    const std::optional<std::int32_t> oldSize = OldTagSize(start, file->Size());
    const auto [plan, rendered] = PlanAndRender(writing, tag.ID3v2Extension, oldSize);
    if (plan.inPlace) {
        WriteWhereItDiffers(*file, std::move(start), rendered.bytes);
    } else {
        const std::int32_t audioStart = oldSize.value_or(0) > 0 ? *oldSize + ID3v2HeaderSize : 0;
        const std::string path = files.FollowLinks(tag.Path);
        const bool rebuilt = Rebuild(files, path, rendered, {*file, audioStart, plan.size + ID3v2HeaderSize});
        // The new file was open for reading and writing when it got the name: it need not be opened again.
        if (!rebuilt) tag.Path.clear();
    }
    if (rendered.failure) throw RuntimeError(*rendered.failure);
}

void OpenAndWriteTag(const TagWriting& writing, ID3Tag& tag) {
    if (!IsMP3File(tag.Path)) return;
    if (auto file = writing.files.OpenRead(tag.Path)) {
        WriteTag(writing, std::move(file), tag);
    } else {
        tag.Path.clear();
    }
}

}  // namespace

std::string WriteFrame(std::string_view identifier, std::string_view text) {
    std::string frame;
    AppendFrame(frame, identifier, text);
    return frame;
}

void AppendFrame(std::string& area, std::string_view identifier, std::string_view text) {
    constexpr std::string_view FlagsAndEncoding("\0\0\0", 3);
    const std::string body = Trim(text);
    area += identifier;
    area += ByteCodec::LongToSyncSafe(ToI32(static_cast<std::int64_t>(body.size()) + 1));
    area += FlagsAndEncoding;
    area += body;
}

void SetID3v2(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    OpenAndWriteTag({files, ansi, Planning::Estimate}, tag);
}

void SetID3v2WithRoom(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    OpenAndWriteTag({files, ansi, Planning::TrueLength}, tag);
}

void SetID3v2WithRoom(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi,
                      ID3Tag& tag) {
    WriteTag({files, ansi, Planning::TrueLength}, std::move(file), tag);
}

void SetWholeID3v2(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi, ID3Tag& tag) {
    WriteTag({files, ansi, Planning::Whole}, std::move(file), tag);
}

bool RemoveID3v2(FileSystem& files, const ID3Tag& tag) {
    const std::string path = files.FollowLinks(tag.Path);
    const auto file = files.OpenRead(path);
    if (!file) return false;
    const std::optional<std::int32_t> size = OldTagSize(ReadStart(*file, ID3v2HeaderSize), file->Size());
    if (!size) return false;
    TemporaryFile fresh(files, path);
    if (!fresh.File()) return false;
    const std::int32_t audioStart = *size + ID3v2HeaderSize;
    file->Seek(audioStart, SeekFrom::Start);
    CopyInBlocks(*file, *fresh.File(), file->Size() - audioStart);
    fresh.TakePlace();
    return true;
}

}  // namespace zefta
