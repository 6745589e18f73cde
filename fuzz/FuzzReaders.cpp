// Whatever a file holds, a reader comes back, fails in the way it says it may, and changes nothing.

#include "fuzz/FuzzTargets.h"
#include "fuzz/FuzzWorld.h"
#include "tags/APE2.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/Lyrics3.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"
#include "wave/WaveFile.h"

namespace zefta::fuzz {

namespace {

const CodePage& Ansi() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

std::string Fields(const ID3Tag& tag) {
    const ID3v2Extension& v2 = tag.ID3v2Extension;
    std::string text;
    for (const std::string* field : {&tag.Artist,
                                     &tag.Title,
                                     &tag.Album,
                                     &tag.Year,
                                     &tag.Comment,
                                     &tag.Path,
                                     &tag.Encoder,
                                     &v2.TrackNumber,
                                     &v2.EncodedBy,
                                     &v2.Copyright,
                                     &v2.OriginalArtist,
                                     &v2.Composer,
                                     &v2.Comments,
                                     &v2.Year,
                                     &v2.AlbumTitle,
                                     &v2.TrackTitle,
                                     &v2.URL,
                                     &v2.Artist,
                                     &v2.Mix,
                                     &v2.Genre,
                                     &tag.LyricsExtension.Artist,
                                     &tag.LyricsExtension.TrackTitle,
                                     &tag.OggVorbisExtension.DateTime})
        text += *field + '\n';
    for (const std::int32_t number :
         {tag.Length, std::int32_t{tag.Bitrate}, tag.Seconds, tag.Frames, tag.SampleRate, tag.ChannelMode,
          std::int32_t{tag.TrackNumber}, std::int32_t{tag.Genre}, v2.TagSize})
        text += std::to_string(number) + ' ';
    return text;
}

/// Reads one file in all ways: a reader that keeps what it does not know and one that passes over it see the
/// same; those that read by the standard come to an end.
template <typename Read>
void ReadBothWays(std::string_view input, const char* name, Read read) {
    MemoryFileSystem files;
    files.Put(name, input);
    ID3Tag kept;
    ID3Tag passed;
    const bool keptEnds = Ends([&] { read(FileReading{files, Ansi(), UnknownContent::Keep}, kept); });
    const bool passedEnds = Ends([&] { read(FileReading{files, Ansi(), UnknownContent::PassOver}, passed); });
    Require(keptEnds == passedEnds, "both ways of reading end alike");
    Require(Fields(kept) == Fields(passed), "both ways of reading give the same fields");
    Require(passed.ID3v2Extension.UnknownFrames.empty(), "what is passed over is not kept");
    Require(kept.ID3v2Extension.UnknownFrames.size() <= input.size() * 2, "no more is kept than is there");
    for (const UnknownContent unknown : {UnknownContent::Carry, UnknownContent::HandOver}) {
        ID3Tag carried;
        Ends([&] { read(FileReading{files, Ansi(), unknown}, carried); });
        Require(carried.ID3v2Extension.UnknownFrames.size() <= input.size() * 2,
                "no more is carried than is there");
    }
    Require(files.Get(name) == input, "reading changes nothing");
}

/// The same for a reader of one tag, on the file itself and through windows.
template <typename Read>
void ReadTagBothWays(std::string_view input, Read read) {
    ReadBothWays(input, "file", [&](const FileReading& reading, ID3Tag& tag) {
        const auto file = reading.files.OpenReadOnly("file");
        ID3Tag buffered;
        BufferedFile windows(reading.files.OpenReadOnly("file"), {.head = 64, .tail = 64});
        const bool bufferedEnds = Ends([&] { read(windows, buffered, reading.unknown); });
        bool ends = false;
        try {
            read(*file, tag, reading.unknown);
            ends = true;
        } catch (const RuntimeError&) {
        }
        Require(ends == bufferedEnds, "windows change no outcome");
        Require(Fields(tag) == Fields(buffered), "windows change no field");
        Require(!ends || file->Position() == windows.Position(), "windows change no position");
    });
}

}  // namespace

void FuzzID3v1(std::string_view input) {
    ReadTagBothWays(input,
                    [](BinaryFile& file, ID3Tag& tag, UnknownContent) { ReadID3v1(file, tag, Ansi()); });
}

void FuzzLyrics3(std::string_view input) {
    ReadTagBothWays(input,
                    [](BinaryFile& file, ID3Tag& tag, UnknownContent) { ReadLyrics3(file, tag, Ansi()); });
}

void FuzzID3v2(std::string_view input) {
    ReadTagBothWays(input, [](BinaryFile& file, ID3Tag& tag, UnknownContent unknown) {
        ReadID3v2(file, tag, Ansi(), unknown);
    });
}

void FuzzAPE2(std::string_view input) {
    ReadTagBothWays(
        input, [](BinaryFile& file, ID3Tag& tag, UnknownContent unknown) { ReadAPE2(file, tag, unknown); });
}

void FuzzMP3File(std::string_view input) {
    ReadBothWays(input, "a.mp3",
                 [](const FileReading& reading, ID3Tag& tag) { ReadMP3File(reading, "a.mp3", tag); });
}

void FuzzOGGFile(std::string_view input) {
    ReadBothWays(input, "a.ogg",
                 [](const FileReading& reading, ID3Tag& tag) { ReadOGGFile(reading, "a.ogg", tag); });
}

void FuzzMPEGplusFile(std::string_view input) {
    ReadBothWays(input, "a.mpc",
                 [](const FileReading& reading, ID3Tag& tag) { ReadMPEGplusFile(reading, "a.mpc", tag); });
}

void FuzzWaveInfo(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    world.files.Put("a.wav", input);
    const ID3Tag tag = WaveFile(world).GetWaveInfo("a.wav");
    Require(tag.Path == "a.wav", "a file that is there is opened");
    Require(tag.Bitrate == 0 || tag.Bitrate == -1, "a file is a WAV file or not");
    Require(world.files.Get("a.wav") == input, "reading changes nothing");
}

void FuzzScanWave(std::string_view input) {
    FuzzWorld& world = FreshWorld();
    world.files.Put("a.wav", input);
    WaveFile wave(world);
    wave.MinSample = 8;
    wave.MaxSample = 65528;
    std::int32_t code = 0;
    if (Ends([&] { code = wave.ScanWave("a.wav", true); }))
        Require(code >= 0 && code <= 7, "a scan tells one of its codes");
    Require(world.files.Get("a.wav") == input, "reading changes nothing");
}

}  // namespace zefta::fuzz
