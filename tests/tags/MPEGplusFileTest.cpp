#include <gtest/gtest.h>

#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "tags/MPEGplusFile.h"
#include "tags/MPEGplusStage.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;
using MPEGplusFileTest = MPEGplusStage;

// The file.

TEST_F(MPEGplusFileTest, Read_FileThatCannotBeOpened_HasNoPath) {
    ID3Tag tag;
    ReadMPEGplusFile({files, ansi}, folder / "none.mpc", tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_FALSE(tag.IsMpegPlusFile);
    EXPECT_FALSE(tag.AllowEdits);
}

TEST_F(MPEGplusFileTest, Read_AnyFile_HasPathLengthAndEdits) {
    const std::string path = NewFile(stream);
    ID3Tag tag;
    ReadMPEGplusFile({files, ansi}, path, tag);
    EXPECT_EQ(tag.Path, path);
    EXPECT_EQ(tag.Length, 40000);
    EXPECT_TRUE(tag.AllowEdits);
    EXPECT_FALSE(tag.ReadOnly);
    EXPECT_TRUE(tag.IsMpegPlusFile);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Encoder, "MPEGplus");
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_FALSE(tag.ID3v2Present);
}

TEST_F(MPEGplusFileTest, Read_DoubledSeparators_AreMadeSingle) {
    NewFile(stream);
    ID3Tag tag;
    ReadMPEGplusFile({files, ansi}, folder.Path() + "//1.mpc", tag);
    EXPECT_EQ(tag.Path, folder / "1.mpc");
}

TEST_F(MPEGplusFileTest, Read_ReadOnlyFile_SaysSo) {
    const std::string path = NewFile(stream);
    files.SetReadOnly(path, true);
    ID3Tag tag;
    ReadMPEGplusFile({files, ansi}, path, tag);
    EXPECT_TRUE(tag.ReadOnly);
    EXPECT_TRUE(tag.AllowEdits);
}

// Which tag wins.

std::string FullID3v1() {
    return Id3v1{"T1", "A1", "L1", "1991", "C1", 11, 17}.Bytes();
}

std::string FullID3v2() {
    return Id3v2(TextFrame("TIT2", "T2 (M2)") + TextFrame("TPE1", "A2") + TextFrame("TALB", "L2") +
                     TextFrame("TYER", "1992") + TextFrame("TRCK", "22") + TextFrame("TCOM", "P2"),
                 200);
}

Ape FullAPE() {
    return Ape()
        .Item("Title", "T3 (M3)")
        .Item("Artist", "A3")
        .Item("Album", "L3")
        .Item("Year", "1993")
        .Item("Track", "33");
}

/// The record itself, then its extension.
std::string Fields(const ID3Tag& tag) {
    return tag.Artist + "," + tag.Title + "," + tag.Comment + "," + tag.Album + "," + tag.Year + "," +
           std::to_string(tag.TrackNumber);
}

std::string ExtensionFields(const ID3Tag& tag) {
    const ID3v2Extension& extension = tag.ID3v2Extension;
    return extension.Artist + "," + extension.TrackTitle + "," + extension.Mix + "," + extension.AlbumTitle +
           "," + extension.Year + "," + extension.TrackNumber;
}

TEST_F(MPEGplusFileTest, Read_NoTag_HasEmptyFields) {
    const ID3Tag tag = Read(stream);
    EXPECT_EQ(Fields(tag), ",,,,,0");
    EXPECT_EQ(ExtensionFields(tag), ",,,,,");
    EXPECT_EQ(tag.Genre, 255);
}

TEST_F(MPEGplusFileTest, Read_ID3v1Alone_GoesDown) {
    const ID3Tag tag = Read(stream + FullID3v1());
    EXPECT_EQ(Fields(tag), "A1,T1,C1,L1,1991,11");
    EXPECT_EQ(ExtensionFields(tag), "A1,T1,C1,L1,1991,11");
    EXPECT_EQ(tag.Genre, 17);
}

TEST_F(MPEGplusFileTest, Read_ID3v1WithoutTrack_GivesTheExtensionNone) {
    EXPECT_EQ(ExtensionFields(Read(stream + Id3v1{"T1", "A1", "", "", "", 0, 0}.Bytes())), "A1,T1,,,,");
}

TEST_F(MPEGplusFileTest, Read_ID3v2Alone_GoesUp) {
    const ID3Tag tag = Read(FullID3v2() + stream);
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(Fields(tag), "A2,T2,M2,L2,1992,22");
    EXPECT_EQ(ExtensionFields(tag), "A2,T2,M2,L2,1992,22");
    EXPECT_EQ(tag.ID3v2Extension.Composer, "P2");
}

TEST_F(MPEGplusFileTest, Read_ID3v2AndID3v1_ID3v2Wins) {
    EXPECT_EQ(Fields(Read(FullID3v2() + stream + FullID3v1())), "A2,T2,M2,L2,1992,22");
}

TEST_F(MPEGplusFileTest, Read_EmptyID3v2_LeavesTheValuesOfID3v1) {
    const ID3Tag tag = Read(Id3v2("", 60) + stream + FullID3v1());
    EXPECT_EQ(Fields(tag), "A1,T1,C1,L1,1991,11");
    EXPECT_EQ(ExtensionFields(tag), ",,,,,");
}

TEST_F(MPEGplusFileTest, Read_ID3v2Values_GoUpOneByOne) {
    const auto with = [&](const std::string& frames) {
        return Fields(Read(Id3v2(frames, 90) + stream + FullID3v1()));
    };
    EXPECT_EQ(with(TextFrame("TPE1", "A2")), "A2,T1,C1,L1,1991,11");
    EXPECT_EQ(with(TextFrame("TALB", "L2")), "A1,T1,C1,L2,1991,11");
    EXPECT_EQ(with(TextFrame("TYER", "1992")), "A1,T1,C1,L1,1992,11");
    EXPECT_EQ(with(TextFrame("TRCK", "22")), "A1,T1,C1,L1,1991,22");
    EXPECT_EQ(with(TextFrame("TRCK", "0")), "A1,T1,C1,L1,1991,11");
    EXPECT_EQ(with(TextFrame("TRCK", std::string(1, '\0'))), "A1,T1,C1,L1,1991,11");
    // A title brings its mix along, also when it has none; a mix alone does not go up.
    EXPECT_EQ(with(TextFrame("TIT2", "T2 (M2)")), "A1,T2,M2,L1,1991,11");
    EXPECT_EQ(with(TextFrame("TIT2", "T2")), "A1,T2,,L1,1991,11");
    EXPECT_EQ(with(TextFrame("TIT2", "(M2)")), "A1,T1,C1,L1,1991,11");
}

TEST_F(MPEGplusFileTest, Read_APEAlone_GoesDown) {
    const ID3Tag tag = Read(stream + FullAPE().Bytes());
    EXPECT_EQ(Fields(tag), "A3,T3,M3,L3,1993,0");
    EXPECT_EQ(ExtensionFields(tag), "A3,T3,M3,L3,1993,33");
}

TEST_F(MPEGplusFileTest, Read_APEAndID3v2_APEWins) {
    const ID3Tag tag = Read(FullID3v2() + stream + FullAPE().Bytes());
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(Fields(tag), "A3,T3,M3,L3,1993,0");
    EXPECT_EQ(ExtensionFields(tag), "A3,T3,M3,L3,1993,33");
    // What APE does not speak of stays.
    EXPECT_EQ(tag.ID3v2Extension.Composer, "P2");
}

TEST_F(MPEGplusFileTest, Read_APEWithFewItems_HidesTheValuesOfID3v2) {
    const ID3Tag tag = Read(FullID3v2() + stream + Ape().Item("Artist", "A3").Bytes());
    EXPECT_EQ(Fields(tag), "A3,,,,,0");
    EXPECT_EQ(ExtensionFields(tag), "A3,,,,,22");
}

TEST_F(MPEGplusFileTest, Read_UnusableAPE_HidesTheValuesOfID3v2Too) {
    const ID3Tag tag = Read(FullID3v2() + stream + FullAPE().WithoutHeader().Bytes());
    EXPECT_EQ(Fields(tag), ",,,,,0");
    EXPECT_EQ(Fields(Read(FullID3v2() + stream + FullAPE().Version(1000).Bytes())), ",,,,,0");
}

TEST_F(MPEGplusFileTest, Read_APEBeforeID3v1_IsNotFound) {
    EXPECT_EQ(Fields(Read(stream + FullAPE().Bytes() + FullID3v1())), "A1,T1,C1,L1,1991,11");
    EXPECT_EQ(Fields(Read(FullID3v2() + stream + FullAPE().Bytes() + FullID3v1())), "A2,T2,M2,L2,1992,22");
}

TEST_F(MPEGplusFileTest, Read_UnknownAPEItems_BecomeTheTrack) {
    const ID3Tag tag = Read(stream + Ape().Item("Publisher", "P").Item("Label", "L").Bytes());
    EXPECT_EQ(tag.TrackNumber, 2);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "2");
}

TEST_F(MPEGplusFileTest, Read_ID3v1_IsInTheCodePage) {
    EXPECT_EQ(Read(stream + Id3v1{"\xC4\xEE\xEC"}.Bytes()).Title, "Дом");
}

TEST_F(MPEGplusFileTest, Read_ID3v2TrackThatIsNoNumberOfAByte_Fails) {
    const std::pair<std::string, int> tracks[] = {{"3/12", 13}, {"x", 13},  {" ", 13},     {"\0"s, 0},
                                                  {"256", 6},   {"-1", 6},  {"255", 0},    {" 7 ", 0},
                                                  {"7\0"s, 0},  {"7.5", 0}, {"7\0/12"s, 0}};
    for (const auto& [track, number] : tracks) {
        const ID3Tag tag = Read(Id3v2(TextFrame("TPE1", "A2") + TextFrame("TRCK", track) +
                                          TextFrame("TALB", "L2") + TextFrame("TYER", "1992"),
                                      90) +
                                stream);
        EXPECT_EQ(failure, number) << track;
        EXPECT_EQ(Fields(tag).substr(0, 3), "A2,") << track;
        EXPECT_EQ(tag.AllowEdits, number == 0) << track;
        EXPECT_EQ(tag.Album, number == 0 ? "L2" : "") << track;
    }
}

TEST_F(MPEGplusFileTest, Read_ID3v2TrackWithAPE_IsNotLookedAt) {
    const ID3Tag tag = Read(Id3v2(TextFrame("TRCK", "3/12"), 60) + stream + Ape().Bytes());
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(tag.TrackNumber, 0);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "3/12");
}

TEST_F(MPEGplusFileTest, Read_PassingOver_LeavesUnknownContentOut) {
    const std::string path = NewFile(stream + Ape().Item("Cover", "c").Bytes());
    ID3Tag tag;
    ReadMPEGplusFile({files, ansi, UnknownContent::PassOver}, path, tag);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
    EXPECT_EQ(tag.TrackNumber, 1);
}

// Hostile and cut files.

TEST_F(MPEGplusFileTest, Read_CutAtEveryLength_EndsWell) {
    for (const std::string& whole : {FullID3v2() + Filled(Mpc7(1000), 60) + FullAPE().Bytes(),
                                     Mpc8(MpcStreamHeader(), 20) + FullID3v1()}) {
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            Read(whole.substr(0, length));
            EXPECT_TRUE(failure == 0 || failure == 11) << failure;
        }
    }
}

// What it costs.

TEST_F(MPEGplusFileTest, Read_UsualFile_IsOpenedAndReadTwice) {
    const std::string cover(1000000, 'c');
    for (const auto& [bytes, reads] :
         {std::pair(Filled(Mpc7(1000), 100000) + FullAPE().Bytes(), 2),
          {Filled(Mpc8(), 100000) + FullID3v1(), 2},
          {FullID3v2() + Filled(Mpc7(1000), 100000), 2},
          {Mpc8(), 1},
          {Filled(Mpc7(1000), 100000) + FullAPE().Item("Cover Art (Front)", cover).Bytes(), 3}}) {
        FaultInjectingFileSystem counting(files);
        ID3Tag tag;
        ReadMPEGplusFile({counting, ansi, UnknownContent::PassOver}, NewFile(bytes), tag);
        EXPECT_TRUE(tag.AllowEdits);
        EXPECT_EQ(counting.faults.operations, 1 + reads);
    }
}

TEST_F(MPEGplusFileTest, Read_FailingDevice_GoesUpWithWhatWasRead) {
    const std::string path = NewFile(Filled(Mpc7(1000), 100000) + FullAPE().Bytes());
    for (int n = 1; n <= 3; ++n) {
        FaultInjectingFileSystem failing(files);
        failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DeviceIoError};
        ID3Tag tag;
        EXPECT_EQ(RuntimeErrorOf([&] { ReadMPEGplusFile({failing, ansi}, path, tag); }), n == 1 ? 0 : 57);
        EXPECT_EQ(tag.Path, n == 1 ? "" : path);
        EXPECT_FALSE(tag.AllowEdits);
    }
}

}  // namespace
}  // namespace zefta::test
