#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v2.h"
#include "tags/ID3v2Frames.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class ID3v2Test : public ::testing::Test {
  protected:
    ID3Tag Read(const std::string& bytes) {
        const auto file = files.OpenReadOnly(folder.Write("r.mp3", bytes));
        ID3Tag tag;
        ReadID3v2(*file, tag, ansi);
        position = file->Position();
        return tag;
    }

    ID3v2Extension ReadFrames(const std::string& frames) { return Read(Id3v2(frames, 1000)).ID3v2Extension; }

    std::string Set(const std::string& bytes, ID3Tag& tag) {
        tag.Path = folder.Write("w.mp3", bytes);
        SetID3v2(files, ansi, tag);
        return folder.Read("w.mp3");
    }

    /// What the twelve frames of the record are to look like.
    std::string TwelveFrames(const ID3v2Extension& tag, const std::string& title) {
        return TextFrame("TRCK", tag.TrackNumber) + TextFrame("TIT2", title) + TextFrame("TPE1", tag.Artist) +
               TextFrame("TALB", tag.AlbumTitle) + TextFrame("TYER", tag.Year) +
               TextFrame("COMM", "eng\0"s + tag.Comments) + TextFrame("TCOM", tag.Composer) +
               TextFrame("TCON", tag.Genre) + TextFrame("TOPE", tag.OriginalArtist) +
               TextFrame("TCOP", tag.Copyright) + TextFrame("TENC", tag.EncodedBy) +
               TextFrame("WXXX", "\0"s + tag.URL);
    }

    static ID3Tag FullTag() {
        ID3Tag tag;
        tag.ID3v2Extension.TrackNumber = "3/12";
        tag.ID3v2Extension.TrackTitle = "Song";
        tag.ID3v2Extension.Artist = "Artist";
        tag.ID3v2Extension.AlbumTitle = "Album";
        tag.ID3v2Extension.Year = "1999";
        tag.ID3v2Extension.Comments = "Comment";
        tag.ID3v2Extension.Composer = "Composer";
        tag.ID3v2Extension.Genre = "Rock";
        tag.ID3v2Extension.OriginalArtist = "Original";
        tag.ID3v2Extension.Copyright = "2001 Them";
        tag.ID3v2Extension.EncodedBy = "Encoder";
        tag.ID3v2Extension.URL = "http://example.invalid/";
        return tag;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1251);
    std::int32_t position = 0;
    const std::string audio = Audio(100000);
};

TEST_F(ID3v2Test, Read_Header_IsStored) {
    std::string bytes = Id3v2("", 100, 128 | 32);
    bytes[3] = '\4';
    bytes[4] = '\1';
    const ID3Tag tag = Read(bytes + audio);
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(tag.ID3v2Extension.MajorVersion, 4);
    EXPECT_EQ(tag.ID3v2Extension.MinorVersion, 1);
    EXPECT_EQ(tag.ID3v2Extension.bUnsynchronisation, 128);
    EXPECT_EQ(tag.ID3v2Extension.bExperimentalIndicator, 32);
    EXPECT_EQ(tag.ID3v2Extension.bExtendedHeader, 0);
    EXPECT_EQ(tag.ID3v2Extension.bFooterPresent, 0);
    EXPECT_EQ(tag.ID3v2Extension.TagSize, 100);
    EXPECT_EQ(position, 110);
}

TEST_F(ID3v2Test, Read_Footer_ReadsTenBytesFurtherAndLeavesThePositionWhereItWas) {
    // The last frame is longer than its tag: it ends where the reading does, 10 bytes behind the tag, or 20.
    const std::string cut = "TALB\0\0\0\x3B\0\0\0"s + std::string(37, 'a');
    const std::string behind = "0123456789abcdefghijklmnopqrstuvwxyz";
    for (const int flags : {0, 16}) {
        const ID3Tag tag = Read(Id3v2(TextFrame("TPE1", "A") + cut, 60, flags) + behind);
        EXPECT_EQ(tag.ID3v2Extension.bFooterPresent, flags);
        EXPECT_EQ(tag.ID3v2Extension.AlbumTitle,
                  std::string(37, 'a') + behind.substr(0, flags == 0 ? 10 : 20));
        EXPECT_EQ(position, 70);
    }
}

TEST_F(ID3v2Test, Read_NoTag_LeavesPosition0) {
    EXPECT_FALSE(Read(audio).ID3v2Present);
    EXPECT_EQ(position, 0);
    EXPECT_FALSE(Read("").ID3v2Present);
}

TEST_F(ID3v2Test, Read_EveryFrame_FillsItsField) {
    const ID3v2Extension tag = ReadFrames(
        TextFrame("TRCK", "7") + TextFrame("TIT2", "Title") + TextFrame("TPE1", "Artist") +
        TextFrame("TALB", "Album") + TextFrame("TYER", "1999") + TextFrame("COMM", "engdesc\0Comment"s) +
        TextFrame("TCOM", "Composer") + TextFrame("TCON", "Rock") + TextFrame("TOPE", "Original") +
        TextFrame("TCOP", "Copy") + TextFrame("TENC", "Enc") + TextFrame("WXXX", "desc\0http://x"s));
    EXPECT_EQ(tag.TrackNumber, "7");
    EXPECT_EQ(tag.TrackTitle, "Title");
    EXPECT_EQ(tag.Artist, "Artist");
    EXPECT_EQ(tag.AlbumTitle, "Album");
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comments, "Comment");
    EXPECT_EQ(tag.Composer, "Composer");
    EXPECT_EQ(tag.Genre, "Rock");
    EXPECT_EQ(tag.OriginalArtist, "Original");
    EXPECT_EQ(tag.Copyright, "Copy");
    EXPECT_EQ(tag.EncodedBy, "Enc");
    EXPECT_EQ(tag.URL, "http://x");
    EXPECT_EQ(tag.UnknownFrames, "");
}

TEST_F(ID3v2Test, Read_TitleWithMix_IsDivided) {
    const struct {
        const char *text, *title, *mix;
    } rows[] = {{"Song (Radio Edit)", "Song", "Radio Edit"},
                {"Song (a) ( b )", "Song (a)", "b"},
                {"Song (open", "Song (open", ""},
                {"Song)", "Song)", ""},
                {"(All)", "", "All"},
                {"Song (x) live", "Song (x) live", ""}};
    for (const auto& row : rows) {
        const ID3v2Extension tag = ReadFrames(TextFrame("TIT2", row.text));
        EXPECT_EQ(tag.TrackTitle, row.title) << row.text;
        EXPECT_EQ(tag.Mix, row.mix) << row.text;
    }
}

TEST_F(ID3v2Test, Read_SpecialValues) {
    EXPECT_EQ(ReadFrames(TextFrame("TRCK", "0")).TrackNumber, "");
    EXPECT_EQ(ReadFrames(TextFrame("TRCK", "00")).TrackNumber, "00");
    EXPECT_EQ(ReadFrames(TextFrame("TCON", "(17)Rock")).Genre, "Rock");
    EXPECT_EQ(ReadFrames(TextFrame("TCON", "(17)")).Genre, "");
    EXPECT_EQ(ReadFrames(TextFrame("TCON", "Rock")).Genre, "Rock");
    EXPECT_EQ(ReadFrames(TextFrame("COMM", "eng\0"s)).Comments, "");
    EXPECT_EQ(ReadFrames(TextFrame("COMM", "eng\0C"s)).Comments, "C");
    EXPECT_EQ(ReadFrames(TextFrame("TPE1", "\xC4\xEE\xEC")).Artist, "Дом");
}

TEST_F(ID3v2Test, Read_EncodingByteAlone_IsEmpty) {
    for (const ID3v2Frame& frame : ID3v2Frames()) {
        const ID3v2Extension tag = ReadFrames(RawFrame(frame.identifier, "\0"s));
        EXPECT_EQ(tag.TrackNumber + tag.TrackTitle + tag.Artist + tag.AlbumTitle + tag.Year + tag.Comments +
                      tag.Composer + tag.Genre + tag.OriginalArtist + tag.Copyright + tag.EncodedBy +
                      tag.URL + tag.UnknownFrames,
                  "")
            << frame.identifier;
    }
}

TEST_F(ID3v2Test, Read_LastOccurrenceCounts) {
    const ID3v2Extension tag = ReadFrames(TextFrame("TIT2", "A (Mix)") + TextFrame("TIT2", "B"));
    EXPECT_EQ(tag.TrackTitle, "B");
    EXPECT_EQ(tag.Mix, "");
}

TEST_F(ID3v2Test, Read_UnknownFrames_AreKeptInOrder_EmptyOnesPassedOver) {
    const std::string apic = RawFrame("APIC", Audio(200));
    const std::string priv = RawFrame("PRIV", "x");
    const ID3v2Extension tag = ReadFrames(apic + RawFrame("TXXX", "") + TextFrame("TPE1", "A") + priv);
    EXPECT_EQ(tag.UnknownFrames, apic + priv);
    EXPECT_EQ(tag.Artist, "A");
}

TEST_F(ID3v2Test, Read_UnknownFrames_TakeThePlaceOfWhatTheRecordHeld) {
    const std::string priv = RawFrame("PRIV", "x");
    const auto file = files.OpenReadOnly(folder.Write("r.mp3", Id3v2(priv, 100)));
    ID3Tag tag;
    for (int i = 0; i < 2; ++i) {
        ReadID3v2(*file, tag, ansi);
        EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, priv);
    }
    ReadID3v2(*file, tag, ansi, UnknownContent::PassOver);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
}

TEST_F(ID3v2Test, Read_ExtendedHeader_IsPassedOver) {
    const std::string extended = "\0\0\0\x0A"s + std::string(6, 'e');
    EXPECT_EQ(Read(Id3v2(extended + TextFrame("TPE1", "A"), 500, 64)).ID3v2Extension.Artist, "A");
}

TEST_F(ID3v2Test, Read_Utf16_GivesItsBytes) {
    EXPECT_EQ(ReadFrames(RawFrame("TPE1", "\1\xFF\xFE"s + "A\0"s)).Artist, ansi.Decode("\xFF\xFE"
                                                                                       "A\0"s));
}

TEST_F(ID3v2Test, Read_FrameThatReachesBeyondTheTag_EndsTheWalk) {
    std::string frame = TextFrame("TPE1", "A") + "TALB";
    frame += "\x7F\x7F\x7F\x7F\0\0"s;
    const ID3v2Extension tag = ReadFrames(frame);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.AlbumTitle, "");
}

TEST_F(ID3v2Test, Read_TagLargerThanTheFile_TakesWhatIsThere) {
    std::string bytes = Id3v2(TextFrame("TPE1", "Artist"), 1000).substr(0, 24);
    bytes.replace(6, 4, "\x7F\x7F\x7F\x7F");
    EXPECT_EQ(Read(bytes).ID3v2Extension.Artist, "Art");
}

TEST_F(ID3v2Test, Set_NoTag_Makes512BytesInFrontOfTheAudio) {
    ID3Tag tag = FullTag();
    const std::string bytes = Set(audio, tag);
    EXPECT_EQ(bytes, Id3v2(TwelveFrames(tag.ID3v2Extension, "Song"), 502) + audio);
    EXPECT_EQ(tag.Path, folder / "w.mp3");
    EXPECT_FALSE(folder.Exists("w.mp3.tmp"));
}

TEST_F(ID3v2Test, Set_EmptyRecord_StillWritesTheTwelveFrames) {
    ID3Tag tag;
    EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames({}, ""), 502) + audio);
}

TEST_F(ID3v2Test, Set_SlightlyLongerSecondTime_KeepsTheLength) {
    ID3Tag tag = FullTag();
    const std::string first = Set(audio, tag);
    tag.ID3v2Extension.TrackTitle = "A longer song";
    const std::string second = Set(first, tag);
    EXPECT_EQ(second.size(), first.size());
    EXPECT_EQ(second, Id3v2(TwelveFrames(tag.ID3v2Extension, "A longer song"), 502) + audio);
}

TEST_F(ID3v2Test, Set_Estimate500_GivesATagOf550) {
    ID3Tag tag;
    tag.ID3v2Extension.Comments = std::string(500 - 115, 'c');
    EXPECT_EQ(tag.ID3v2Extension.GetTagSize(ansi), 500);
    EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames(tag.ID3v2Extension, ""), 540) + audio);
}

TEST_F(ID3v2Test, Set_TagLength_IsRoundedHalfToEven) {
    const struct {
        std::int32_t estimate, length;
    } rows[] = {{505, 556}, {515, 566}, {525, 578}, {514, 565}, {516, 568}, {465, 512}, {466, 513}};
    for (const auto& row : rows) {
        ID3Tag tag;
        tag.ID3v2Extension.Comments = std::string(static_cast<std::size_t>(row.estimate) - 115, 'c');
        ASSERT_EQ(tag.ID3v2Extension.GetTagSize(ansi), row.estimate);
        EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames(tag.ID3v2Extension, ""), row.length - 10) + audio)
            << row.estimate;
    }
}

TEST_F(ID3v2Test, Set_OldTagOfSize0_ItsHeaderCountsAsAudio) {
    ID3Tag tag;
    const std::string old = Id3v2("", 0) + audio;
    EXPECT_EQ(Set(old, tag), Id3v2(TwelveFrames({}, ""), 502) + old);
}

TEST_F(ID3v2Test, Set_OldTagWithAFooter_TheFooterCountsAsAudio) {
    ID3Tag tag;
    const std::string footer = "3DI\4\0\x10\0\0\0\x14"s;
    const std::string old = Id3v2("", 20, 16) + footer + audio;
    EXPECT_EQ(Set(old, tag), Id3v2(TwelveFrames({}, ""), 502) + footer + audio);
    tag.Path = folder.Write("w.mp3", old);
    EXPECT_TRUE(RemoveID3v2(files, tag));
    EXPECT_EQ(folder.Read("w.mp3"), footer + audio);
}

TEST_F(ID3v2Test, Set_EstimateThatJustFits_StaysInPlace_OneMoreRebuilds) {
    ID3Tag tag;
    tag.ID3v2Extension.Comments = std::string(600 - 115 - 32, 'c');
    const std::string old = Id3v2("", 600) + audio;
    EXPECT_EQ(Set(old, tag), Id3v2(TwelveFrames(tag.ID3v2Extension, ""), 600) + audio);
    tag.ID3v2Extension.Comments = std::string(601 - 115, 'c');
    EXPECT_EQ(Set(old, tag), Id3v2(TwelveFrames(tag.ID3v2Extension, ""), 651) + audio);
}

TEST_F(ID3v2Test, Set_TitleAndMix_AreJoinedTrimmed) {
    ID3Tag tag;
    tag.ID3v2Extension.TrackTitle = " Song ";
    tag.ID3v2Extension.Mix = " Radio Edit ";
    EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames({}, "Song (Radio Edit)"), 502) + audio);
    tag.ID3v2Extension.Mix = "  ";
    EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames({}, "Song"), 502) + audio);
}

TEST_F(ID3v2Test, Set_UnknownFrames_StandBehindTheTwelve) {
    const std::string apic = RawFrame("APIC", Audio(3000));
    const std::string file = Id3v2(apic + TextFrame("TPE1", "Old"), 3200) + audio;
    ID3Tag tag = Read(file);
    tag.ID3v2Extension.Artist = "New";
    EXPECT_EQ(Set(file, tag), Id3v2(TwelveFrames(tag.ID3v2Extension, "") + apic, 3200) + audio);
}

TEST_F(ID3v2Test, Set_TextOutsideTheCodePage_IsQuestionMarks) {
    ID3Tag tag;
    tag.ID3v2Extension.Artist = "Дом 日本 \xFF";
    EXPECT_NE(Set(audio, tag).find(TextFrame("TPE1", "\xC4\xEE\xEC ?? ?")), std::string::npos);
}

TEST_F(ID3v2Test, Set_SameBytes_LeavesTheFilesTimeAlone) {
    ID3Tag tag = FullTag();
    Set(audio, tag);
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    std::filesystem::last_write_time(tag.Path, past);
    const auto before = std::filesystem::last_write_time(tag.Path);
    SetID3v2(files, ansi, tag);
    EXPECT_EQ(std::filesystem::last_write_time(tag.Path), before);
}

TEST_F(ID3v2Test, Set_FileOfAnotherKind_IsLeftAlone) {
    ID3Tag tag = FullTag();
    tag.Path = folder.Write("a.ogg", "OggS");
    SetID3v2(files, ansi, tag);
    EXPECT_EQ(folder.Read("a.ogg"), "OggS");
    EXPECT_EQ(tag.Path, folder / "a.ogg");
}

TEST_F(ID3v2Test, Set_ReadOnlyOrMissing_EmptiesThePath) {
    ID3Tag tag = FullTag();
    tag.Path = folder.Write("a.mp3", audio);
    files.SetReadOnly(tag.Path, true);
    SetID3v2(files, ansi, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_EQ(folder.Read("a.mp3"), audio);
    tag.Path = folder / "none.mp3";
    SetID3v2(files, ansi, tag);
    EXPECT_EQ(tag.Path, "");
}

TEST_F(ID3v2Test, Set_TmpCannotBeCreated_EmptiesThePathAndKeepsTheFile) {
    std::filesystem::create_directory(folder / "w.mp3.tmp");
    ID3Tag tag = FullTag();
    EXPECT_EQ(Set(audio, tag), audio);
    EXPECT_EQ(tag.Path, "");
    ID3Tag tagged;
    tagged.Path = folder.Write("w.mp3", Id3v2("", 10) + audio);
    EXPECT_FALSE(RemoveID3v2(files, tagged));
    EXPECT_EQ(folder.Read("w.mp3"), Id3v2("", 10) + audio);
}

TEST_F(ID3v2Test, Set_OldTmp_IsReplaced) {
    folder.Write("w.mp3.tmp", std::string(200000, 'x'));
    ID3Tag tag;
    EXPECT_EQ(Set(audio, tag), Id3v2(TwelveFrames({}, ""), 502) + audio);
    EXPECT_FALSE(folder.Exists("w.mp3.tmp"));
}

TEST_F(ID3v2Test, Set_NewFileCannotTakeThePlace_FailsAndKeepsTheFile) {
    FaultInjectingFileSystem failing(files);
    ID3Tag tag;
    tag.Path = folder.Write("w.mp3", audio);
    SetID3v2(failing, ansi, tag);
    const int lastOperation = failing.faults.operations;
    tag.Path = folder.Write("w.mp3", audio);
    failing.faults = {};
    failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, lastOperation, ErrorNumber::DeviceIoError};
    EXPECT_EQ(RuntimeErrorOf([&] { SetID3v2(failing, ansi, tag); }), 57);
    EXPECT_EQ(folder.Read("w.mp3"), audio);
    EXPECT_FALSE(folder.Exists("w.mp3.tmp"));
}

TEST_F(ID3v2Test, Set_FramesThatOverrunTheirOldPlace_Fails5WithTheFramesWritten) {
    ID3Tag tag;
    tag.ID3v2Extension.Genre = std::string(60, 'g');
    const std::string old = Id3v2("", 120) + audio;
    EXPECT_EQ(RuntimeErrorOf([&] { Set(old, tag); }), 5);
    std::string expected = Id3v2("", 120).substr(0, 10) + TwelveFrames(tag.ID3v2Extension, "");
    expected += old.substr(expected.size());
    EXPECT_EQ(folder.Read("w.mp3"), expected);
}

TEST_F(ID3v2Test, Set_FramesThatOverrunANewTag_Fails5WithTheFramesWritten) {
    ID3Tag tag;
    tag.ID3v2Extension.Genre = std::string(600, 'g');
    EXPECT_EQ(RuntimeErrorOf([&] { Set(audio, tag); }), 5);
    const std::string frames = Id3v2("", 502).substr(0, 10) + TwelveFrames(tag.ID3v2Extension, "");
    EXPECT_EQ(folder.Read("w.mp3"), frames + audio.substr(frames.size() - 512));
}

TEST_F(ID3v2Test, Set_MoreThan32767BytesToFill_Fails6WithTheFramesWritten) {
    ID3Tag tag;
    const std::string old = Id3v2("", 33100) + audio;
    EXPECT_EQ(RuntimeErrorOf([&] { Set(old, tag); }), 6);
    EXPECT_EQ(folder.Read("w.mp3"), Id3v2(TwelveFrames({}, ""), 33100) + audio);
}

TEST_F(ID3v2Test, Set_OldTagThatReachesBeyondTheFile_Fails5AndTouchesNothing) {
    const std::string whole = Id3v2(TextFrame("TPE1", "A"), 300) + audio.substr(0, 50);
    for (const std::string& old : {Id3v2("", 361).substr(0, 10) + whole.substr(10), whole.substr(0, 309),
                                   "ID3\3"s, "ID3\3\0\0\x7F\x7F\x7F\x7F"s + audio}) {
        for (const std::size_t length : {0U, 5000U}) {
            ID3Tag tag;
            tag.ID3v2Extension.Comments = std::string(length, 'c');
            EXPECT_EQ(RuntimeErrorOf([&] { Set(old, tag); }), 5);
            EXPECT_EQ(folder.Read("w.mp3"), old);
            EXPECT_FALSE(folder.Exists("w.mp3.tmp"));
        }
    }
}

TEST_F(ID3v2Test, Set_OldTagThatFillsTheFile_IsRewritten) {
    ID3Tag tag;
    EXPECT_EQ(Set(Id3v2("", 300), tag), Id3v2(TwelveFrames({}, ""), 300));
    EXPECT_EQ(Set(Id3v2("", 20), tag), Id3v2(TwelveFrames({}, ""), 502));
}

TEST_F(ID3v2Test, Remove_TagThatReachesBeyondTheFile_Fails5AndTouchesNothing) {
    ID3Tag tag;
    for (const std::string& old :
         {"ID3\3\0\0\x7F\x7F\x7F\x7F"s + audio, Id3v2("", 300).substr(0, 309), "ID3"s}) {
        tag.Path = folder.Write("a.mp3", old);
        EXPECT_EQ(RuntimeErrorOf([&] { RemoveID3v2(files, tag); }), 5);
        EXPECT_EQ(folder.Read("a.mp3"), old);
        EXPECT_FALSE(folder.Exists("a.mp3.tmp"));
    }
}

TEST_F(ID3v2Test, Remove_TagThatFillsTheFile_LeavesAnEmptyOne) {
    ID3Tag tag;
    tag.Path = folder.Write("a.mp3", Id3v2("", 300));
    EXPECT_TRUE(RemoveID3v2(files, tag));
    EXPECT_EQ(folder.Read("a.mp3"), "");
}

TEST_F(ID3v2Test, Remove_TakesTheTagOff) {
    ID3Tag tag;
    tag.Path = folder.Write("a.mp3", Id3v2(TextFrame("TPE1", "A"), 300) + audio);
    EXPECT_TRUE(RemoveID3v2(files, tag));
    EXPECT_EQ(folder.Read("a.mp3"), audio);
    EXPECT_FALSE(folder.Exists("a.mp3.tmp"));
    EXPECT_FALSE(RemoveID3v2(files, tag));
    EXPECT_FALSE(folder.Exists("a.mp3.tmp"));
    tag.Path = folder / "none.mp3";
    EXPECT_FALSE(RemoveID3v2(files, tag));
}

TEST_F(ID3v2Test, Remove_ReadOnly_IsRefused) {
    ID3Tag tag;
    tag.Path = folder.Write("a.mp3", Id3v2("", 300) + audio);
    files.SetReadOnly(tag.Path, true);
    EXPECT_FALSE(RemoveID3v2(files, tag));
}

TEST_F(ID3v2Test, Rebuild_CarriesPermissionsOverAndFollowsLinks) {
    ID3Tag tag;
    folder.Write("real.mp3", audio);
    ASSERT_EQ(chmod((folder / "real.mp3").c_str(), 0604), 0);
    std::filesystem::create_symlink("real.mp3", folder / "link.mp3");
    tag.Path = folder / "link.mp3";
    SetID3v2(files, ansi, tag);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.mp3"));
    EXPECT_EQ(folder.Read("real.mp3"), Id3v2(TwelveFrames({}, ""), 502) + audio);
    struct stat status;
    ASSERT_EQ(stat((folder / "real.mp3").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0604U);
}

TEST_F(ID3v2Test, WriteFrame_TrimsAndCountsTheEncodingByte) {
    EXPECT_EQ(WriteFrame("TPE1", " A "), "TPE1\0\0\0\2\0\0\0A"s);
    EXPECT_EQ(WriteFrame("TPE1", std::string(200, 'x')).substr(4, 4), "\0\0\1\x49"s);
}

}  // namespace
}  // namespace zefta::test
