#include <map>

#include <gtest/gtest.h>

#include "encoding/ReEncodeStage.h"
#include "encoding/StreamExtent.h"
#include "support/ApeBuilder.h"
#include "support/ProgramRun.h"

namespace zefta::test {
namespace {

class StreamExtentTest : public ::testing::Test {
  protected:
    std::optional<StreamExtent> Measure(const std::string& name, const std::string& bytes) {
        return MeasureStream(files, folder.Write(name, bytes));
    }

    TempFolder folder;
    PosixFileSystem files;
};

constexpr double FrameSeconds = 1152.0 / 44100;

TEST_F(StreamExtentTest, MP3_CountsFramesBetweenTags) {
    const auto bare = Measure("a.mp3", Mp3Frames(100));
    ASSERT_TRUE(bare);
    EXPECT_TRUE(bare->isWhole);
    EXPECT_NEAR(bare->seconds, 100 * FrameSeconds, 1e-9);
    for (const std::string& end : {Id3v1().Bytes(), Ape().Item("Artist", "A").Bytes()}) {
        const auto tagged =
            Measure("a.mp3", Id3v2(TextFrame("TPE1", "\xFF\xFB"), 600) + Mp3Frames(100) + end);
        ASSERT_TRUE(tagged);
        EXPECT_TRUE(tagged->isWhole);
        EXPECT_NEAR(tagged->seconds, 100 * FrameSeconds, 1e-9);
    }
}

TEST_F(StreamExtentTest, MP3_LastFrameCutAnywhere_IsNotWhole) {
    const std::string bytes = Mp3Frames(30);
    for (std::size_t cut = 1; cut < 417; cut += 5) {
        const auto extent = Measure("a.mp3", bytes.substr(0, bytes.size() - cut));
        ASSERT_TRUE(extent) << cut;
        EXPECT_FALSE(extent->isWhole) << cut;
        EXPECT_NEAR(extent->seconds, 29 * FrameSeconds, 1e-9);
    }
}

TEST_F(StreamExtentTest, MP3_GarbageBetweenFrames_IsPassedOver) {
    const auto extent = Measure("a.mp3", Mp3Frames(50) + std::string(3000, 'y') + Mp3Frames(50));
    ASSERT_TRUE(extent);
    EXPECT_TRUE(extent->isWhole);
    EXPECT_NEAR(extent->seconds, 100 * FrameSeconds, 1e-9);
}

TEST_F(StreamExtentTest, MP3_LowRates_HaveTheirOwnFrames) {
    // MPEG-2 layer III, 64 kbps at 22050 Hz: 208 bytes, 576 samples.
    std::string bytes;
    for (int i = 0; i < 50; ++i) bytes += "\xFF\xF3\x80\x64" + std::string(204, 'x');
    const auto extent = Measure("a.mp3", bytes);
    ASSERT_TRUE(extent);
    EXPECT_TRUE(extent->isWhole);
    EXPECT_NEAR(extent->seconds, 50 * 576.0 / 22050, 1e-9);
}

TEST_F(StreamExtentTest, ContentThatIsNoStream_TellsNothing) {
    const std::string contents[] = {"",
                                    "encoded by lame",
                                    std::string(200000, '\xFF'),
                                    std::string(200000, '\0'),
                                    Mp3Frames(9),
                                    "OggS",
                                    "MPCK",
                                    "MP+\7" + std::string(500, 'x'),
                                    "ID3",
                                    "ID3\3\0\0\x7F\x7F\x7F\x7F"};
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"})
        for (const std::string& bytes : contents) EXPECT_FALSE(Measure(name, bytes)) << name << bytes;
    EXPECT_FALSE(MeasureStream(files, folder / "none.mp3"));
}

TEST_F(StreamExtentTest, Ogg_TakesTheLastPage) {
    const auto extent = Measure("a.ogg", Ogg().AudioPages(6).Samples(88200).Bytes());
    ASSERT_TRUE(extent);
    EXPECT_TRUE(extent->isWhole);
    EXPECT_GT(extent->seconds, 0);
}

TEST_F(StreamExtentTest, Ogg_CutAnywhereBehindItsHeaders_IsNotWhole) {
    const std::string bytes = Ogg().AudioPages(3).Bytes();
    for (std::size_t length = 0; length < bytes.size(); length += 61) {
        const auto extent = Measure("a.ogg", bytes.substr(0, length));
        EXPECT_FALSE(extent && extent->isWhole) << length;
    }
}

TEST_F(StreamExtentTest, Ogg_ChainedStream_TellsNothing) {
    EXPECT_FALSE(Measure("a.ogg", Ogg().Bytes() + Ogg().Serial(7).Bytes()));
}

TEST_F(StreamExtentTest, MPEGplus_EndsWithItsLastPacket) {
    const std::string bytes = Mpc8({.samples = 441000});
    const auto extent = Measure("a.mpc", bytes);
    ASSERT_TRUE(extent);
    EXPECT_TRUE(extent->isWhole);
    EXPECT_EQ(extent->seconds, 10);
    for (const std::size_t cut : {1U, 2U, 3U, 100U}) {
        const auto half = Measure("a.mpc", bytes.substr(0, bytes.size() - cut));
        ASSERT_TRUE(half);
        EXPECT_FALSE(half->isWhole) << cut;
    }
}

TEST_F(StreamExtentTest, RealEncoderThatIsEnded_LeavesNoWholeStream) {
    folder.Write("in.wav", Wav().Tone(176400 * 12).Bytes());
    const std::map<std::string, std::string> commands = {{"a.mp3", "lame --quiet -b 128 in.wav a.mp3"},
                                                         {"b.mp3", "lame --quiet -V 2 in.wav b.mp3"},
                                                         {"c.ogg", "oggenc -Q -q5 -o c.ogg in.wav"},
                                                         {"d.mpc", "mpcenc --silent in.wav d.mpc"}};
    for (const auto& [name, command] : commands) {
        RunToEnd({"sh", {"-c", command}, folder.Path(), "", {}});
        const auto whole = MeasureStream(files, folder / name);
        ASSERT_TRUE(whole) << name;
        EXPECT_TRUE(whole->isWhole) << name;
        EXPECT_NEAR(whole->seconds, 12, 0.2) << name;
        const auto half = std::to_string(folder.Read(name).size() / 1024);
        files.DeleteFile(folder / name, Force::No);
        // In blocks of 512 bytes: half of what it needs.
        RunToEnd({"sh", {"-c", "ulimit -f " + half + "; exec " + command}, folder.Path(), "", {}});
        ASSERT_GT(folder.Read(name).size(), 10000U) << name;
        const auto ended = MeasureStream(files, folder / name);
        ASSERT_TRUE(ended) << name;
        EXPECT_FALSE(ended->isWhole) << name;
    }
}

}  // namespace
}  // namespace zefta::test
