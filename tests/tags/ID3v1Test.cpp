#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v1.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class ID3v1Test : public ::testing::Test {
  protected:
    ID3Tag Read(const std::string& bytes) {
        const auto file = files.OpenReadOnly(folder.Write("r.mp3", bytes));
        ID3Tag tag;
        found = ReadID3v1(*file, tag, ansi);
        position = file->Position();
        return tag;
    }

    /// The file after the record was merged into it.
    std::string Merge(const std::string& bytes, ID3Tag& tag) {
        tag.Path = folder.Write("w.mp3", bytes);
        SetID3v1(files, ansi, tag);
        return folder.Read("w.mp3");
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1251);
    bool found = false;
    std::int32_t position = 0;
    const std::string audio = Audio(300);
};

TEST_F(ID3v1Test, Read_AllFields) {
    const ID3Tag tag = Read(audio + Id3v1{"Title", "Artist", "Album", "1999", "Comment", 7, 17}.Bytes());
    EXPECT_TRUE(found);
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.Artist, "Artist");
    EXPECT_EQ(tag.Album, "Album");
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comment, "Comment");
    EXPECT_EQ(tag.TrackNumber, 7);
    EXPECT_EQ(tag.Genre, 17);
    EXPECT_EQ(position, 428);
}

TEST_F(ID3v1Test, Read_NoTag_Leaves125BeforeTheEnd) {
    const ID3Tag tag = Read(audio);
    EXPECT_FALSE(found);
    EXPECT_EQ(tag.Title, "");
    EXPECT_EQ(tag.Genre, 255);
    EXPECT_EQ(position, 175);
}

TEST_F(ID3v1Test, Read_FileShorterThanATag_HasNone) {
    for (const std::string& bytes : {""s, "TAG"s, "TAG"s + std::string(124, 'x')}) {
        Read(bytes);
        EXPECT_FALSE(found);
    }
}

TEST_F(ID3v1Test, Read_PaddingOfBlanks_IsTakenAway) {
    const ID3Tag tag = Read(Id3v1{"T", "A", "", "99", "C", 1, 0, ' '}.Bytes());
    EXPECT_EQ(tag.Title + tag.Artist + tag.Album + tag.Year + tag.Comment, "TA99C");
}

TEST_F(ID3v1Test, Read_TextIsInTheCodePage) {
    EXPECT_EQ(Read(Id3v1{"\xC4\xEE\xEC"}.Bytes()).Title, "Дом");
}

TEST_F(ID3v1Test, Read_Bytes125And126_DecideAboutCommentAndTrack) {
    std::string bytes = Id3v1{"", "", "", "", std::string(30, 'c')}.Bytes();
    EXPECT_EQ(Read(bytes).Comment, std::string(30, 'c'));
    EXPECT_EQ(Read(bytes).TrackNumber, 0);
    bytes[126] = '\0';  // 125 not 0, 126 is 0
    EXPECT_EQ(Read(bytes).Comment, std::string(29, 'c'));
    EXPECT_EQ(Read(bytes).TrackNumber, 0);
    bytes[125] = '\0';
    bytes[126] = '\5';
    EXPECT_EQ(Read(bytes).Comment, std::string(28, 'c'));
    EXPECT_EQ(Read(bytes).TrackNumber, 5);
    bytes[126] = '\0';
    EXPECT_EQ(Read(bytes).TrackNumber, 0);
}

TEST_F(ID3v1Test, Read_GenreWithoutAName_IsGivenAsItIs) {
    EXPECT_EQ(Read(Id3v1{"", "", "", "", "", 0, 200}.Bytes()).Genre, 200);
    EXPECT_EQ(Read(Id3v1{"", "", "", "", "", 0, 255}.Bytes()).Genre, 255);
}

TEST_F(ID3v1Test, Set_NoTagAndOnlyATitle_AppendsOneWithBlanksElsewhere) {
    ID3Tag tag;
    tag.Title = "Song";
    tag.TrackNumber = 3;
    tag.Genre = 9;
    EXPECT_EQ(Merge(audio, tag), audio + "TAG" + "Song" + std::string(26, '\0') +
                                     std::string(30 + 30 + 4 + 28, ' ') + "\0\3\11"s);
    EXPECT_EQ(tag.Path, folder / "w.mp3");
}

TEST_F(ID3v1Test, Set_ExistingTag_KeepsWhatTheRecordLeavesEmpty) {
    ID3Tag tag;
    tag.Artist = "New";
    tag.TrackNumber = 9;
    tag.Genre = 1;
    const std::string old = Id3v1{"Old Title", "Old Artist", "Album", "1999", "Comment", 2, 3}.Bytes();
    EXPECT_EQ(Merge(audio + old, tag),
              (audio + Id3v1{"Old Title", "New", "Album", "1999", "Comment", 9, 1}.Bytes()));
    EXPECT_EQ(tag.Title, "Old Title");
    EXPECT_EQ(tag.Album, "Album");
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comment, "Comment");
}

TEST_F(ID3v1Test, Set_CommentHash_ClearsTheComment) {
    ID3Tag tag;
    tag.Comment = "#";
    const std::string old = Id3v1{"T", "", "", "", std::string(30, 'c')}.Bytes();
    EXPECT_EQ(Merge(audio + old, tag), (audio + Id3v1{"T", "", "", "", "", 0, 255}.Bytes()));
    EXPECT_EQ(tag.Comment, "");
}

TEST_F(ID3v1Test, Set_ABlank_ClearsAField) {
    ID3Tag tag;
    tag.Title = " ";
    Merge(audio + Id3v1{"Old"}.Bytes(), tag);
    EXPECT_EQ(Read(folder.Read("w.mp3")).Title, "");
}

TEST_F(ID3v1Test, Set_LongValues_AreCutInCodePageBytes) {
    ID3Tag tag;
    for (int i = 0; i < 40; ++i) tag.Title += "Д";
    tag.Comment = std::string(30, 'c');
    const std::string bytes = Merge("", tag);
    EXPECT_EQ(bytes.substr(3, 30), std::string(30, '\xC4'));
    EXPECT_EQ(bytes.substr(97, 31), std::string(28, 'c') + "\0\0\xFF"s);
}

TEST_F(ID3v1Test, Set_Twice_IsAsOnce_AndTheSecondWritesNothing) {
    FaultInjectingFileSystem counting(files);
    ID3Tag tag;
    tag.Path = folder.Write("w.mp3", audio);
    tag.Title = "Song";
    SetID3v1(counting, ansi, tag);
    EXPECT_EQ(counting.faults.writes, 1);
    const std::string once = folder.Read("w.mp3");
    SetID3v1(counting, ansi, tag);
    EXPECT_EQ(counting.faults.writes, 1);
    EXPECT_EQ(folder.Read("w.mp3"), once);
}

TEST_F(ID3v1Test, Set_FileShorterThanATag_AppendsOne) {
    for (std::size_t length = 0; length <= 127; ++length) {
        for (const std::string& old : {Audio(length), ("TAG" + Audio(127)).substr(0, length)}) {
            ID3Tag tag;
            tag.Title = "Song";
            EXPECT_EQ(Merge(old, tag), old + "TAG" + "Song" + std::string(26, '\0') +
                                           std::string(30 + 30 + 4 + 28, ' ') + "\0\0\xFF"s)
                << length;
            EXPECT_EQ(tag.Artist + tag.Comment, "");
        }
    }
}

TEST_F(ID3v1Test, Set_FileThatIsOneTag_IsMergedInto) {
    ID3Tag tag;
    tag.Title = "New";
    EXPECT_EQ(Merge(Id3v1{"Old", "A", "", "", "", 3, 9}.Bytes(), tag),
              (Id3v1{"New", "A", "", "", "", 0, 255}.Bytes()));
}

TEST_F(ID3v1Test, Set_CommentHashWithoutATag_LeavesNoBlanksInTheComment) {
    ID3Tag tag;
    tag.Comment = "#";
    tag.TrackNumber = 5;
    EXPECT_EQ(Merge(audio, tag),
              audio + "TAG" + std::string(30 + 30 + 30 + 4, ' ') + std::string(29, '\0') + "\5\xFF"s);
    EXPECT_EQ(tag.Comment, "");
}

TEST_F(ID3v1Test, Set_ReadOnlyOrMissing_EmptiesThePathAndChangesNothing) {
    ID3Tag tag;
    tag.Title = "x";
    tag.Path = folder.Write("a.mp3", audio);
    files.SetReadOnly(tag.Path, true);
    SetID3v1(files, ansi, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_EQ(folder.Read("a.mp3"), audio);
    tag.Path = folder / "none.mp3";
    SetID3v1(files, ansi, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_FALSE(folder.Exists("none.mp3"));
}

class SetID3Test : public ID3v1Test {
  protected:
    std::string Set(const std::string& bytes, const ID3v1Values& values) {
        result = SetID3(files, ansi, folder.Write("s.mp3", bytes), values);
        return folder.Read("s.mp3");
    }

    int result = -1;
};

TEST_F(SetID3Test, NoTag_AppendsOneWithEverything) {
    EXPECT_EQ((Set(audio, {"A", "B", "2001", std::string(40, 't'), "C", 4, 12})),
              (audio + Id3v1{std::string(30, 't'), "A", "B", "2001", "C", 12, 4}.Bytes()));
    EXPECT_EQ(result, 0);
}

TEST_F(SetID3Test, ExistingTag_IsReplacedWhole) {
    EXPECT_EQ((Set(audio + Id3v1{"Old", "Old", "Old", "1990", "Old", 1, 1}.Bytes(), {})),
              audio + Id3v1{}.Bytes());
}

TEST_F(SetID3Test, Track_DecidesAboutTheEndOfTheComment) {
    ID3v1Values values;
    values.Comment = std::string(30, 'c');
    for (const std::int16_t none : {std::int16_t{-1}, std::int16_t{256}}) {
        values.Track = none;
        EXPECT_EQ(Set("", values).substr(97, 30), values.Comment);
    }
    values.Track = 7;
    EXPECT_EQ(Set("", values).substr(97, 30), std::string(28, 'c') + "\0\7"s);
    values.Track = 0;
    EXPECT_EQ(Set("", values).substr(125, 2), "\0\0"s);
}

TEST_F(SetID3Test, FileThatCannotBeOpened_Gives1) {
    const std::string path = folder.Write("a.mp3", audio);
    files.SetReadOnly(path, true);
    EXPECT_EQ(SetID3(files, ansi, path, {}), 1);
    EXPECT_EQ(SetID3(files, ansi, folder / "none", {}), 1);
    EXPECT_EQ(folder.Read("a.mp3"), audio);
}

TEST_F(ID3v1Test, ApeTagOf131Bytes_IsNone) {
    const std::string ape = "APETAGEX" + std::string(123, 'x');
    folder.Write("a.mp3", Audio(300) + ape);
    ID3Tag tag;
    EXPECT_FALSE(ReadID3v1(*files.OpenReadOnly(folder / "a.mp3"), tag, ansi));
    EXPECT_EQ(tag.Title, "");
    tag.Path = folder / "a.mp3";
    tag.Title = "T";
    SetID3v1(files, ansi, tag);
    EXPECT_EQ(folder.Read("a.mp3").substr(0, 431), Audio(300) + ape);
    EXPECT_EQ(folder.Read("a.mp3").size(), 300 + 131 + 128U);
}

TEST_F(ID3v1Test, TakeBack_LeavesTheBytesThatTheFileHad) {
    for (const std::string& end : {""s, Id3v1{"Title", "Artist"}.Bytes()}) {
        const auto file = files.OpenRead(folder.Write("a.mp3", audio + end));
        ID3Tag tag;
        tag.Title = "New";
        const std::string before = SetID3v1(*file, ansi, tag);
        EXPECT_EQ(before, end);
        EXPECT_NE(folder.Read("a.mp3"), audio + end);
        TakeBackID3v1(*file, before);
        EXPECT_EQ(folder.Read("a.mp3"), audio + end);
    }
}

}  // namespace
}  // namespace zefta::test
