#include <gtest/gtest.h>

#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/BlockPrimitives.h"

namespace zefta::test {

namespace {

/// A source with that content and an empty destination.
struct TwoFiles {
    TestWorld world;
    std::unique_ptr<BinaryFile> source;
    std::unique_ptr<BinaryFile> destination;

    explicit TwoFiles(const std::string& content) {
        source = world.files.OpenRead(world.folder.Write("source", content));
        destination = world.files.OpenCreate(world.folder / "destination");
    }

    std::string Written() const { return world.folder.Read("destination"); }
};

struct PeakFields {
    std::int16_t maxLeft = 0;
    std::int16_t maxRight = 0;
    std::int16_t minLeft = 0;
    std::int16_t minRight = 0;

    PeakReferences References() { return {maxLeft, maxRight, minLeft, minRight}; }
};

constexpr Gains Unity = {1, 1};
constexpr Gains Doubling = {2, 2};

}  // namespace

TEST(GetPeaksForBlock, WholeBlock_GivesItsSizeAndLeavesThePositionBehindIt) {
    const TwoFiles files(Wav().Samples({5, -6, -7, 8}).Silence(50000).AudioBytes());
    PeakFields peaks;
    EXPECT_EQ(zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References()), 44100);
    EXPECT_EQ(files.source->Position(), 44100);
    EXPECT_EQ(peaks.maxLeft, 5);
    EXPECT_EQ(peaks.minLeft, -7);
    EXPECT_EQ(peaks.maxRight, 8);
    EXPECT_EQ(peaks.minRight, -6);
}

TEST(GetPeaksForBlock, EndOfTheFile_GivesWhatWasThere) {
    const TwoFiles files(SampleBytes({100, -100, 200}) + "x");
    PeakFields peaks;
    EXPECT_EQ(zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References()), 7);
    EXPECT_EQ(peaks.maxLeft, 200);
    EXPECT_EQ(zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References()), 0);
    EXPECT_EQ(peaks.maxLeft, 200);
}

TEST(GetPeaksForBlock, SeveralBlocks_CarryTheAccumulatorsOver) {
    const TwoFiles files(Wav().Tone(WaveBlockSize, 6000).Tone(WaveBlockSize, 3000).AudioBytes());
    PeakFields peaks;
    zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References());
    const std::int16_t first = peaks.maxLeft;
    zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References());
    EXPECT_EQ(peaks.maxLeft, first);
    EXPECT_GT(first, 3000);
}

TEST(GetPeaksForBlock, Zeros_LeaveTheAccumulators) {
    const TwoFiles files(std::string(WaveBlockSize, '\0'));
    PeakFields peaks = {1, 2, -3, -4};
    zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References());
    EXPECT_EQ(peaks.maxLeft, 1);
    EXPECT_EQ(peaks.maxRight, 2);
    EXPECT_EQ(peaks.minLeft, -3);
    EXPECT_EQ(peaks.minRight, -4);
}

TEST(GetPeaksForBlock, LowestSample_SetsTheMinimum) {
    const TwoFiles files(SampleBytes({-32768, -32768}));
    PeakFields peaks;
    zftGetPeaksForBlock(*files.source, WaveBlockSize, peaks.References());
    EXPECT_EQ(peaks.minLeft, -32768);
    EXPECT_EQ(peaks.minRight, -32768);
}

TEST(GetPeaksForBlock, CountOf0OrLess_ReadsNothing) {
    const TwoFiles files("abcd");
    PeakFields peaks;
    EXPECT_EQ(zftGetPeaksForBlock(*files.source, 0, peaks.References()), 0);
    EXPECT_EQ(zftGetPeaksForBlock(*files.source, -4, peaks.References()), 0);
    EXPECT_EQ(files.source->Position(), 0);
}

TEST(CopyBlock, WithoutGains_WritesTheBytesAsRead) {
    const std::string content = Wav().Tone(WaveBlockSize + 100).AudioBytes();
    const TwoFiles files(content);
    zftCopyBlock(*files.source, *files.destination, WaveBlockSize, nullptr);
    EXPECT_EQ(files.Written(), content.substr(0, WaveBlockSize));
    EXPECT_EQ(files.source->Position(), 44100);
    EXPECT_EQ(files.destination->Position(), 44100);
}

TEST(CopyBlock, GainsOf1_GiveTheSameBytesAsAPlainCopy) {
    const std::string content = Wav().Samples({-32768, 32767}).Tone(WaveBlockSize - 4, 32767).AudioBytes();
    const TwoFiles files(content);
    zftCopyBlock(*files.source, *files.destination, WaveBlockSize, &Unity);
    EXPECT_EQ(files.Written(), content);
}

TEST(CopyBlock, Gains_AreThoseOfTheChannels) {
    const TwoFiles files(SampleBytes({100, 100, -100, -100}));
    const Gains gains = {2, 0.5};
    zftCopyBlock(*files.source, *files.destination, 8, &gains);
    EXPECT_EQ(files.Written(), SampleBytes({200, 50, -200, -50}));
}

TEST(CopyBlock, CountOf0OrLess_ChangesNothing) {
    const TwoFiles files("abcd");
    for (const std::int32_t count : {0, -1, -44100}) {
        zftCopyBlock(*files.source, *files.destination, count, nullptr);
        zftCopyBlock(*files.source, *files.destination, count, &Doubling);
    }
    EXPECT_EQ(files.Written(), "");
    EXPECT_EQ(files.source->Position(), 0);
}

TEST(CopyBlock, OddPiece_HasAllItsBytesWritten) {
    const TwoFiles files(SampleBytes({100, 100, 100}) + "\x7F more");
    zftCopyBlock(*files.source, *files.destination, 7, &Doubling);
    EXPECT_EQ(files.Written(), SampleBytes({200, 200, 200}) + "\x7F");
}

TEST(CopyBlock, EndOfTheSource_WritesWhatIsThere) {
    const TwoFiles files(SampleBytes({100, 100}));
    zftCopyBlock(*files.source, *files.destination, WaveBlockSize, &Doubling);
    EXPECT_EQ(files.Written(), SampleBytes({200, 200}));
}

}  // namespace zefta::test
