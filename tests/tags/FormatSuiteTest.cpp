// What every tag format keeps to: one suite, a row a format.

#include <algorithm>
#include <iterator>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/Lyrics3.h"

namespace zefta::test {
namespace {

struct Format {
    const char* name;
    /// A small tagged file around the audio.
    std::string (*file)(const std::string& audio);
    /// Its audio, cut out again.
    std::string (*audioOf)(FileSystem& files, const std::string& path);
    void (*read)(BinaryFile& file, ID3Tag& tag, const CodePage& ansi);
    /// Writes the record; null for a format that is only read.
    void (*write)(FileSystem& files, const CodePage& ansi, ID3Tag& tag);
};

std::string WholeBytes(FileSystem& files, const std::string& path) {
    const auto file = files.OpenReadOnly(path);
    return file->ReadBytes(file->Size());
}

std::string WithoutID3v1(FileSystem& files, const std::string& path) {
    std::string bytes = WholeBytes(files, path);
    const bool hasTag = bytes.size() >= 128 && bytes.substr(bytes.size() - 128, 3) == "TAG";
    return hasTag ? bytes.substr(0, bytes.size() - 128) : bytes;
}

std::string WithoutID3v2(FileSystem& files, const std::string& path) {
    ID3Tag tag;
    const auto file = files.OpenReadOnly(path);
    ReadID3v2(*file, tag, LoadCodePage(1252));
    return file->ReadBytes(file->Size());
}

const Format Formats[] = {
    {"ID3v1",
     [](const std::string& audio) { return audio + Id3v1{"T", "A", "L", "1999", "C", 3, 17}.Bytes(); },
     WithoutID3v1, [](BinaryFile& file, ID3Tag& tag, const CodePage& ansi) { ReadID3v1(file, tag, ansi); },
     SetID3v1},
    {"ID3v2",
     [](const std::string& audio) {
         return Id3v2(TextFrame("TIT2", "T (M)") + RawFrame("PRIV", "\xFFx") + TextFrame("TPE1", "A"), 60) +
                audio;
     },
     WithoutID3v2, [](BinaryFile& file, ID3Tag& tag, const CodePage& ansi) { ReadID3v2(file, tag, ansi); },
     SetID3v2},
    {"Lyrics3",
     [](const std::string& audio) { return audio + "LYRICSBEGINETT00005HelloEAR00002Me000034LYRICS200"; },
     WholeBytes, [](BinaryFile& file, ID3Tag& tag, const CodePage& ansi) { ReadLyrics3(file, tag, ansi); },
     nullptr},
};

std::vector<Format> WrittenFormats() {
    std::vector<Format> written;
    std::copy_if(std::begin(Formats), std::end(Formats), std::back_inserter(written),
                 [](const Format& format) { return format.write != nullptr; });
    return written;
}

class FormatSuite : public ::testing::TestWithParam<Format> {
  protected:
    ID3Tag Read(const std::string& what) {
        ID3Tag tag;
        tag.Path = what;
        const auto file = files.OpenReadOnly(what);
        GetParam().read(*file, tag, ansi);
        return tag;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    const std::string audio = Audio(700);
    std::string path = folder.Write("a.mp3", GetParam().file(audio));
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
    for (const std::string& field : {tag.Title, tag.Artist, tag.Album, tag.Year, tag.Comment, v2.TrackTitle,
                                     v2.Mix, v2.Artist, v2.UnknownFrames, v2.Genre, v2.Comments, v2.URL})
        text += field + "|";
    return text + std::to_string(tag.TrackNumber) + "|" + std::to_string(tag.Genre);
}

TEST_P(WriterSuite, WriteWhatWasRead_ComesBackAndIsStable) {
    ID3Tag tag = Read(path);
    const std::string fields = Fields(tag);
    GetParam().write(files, ansi, tag);
    EXPECT_EQ(Fields(Read(path)), fields);
    EXPECT_EQ(GetParam().audioOf(files, path), audio);
    const std::string once = ReadWholeFile(path);
    ID3Tag again = Read(path);
    GetParam().write(files, ansi, again);
    EXPECT_EQ(ReadWholeFile(path), once);
}

TEST_P(FormatSuite, TruncatedAtEveryLength_ReadsWithoutHarm) {
    const std::string whole = GetParam().file(audio);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = folder.Write("cut.mp3", whole.substr(0, length));
        RuntimeErrorOf([&] { Read(cut); });
        EXPECT_EQ(ReadWholeFile(cut).size(), length);
    }
}

TEST_P(FormatSuite, TruncatedInFront_ReadsWithoutHarm) {
    const std::string whole = GetParam().file(audio);
    for (std::size_t start = 0; start <= whole.size(); ++start) {
        const std::string cut = folder.Write("cut.mp3", whole.substr(start));
        RuntimeErrorOf([&] { Read(cut); });
        EXPECT_EQ(ReadWholeFile(cut).size(), whole.size() - start);
    }
}

TEST_P(FormatSuite, EveryByteOfTheTagChanged_ReadsWithoutHarm) {
    const std::string whole = GetParam().file(Audio(20));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char byte : {'\0', '\x7F', '\x80', '\xFF', '9'}) {
            std::string damaged = whole;
            damaged[at] = byte;
            const std::string damagedPath = folder.Write("damaged.mp3", damaged);
            RuntimeErrorOf([&] { Read(damagedPath); });
            EXPECT_EQ(ReadWholeFile(damagedPath), damaged);
        }
    }
}

TEST_P(WriterSuite, EveryOperationFailing_AudioStaysWhole) {
    const std::string original = ReadWholeFile(path);
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        bool reachedTheEnd = false;
        for (int n = 1; !reachedTheEnd; ++n) {
            WriteWholeFile(path, original);
            ID3Tag tag = Read(path);
            tag.Title = tag.ID3v2Extension.TrackTitle = "A new and longer title than the one before";
            FaultInjectingFileSystem failing(files);
            failing.faults.plan = {mode, n, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { GetParam().write(failing, ansi, tag); });
            reachedTheEnd = failing.faults.operations < n;
            const std::string audioNow = GetParam().audioOf(files, path);
            // An appended tag that was cut short lies behind audio that is whole.
            EXPECT_EQ(audioNow.substr(0, audio.size()), audio) << GetParam().name << " operation " << n;
            ASSERT_LT(n, 100);
        }
    }
}

}  // namespace
}  // namespace zefta::test
