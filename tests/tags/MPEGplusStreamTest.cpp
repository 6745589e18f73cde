#include <limits>

#include <gtest/gtest.h>

#include "support/ApeBuilder.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "tags/MPEGplusStage.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;
using MPEGplusStreamTest = MPEGplusStage;

// Version 7.

TEST_F(MPEGplusStreamTest, Read_Version7_Measures) {
    // 1000 frames are 26.12 seconds: 40000 bytes are 12.25 kbps.
    const ID3Tag tag = Read(stream);
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 7);
    EXPECT_EQ(tag.Seconds, 26);
    EXPECT_EQ(tag.Bitrate, 12);
    EXPECT_EQ(tag.ChannelMode, 1);
    EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 3);
}

TEST_F(MPEGplusStreamTest, Read_Version7_BitrateIsOfTheUnroundedSeconds) {
    // 19 frames are 0.4963 seconds.
    const ID3Tag tag = Read(Filled(Mpc7(19), 10000));
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.Bitrate, 161);
    EXPECT_EQ(Read(Filled(Mpc7(20), 10000)).Seconds, 1);
}

TEST_F(MPEGplusStreamTest, Read_Version7_ProfilesAreExactValues) {
    for (int byte = 0; byte < 256; ++byte) {
        int profile = 0;
        if (byte == 128) profile = 1;
        if (byte == 144) profile = 2;
        if (byte == 160) profile = 3;
        if (byte == 176) profile = 4;
        if (byte == 192) profile = 5;
        EXPECT_EQ(Read(Filled(Mpc7(1000, byte), 200)).MPEGplusExtension.StreamProfile, profile) << byte;
    }
}

TEST_F(MPEGplusStreamTest, Read_Version7_ChannelsByTheLastByte) {
    for (const auto& [byte, mode] :
         {std::pair(0, 0), {63, 0}, {64, 1}, {127, 1}, {128, 0}, {191, 0}, {192, 1}, {255, 1}})
        EXPECT_EQ(Read(Filled(Mpc7(1000, 0, byte), 200)).ChannelMode, mode) << byte;
}

TEST_F(MPEGplusStreamTest, Read_Version7WithoutFrames_DividesByZero) {
    const ID3Tag tag = Read(Filled(Mpc7(0, 160, 64), 200) + Ape().Item("Artist", "A3").Bytes());
    EXPECT_EQ(failure, 11);
    EXPECT_EQ(tag.Artist, "A3");
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 7);
    EXPECT_FALSE(tag.AllowEdits);
    Read("MP+\7");
    EXPECT_EQ(failure, 11);
}

TEST_F(MPEGplusStreamTest, Read_Version7BitrateThatDoesNotFit_Overflows) {
    // One frame of 0.02612 seconds: 106,985 bytes are 32764 kbps.
    EXPECT_EQ(Read(Filled(Mpc7(1), 106985)).Bitrate, 32764);
    EXPECT_EQ(failure, 0);
    Read(Filled(Mpc7(1), 107000));
    EXPECT_EQ(failure, 6);
}

TEST_F(MPEGplusStreamTest, Read_Version7FrameCountsOfAllSizes) {
    EXPECT_EQ(Read(Filled(Mpc7(2147483647), 200)).Seconds, 56097532);
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(Read(Filled(Mpc7(-1000), 200)).Seconds, -26);
    EXPECT_EQ(failure, 0);
}

TEST_F(MPEGplusStreamTest, Read_StreamBehindAnID3v2Tag_IsFound) {
    const ID3Tag tag = Read(Id3v2("", 300) + stream);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 7);
    EXPECT_EQ(tag.Length, 40310);
    EXPECT_EQ(tag.Seconds, 26);
}

// Versions 4 to 6.

TEST_F(MPEGplusStreamTest, Read_OldVersions_ByTheSecondByte) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string bytes = MpcOld(4, 0, 100, 1000);
        bytes[1] = static_cast<char>(byte);
        const int version = (byte & 31) < 8 ? 4 : (byte & 31) >> 3 == 1 ? 5 : (byte & 31) >> 3 == 2 ? 6 : 0;
        const ID3Tag tag = Read(Filled(bytes, 40000));
        EXPECT_EQ(failure, 0);
        EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, version) << byte;
        EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 0);
        // Only version 4 is measured by its frames; for the others it is 40000 bytes at 200 kbps, 1.6
        // seconds.
        EXPECT_EQ(tag.Seconds, version == 4 ? 26 : 2) << byte;
        EXPECT_EQ(tag.Bitrate, version == 4 ? 12 : 160) << byte;
    }
}

TEST_F(MPEGplusStreamTest, Read_OldVersions_OtherSeventhVersionsAreNone) {
    EXPECT_EQ(Read(Filled("MP+\x17\0\0\0\0"s, 40000)).MPEGplusExtension.StreamVersion, 6);
}

TEST_F(MPEGplusStreamTest, Read_OldVersions_ChannelsByTheThirdByte) {
    for (const auto& [byte, mode] : {std::pair(0, 0), {1, 1}, {64, 1}, {127, 1}, {128, 0}, {129, 1}})
        EXPECT_EQ(Read(Filled(MpcOld(5, byte, 100), 40000)).ChannelMode, mode) << byte;
}

TEST_F(MPEGplusStreamTest, Read_Version4WithLessThanASecond_TakesTheStoredRate) {
    // 19 frames round to no second; 16,000 bytes at 64 kbps are 2.
    const ID3Tag tag = Read(Filled(MpcOld(4, 0, 32, 19), 16000));
    EXPECT_EQ(tag.Seconds, 2);
    EXPECT_EQ(tag.Bitrate, 64);
    // A count above 2147483647 is a negative one.
    EXPECT_EQ(Read(Filled(MpcOld(4, 0, 32, -1000), 16000)).Seconds, 2);
}

TEST_F(MPEGplusStreamTest, Read_OldVersions_HalvesGoToTheEvenNumber) {
    // At 2 kbps 250 bytes are a second.
    for (const auto& [length, seconds] : {std::pair(375, 2), {625, 2}, {875, 4}, {1125, 4}})
        EXPECT_EQ(Read(Filled(MpcOld(5, 0, 1), static_cast<std::size_t>(length))).Seconds, seconds) << length;
    // Two seconds: 250 bytes are 1 kbps.
    for (const auto& [length, rate] : {std::pair(375, 2), {500, 2}, {625, 2}})
        EXPECT_EQ(Read(Filled(MpcOld(5, 0, 1), static_cast<std::size_t>(length))).Bitrate, rate) << length;
}

TEST_F(MPEGplusStreamTest, Read_OldVersionsWithoutARate_DivideByZero) {
    const ID3Tag tag = Read(Filled(MpcOld(5, 0, 0), 40000));
    EXPECT_EQ(failure, 11);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 5);
    EXPECT_FALSE(tag.AllowEdits);
}

TEST_F(MPEGplusStreamTest, Read_OldVersionsTooShortForASecond_DivideByZero) {
    Read(Filled(MpcOld(5, 0, 255), 20000));  // 510 kbps: 0.31 seconds
    EXPECT_EQ(failure, 11);
}

TEST_F(MPEGplusStreamTest, Read_EmptyFile_DividesByZero) {
    const ID3Tag tag = Read("");
    EXPECT_EQ(failure, 11);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 4);
    EXPECT_TRUE(tag.IsMpegPlusFile);
}

TEST_F(MPEGplusStreamTest, Read_OldVersionBitrateThatDoesNotFit_Overflows) {
    Read(Filled(MpcOld(4, 0, 1, 38), 5000000));  // a second
    EXPECT_EQ(failure, 6);
}

// Version 8.

TEST_F(MPEGplusStreamTest, Read_Version8_Measures) {
    const ID3Tag tag = Read(Mpc8({.samples = 441000}, 159900));
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 8);
    EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 3);
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.ChannelMode, 0);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.Encoder, "MPEGplus");
    EXPECT_TRUE(tag.VBR);
    EXPECT_TRUE(tag.AllowEdits);
}

TEST_F(MPEGplusStreamTest, Read_Version8_RatesAreOfTheStream) {
    const std::pair<int, std::int32_t> rates[] = {{0, 44100}, {1, 48000}, {2, 37800}, {3, 32000},
                                                  {4, 44100}, {5, 44100}, {6, 44100}, {7, 44100}};
    for (const auto& [index, rate] : rates) {
        const ID3Tag tag = Read(Mpc8({.samples = static_cast<std::uint64_t>(rate) * 7, .rate = index}));
        EXPECT_EQ(tag.SampleRate, rate);
        EXPECT_EQ(tag.Seconds, 7);
    }
}

TEST_F(MPEGplusStreamTest, Read_Version8_OneChannelIsMono) {
    EXPECT_EQ(Read(Mpc8({.channels = 1})).ChannelMode, 3);
    EXPECT_EQ(Read(Mpc8({.channels = 2})).ChannelMode, 0);
    EXPECT_EQ(Read(Mpc8({.channels = 6})).ChannelMode, 0);
    EXPECT_EQ(Read(Mpc8({.channels = 16})).ChannelMode, 0);
}

TEST_F(MPEGplusStreamTest, Read_Version8_BeginningSilenceDoesNotCount) {
    EXPECT_EQ(Read(Mpc8({.samples = 441000, .silence = 44100})).Seconds, 9);
}

TEST_F(MPEGplusStreamTest, Read_Version8_HalvesGoToTheEvenNumber) {
    for (const auto& [samples, seconds] :
         {std::pair(22050U, 0), {22051U, 1}, {66150U, 2}, {110250U, 2}, {110251U, 3}})
        EXPECT_EQ(Read(Mpc8({.samples = samples})).Seconds, seconds) << samples;
}

TEST_F(MPEGplusStreamTest, Read_Version8_BitrateIsOfTheUnroundedSeconds) {
    // A quarter of a second.
    EXPECT_EQ(Read(Filled(Mpc8({.samples = 11025}), 4000)).Bitrate, 128);
}

TEST_F(MPEGplusStreamTest, Read_Version8_Profiles) {
    for (int byte = 0; byte < 256; ++byte) {
        const int named = byte & 0xFE;
        const bool isNamed = named % 16 == 0 && named >= 128 && named <= 192;
        const ID3Tag tag = Read(Mpc8(MpcStreamHeader().Packet() + MpcEncoderInfo(byte)));
        EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, isNamed ? (named - 128) / 16 + 1 : 0) << byte;
    }
}

TEST_F(MPEGplusStreamTest, Read_Version8_PacketsInAnyOrderAndAmongOthers) {
    const std::string others = MpcPacket("RG", "123456789") + MpcPacket("XY", std::string(5000, 'x'));
    const ID3Tag tag = Read(Mpc8(others + MpcEncoderInfo(192) + others + MpcStreamHeader().Packet()));
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 5);
}

TEST_F(MPEGplusStreamTest, Read_Version8_PacketsBehindTheAudioAreNotLookedFor) {
    const ID3Tag tag = Read("MPCK" + MpcStreamHeader().Packet() + MpcPacket("AP", "x") + MpcEncoderInfo(192));
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 0);
}

TEST_F(MPEGplusStreamTest, Read_Version8_FarPacketsAreNotLookedFor) {
    const auto after = [&](int count) {
        std::string packets;
        for (int i = 0; i < count; ++i) packets += MpcPacket("XY", "");
        return Read(Mpc8(packets + MpcStreamHeader().Packet())).Seconds;
    };
    EXPECT_EQ(after(63), 10);
    EXPECT_EQ(after(64), 0);
}

TEST_F(MPEGplusStreamTest, Read_Version8WithoutHeader_HasNoMeasures) {
    for (const std::string& bytes :
         {"MPCK"s, Mpc8(MpcEncoderInfo(160)), "MPCK" + MpcPacket("AP", "x") + MpcStreamHeader().Packet(),
          "MPCK" + MpcPacket("SH", ""), "MPCK" + MpcPacket("SH", "CRC!\x08\x81"),
          "MPCK" + MpcPacket("SH", "CRC!\x08\x7F\0\x1B"s)}) {
        const ID3Tag tag = Read(bytes);
        EXPECT_EQ(failure, 0);
        EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 8);
        EXPECT_EQ(tag.Seconds, 0);
        EXPECT_EQ(tag.Bitrate, 0);
        EXPECT_EQ(tag.SampleRate, 44100);
        EXPECT_TRUE(tag.AllowEdits);
    }
}

TEST_F(MPEGplusStreamTest, Read_Version8WithImpossiblePacketSizes_EndsThere) {
    const std::string rest = MpcStreamHeader().Packet();
    for (const std::uint64_t size :
         {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{2}, std::uint64_t{1} << 31,
          (std::uint64_t{1} << 63) - 1, std::uint64_t{1} << 63, ~std::uint64_t{0}}) {
        const ID3Tag tag = Read("MPCK" + MpcPacket("XY", "", size) + rest);
        EXPECT_EQ(failure, 0) << size;
        EXPECT_EQ(tag.Seconds, 0) << size;
    }
    EXPECT_EQ(Read("MPCK" + MpcPacket("XY", "", 3) + rest).Seconds, 10);
    EXPECT_EQ(Read("MPCKXY" + std::string(30, '\xFF') + rest).Seconds, 0);
}

TEST_F(MPEGplusStreamTest, Read_Version8WithoutLength_DividesByZero) {
    for (const MpcStreamHeader& header :
         {MpcStreamHeader{.samples = 0},
          {.samples = 1000, .silence = 1000},
          {.samples = 1000, .silence = 1001},
          {.samples = 0, .silence = std::numeric_limits<std::int64_t>::max()}}) {
        const ID3Tag tag = Read(Mpc8(header));
        EXPECT_EQ(failure, 11);
        EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 8);
        EXPECT_EQ(tag.MPEGplusExtension.StreamProfile, 3);
        EXPECT_FALSE(tag.AllowEdits);
    }
}

TEST_F(MPEGplusStreamTest, Read_Version8WithSecondsThatDoNotFit_Overflows) {
    EXPECT_EQ(Read(Mpc8({.samples = 2147483647ULL * 44100})).Seconds, 2147483647);
    EXPECT_EQ(failure, 0);
    Read(Mpc8({.samples = 2147483648ULL * 44100}));
    EXPECT_EQ(failure, 6);
    Read(Mpc8({.samples = (std::uint64_t{1} << 63) - 1}));
    EXPECT_EQ(failure, 6);
    // A number of 64 bits is none that the header can mean.
    EXPECT_EQ(Read(Mpc8({.samples = ~std::uint64_t{0}})).Seconds, 0);
    EXPECT_EQ(failure, 0);
}

TEST_F(MPEGplusStreamTest, Read_Version8BehindAnID3v2Tag_IsFound) {
    EXPECT_EQ(Read(Id3v2("", 300) + Mpc8()).Seconds, 10);
}

TEST_F(MPEGplusStreamTest, Read_EveryByteOfAVersion8HeadChanged_EndsWell) {
    const std::string whole = Mpc8(MpcStreamHeader(), 20);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            std::string damaged = whole;
            damaged[at] = byte;
            Read(damaged);
            EXPECT_TRUE(failure == 0 || failure == 6 || failure == 11) << failure;
        }
    }
}

}  // namespace
}  // namespace zefta::test
