#include <gtest/gtest.h>

#include "tags/MPEGHeader.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

/// A header by its bit fields: version and layer bits as they stand in the stream, no CRC.
std::string HeaderBytes(unsigned versionBits, unsigned layerBits, unsigned bitrateIndex, unsigned rateIndex,
                        unsigned mode = 0) {
    std::string bytes = "\xFF";
    bytes += static_cast<char>(0xE1 | versionBits << 3 | layerBits << 1);
    bytes += static_cast<char>(bitrateIndex << 4 | rateIndex << 2);
    bytes += static_cast<char>(mode << 6);
    return bytes;
}

TEST(MPEGHeader, New_HoldsNothing) {
    const MPEGHeader header;
    EXPECT_EQ(header.Version, 0);
    EXPECT_EQ(header.Layer, 0);
    EXPECT_EQ(header.BitrateIndex, 0);
    EXPECT_EQ(header.SampleRateIndex, 0);
    EXPECT_FALSE(header.IsCorrect);
    EXPECT_EQ(header.Bitrate, 0);
    EXPECT_EQ(header.SampleRate, 0);
    EXPECT_EQ(header.ChannelMode, 0);
}

TEST(MPEGHeader, Parse_UsualHeader) {
    MPEGHeader header;
    EXPECT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    EXPECT_TRUE(header.IsCorrect);
    EXPECT_EQ(header.Version, 1);
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.BitrateIndex, 9);
    EXPECT_EQ(header.Bitrate, 128);
    EXPECT_EQ(header.SampleRateIndex, 0);
    EXPECT_EQ(header.SampleRate, 44100);
    EXPECT_EQ(header.ChannelMode, 1);
}

TEST(MPEGHeader, Parse_Mpeg2Mono) {
    MPEGHeader header;
    EXPECT_TRUE(header.ParseHeader("\xFF\xF3\x10\xC0"));
    EXPECT_EQ(header.Version, 2);
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.Bitrate, 8);
    EXPECT_EQ(header.SampleRate, 22050);
    EXPECT_EQ(header.ChannelMode, 3);
}

TEST(MPEGHeader, Parse_ForbiddenBitrate_IsRefusedWithTheIndex16) {
    MPEGHeader header;
    EXPECT_FALSE(header.ParseHeader("\xFF\xFA\xF0\0"s));
    EXPECT_FALSE(header.IsCorrect);
    EXPECT_EQ(header.BitrateIndex, 16);
    EXPECT_EQ(header.Version, 1);
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.SampleRate, 0);
}

TEST(MPEGHeader, Parse_Mpeg25_IsRefusedAndTold) {
    MPEGHeader header;
    EXPECT_FALSE(header.ParseHeader("\xFF\xE3\x90\0"s));
    EXPECT_EQ(header.Version, 25);
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.BitrateIndex, 9);
    EXPECT_EQ(header.Bitrate, 0);
}

TEST(MPEGHeader, Parse_FreeFormatAndReservedRate_AreAccepted) {
    MPEGHeader header;
    ASSERT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    EXPECT_TRUE(header.ParseHeader("\xFF\xFB\x0C\0"s));
    EXPECT_EQ(header.BitrateIndex, 0);
    EXPECT_EQ(header.Bitrate, 0);
    EXPECT_EQ(header.SampleRateIndex, 3);
    EXPECT_EQ(header.SampleRate, 0);
    EXPECT_EQ(header.ChannelMode, 0);
}

TEST(MPEGHeader, Parse_ReservedLayer_IsRefusedByANewObject) {
    MPEGHeader header;
    EXPECT_FALSE(header.ParseHeader("\xFF\xF9\x90\0"s));
    EXPECT_EQ(header.Layer, 0);
    EXPECT_EQ(header.Bitrate, 0);
}

TEST(MPEGHeader, Parse_ReservedLayer_TakesTheLayerOfTheFormerHeader) {
    MPEGHeader header;
    ASSERT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    EXPECT_TRUE(header.ParseHeader("\xFF\xF9\x90\0"s));
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.Bitrate, 128);
    ASSERT_TRUE(header.ParseHeader("\xFF\xFD\x90\x64"));
    EXPECT_TRUE(header.ParseHeader("\xFF\xF9\x90\0"s));
    EXPECT_EQ(header.Layer, 2);
    EXPECT_EQ(header.Bitrate, 160);
}

TEST(MPEGHeader, Parse_ReservedLayer_TakesTheLayerOfARefusedHeaderToo) {
    MPEGHeader header;
    ASSERT_FALSE(header.ParseHeader("\xFF\xE3\x90\0"s));
    EXPECT_TRUE(header.ParseHeader("\xFF\xF9\x90\0"s));
    EXPECT_EQ(header.Layer, 3);
}

TEST(MPEGHeader, Parse_WrongLength_LooksAtNoByte) {
    MPEGHeader header;
    ASSERT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    for (const std::string& bytes :
         {""s, "\xFF"s, "\xFF\xF3\x10"s, "\xFF\xF3\x10\xC0\0"s, "\xFF\xF3\x10\xC0\xFF\xF3\x10\xC0"s}) {
        header.IsCorrect = true;
        EXPECT_FALSE(header.ParseHeader(bytes));
        EXPECT_FALSE(header.IsCorrect);
        EXPECT_EQ(header.Version, 1);
        EXPECT_EQ(header.Bitrate, 128);
    }
}

TEST(MPEGHeader, Parse_NoSync_LeavesEverythingElse) {
    MPEGHeader header;
    ASSERT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    for (const std::string& bytes : {"\xFE\xF3\x10\xC0"s, "\xFF\xD3\x10\xC0"s, "\xFF\xB3\x10\xC0"s,
                                     "\xFF\x73\x10\xC0"s, "\0\0\0\0"s, "ID3\3"s}) {
        EXPECT_FALSE(header.ParseHeader(bytes));
        EXPECT_FALSE(header.IsCorrect);
        EXPECT_EQ(header.Version, 1);
        EXPECT_EQ(header.Layer, 3);
        EXPECT_EQ(header.BitrateIndex, 9);
        EXPECT_EQ(header.SampleRate, 44100);
        EXPECT_EQ(header.ChannelMode, 1);
    }
}

TEST(MPEGHeader, Parse_ReservedVersion_LeavesEverythingElse) {
    MPEGHeader header;
    ASSERT_TRUE(header.ParseHeader("\xFF\xFB\x90\x64"));
    EXPECT_FALSE(header.ParseHeader(HeaderBytes(1, 2, 1, 1)));
    EXPECT_EQ(header.Version, 1);
    EXPECT_EQ(header.Layer, 3);
    EXPECT_EQ(header.BitrateIndex, 9);
}

struct BitrateRow {
    int version;
    int layer;
    std::vector<int> kilobits;
};

// The tables of the two standards, typed in a second time.
const BitrateRow BitrateRows[] = {
    {1, 1, {32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448}},
    {1, 2, {32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384}},
    {1, 3, {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320}},
    {2, 1, {32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256}},
    {2, 2, {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}},
    {2, 3, {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}},
};

TEST(MPEGHeader, Parse_EveryBitrateOfTheStandards) {
    for (const BitrateRow& row : BitrateRows) {
        const unsigned versionBits = row.version == 1 ? 3 : 2;
        const auto layerBits = static_cast<unsigned>(4 - row.layer);
        for (unsigned index = 1; index <= 14; ++index) {
            MPEGHeader header;
            EXPECT_TRUE(header.ParseHeader(HeaderBytes(versionBits, layerBits, index, 0)));
            EXPECT_EQ(header.Version, row.version);
            EXPECT_EQ(header.Layer, row.layer);
            EXPECT_EQ(header.BitrateIndex, index);
            EXPECT_EQ(header.Bitrate, row.kilobits[index - 1]);
        }
    }
}

TEST(MPEGHeader, Tables_HoldNothingForFreeFormatAndForReservedValues) {
    for (const auto& version : MPEGHeader::BitrateTable) {
        for (const auto& layer : version) {
            EXPECT_EQ(layer[0], 0);
            EXPECT_EQ(layer[15], 0);
        }
    }
    for (const auto& version : MPEGHeader::SampleRateTable) EXPECT_EQ(version[3], 0);
}

TEST(MPEGHeader, Parse_EverySampleRate) {
    const int rates[2][4] = {{44100, 48000, 32000, 0}, {22050, 24000, 16000, 0}};
    for (int version = 1; version <= 2; ++version) {
        for (unsigned index = 0; index < 4; ++index) {
            MPEGHeader header;
            EXPECT_TRUE(header.ParseHeader(HeaderBytes(version == 1 ? 3 : 2, 1, 9, index)));
            EXPECT_EQ(header.SampleRateIndex, index);
            EXPECT_EQ(header.SampleRate, rates[version - 1][index]);
        }
    }
}

TEST(MPEGHeader, Parse_EveryChannelMode_WhateverStandsBesideIt) {
    for (unsigned mode = 0; mode < 4; ++mode) {
        for (unsigned rest = 0; rest < 64; ++rest) {
            std::string bytes = HeaderBytes(3, 1, 9, 0, mode);
            bytes[3] = static_cast<char>(mode << 6 | rest);
            MPEGHeader header;
            EXPECT_TRUE(header.ParseHeader(bytes));
            EXPECT_EQ(header.ChannelMode, static_cast<int>(mode));
        }
    }
}

TEST(MPEGHeader, Parse_EveryCombinationOfTheFirstBits_IsAcceptedOrRefusedByTheRule) {
    for (unsigned second = 0; second < 256; ++second) {
        for (unsigned third = 0; third < 256; ++third) {
            const std::string bytes = {'\xFF', static_cast<char>(second), static_cast<char>(third), '\0'};
            const bool hasSync = second >= 0xE0;
            const bool hasVersion = (second & 0x18) >= 0x10;
            const bool hasLayer = (second & 0x06) != 0;
            const bool hasBitrate = third < 0xF0;
            MPEGHeader header;
            EXPECT_EQ(header.ParseHeader(bytes), hasSync && hasVersion && hasLayer && hasBitrate);
        }
    }
}

}  // namespace
}  // namespace zefta::test
