#include <gtest/gtest.h>

#include "library/FileInformation.h"
#include "library/InformationFields.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

ID3Tag MP3Measures() {
    ID3Tag tag;
    tag.Path = "/a.mp3";
    tag.Length = 160000;
    tag.Frames = 383;
    tag.Seconds = 10;
    tag.Bitrate = 128;
    tag.SampleRate = 44100;
    return tag;
}

TEST(MeasuresText, MP3_HasALineForEachMeasureAndHertzAsKilohertz) {
    EXPECT_EQ(MeasuresText(MP3Measures()),
              "160000 bytes\r\n383 frames\r\n10 seconds\r\n128 kbps\r\n44100 kHz\r\n Stereo\r\n");
}

TEST(MeasuresText, VariableRate_IsToldBehindTheRate) {
    ID3Tag tag = MP3Measures();
    tag.VBR = true;
    EXPECT_NE(MeasuresText(tag).find("\r\n128 kbps (VBR)\r\n"), std::string::npos);
}

TEST(MeasuresText, ChannelModes_HaveALineButMono) {
    ID3Tag tag = MP3Measures();
    const std::pair<std::int32_t, std::string> cases[] = {
        {0, "kHz\r\n Stereo\r\n"},
        {1, "kHz\r\n Joint Stereo\r\n"},
        {2, "kHz\r\n Dual Channel\r\n"},
        {3, "44100 kHz\r\n"},
        {4, "44100 kHz\r\n"},
        {-1, "44100 kHz\r\n"},
    };
    for (const auto& [mode, end] : cases) {
        tag.ChannelMode = mode;
        EXPECT_TRUE(MeasuresText(tag).ends_with(end)) << mode;
    }
}

TEST(MeasuresText, OggAndMPEGplus_LeaveOutWhatTheirReadersDoNotTake) {
    ID3Tag tag = MP3Measures();
    tag.VBR = true;
    tag.Path = "/a.ogg";
    EXPECT_EQ(MeasuresText(tag), "160000 bytes\r\n10 seconds\r\n128 kbps (VBR)\r\n");
    tag.Path = "/a.mpc";
    EXPECT_EQ(MeasuresText(tag), "160000 bytes\r\n10 seconds\r\n128 kbps (VBR)\r\n44100 kHz\r\n Stereo\r\n");
}

TEST(MeasuresText, FileThatCantBeOpened_HasNone) {
    EXPECT_EQ(MeasuresText(ID3Tag()), "");
}

TEST(EncoderText, MP3_IsTheEncoderOfTheRecord) {
    ID3Tag tag;
    tag.Encoder = "LAME3.100";
    EXPECT_EQ(EncoderText(tag), "LAME3.100");
    tag.Encoder = "LAME3.100\x04\xC3\x8A";
    EXPECT_EQ(EncoderText(tag), "LAME3.100");
}

TEST(EncoderText, MPEGplus_TellsVersionAndProfile) {
    ID3Tag tag;
    tag.Encoder = "MPEGplus";
    tag.IsMpegPlusFile = true;
    tag.MPEGplusExtension.StreamVersion = 7;
    const std::string profiles[] = {"",
                                    "\nMPEGplus Thumb",
                                    "\nMPEGplus Radio",
                                    "\nMPEGplus Standard",
                                    "\nMPEGplus Xtreme",
                                    "\nMPEGplus Insane",
                                    ""};
    for (std::uint8_t profile = 0; profile < std::size(profiles); ++profile) {
        tag.MPEGplusExtension.StreamProfile = profile;
        EXPECT_EQ(EncoderText(tag), "MPEGplus SV7" + profiles[profile]);
    }
}

TEST(UnknownFramesText, TellsTheSizeInKToOneDecimal) {
    TestApp app;
    ID3Tag tag;
    const std::string label = "Remove unknown frames while updating file";
    EXPECT_EQ(UnknownFramesText(app, tag), label);
    const std::pair<std::size_t, std::string> cases[] = {
        {1, " (0K)"},      {256, " (0.2K)"},  {300, " (0.3K)"},    {1024, " (1K)"},
        {1536, " (1.5K)"}, {1126, " (1.1K)"}, {102400, " (100K)"}, {123456, " (120.6K)"},
    };
    for (const auto& [size, size_text] : cases) {
        tag.ID3v2Extension.UnknownFrames.assign(size, 'x');
        EXPECT_EQ(UnknownFramesText(app, tag), label + size_text) << size;
    }
}

TEST(IsYearText, NothingOrANumberInItsUsualForm) {
    for (const char* year : {"", "1999", "0", "5", "20010", "1999.5"}) EXPECT_TRUE(IsYearText(year)) << year;
    for (const char* year : {"19x9", "0199", "-1999", " 1999", "1999 ", "x", "+1999", "1999.0", "2001-05-01"})
        EXPECT_FALSE(IsYearText(year)) << year;
}

TEST(CopyOfLyrics, TitleWithAMix_IsTakenApart) {
    const LyricsCopy copy = CopyOfLyrics("Song ( Live ) ( Long )", "Ann");
    EXPECT_EQ(copy.title, "Song ( Live )");
    EXPECT_EQ(copy.mix, "Long");
    EXPECT_EQ(copy.artist, "Ann");
}

TEST(CopyOfLyrics, TitleWithoutAMix_GoesWholeAndLeavesTheMix) {
    for (const char* title : {"Song", "Song)", "Song (x) y", "Song ("}) {
        const LyricsCopy copy = CopyOfLyrics(title, "");
        EXPECT_EQ(copy.title, title);
        EXPECT_FALSE(copy.mix) << title;
        EXPECT_FALSE(copy.artist) << title;
    }
}

TEST(CopyOfLyrics, EmptyTexts_GiveNothing) {
    const LyricsCopy copy = CopyOfLyrics("", "");
    EXPECT_FALSE(copy.title || copy.mix || copy.artist);
    EXPECT_EQ(CopyOfLyrics("", "Ann").artist, "Ann");
}

TEST(ExtendedComment, IsCutAtTheFirstEqualsSign) {
    const ExtendedComment comment = SplitExtendedComment("FOO=bar=baz");
    EXPECT_EQ(comment.name, "FOO");
    EXPECT_EQ(comment.value, "bar=baz");
    EXPECT_EQ(SplitExtendedComment("FOO").name, "FOO");
    EXPECT_EQ(SplitExtendedComment("FOO").value, "");
    EXPECT_EQ(SplitExtendedComment("=x").name, "");
}

TEST(ExtendedComment, IsJoinedOfTrimmedSides) {
    EXPECT_EQ(JoinExtendedComment({" FOO ", " bar = baz "}), "FOO=bar = baz");
    EXPECT_EQ(JoinExtendedComment({"FOO", ""}), "FOO=");
    EXPECT_EQ(JoinExtendedComment({"", "bar"}), "");
}

TEST(InformationFields, EachControlOfAGroupIsThereOnceAndHasAPlaceOfItsOwn) {
    TestApp app;
    for (const auto fields : {FieldsOfID3v1(), FieldsOfID3v2(), FieldsOfOgg(), FieldsOfMPEGplus()}) {
        FileInformation information;
        for (const InformationField& field : fields) {
            EXPECT_EQ(field.value(information), "") << field.control;
            field.value(information) = field.control;
            EXPECT_NE(app.messages.GetMessage(field.label), "") << field.control;
        }
        for (const InformationField& field : fields) EXPECT_EQ(field.value(information), field.control);
    }
}

}  // namespace
}  // namespace zefta::test
