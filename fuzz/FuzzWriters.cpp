// What a writer wrote, its reader reads; writing it again changes nothing; the audio stays. A writer that
// fails leaves the file as it was, except where it says otherwise.

#include <algorithm>

#include "core/Strings.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/FuzzWorld.h"
#include "tags/APE2.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/OggFile.h"
#include "tags/OggPages.h"
#include "wave/WaveFile.h"

namespace zefta::fuzz {

namespace {

constexpr std::size_t ID3v1Length = 128;

std::string Head(const std::string& bytes, std::size_t count) {
    return bytes.substr(0, std::min(count, bytes.size()));
}

/// The marker of an APE tag of 131 bytes looks like one and is none.
bool HasID3v1(const std::string& bytes) {
    if (bytes.size() >= ID3v1Length + 3 && bytes.compare(bytes.size() - ID3v1Length - 3, 8, "APETAGEX") == 0)
        return false;
    return bytes.size() >= ID3v1Length && bytes.compare(bytes.size() - ID3v1Length, 3, "TAG") == 0;
}

/// What ID3v1 does not hold: everything in front of it.
std::string WithoutID3v1(const std::string& bytes) {
    return HasID3v1(bytes) ? Head(bytes, bytes.size() - ID3v1Length) : bytes;
}

ID3Tag ReadV2(FuzzWorld& world, const std::string& path) {
    ID3Tag tag;
    tag.Path = path;
    ReadID3v2(*world.files.OpenReadOnly(path), tag, world.ansi);
    return tag;
}

std::string AudioBehindID3v2(FuzzWorld& world, const std::string& path) {
    ID3Tag tag;
    const auto file = world.files.OpenReadOnly(path);
    ReadID3v2(*file, tag, world.ansi);
    return file->ReadBytes(file->Size());
}

/// Brackets in a title or genre are taken apart anew at each reading: "A (B) ()", "A ((B)", "(1)(2)Rock".
bool HasBrackets(const ID3v2Extension& tag) {
    return (tag.TrackTitle + tag.Mix + tag.Genre).find_first_of("()") != std::string::npos;
}

/// Without the blanks at the ends of texts, which a writer takes away, and on demand without what brackets
/// change.
std::string Fields(const ID3v2Extension& tag, bool withBracketed = true) {
    std::string text;
    for (const std::string* field : {&tag.Artist, &tag.AlbumTitle, &tag.Year, &tag.Comments, &tag.Composer,
                                     &tag.Copyright, &tag.EncodedBy, &tag.TrackNumber})
        text += Trim(*field) + '\n';
    for (const std::string* field : {&tag.TrackTitle, &tag.Mix, &tag.Genre})
        text += withBracketed ? Trim(*field) + '\n' : "";
    return text + tag.UnknownFrames;
}

/// The values of the input in the fields that all tags have.
void FillRecord(ID3Tag& tag, const WriterInput& input) {
    ID3v2Extension& v2 = tag.ID3v2Extension;
    tag.Artist = v2.Artist = input.Field(0);
    tag.Title = v2.TrackTitle = input.Field(1);
    tag.Comment = v2.Mix = input.Field(2);
    tag.Album = v2.AlbumTitle = input.Field(3);
    tag.Year = v2.Year = tag.OggVorbisExtension.DateTime = input.Field(4);
    v2.Genre = input.Field(5);
    v2.Comments = input.Field(6);
    v2.TrackNumber = input.Field(7);
    v2.EncodedBy = input.Field(8);
}

/// Makes the checksums right, so that inputs get behind the first check.
std::string WithRightChecksums(std::string_view bytes) {
    std::string file(bytes);
    for (std::size_t at = 0; file.size() - at >= OggPageHeaderLength;) {
        const auto segments = static_cast<std::size_t>(static_cast<unsigned char>(file[at + 26]));
        if (file.compare(at, 4, "OggS") != 0 || file.size() - at < OggPageHeaderLength + segments) break;
        std::size_t length = OggPageHeaderLength + segments;
        for (std::size_t i = 0; i < segments; ++i)
            length += static_cast<unsigned char>(file[at + OggPageHeaderLength + i]);
        if (file.size() - at < length) break;
        file.replace(at + 22, 4, 4, '\0');
        const std::uint32_t sum = OggChecksum(std::string_view(file).substr(at, length));
        for (std::size_t i = 0; i < 4; ++i) file[at + 22 + i] = static_cast<char>(sum >> (8 * i) & 0xFF);
        at += length;
    }
    return file;
}

/// The packets of a file of sound pages; a last one that does not end counts too.
std::vector<std::string> Packets(std::string_view bytes) {
    std::vector<std::string> packets(1);
    while (const auto page = ParseOggPage(bytes)) {
        std::size_t at = 0;
        for (const char segment : page->lacing) {
            const auto length = static_cast<std::size_t>(static_cast<unsigned char>(segment));
            packets.back() += page->body.substr(at, length);
            at += length;
            if (length < OggFullSegment) packets.emplace_back();
        }
        bytes.remove_prefix(OggPageLength(*page));
    }
    return packets;
}

}  // namespace

void FuzzSetID3v1(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    const WriterInput split = SplitInput(input, world.ansi);
    world.files.Put("a.mp3", split.file);
    const std::string before(split.file);
    ID3Tag tag;
    tag.Path = "a.mp3";
    FillRecord(tag, split);
    SetID3v1(world.files, world.ansi, tag);
    const std::string after = world.files.Get("a.mp3");
    Require(HasID3v1(after), "there is a tag afterwards");
    Require(WithoutID3v1(after) == WithoutID3v1(before), "everything in front of the tag stays");
    ID3Tag again;
    again.Path = "a.mp3";
    Require(ReadID3v1(*world.files.OpenReadOnly("a.mp3"), again, world.ansi), "the tag is read back");
    SetID3v1(world.files, world.ansi, again);
    Require(WithoutID3v1(world.files.Get("a.mp3")) == WithoutID3v1(before), "the second write adds nothing");
}

void FuzzSetID3v2(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    const WriterInput split = SplitInput(input, world.ansi);
    world.files.Put("a.mp3", split.file);
    ID3Tag tag;
    if (!Ends([&] { tag = ReadV2(world, "a.mp3"); })) return;
    // An empty old tag counts as none: its header stays in front of the audio.
    const bool isEmptyTag = tag.ID3v2Present && tag.ID3v2Extension.TagSize == 0;
    const std::string audio = isEmptyTag ? std::string(split.file) : AudioBehindID3v2(world, "a.mp3");
    FillRecord(tag, split);
    if (!Ends([&] { SetID3v2(world.files, world.ansi, tag); })) return;
    Require(tag.Path == "a.mp3", "a file that is there is opened");
    Require(AudioBehindID3v2(world, "a.mp3") == audio, "the audio stays");
    ID3Tag again = ReadV2(world, "a.mp3");
    const bool withBracketed = !HasBrackets(again.ID3v2Extension);
    const std::string fields = Fields(again.ID3v2Extension, withBracketed);
    if (!Ends([&] { SetID3v2(world.files, world.ansi, again); })) return;
    Require(AudioBehindID3v2(world, "a.mp3") == audio, "the audio stays the second time");
    // The last frame may claim more than the tag has; it takes in what follows it anew each time.
    const std::string now = Fields(ReadV2(world, "a.mp3").ID3v2Extension, withBracketed);
    Require(now.starts_with(fields), "what was read and written is read again");
    Require(world.files.files.size() == 1, "no file is left beside");
}

void FuzzSetAPE2(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    const WriterInput split = SplitInput(input, world.ansi);
    world.files.Put("a.mpc", split.file);
    ID3Tag tag;
    tag.Path = "a.mpc";
    ReadAPE2(*world.files.OpenReadOnly("a.mpc"), tag, UnknownContent::Keep);
    FillRecord(tag, split);
    if (!Ends([&] { SetAPE2(world.files, tag); })) {
        Require(world.files.Get("a.mpc") == split.file, "a write that fails changes nothing");
        return;
    }
    const std::string after = world.files.Get("a.mpc");
    Require(after.size() + ID3v1Length >= split.file.size() || HasID3v1(after) ||
                split.file.find("APETAGEX") != std::string_view::npos,
            "no more than an old tag goes");
    ID3Tag again;
    again.Path = "a.mpc";
    if (!ReadAPE2(*world.files.OpenReadOnly("a.mpc"), again, UnknownContent::Keep)) return;
    SetAPE2(world.files, again);
    ID3Tag third;
    ReadAPE2(*world.files.OpenReadOnly("a.mpc"), third, UnknownContent::Keep);
    Require(Fields(third.ID3v2Extension) == Fields(again.ID3v2Extension),
            "what was read and written is read again");
}

void FuzzSetOggComments(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    const WriterInput split = SplitInput(input, world.ansi);
    const std::string before = WithRightChecksums(split.file);
    world.files.Put("a.ogg", before);
    ID3Tag tag;
    Ends([&] { ReadOGGFile({world.files, world.ansi}, "a.ogg", tag); });
    tag.Path = "a.ogg";
    FillRecord(tag, split);
    SetOggComments(world, tag);
    const std::string after = world.files.Get("a.ogg");
    Require(world.files.files.size() == 1, "no file is left beside");
    if (after == before) return;
    std::vector<std::string> old = Packets(before);
    std::vector<std::string> now = Packets(after);
    Require(old.size() == now.size() && old.size() > 2, "the number of packets stays");
    old[1] = now[1];
    Require(old == now, "all packets but the comments stay");
    SetOggComments(world, tag);
    Require(world.files.Get("a.ogg") == after, "the second write changes nothing");
}

void FuzzProcessWave(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    const WriterInput split = SplitInput(input, world.ansi);
    world.files.Put("a.wav", split.file);
    WaveFile wave(world);
    wave.MinSample = 8;
    wave.MaxSample = 65528;
    wave.SetNRLevel(95);
    wave.SetNRBelow(85);
    wave.SetNRAbove(98);
    wave.Before = wave.After = 1;
    wave.Format = input.empty() ? 0 : static_cast<unsigned char>(input[0]) % 6;
    std::int32_t code = -1;
    if (!Ends([&] { code = wave.ScanWave("a.wav", true); }) || code != 0) return;
    code = -1;
    if (!Ends([&] { code = wave.ProcessWave(true); }) || code != 0) {
        Require(world.files.Get("a.wav") == split.file || world.files.Get("a.wav.BAK") == split.file,
                "the former file is there, under its name or the backup's");
        return;
    }
    const std::string after = world.files.Get("a.wav");
    Require(after == split.file || world.files.Get("a.wav.BAK") == split.file, "the former file is kept");
    WaveFile second(world);
    Require(second.ScanWave("a.wav", false) >= 0, "the new file is scanned to its end");
}

}  // namespace zefta::fuzz
