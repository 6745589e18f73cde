#include <algorithm>

#include "support/CountingFileSystem.h"
#include "support/FaultInjectingFileSystem.h"
#include "wave/WaveOutline.h"
#include "wave/WaveStage.h"

namespace zefta::test {
namespace {

using Column = WaveOutline::Column;

WaveOutline OutlineOf(const std::string& bytes, std::size_t columns = 10) {
    TestApp app;
    return ReadWaveOutline(app.files, app.folder.Write("a.wav", bytes), columns);
}

/// The columns of the channel that are not flat.
std::vector<std::size_t> LoudColumns(const WaveOutline& outline, std::size_t channel) {
    std::vector<std::size_t> loud;
    for (std::size_t i = 0; i < outline.channels[channel].size(); ++i) {
        if (outline.channels[channel][i] != Column{0, 0}) loud.push_back(i);
    }
    return loud;
}

TEST(WaveOutline, SilenceAndTone_StandInTheirColumns) {
    const WaveOutline outline = OutlineOf(Wav().Silence(88200).Tone(264600, 8000).Silence(88200).Bytes());
    ASSERT_EQ(outline.channels.size(), 2u);
    EXPECT_EQ(outline.bytes, 441000);
    for (std::size_t channel : {0u, 1u}) {
        EXPECT_EQ(outline.channels[channel].size(), 10u);
        EXPECT_EQ(LoudColumns(outline, channel), (std::vector<std::size_t>{2, 3, 4, 5, 6, 7}));
        EXPECT_EQ(outline.channels[channel][4], (Column{-8000, 8000}));
    }
}

TEST(WaveOutline, Channels_AreToldApart) {
    const std::string frames = SampleBytes({100, -1, 300, -3, -200, -2, 0, 0});
    const WaveOutline outline = OutlineOf(Wav().Audio(frames).Bytes(), 2);
    EXPECT_EQ(outline.channels, (std::vector<std::vector<Column>>{{{100, 300}, {-200, 0}},  //
                                                                  {{-3, -1}, {-2, 0}}}));
}

TEST(WaveOutline, FullScale_IsHeld) {
    const WaveOutline outline = OutlineOf(Wav().Samples({32767, -32768, -32768, 32767}).Bytes(), 1);
    EXPECT_EQ(outline.channels[0], (std::vector<Column>{{-32768, 32767}}));
}

TEST(WaveOutline, FewerSamplesThanColumns_HaveOneColumnEach) {
    const WaveOutline outline = OutlineOf(Wav().Samples({1, 2, 3, 4, 5, 6}).Bytes(), 100);
    EXPECT_EQ(outline.channels[0], (std::vector<Column>{{1, 1}, {3, 3}, {5, 5}}));
    EXPECT_EQ(outline.channels[1], (std::vector<Column>{{2, 2}, {4, 4}, {6, 6}}));
}

TEST(WaveOutline, Mono_HasOneChannel) {
    const WaveOutline outline = OutlineOf(Wav().Mono().Samples({5, -5, 7, 8}).Bytes(), 2);
    EXPECT_EQ(outline.channels, (std::vector<std::vector<Column>>{{{-5, 5}, {7, 8}}}));
}

TEST(WaveOutline, Raw_IsStereoFromTheFirstByteOn) {
    const WaveOutline outline = OutlineOf(SampleBytes({1, 2, 3, 4}), 2);
    EXPECT_EQ(outline.channels, (std::vector<std::vector<Column>>{{{1, 1}, {3, 3}}, {{2, 2}, {4, 4}}}));
    EXPECT_EQ(outline.bytes, 8);
}

TEST(WaveOutline, OtherChunks_AreNoAudio) {
    const WaveOutline outline =
        OutlineOf(Wav().Chunk("LIST", std::string(64, 'x')).Samples({1, 2}).Tail("tail").Bytes());
    EXPECT_EQ(outline.channels[0], (std::vector<Column>{{1, 1}}));
}

TEST(WaveOutline, AudioThatEndsEarly_IsShownAsFarAsItGoes) {
    const WaveOutline outline = OutlineOf(Wav().Samples({1, 2, 3, 4}).DataSize(1000000).Bytes());
    EXPECT_EQ(outline.bytes, 8);
    EXPECT_EQ(outline.channels[0].size(), 2u);
}

TEST(WaveOutline, WhatIsNo16BitWave_IsEmpty) {
    const std::string cases[] = {
        "",
        "abc",
        "RIFF",
        Wav().Bytes(),
        Wav().Bits(8).Tone(1000).Bytes(),
        Wav().Bits(24).Tone(1200).Bytes(),
        Wav().Channels(6).Tone(1200).Bytes(),
        Wav().Channels(0).Tone(1200).Bytes(),
        Wav().FormatTag(3).Tone(1000).Bytes(),
        Wav().FormType("AVI ").Tone(1000).Bytes(),
        Wav().FormatSize(4).Tone(1000).Bytes(),
        Wav().WithoutFormat().Tone(1000).Bytes(),
        Wav().WithoutData().Bytes(),
        Wav().Tone(1000).DataSize(0).Bytes(),
        Wav().Tone(1000).DataSize(-5).Bytes(),
        Wav().Chunk("LIST", "").Tone(1000).DataAheadOfFormat().Bytes(),
    };
    for (const std::string& bytes : cases) {
        const WaveOutline outline = OutlineOf(bytes);
        EXPECT_TRUE(outline.channels.empty()) << &bytes - cases;
        EXPECT_EQ(outline.bytes, 0) << &bytes - cases;
    }
}

TEST(WaveOutline, ChunkThatLeadsBack_IsEmptyInsteadOfEndless) {
    std::string bytes = Wav().Chunk("LIST", "abcd").Tone(1000).Bytes();
    const std::size_t size = bytes.find("LIST") + 4;
    bytes.replace(size, 4, "\xF0\xFF\xFF\xFF");
    EXPECT_TRUE(OutlineOf(bytes).channels.empty());
}

TEST(WaveOutline, MissingFile_IsEmpty) {
    TestApp app;
    EXPECT_TRUE(ReadWaveOutline(app.files, app.folder / "none.wav", 10).channels.empty());
}

TEST(WaveOutline, NoColumns_IsEmpty) {
    EXPECT_TRUE(OutlineOf(Wav().Tone(1000).Bytes(), 0).channels.empty());
}

TEST(WaveOutline, CutAnywhere_NeverFails) {
    const std::string whole = Wav().Chunk("LIST", "abcd").Samples({1, 2, 3, 4, 5, 6}).Bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const WaveOutline outline = OutlineOf(whole.substr(0, length));
        EXPECT_LE(outline.bytes, 12) << length;
    }
}

TEST(WaveOutline, LongFile_IsReadInAFewKilobytesAColumn) {
    CountingFileSystem files;
    const TempFolder folder;
    const std::string path = folder.Write("a.wav", Wav().Tone(8 << 20).Bytes());
    EXPECT_EQ(ReadWaveOutline(files, path, 100).channels[1].size(), 100u);
    EXPECT_EQ(files.count.opens, 1);
    EXPECT_LE(files.count.reads, 120);
    EXPECT_LE(files.count.bytes, 100u * 4096 + 64);
}

TEST(WaveOutline, DeviceThatFails_GivesAnEmptyOutline) {
    TestApp app;
    const std::string path = app.folder.Write("a.wav", Wav().Tone(44100).Bytes());
    for (int nth = 1; nth <= 5; ++nth) {
        FaultInjectingFileSystem files(app.files);
        files.faults.plan = {FaultPlan::Mode::OnlyTheNth, nth};
        EXPECT_TRUE(ReadWaveOutline(files, path, 10).channels.empty()) << nth;
    }
}

TEST(WaveOutline, MoreColumnsThanThereMayBe_AreHeldToThat) {
    EXPECT_EQ(OutlineOf(Wav().Tone(44100).Bytes(), 100000).channels[0].size(), MostOutlineColumns);
}

}  // namespace
}  // namespace zefta::test
