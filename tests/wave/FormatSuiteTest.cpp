// What every format that the program reads or writes keeps to: one suite, a row a format.

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <vector>

#include <gtest/gtest.h>

#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "tags/APE2.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/Lyrics3.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

struct Format {
    const char* name;
    const char* fileName;
    /// A small tagged file around the audio.
    std::string (*file)(const std::string& audio);
    /// Its audio, cut out of the bytes of a file.
    std::string (*audioOf)(const std::string& bytes);
    /// Reads the file at tag.Path.
    void (*read)(App& app, ID3Tag& tag);
    /// Writes the record; null for a format that is only read.
    void (*write)(App& app, ID3Tag& tag);
};

std::string WithoutID3v1(const std::string& bytes) {
    const bool hasTag = bytes.size() >= 128 && bytes.substr(bytes.size() - 128, 3) == "TAG";
    return hasTag ? bytes.substr(0, bytes.size() - 128) : bytes;
}

std::string WithoutID3v2(const std::string& bytes) {
    if (!bytes.starts_with("ID3")) return bytes;
    std::size_t size = 0;
    for (std::size_t i = 6; i < 10; ++i) size = size << 7 | static_cast<unsigned char>(bytes[i]);
    return bytes.substr(std::min(size + 10, bytes.size()));
}

std::string WithoutAPE(const std::string& bytes) {
    return bytes.substr(0, bytes.find("APETAGEX"));
}

/// The packets behind the headers; none when the pages are no stream.
std::string OggAudio(const std::string& bytes) {
    const std::vector<std::string> packets = PacketsOf(PagesOf(bytes));
    std::string audio;
    for (std::size_t i = 2; i < packets.size(); ++i) audio += packets[i];
    return audio;
}

std::string WaveAudio(const std::string& bytes) {
    const std::size_t data = bytes.find("data");
    return data == std::string::npos ? std::string() : bytes.substr(data + 8);
}

template <typename Reader>
void ReadOpened(App& app, const ID3Tag& tag, Reader reader) {
    if (const auto file = app.files.OpenReadOnly(tag.Path)) reader(*file);
}

void RewriteWave(App& app, ID3Tag& tag) {
    WaveFile wave(app);
    // No sample is silent: all of the audio stays.
    wave.MinSample = -1;
    const std::int32_t code = wave.ScanWave(tag.Path, false);
    if (code == 0) wave.ProcessWave(false);
}

const Format Formats[] = {
    {"ID3v1", "a.mp3",
     [](const std::string& audio) { return audio + Id3v1{"T", "A", "L", "1999", "C", 3, 17}.Bytes(); },
     WithoutID3v1,
     [](App& app, ID3Tag& tag) {
         ReadOpened(app, tag, [&](BinaryFile& file) { ReadID3v1(file, tag, app.ansi); });
     },
     [](App& app, ID3Tag& tag) { SetID3v1(app.files, app.ansi, tag); }},
    {"ID3v2", "a.mp3",
     [](const std::string& audio) {
         return Id3v2(TextFrame("TIT2", "T (M)") + RawFrame("PRIV", "\xFFx") + TextFrame("TPE1", "A"), 60) +
                audio;
     },
     WithoutID3v2,
     [](App& app, ID3Tag& tag) {
         ReadOpened(app, tag, [&](BinaryFile& file) { ReadID3v2(file, tag, app.ansi); });
     },
     [](App& app, ID3Tag& tag) { SetID3v2(app.files, app.ansi, tag); }},
    {"Lyrics3", "a.mp3",
     [](const std::string& audio) { return audio + "LYRICSBEGINETT00005HelloEAR00002Me000034LYRICS200"; },
     [](const std::string& bytes) { return bytes.substr(0, bytes.find("LYRICSBEGIN")); },
     [](App& app, ID3Tag& tag) {
         ReadOpened(app, tag, [&](BinaryFile& file) { ReadLyrics3(file, tag, app.ansi); });
     },
     nullptr},
    {"APE", "a.mpc",
     [](const std::string& audio) {
         return audio + Ape().Item("Title", "T (M)").Item("Publisher", "P").Item("Artist", "A").Bytes();
     },
     WithoutAPE,
     [](App& app, ID3Tag& tag) {
         ReadOpened(app, tag, [&](BinaryFile& file) { ReadAPE2(file, tag, UnknownContent::Keep); });
     },
     [](App& app, ID3Tag& tag) { SetAPE2(app.files, tag); }},
    {"VorbisComments", "a.ogg",
     [](const std::string& audio) {
         return Ogg()
             .Comment("TITLE=T (M)")
             .Comment("ARTIST=A")
             .Comment("X=\xFF")
             .Setup("\5vorbis" + audio)
             .AudioPages(1)
             .Bytes();
     },
     OggAudio, [](App& app, ID3Tag& tag) { tag = WaveFile(app).GetOGGFileInfo(tag.Path); },
     [](App& app, ID3Tag& tag) { WaveFile(app).SetOggComments(tag); }},
    {"WAV", "a.wav",
     [](const std::string& audio) { return Wav().Chunk("LIST", "abcd").Audio(audio).Tail("tail").Bytes(); },
     [](const std::string& bytes) { return WaveAudio(bytes).substr(0, 700); },
     [](App& app, ID3Tag& tag) { tag = WaveFile(app).GetWaveInfo(tag.Path); }, RewriteWave},
};

std::vector<Format> WrittenFormats() {
    std::vector<Format> written;
    std::copy_if(std::begin(Formats), std::end(Formats), std::back_inserter(written),
                 [](const Format& format) { return format.write != nullptr; });
    return written;
}

class FormatSuite : public ::testing::TestWithParam<Format> {
  protected:
    FormatSuite() : failing(real), app(&failing), path(app.folder / GetParam().fileName) {
        app.folder.Write(GetParam().fileName, original);
    }

    ID3Tag Read() {
        ID3Tag tag;
        tag.Path = path;
        GetParam().read(app, tag);
        return tag;
    }

    void Write(ID3Tag& tag) { GetParam().write(app, tag); }

    std::string AudioNow() { return GetParam().audioOf(ReadWholeFile(path)); }

    /// A reader takes it, fails in a way that it says it may, and changes nothing.
    void ReadsWithoutHarm(const std::string& bytes) {
        WriteWholeFile(path, bytes);
        RuntimeErrorOf([&] { Read(); });
        EXPECT_EQ(ReadWholeFile(path), bytes);
    }

    const std::string audio = Audio(700);
    const std::string original = GetParam().file(audio);
    PosixFileSystem real;
    FaultInjectingFileSystem failing;
    TestApp app;
    std::string path;
};

class WriterSuite : public FormatSuite {};

std::string NameOf(const ::testing::TestParamInfo<Format>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Formats, FormatSuite, ::testing::ValuesIn(Formats), NameOf);
INSTANTIATE_TEST_SUITE_P(Formats, WriterSuite, ::testing::ValuesIn(WrittenFormats()), NameOf);

std::string Fields(const ID3Tag& tag) {
    const ID3v2Extension& v2 = tag.ID3v2Extension;
    std::string text;
    for (const std::string& field :
         {tag.Title, tag.Artist, tag.Album, tag.Year, tag.Comment, v2.TrackTitle, v2.Mix, v2.Artist,
          v2.UnknownFrames, v2.Genre, v2.Comments, v2.URL, tag.OggVorbisExtension.getExComInOneString()})
        text += field + "|";
    return text + std::to_string(tag.TrackNumber) + "|" + std::to_string(tag.Genre);
}

TEST_P(FormatSuite, TestFile_HoldsItsAudioWhole) {
    EXPECT_NE(AudioNow().find(audio), std::string::npos);
}

TEST_P(WriterSuite, WriteWhatWasRead_ComesBackAndIsStable) {
    const std::string audioBefore = AudioNow();
    ID3Tag tag = Read();
    const std::string fields = Fields(tag);
    Write(tag);
    EXPECT_EQ(Fields(Read()), fields);
    EXPECT_EQ(AudioNow(), audioBefore);
    const std::string once = ReadWholeFile(path);
    ID3Tag again = Read();
    Write(again);
    EXPECT_EQ(ReadWholeFile(path), once);
}

TEST_P(FormatSuite, TruncatedAtEveryLength_ReadsWithoutHarm) {
    for (std::size_t length = 0; length <= original.size(); ++length)
        ReadsWithoutHarm(original.substr(0, length));
}

TEST_P(FormatSuite, TruncatedInFront_ReadsWithoutHarm) {
    for (std::size_t start = 0; start <= original.size(); ++start) ReadsWithoutHarm(original.substr(start));
}

TEST_P(FormatSuite, EveryByteOfTheTagChanged_ReadsWithoutHarm) {
    const std::string whole = GetParam().file(Audio(20));
    const std::size_t step = whole.size() / 1000 + 1;
    for (std::size_t at = 0; at < whole.size(); at += step) {
        for (const char byte : {'\0', '\x7F', '\x80', '\xFF', '9'}) {
            std::string damaged = whole;
            damaged[at] = byte;
            ReadsWithoutHarm(damaged);
        }
    }
}

TEST_P(WriterSuite, TruncatedAtEveryLength_WritesOrRefusesAndLosesNothing) {
    for (std::size_t length = 0; length <= original.size(); length += 1 + length / 300) {
        const std::string bytes = original.substr(0, length);
        WriteWholeFile(path, bytes);
        ID3Tag tag;
        RuntimeErrorOf([&] { tag = Read(); });
        tag.Path = path;
        tag.Title = tag.ID3v2Extension.TrackTitle = "New";
        RuntimeErrorOf([&] { Write(tag); });
        const std::string now = ReadWholeFile(path);
        // A new APE tag takes the place of the last 128 bytes.
        const std::size_t mayGo = std::string_view(GetParam().name) == "APE" ? 128 : 0;
        const std::size_t start = std::min<std::size_t>(length - std::min(length, mayGo), 8);
        const bool keepsTheStart = now.starts_with(bytes.substr(0, start));
        EXPECT_TRUE(keepsTheStart || now.size() >= length) << length;
        std::error_code none;
        std::filesystem::remove(path + ".BAK", none);
    }
}

TEST_P(WriterSuite, EveryOperationFailing_AudioStaysWhole) {
    const std::string audioBefore = AudioNow();
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        bool reachedTheEnd = false;
        for (int n = 1; !reachedTheEnd; ++n) {
            WriteWholeFile(path, original);
            failing.faults.plan = {};
            ID3Tag tag = Read();
            tag.Title = tag.ID3v2Extension.TrackTitle = "A new and longer title than the one before";
            failing.faults.operations = 0;
            failing.faults.plan = {mode, n, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { Write(tag); });
            reachedTheEnd = failing.faults.operations < n;
            // A rewritten WAV file may stand under the backup's name; an appended tag that was cut short lies
            // behind audio that is whole.
            const std::string kept = app.folder.Exists(GetParam().fileName) ? AudioNow() : std::string();
            const bool isWhole = kept.substr(0, audioBefore.size()) == audioBefore;
            const bool isBackedUp =
                std::filesystem::exists(path + ".BAK") && ReadWholeFile(path + ".BAK") == original;
            EXPECT_TRUE(isWhole || isBackedUp) << GetParam().name << " operation " << n;
            // Copies that could not be deleted either would each cost the next run one more operation.
            for (const FolderEntry& entry : app.files.List(app.folder.Path()))
                std::filesystem::remove(app.folder / entry.name);
            ASSERT_LT(n, 100);
        }
        EXPECT_GT(failing.faults.operations, 1);
    }
}

}  // namespace
}  // namespace zefta::test
