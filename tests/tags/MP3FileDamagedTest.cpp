// Damaged and hostile MP3 files: each is read as the plain routine below reads it, and nothing else happens.

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/Lyrics3.h"
#include "tags/MP3File.h"
#include "tags/MPEGHeader.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

double Divided(double dividend, double divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

/// Where the first header stands, looked for byte by byte; npos when there is none.
std::size_t PlainSearch(const std::string& bytes, std::size_t position, MPEGHeader& header) {
    for (int scanned = 0; scanned < 40960 && bytes.size() > position + 128; ++scanned, ++position) {
        if (bytes[position] == '\xFF' && header.ParseHeader(bytes.substr(position, 4))) return position;
    }
    return std::string::npos;
}

std::string Bytes(const std::string& bytes, std::size_t from, std::size_t count) {
    return bytes.substr(std::min(from, bytes.size()), count);
}

void PlainBlock(const std::string& bytes, std::size_t place, ID3Tag& tag, const CodePage& ansi) {
    const std::string block = Bytes(bytes, place + 4, 4096);
    const std::size_t xing = block.find("Xing");
    const std::size_t found = xing != std::string::npos ? xing : block.find("Info");
    if (found == std::string::npos) return;
    const std::size_t marker = place + 4 + found;
    if (xing != std::string::npos) {
        tag.VBR = true;
        tag.Frames = ByteCodec::ToLongBE(Bytes(bytes, marker + 8, 4));
        tag.Seconds = ToI32(Divided(tag.Frames * 26.125 * 44100 / 1000, tag.SampleRate));
        tag.Bitrate = ToI16(Divided(tag.Length, tag.Seconds) / 125);
    }
    const std::string name = Trim(ReplaceAll(Bytes(bytes, marker + 120, 16), "\0"s, " "));
    tag.Encoder = ansi.Decode(name.substr(0, name.find(' ')));
}

/// The whole work without windows: the tags straight from the disk, the stream from the whole file in memory.
void PlainRead(FileSystem& files, const CodePage& ansi, const std::string& path, ID3Tag& tag) {
    const auto file = files.OpenReadOnly(path);
    const std::string bytes = file->ReadBytes(file->Size());
    tag.Path = path;
    tag.Length = file->Size();
    ReadID3v1(*file, tag, ansi);
    ReadLyrics3(*file, tag, ansi);
    ReadID3v2(*file, tag, ansi);
    MPEGHeader header;
    const std::size_t place = PlainSearch(bytes, static_cast<std::size_t>(file->Position()), header);
    if (place != std::string::npos) {
        tag.Bitrate = header.Bitrate;
        tag.SampleRate = header.SampleRate;
        tag.ChannelMode = header.ChannelMode;
        if (tag.Bitrate > 0) {
            tag.Frames = ToI32(tag.Length * 8.0 / tag.Bitrate / 26.125);
            tag.Seconds = ToI32(static_cast<double>(tag.Length) / tag.Bitrate / 125);
        }
        PlainBlock(bytes, place, tag, ansi);
    }
    tag.AllowEdits = true;
}

std::string Everything(const ID3Tag& tag) {
    const ID3v2Extension& v2 = tag.ID3v2Extension;
    std::string text;
    for (const std::string& field : {tag.Artist,
                                     tag.Title,
                                     tag.Album,
                                     tag.Year,
                                     tag.Comment,
                                     tag.Path,
                                     tag.Encoder,
                                     v2.TrackNumber,
                                     v2.EncodedBy,
                                     v2.Copyright,
                                     v2.OriginalArtist,
                                     v2.Composer,
                                     v2.Comments,
                                     v2.Year,
                                     v2.AlbumTitle,
                                     v2.TrackTitle,
                                     v2.URL,
                                     v2.Artist,
                                     v2.UnknownFrames,
                                     v2.Mix,
                                     v2.Genre,
                                     tag.LyricsExtension.Artist,
                                     tag.LyricsExtension.TrackTitle})
        text += field + "|";
    for (const std::int64_t number :
         {std::int64_t{tag.Length}, std::int64_t{tag.Bitrate}, std::int64_t{tag.Seconds},
          std::int64_t{tag.VBR}, std::int64_t{tag.Frames}, std::int64_t{tag.SampleRate},
          std::int64_t{tag.ChannelMode}, std::int64_t{tag.ID3v2Present}, std::int64_t{tag.LyricsPresent},
          std::int64_t{tag.AllowEdits}, std::int64_t{tag.Genre}, std::int64_t{tag.TrackNumber},
          std::int64_t{v2.TagSize}, std::int64_t{v2.bExtendedHeader}, std::int64_t{v2.bFooterPresent}})
        text += std::to_string(number) + "|";
    return text;
}

class MP3FileDamagedTest : public ::testing::Test {
  protected:
    /// Reads the bytes as a file both ways; the number of the run-time failure.
    int ExpectSameAsPlain(std::string_view bytes) {
        const std::string path = folder.Write("a.mp3", bytes);
        ID3Tag tag;
        ID3Tag plain;
        const int error = RuntimeErrorOf([&] { ReadMP3File({files, ansi}, path, tag); });
        const int plainError = RuntimeErrorOf([&] { PlainRead(files, ansi, path, plain); });
        EXPECT_EQ(error, plainError);
        EXPECT_EQ(Everything(tag), Everything(plain));
        return error;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    const std::string tagInFront =
        Id3v2(TextFrame("TIT2", "T (M)") + RawFrame("PRIV", "xy") + TextFrame("TPE1", "A"), 80);
    const std::string tagsBehind = "LYRICSBEGINETT00005HelloEAR00002Me000034LYRICS200" +
                                   Id3v1{"T", "A", "L", "1999", "C", 3, 17}.Bytes();
    const std::string small =
        Mp3().InFront(tagInFront).Block("Xing", 1000).Behind(tagsBehind).Size(600).Bytes();
};

TEST_F(MP3FileDamagedTest, WholeFile_IsReadInFull) {
    EXPECT_EQ(ExpectSameAsPlain(small), 0);
    ID3Tag tag;
    ReadMP3File({files, ansi}, folder / "a.mp3", tag);
    EXPECT_EQ(tag.Frames, 1000);
    EXPECT_EQ(tag.Title, "T");
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hello");
    EXPECT_EQ(tag.ID3v2Extension.Mix, "M");
}

TEST_F(MP3FileDamagedTest, TruncatedAtEveryLength) {
    for (std::size_t length = 0; length <= small.size(); ++length) ExpectSameAsPlain(small.substr(0, length));
}

TEST_F(MP3FileDamagedTest, TruncatedInFrontAtEveryLength) {
    for (std::size_t start = 0; start <= small.size(); ++start) ExpectSameAsPlain(small.substr(start));
}

TEST_F(MP3FileDamagedTest, EveryByteChanged) {
    for (std::size_t at = 0; at < small.size(); ++at) {
        for (const char change : {'\0', '\x7F', '\xFF', '9'}) {
            std::string damaged = small;
            damaged[at] = change;
            ExpectSameAsPlain(damaged);
        }
    }
}

TEST_F(MP3FileDamagedTest, EveryBitOfTheHeaderAndTheBlockChanged) {
    for (std::size_t at = tagInFront.size(); at < tagInFront.size() + 48; ++at) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            std::string damaged = small;
            damaged[at] = static_cast<char>(static_cast<unsigned char>(damaged[at]) ^ 1U << bit);
            ExpectSameAsPlain(damaged);
        }
    }
}

TEST_F(MP3FileDamagedTest, RandomBytes) {
    std::mt19937 random(20021);
    for (int round = 0; round < 300; ++round) {
        std::string bytes(random() % 6000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        ExpectSameAsPlain(bytes);
        ExpectSameAsPlain(tagInFront + bytes);
        ExpectSameAsPlain(bytes + tagsBehind);
    }
}

/// Pieces of headers and markers in random order meet every border of what is read at once.
TEST_F(MP3FileDamagedTest, RandomPieces) {
    const std::string pieces[] = {"\xFF",
                                  "\xFF\xE3",
                                  "\xFF\xF9\x90",
                                  "\xFF\xFA\xF0\x01",
                                  "Xing",
                                  "Info",
                                  "Xin",
                                  "\0\0\0\1\0\0\3\xE8"s,
                                  "LAME3.100 ",
                                  "LYRICS",
                                  "LYRICS200",
                                  "000020",
                                  "TAG",
                                  "ID3",
                                  std::string(40, '\0'),
                                  std::string(1000, '\xFF'),
                                  std::string(1021, 'x'),
                                  std::string(3000, '\0')};
    std::mt19937 random(4711);
    for (int round = 0; round < 400; ++round) {
        std::string bytes = round % 2 == 0 ? std::string() : Id3v2("", static_cast<int>(random() % 9000));
        const std::size_t count = 1 + random() % 30;
        const std::size_t header = random() % 60;
        for (std::size_t i = 0; i < count; ++i) {
            if (i == header) bytes += "\xFF\xFB\x90\x64";
            bytes += pieces[random() % std::size(pieces)];
        }
        ExpectSameAsPlain(bytes);
    }
}

TEST_F(MP3FileDamagedTest, NothingButSyncBytes_IsSearchedToTheLimit) {
    EXPECT_EQ(ExpectSameAsPlain(std::string(50'000, '\xFF')), 0);
    EXPECT_EQ(ExpectSameAsPlain(std::string(40'963, '\xFF') + "\xFB\x90\x64" + std::string(500, 'x')), 0);
}

}  // namespace
}  // namespace zefta::test
