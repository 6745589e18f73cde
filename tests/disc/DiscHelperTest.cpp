// The helper for discs as the program uses it, on an image of a disc and a database of our own.

#include <filesystem>
#include <stdexcept>

#include <gtest/gtest.h>

#include "disc/DiscImage.h"
#include "platform/AudioDisc.h"
#include "platform/posix/DiscHelperClient.h"
#include "support/FakeDisc.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class DiscHelperTest : public ::testing::Test {
  protected:
    TempFolder folder;
    DiscImage image = DiscImage().Audio(300).Audio(160).Audio(77).Data(90);
    std::unique_ptr<AudioDisc> disc = MakeAudioDisc(ZEFTA_PROGRAM);

    std::string ReadBytes(const std::string& source, std::int32_t number, TrackReading expected) {
        std::string bytes;
        const TrackReading reading = disc->ReadTrack(
            source, number,
            [&](std::span<const std::byte> piece) {
                bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
            },
            GoesOn);
        EXPECT_EQ(reading, expected);
        return bytes;
    }
};

TEST_F(DiscHelperTest, Helper_StandsBesideTheProgram) {
    EXPECT_NE(DiscHelperPath(ZEFTA_PROGRAM), "");
    EXPECT_EQ(DiscHelperPath("/no/such/zefta"), "");
}

TEST_F(DiscHelperTest, Contents_TellTracksLengthsAndKinds) {
    const auto contents = disc->ReadContents(image.WriteTo(folder), GoesOn);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->FirstNumber, 1);
    EXPECT_EQ(contents->LeadOut, 150 + 627);
    EXPECT_EQ(contents->Tracks, (std::vector<DiscTrack>{
                                    {true, 150, 300}, {true, 450, 160}, {true, 610, 77}, {false, 687, 90}}));
}

TEST_F(DiscHelperTest, Contents_OfTheBinFileAloneAreThoseOfItsSheet) {
    image.WriteTo(folder);
    const auto contents = disc->ReadContents(folder / "disc.bin", GoesOn);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->Tracks.size(), 4U);
}

TEST_F(DiscHelperTest, NoDisc_HasNoContents) {
    folder.Write("text.cue", "this is no sheet\n");
    folder.Write("empty.cue", "");
    folder.Write("alone.cue", "FILE \"gone.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    folder.Write("bad.nrg", std::string(5000, 'N'));
    folder.Write("bad.toc", "CD_DA\nTRACK");
    for (const char* name : {"text.cue", "empty.cue", "alone.cue", "bad.nrg", "bad.toc", "missing.cue", ""})
        EXPECT_FALSE(disc->ReadContents(folder / name, GoesOn)) << name;
}

TEST_F(DiscHelperTest, AudioTracks_AreReadByteForByte) {
    const std::string source = image.WriteTo(folder);
    for (const int number : {1, 2, 3})
        EXPECT_TRUE(ReadBytes(source, number, TrackReading::Done) ==
                    image.BytesOf(static_cast<std::size_t>(number)))
            << number;
}

TEST_F(DiscHelperTest, TrackOfDataOrOfNoNumber_IsNotRead) {
    const std::string source = image.WriteTo(folder);
    for (const int number : {4, 5, 0}) EXPECT_EQ(ReadBytes(source, number, TrackReading::Failed), "");
}

TEST_F(DiscHelperTest, ImageThatIsTooShort_GivesWholeSectorsOrIsNoDisc) {
    const DiscImage music = DiscImage().Audio(300).Audio(160);
    const std::string source = music.WriteTo(folder);
    std::filesystem::resize_file(folder / "disc.bin", 400 * DiscSectorBytes + 1000);
    const auto contents = disc->ReadContents(source, GoesOn);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->Tracks.at(1).Sectors, 100);
    EXPECT_TRUE(ReadBytes(source, 2, TrackReading::Done) ==
                music.BytesOf(2).substr(0, 100 * DiscSectorBytes));
    std::filesystem::resize_file(folder / "disc.bin", 200 * DiscSectorBytes);
    EXPECT_FALSE(disc->ReadContents(source, GoesOn));
}

TEST_F(DiscHelperTest, Cancelled_EndsTheReadingAtOnce) {
    const std::string source = image.WriteTo(folder);
    int steps = 0;
    const auto reading = disc->ReadTrack(
        source, 1, [](std::span<const std::byte>) {}, [&] { return ++steps < 1; });
    EXPECT_EQ(reading, TrackReading::Cancelled);
    EXPECT_FALSE(disc->ReadContents(source, [] { return false; }));
}

TEST_F(DiscHelperTest, FailureOfWhoTakes_EndsTheReading) {
    const std::string source = image.WriteTo(folder);
    EXPECT_THROW(
        disc->ReadTrack(
            source, 1, [](std::span<const std::byte>) { throw std::runtime_error("disk full"); }, GoesOn),
        std::runtime_error);
}

}  // namespace
}  // namespace zefta::test
