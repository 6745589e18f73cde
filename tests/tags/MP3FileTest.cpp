#include <filesystem>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/MP3File.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

constexpr std::int32_t SearchedForHeader = 40960;

// 128 kbps, layer 3, joint stereo, at the rates of MPEG-1 and MPEG-2.
const std::string At44100 = "\xFF\xFB\x90\x64";
const std::string At22050 = "\xFF\xF3\xC0\x64";
const std::string FreeFormat = "\xFF\xFB\x00\x64"s;
const std::string ReservedRate = "\xFF\xFB\x9C\x64";
const std::string Mpeg25 = "\xFF\xE3\x90\x64";

class MP3FileTest : public ::testing::Test {
  protected:
    ID3Tag Read(std::string_view bytes) { return ReadPath(folder.Write("a.mp3", bytes)); }
    ID3Tag Read(const Mp3& file) { return Read(file.Bytes()); }

    /// The record, and the number of the run-time failure in `error`.
    ID3Tag ReadPath(const std::string& path) {
        ID3Tag tag;
        error = RuntimeErrorOf([&] { ReadMP3File({files, ansi}, path, tag); });
        return tag;
    }

    /// A file that is mostly a hole, with the bytes at its start.
    std::string WriteHuge(std::string_view start, std::uintmax_t size) {
        const std::string path = folder.Write("huge.mp3", start);
        std::filesystem::resize_file(path, size);
        return path;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1251);
    int error = 0;
};

void ExpectNoStream(const ID3Tag& tag) {
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_EQ(tag.SampleRate, 0);
    EXPECT_EQ(tag.ChannelMode, 0);
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.Encoder, "");
}

// Opening.

TEST_F(MP3FileTest, FileThatIsNotThere_EmptiesThePath) {
    for (const std::string& path : {folder / "none.mp3", folder / "none/none.mp3", folder.Path(), ""s}) {
        const ID3Tag tag = ReadPath(path);
        EXPECT_EQ(tag.Path, "");
        EXPECT_FALSE(tag.AllowEdits);
        EXPECT_EQ(tag.Length, 0);
        EXPECT_EQ(error, 0);
    }
}

TEST_F(MP3FileTest, Path_HasNoDoubledSeparator) {
    folder.Write("a.mp3", Mp3().Bytes());
    EXPECT_EQ(ReadPath(folder.Path() + "//a.mp3").Path, folder / "a.mp3");
    EXPECT_EQ(ReadPath(folder.Path() + "/a.mp3").Path, folder / "a.mp3");
}

TEST_F(MP3FileTest, EmptyFile_HasNoStreamAndMayBeEdited) {
    const ID3Tag tag = Read("");
    EXPECT_EQ(tag.Path, folder / "a.mp3");
    EXPECT_EQ(tag.Length, 0);
    EXPECT_TRUE(tag.AllowEdits);
    ExpectNoStream(tag);
    EXPECT_EQ(error, 0);
}

TEST_F(MP3FileTest, ReadOnlyAttribute_IsTold) {
    const std::string path = folder.Write("a.mp3", Mp3().Bytes());
    EXPECT_FALSE(ReadPath(path).ReadOnly);
    files.SetReadOnly(path, true);
    const ID3Tag tag = ReadPath(path);
    EXPECT_TRUE(tag.ReadOnly);
    EXPECT_TRUE(tag.AllowEdits);
}

// Tags.

TEST_F(MP3FileTest, Tags_OfAllKindsAreRead) {
    const std::string lyrics = "LYRICSBEGINETT00005HelloEAR00002Me000034LYRICS200";
    const ID3Tag tag = Read(Mp3()
                                .InFront(Id3v2(TextFrame("TIT2", "Long title (Mix)"), 60))
                                .Behind(lyrics + Id3v1{"Title", "Artist", "", "", "", 3, 17}.Bytes())
                                .Size(16000));
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.TrackNumber, 3);
    EXPECT_EQ(tag.Genre, 17);
    EXPECT_TRUE(tag.LyricsPresent);
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hello");
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "Long title");
    EXPECT_EQ(tag.ID3v2Extension.Mix, "Mix");
    EXPECT_EQ(tag.Length, 16000);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.Seconds, 1);
    EXPECT_FALSE(tag.IsOggVorbisFile);
    EXPECT_FALSE(tag.IsMpegPlusFile);
}

TEST_F(MP3FileTest, ApeTag_IsNotLookedFor) {
    const std::string ape = "APETAGEX" + "\xD0\x07\0\0\x20\0\0\0\0\0\0\0\0\0\0\0"s + std::string(8, '\0');
    const ID3Tag tag = Read(Mp3().Behind(ape));
    EXPECT_EQ(tag.ID3v2Extension.TagSize, 0);
    EXPECT_FALSE(tag.ID3v2Present);
}

TEST_F(MP3FileTest, ID3v2TagLongerThanTheFile_LeavesNothingToSearch) {
    std::string bytes = Mp3().InFront(Id3v2("", 100)).Size(2000).Bytes();
    bytes.replace(6, 4, "\0\0\x7F\x7F"s);
    const ID3Tag tag = Read(bytes);
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_TRUE(tag.AllowEdits);
    ExpectNoStream(tag);
}

TEST_F(MP3FileTest, HeaderInsideTheID3v2Tag_IsNotSeen) {
    const ID3Tag tag = Read(Mp3().InFront(Id3v2(RawFrame("PRIV", "x" + At22050), 60)));
    EXPECT_EQ(tag.SampleRate, 44100);
}

// The search for the first header.

TEST_F(MP3FileTest, ConstantRate_IsEstimatedFromTheSizeOfTheFile) {
    const ID3Tag tag = Read(Mp3().Size(1'000'000));
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.ChannelMode, 1);
    EXPECT_EQ(tag.Seconds, 62);   // 62.5
    EXPECT_EQ(tag.Frames, 2392);  // 2392.34
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.Encoder, "");
    EXPECT_EQ(Read(Mp3().Size(1'000'001)).Seconds, 63);
    EXPECT_EQ(Read(Mp3().Size(1'016'000)).Seconds, 64);  // 63.5
}

TEST_F(MP3FileTest, TagsCountAsAudio) {
    const ID3Tag tag = Read(Mp3().InFront(Id3v2("", 15990)).Behind(Id3v1{}.Bytes()).Size(32000));
    EXPECT_EQ(tag.Seconds, 2);
    EXPECT_EQ(tag.Frames, 77);  // 76.56
}

TEST_F(MP3FileTest, AllRates_TakeTheSameTimeForAFrame) {
    const ID3Tag tag = Read(Mp3().Header(At22050).Size(104500));
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.SampleRate, 22050);
    EXPECT_EQ(tag.Frames, 250);
    EXPECT_EQ(tag.Seconds, 7);  // 6.53
}

TEST_F(MP3FileTest, Mpeg25_IsRefusedAndTheSearchGoesOn) {
    const ID3Tag tag = Read(Mp3().InFront(Mpeg25));
    EXPECT_EQ(tag.SampleRate, 44100);
    ExpectNoStream(Read(Mp3().Header(Mpeg25)));
}

TEST_F(MP3FileTest, RefusedHeader_MayHoldTheNextOneInItsLastBytes) {
    EXPECT_EQ(Read(Mp3().InFront("\xFF")).Bitrate, 128);
    EXPECT_EQ(Read(Mp3().InFront("\xFF\xE3")).Bitrate, 128);
    EXPECT_EQ(Read(Mp3().InFront("\xFF\xE3\x90")).Bitrate, 128);
}

TEST_F(MP3FileTest, StrayPattern_WinsOverTheRealFrame) {
    const std::string stray = std::string(500, 'x') + "\xFF\xFD\x10\xC0" + std::string(500, 'x');
    const ID3Tag tag = Read(Mp3().InFront(stray).Size(50000));
    EXPECT_EQ(tag.Bitrate, 32);
    EXPECT_EQ(tag.ChannelMode, 3);
}

TEST_F(MP3FileTest, ReservedLayer_CountsOnceARefusedHeaderToldOne) {
    ExpectNoStream(Read(Mp3().Header("\xFF\xF9\x90\x64")));
    const ID3Tag tag = Read(Mp3().InFront(Mpeg25).Header("\xFF\xF9\x90\x64"));
    EXPECT_EQ(tag.Bitrate, 128);
}

TEST_F(MP3FileTest, Header_IsFoundInTheFirst40960BytesBehindTheTag) {
    for (const std::string& tag : {""s, Id3v2("", 3000), Id3v2("", 30000)}) {
        for (const std::int32_t at : {0, 1, 1020, 1021, 1022, 1023, 1024, 1025, 4096, 8189, 8190, 8191, 8192,
                                      20000, SearchedForHeader - 1}) {
            const std::string space(static_cast<std::size_t>(at), '\0');
            EXPECT_EQ(Read(Mp3().InFront(tag + space).Size(90000)).Bitrate, 128) << at;
        }
        for (const std::int32_t at : {SearchedForHeader, SearchedForHeader + 1, SearchedForHeader + 500}) {
            const std::string space(static_cast<std::size_t>(at), '\0');
            const ID3Tag none = Read(Mp3().InFront(tag + space).Size(90000));
            ExpectNoStream(none);
            EXPECT_TRUE(none.AllowEdits);
        }
    }
}

TEST_F(MP3FileTest, Header_NeedsMoreThan128BytesToTheEnd) {
    for (const std::string& tag : {""s, Id3v2("", 20), Id3v2("", 10000)}) {
        const std::string space(300, '\0');
        ExpectNoStream(Read(Mp3().InFront(tag).Size(tag.size() + 128)));
        EXPECT_EQ(Read(Mp3().InFront(tag).Size(tag.size() + 129)).SampleRate, 44100);
        ExpectNoStream(Read(Mp3().InFront(tag + space).Size(tag.size() + 428)));
        EXPECT_EQ(Read(Mp3().InFront(tag + space).Size(tag.size() + 429)).SampleRate, 44100);
    }
}

TEST_F(MP3FileTest, NoHeaderAnywhere_HasNoStreamAndMayBeEdited) {
    const ID3Tag tag = Read(Audio(200'000));
    ExpectNoStream(tag);
    EXPECT_TRUE(tag.AllowEdits);
    EXPECT_EQ(tag.Length, 200'000);
}

// Xing and Info blocks.

TEST_F(MP3FileTest, Xing_GivesFramesTimeRateAndEncoder) {
    const ID3Tag tag = Read(Mp3().Block("Xing", 1000, "LAME3.90 xyz").Size(416'000));
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Frames, 1000);
    EXPECT_EQ(tag.Seconds, 26);   // 26.125
    EXPECT_EQ(tag.Bitrate, 128);  // 416000 / 26 / 125
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.Encoder, "LAME3.90");
    EXPECT_EQ(error, 0);
}

TEST_F(MP3FileTest, Xing_AtHalfTheRate_CountsTwiceTheTime) {
    const ID3Tag tag = Read(Mp3().Header(At22050).Block("Xing", 1000).Size(416'000));
    EXPECT_EQ(tag.Seconds, 52);
    EXPECT_EQ(tag.Bitrate, 64);
}

TEST_F(MP3FileTest, Xing_RoundsHalvesToEven) {
    // 26.125 ms a frame: 20 frames are 0.5225 s, 19 frames 0.496 s; 100 / 125 / 1 is 0.8 kbps.
    EXPECT_EQ(Read(Mp3().Block("Xing", 20).Size(1000)).Seconds, 1);
    EXPECT_EQ(Read(Mp3().Block("Xing", 40).Size(62'500)).Bitrate, 500);
    EXPECT_EQ(Read(Mp3().Block("Xing", 40).Size(62'562)).Bitrate, 500);  // 500.496
    // 1000 bytes in 16 s are half a kilobit, 3000 bytes one and a half.
    EXPECT_EQ(Read(Mp3().Block("Xing", 612).Size(1000)).Bitrate, 0);
    EXPECT_EQ(Read(Mp3().Block("Xing", 612).Size(3000)).Bitrate, 2);
    EXPECT_EQ(Read(Mp3().Block("Xing", 612).Size(5000)).Bitrate, 2);
}

TEST_F(MP3FileTest, Xing_CountsTheWholeFileForTheRate) {
    const ID3Tag tag =
        Read(Mp3().InFront(Id3v2("", 9990)).Block("Xing", 38).Behind(Id3v1{}.Bytes()).Size(20'000));
    EXPECT_EQ(tag.Seconds, 1);
    EXPECT_EQ(tag.Bitrate, 160);
}

TEST_F(MP3FileTest, Block_IsFoundAnywhereIn4096BytesBehindTheHeader) {
    for (const std::string& tag : {""s, Id3v2("", 4000), Id3v2("", 9000)}) {
        for (const std::size_t at : {4U, 5U, 13U, 21U, 36U, 1000U, 4095U, 4096U}) {
            const Mp3 file = Mp3().InFront(tag).Block("Xing", 1000).BlockAt(at).Size(416'000);
            const ID3Tag found = Read(file);
            EXPECT_TRUE(found.VBR) << at;
            EXPECT_EQ(found.Frames, 1000);
            EXPECT_EQ(found.Encoder, "LAME3.100");
        }
        for (const std::size_t at : {4097U, 4100U, 5000U}) {
            const Mp3 file = Mp3().InFront(tag).Block("Xing", 1000).BlockAt(at).Size(416'000);
            EXPECT_FALSE(Read(file).VBR) << at;
            EXPECT_EQ(Read(file).Encoder, "");
        }
    }
}

TEST_F(MP3FileTest, Marker_InAnotherCase_IsNone) {
    for (const char* marker : {"XING", "xing", "INFO", "info", "Xin", "Inf"}) {
        const ID3Tag tag = Read(Mp3().Block(marker, 1000).Size(160'000));
        EXPECT_FALSE(tag.VBR);
        EXPECT_EQ(tag.Encoder, "");
        EXPECT_EQ(tag.Seconds, 10);
    }
}

TEST_F(MP3FileTest, Info_GivesTheEncoderOnly) {
    const ID3Tag tag = Read(Mp3().Block("Info", 1000).Size(160'000));
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.Encoder, "LAME3.100");
    EXPECT_EQ(tag.Frames, 383);  // 382.78
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.Bitrate, 128);
}

TEST_F(MP3FileTest, XingBehindInfo_Wins) {
    std::string bytes = Mp3().Block("Info", 500, "First").Size(416'000).Bytes();
    bytes.replace(2000, 12, "Xing\0\0\0\1\0\0\3\xE8"s);
    bytes.replace(2120, 16, "Second\0\0\0\0\0\0\0\0\0\0"s);
    const ID3Tag tag = Read(bytes);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Frames, 1000);
    EXPECT_EQ(tag.Encoder, "Second");
}

TEST_F(MP3FileTest, FirstOfTwoXings_Counts) {
    std::string bytes = Mp3().Block("Xing", 1000, "First").Size(416'000).Bytes();
    bytes.replace(2000, 12, "Xing\0\0\0\1\0\0\0\1"s);
    EXPECT_EQ(Read(bytes).Frames, 1000);
    EXPECT_EQ(Read(bytes).Encoder, "First");
}

TEST_F(MP3FileTest, Encoder_IsTheFirstWordWithNulsTakenForBlanks) {
    const std::pair<std::string, std::string> rows[] = {
        {"LAME3.90 xyz", "LAME3.90"},
        {"LAME3.90\0xyz"s, "LAME3.90"},
        {"\0\0 LAME 3.1"s, "LAME"},
        {"LAME3.100", "LAME3.100"},
        {"0123456789abcdefgh", "0123456789abcdef"},
        {"", ""},
        {"                ", ""},
        {"A\tB C", "A\tB"},
        {"\xC4\xEE\xEC 1", "Дом"},
    };
    for (const auto& [bytes, expected] : rows) {
        EXPECT_EQ(Read(Mp3().Block("Info", 0, bytes).Size(9000)).Encoder, expected);
        EXPECT_EQ(Read(Mp3().Block("Xing", 1000, bytes).Size(9000)).Encoder, expected);
    }
}

TEST_F(MP3FileTest, Block_CutByTheEndOfTheFile_GivesWhatIsThere) {
    // The header needs its 128 bytes, so the block has to stand well behind it.
    const std::string whole = Mp3().Block("Xing", 0x01000000).BlockAt(200).Size(0).Bytes();
    const ID3Tag noCount = Read(whole.substr(0, 208));
    EXPECT_TRUE(noCount.VBR);
    EXPECT_EQ(noCount.Frames, 0);
    EXPECT_EQ(error, 11);
    const ID3Tag firstByte = Read(whole.substr(0, 209));
    EXPECT_EQ(firstByte.Frames, 0x01000000);
    EXPECT_EQ(firstByte.Encoder, "");
    EXPECT_EQ(Read(whole.substr(0, 324)).Encoder, "LAME");
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(Read(whole.substr(0, 203)).VBR);
}

TEST_F(MP3FileTest, FreeFormat_HasNoEstimateButABlockCounts) {
    const ID3Tag plain = Read(Mp3().Header(FreeFormat).Size(160'000));
    EXPECT_EQ(plain.Bitrate, 0);
    EXPECT_EQ(plain.Seconds, 0);
    EXPECT_EQ(plain.Frames, 0);
    EXPECT_EQ(plain.SampleRate, 44100);
    EXPECT_EQ(plain.ChannelMode, 1);
    const ID3Tag info = Read(Mp3().Header(FreeFormat).Block("Info", 1000).Size(160'000));
    EXPECT_EQ(info.Encoder, "LAME3.100");
    EXPECT_EQ(info.Seconds, 0);
    const ID3Tag xing = Read(Mp3().Header(FreeFormat).Block("Xing", 1000).Size(416'000));
    EXPECT_EQ(xing.Seconds, 26);
    EXPECT_EQ(xing.Bitrate, 128);
}

TEST_F(MP3FileTest, ReservedSampleRate_IsEstimatedAllTheSame) {
    const ID3Tag tag = Read(Mp3().Header(ReservedRate).Size(160'000));
    EXPECT_EQ(tag.SampleRate, 0);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_TRUE(tag.AllowEdits);
}

// Run-time failures; what was read up to there stays.

TEST_F(MP3FileTest, XingWithoutFrames_EndsInADivisionByZero) {
    const ID3Tag tag = Read(Mp3().Block("Xing", 0).Behind(Id3v1{"Title"}.Bytes()).Size(160'000));
    EXPECT_EQ(error, 11);
    EXPECT_EQ(tag.Path, folder / "a.mp3");
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.Length, 160'000);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.Encoder, "");
    EXPECT_FALSE(tag.AllowEdits);
}

TEST_F(MP3FileTest, XingOfLessThanHalfASecond_EndsInADivisionByZero) {
    EXPECT_EQ(Read(Mp3().Block("Xing", 19).Size(8000)).Frames, 19);
    EXPECT_EQ(error, 11);
}

TEST_F(MP3FileTest, XingWithoutASampleRate_EndsInADivisionByZero) {
    for (const std::int32_t frames : {0, 1000}) {
        const ID3Tag tag = Read(Mp3().Header(ReservedRate).Block("Xing", frames).Size(160'000));
        EXPECT_EQ(error, 11);
        EXPECT_TRUE(tag.VBR);
        EXPECT_EQ(tag.Frames, frames);
        EXPECT_EQ(tag.Seconds, 10);
        EXPECT_FALSE(tag.AllowEdits);
    }
}

TEST_F(MP3FileTest, XingWithANegativeCount_IsTakenAsItIs) {
    const ID3Tag tag = Read(Mp3().Block("Xing", -1000).Size(416'000));
    EXPECT_EQ(tag.Frames, -1000);
    EXPECT_EQ(tag.Seconds, -26);
    EXPECT_EQ(tag.Bitrate, -128);
    EXPECT_EQ(error, 0);
}

TEST_F(MP3FileTest, RateThatDoesNotFit_EndsInAnOverflow) {
    const ID3Tag fits = Read(Mp3().Block("Xing", 38).Size(32767 * 125));
    EXPECT_EQ(fits.Bitrate, 32767);
    EXPECT_EQ(error, 0);
    const ID3Tag tag = Read(Mp3().Block("Xing", 38).Size(32768 * 125));
    EXPECT_EQ(error, 6);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Seconds, 1);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.Encoder, "");
}

TEST_F(MP3FileTest, LengthOf256MiB_EndsInAnOverflowOfTheEstimate) {
    constexpr std::uintmax_t Limit = 256 * 1024 * 1024;
    const ID3Tag below = ReadPath(WriteHuge(At44100, Limit - 1));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(below.Frames, 642'190);  // 642190.08
    EXPECT_EQ(below.Seconds, 16'777);
    const ID3Tag tag = ReadPath(WriteHuge(At44100, Limit));
    EXPECT_EQ(error, 6);
    EXPECT_EQ(tag.Length, 268'435'456);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.ChannelMode, 1);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_FALSE(tag.AllowEdits);
    ReadPath(WriteHuge(FreeFormat, Limit));
    EXPECT_EQ(error, 0);
}

TEST_F(MP3FileTest, LengthOf2GiB_EndsInAnOverflowWithThePathSet) {
    const ID3Tag tag = ReadPath(WriteHuge(At44100, 2147483648U));
    EXPECT_EQ(error, 6);
    EXPECT_EQ(tag.Path, folder / "huge.mp3");
    EXPECT_EQ(tag.Length, 0);
    const ID3Tag largest = ReadPath(WriteHuge(FreeFormat, 2147483647U));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(largest.Length, 2147483647);
}

TEST_F(MP3FileTest, FailureOfATagReader_GoesUpWithTheTagsReadSoFar) {
    const ID3Tag tag = Read(Mp3().Behind("xx1234LYRICSEND" + Id3v1{"Title"}.Bytes()));
    EXPECT_EQ(error, 13);
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_TRUE(tag.LyricsPresent);
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_FALSE(tag.AllowEdits);
}

TEST_F(MP3FileTest, DeviceThatFails_EndsTheReadingAtEachPlace) {
    const std::string path =
        folder.Write("a.mp3", Mp3().InFront(Id3v2("", 20000)).Block("Xing", 1000).Size(99'000).Bytes());
    FaultInjectingFileSystem faulty(files);
    const auto readWith = [&](FaultPlan plan) {
        faulty.faults = {plan, 0};
        ID3Tag tag;
        error = RuntimeErrorOf([&] { ReadMP3File({faulty, ansi}, path, tag); });
        return tag;
    };
    readWith({});
    const int operations = faulty.faults.operations;
    ASSERT_GE(operations, 3);
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1; nth <= operations; ++nth) {
            const ID3Tag tag = readWith({mode, nth, ErrorNumber::DeviceIoError});
            EXPECT_EQ(error, nth == 1 ? 0 : 57) << nth;
            EXPECT_EQ(tag.Path, nth == 1 ? "" : path);
            EXPECT_FALSE(tag.AllowEdits);
        }
    }
}

}  // namespace
}  // namespace zefta::test
