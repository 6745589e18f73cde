// The grid of the advanced tags update and the massive update, without their windows.

#include <filesystem>

#include <gtest/gtest.h>

#include "library/TagGrid.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using Names = std::vector<std::string>;

TagRow RowWith(std::array<std::string, TagColumnCount> cells) {
    return {cells};
}

class TagGridTest : public ::testing::Test {
  protected:
    TagGridTest() { app.defaultWaveFile = &wave; }

    void WriteMp3(const std::string& name) {
        const Id3v1 end = {"Old Title", "Old Artist", "Old Album", "1990", "Old Mix", 3, 17};
        app.folder.Write(name, Mp3().Size(3000).Behind(end.Bytes()).Bytes());
    }

    void Write(const std::vector<TagRow>& rows, const TagDefaults& defaults = {}) {
        WriteTagRows(app, app.folder.Path(), rows, defaults, {});
    }

    ID3Tag ReadMp3(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name); }

    TestApp app;
    WaveFile wave{app};
};

TEST_F(TagGridTest, Headings_AreThoseOfTheMessages) {
    const char* headings[] = {"File", "No.", "Artist", "Title", "Mix", "Album", "Year"};
    for (std::size_t i = 0; i < std::size(headings); ++i)
        EXPECT_EQ(HeadingOf(app, static_cast<TagColumn>(i)), headings[i]);
}

TEST_F(TagGridTest, RowOfRecord_ExtendedValuesWinWhereThereAreAny) {
    ID3Tag tag;
    tag.Artist = "A1";
    tag.Title = "T1";
    tag.Comment = "M1";
    tag.Album = "L1";
    tag.Year = "1991";
    tag.TrackNumber = 7;
    EXPECT_EQ(RowOfRecord("x.mp3", tag).Cells, RowWith({"x.mp3", "7", "A1", "T1", "M1", "L1", "1991"}).Cells);
    tag.ID3v2Extension.Artist = "A2";
    tag.ID3v2Extension.TrackTitle = "T2";
    tag.ID3v2Extension.Mix = "M2";
    tag.ID3v2Extension.AlbumTitle = "L2";
    tag.ID3v2Extension.Year = "1992";
    tag.ID3v2Extension.TrackNumber = "07/12";
    EXPECT_EQ(RowOfRecord("x.mp3", tag).Cells,
              RowWith({"x.mp3", "07/12", "A2", "T2", "M2", "L2", "1992"}).Cells);
    EXPECT_EQ(RowOfRecord("y.mp3", ID3Tag()).Cells, RowWith({"y.mp3", "", "", "", "", "", ""}).Cells);
}

TEST_F(TagGridTest, LoadTagRows_TakesTheCompressedFilesInTheirOrder) {
    WriteMp3("b.mp3");
    app.folder.Write("a.ogg",
                     Ogg().Comment("ARTIST=X").Comment("TITLE=Y (Z)").Comment("TRACKNUMBER=4").Bytes());
    const Names names = {"b.mp3", "c.wav", "a.ogg", "none.mpc"};
    const std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), names).value();
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].Cells,
              RowWith({"b.mp3", "3", "Old Artist", "Old Title", "Old Mix", "Old Album", "1990"}).Cells);
    EXPECT_EQ(rows[1].Cells, RowWith({"a.ogg", "4", "X", "Y", "Z", "", ""}).Cells);
    EXPECT_EQ(rows[2].Cells, RowWith({"none.mpc", "", "", "", "", "", ""}).Cells);
    EXPECT_TRUE(rows[0].IsRead);
    EXPECT_TRUE(rows[1].IsRead);
    EXPECT_FALSE(rows[2].IsRead);
}

TEST_F(TagGridTest, LoadTagRows_CanBeEnded) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    app.desktop.cancelsFromItem = 2;
    EXPECT_EQ(LoadTagRows(app, app.folder.Path(), Names{"a.mp3", "b.mp3"}), std::nullopt);
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>{0, 0}));
}

TEST_F(TagGridTest, Write_FileThatCouldNotBeReadForItsRow_IsNotCleared) {
    const std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Names{"a.mp3"}).value();
    WriteMp3("a.mp3");
    Write(rows);
    EXPECT_EQ(ReadMp3("a.mp3").Artist, "Old Artist");
}

TEST(LetterCase, First_IsUpperAllOthersLower) {
    EXPECT_EQ(CapitalizeFirst("mIxEd cASE"), "Mixed case");
    EXPECT_EQ(CapitalizeFirst("ёЖИК В ТУМАНЕ"), "Ёжик в тумане");
    EXPECT_EQ(CapitalizeFirst(""), "");
    EXPECT_EQ(CapitalizeFirst("(ABC)"), "(abc)");
    EXPECT_EQ(CapitalizeFirst("\xFF"
                              "ABC"),
              "\xFF"
              "abc");
}

TEST(LetterCase, Words_BeginWithAnUpperLetter) {
    EXPECT_EQ(CapitalizeWords("mIxEd cASE"), "Mixed Case");
    EXPECT_EQ(CapitalizeWords("dON'T stop (the MIX)"), "Don't Stop (The Mix)");
    EXPECT_EQ(CapitalizeWords("rock-and_roll/12TH [live]"), "Rock-And_Roll/12th [Live]");
    EXPECT_EQ(CapitalizeWords("ёЖИК в ТУМАНЕ"), "Ёжик В Тумане");
    EXPECT_EQ(CapitalizeWords("ÉTÉ — l’ÂME"), "Été — L’âme");
    EXPECT_EQ(CapitalizeWords(""), "");
}

TEST_F(TagGridTest, ChangeCase_AllColumns_LeavesNameAndYear) {
    std::vector<TagRow> rows = {RowWith({"A b.mp3", "x", "aa bb", "", "cC", "dd", "ee"})};
    ChangeCase(rows, CapitalizeWords, std::nullopt);
    EXPECT_EQ(rows[0].Cells, RowWith({"A b.mp3", "X", "Aa Bb", "", "Cc", "Dd", "ee"}).Cells);
}

TEST_F(TagGridTest, ChangeCase_OneColumn_LeavesTheOthers) {
    std::vector<TagRow> rows = {RowWith({"f", "1", "aa bb", "cc dd", "ee", "ff", "1"}),
                                RowWith({"f", "1", "gg hh", "iI jJ", "kk", "ll", "1"})};
    ChangeCase(rows, CapitalizeFirst, TitleColumn);
    EXPECT_EQ(rows[0].Cells, RowWith({"f", "1", "aa bb", "Cc dd", "ee", "ff", "1"}).Cells);
    EXPECT_EQ(rows[1].Cells, RowWith({"f", "1", "gg hh", "Ii jj", "kk", "ll", "1"}).Cells);
    ChangeCase(rows, CapitalizeFirst, FileColumn);
    EXPECT_EQ(rows[0].Cells[FileColumn], "f");
}

TEST_F(TagGridTest, RetrieveTags_FieldsFoundGoToTheirCells) {
    TagRow row = RowWith({"02 - Song (Mix).mp3", "9", "a", "t", "m", "l", "1999"});
    RetrieveTags(app, "/music/Band/Record", 8, row);
    EXPECT_EQ(row.Cells,
              RowWith({"02 - Song (Mix).mp3", "02", "Band", "Song", "Mix", "Record", "1999"}).Cells);
}

TEST_F(TagGridTest, RetrieveTags_WithoutATitle_NothingIsTakenOver) {
    TagRow row = RowWith({"Song.mp3", "9", "a", "t", "m", "l", "1999"});
    for (const int index : {5, 6, 14}) {
        RetrieveTags(app, "/m", index, row);
        EXPECT_EQ(row.Cells, RowWith({"Song.mp3", "9", "a", "t", "m", "l", "1999"}).Cells) << index;
    }
}

TEST_F(TagGridTest, RetrieveTags_NameThatIsNoUtf8_IsTakenThroughTheCodePage) {
    TagRow row = RowWith({"Caf\xE9.mp3", "", "", "", "", "", ""});
    RetrieveTags(app, "/m", 0, row);
    EXPECT_EQ(row.Cells[TitleColumn], "Café");
    EXPECT_EQ(row.Cells[FileColumn], "Caf\xE9.mp3");
}

TEST_F(TagGridTest, Write_CellsReplaceWhatTheFileHas) {
    WriteMp3("a.mp3");
    Write({RowWith({"a.mp3", "07", "New Artist", "New Title", "New Mix", "New Album", "2001"})});
    const ID3Tag tag = ReadMp3("a.mp3");
    EXPECT_EQ(tag.TrackNumber, 7);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "07");
    EXPECT_EQ(tag.Artist, "New Artist");
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "New Title");
    EXPECT_EQ(tag.Comment, "New Mix");
    EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "New Album");
    EXPECT_EQ(tag.Year, "2001");
    EXPECT_EQ(tag.Genre, 17);
}

TEST_F(TagGridTest, Write_EmptyCells_ClearTheirFields) {
    WriteMp3("a.mp3");
    Write({RowWith({"a.mp3", "", "", "", "", "", ""})});
    const ID3Tag tag = ReadMp3("a.mp3");
    EXPECT_EQ(RowOfRecord("", tag).Cells, RowWith({"", "", "", "", "", "", ""}).Cells);
    EXPECT_EQ(tag.Genre, 17);
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Rock");
}

TEST_F(TagGridTest, Write_Defaults_WinOverTheCells) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    Write({RowWith({"a.mp3", "1", "Cell", "T1", "", "Cell", "1"}),
           RowWith({"b.mp3", "2", "", "T2", "", "", ""})},
          {.Artist = "Default", .Album = "", .Year = "1984", .Genre = 9});
    EXPECT_EQ(RowOfRecord("", ReadMp3("a.mp3")).Cells,
              RowWith({"", "1", "Default", "T1", "", "Cell", "1984"}).Cells);
    EXPECT_EQ(RowOfRecord("", ReadMp3("b.mp3")).Cells,
              RowWith({"", "2", "Default", "T2", "", "", "1984"}).Cells);
    EXPECT_EQ(ReadMp3("a.mp3").Genre, 9);
    EXPECT_EQ(ReadMp3("a.mp3").ID3v2Extension.Genre, "Metal");
}

TEST_F(TagGridTest, Write_TrackAbove255_StopsTheUpdateThere) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    WriteMp3("c.mp3");
    const std::string before = app.folder.Read("b.mp3");
    const std::vector<TagRow> rows = {RowWith({"a.mp3", "255", "New", "", "", "", ""}),
                                      RowWith({"b.mp3", "256", "New", "", "", "", ""}),
                                      RowWith({"c.mp3", "1", "New", "", "", "", ""})};
    EXPECT_EQ(RuntimeErrorOf([&] { Write(rows); }), 6);
    EXPECT_EQ(ReadMp3("a.mp3").Artist, "New");
    EXPECT_EQ(ReadMp3("a.mp3").TrackNumber, 255);
    EXPECT_EQ(app.folder.Read("b.mp3"), before);
    EXPECT_EQ(app.folder.Read("c.mp3"), before);
}

TEST_F(TagGridTest, Write_TrackThatIsNoNumber_IsNone) {
    WriteMp3("a.mp3");
    Write({RowWith({"a.mp3", "Intro", "A", "T", "", "", ""})});
    EXPECT_EQ(ReadMp3("a.mp3").TrackNumber, 0);
    EXPECT_EQ(ReadMp3("a.mp3").ID3v2Extension.TrackNumber, "");
}

TEST_F(TagGridTest, Write_TrackThatIsNoNumber_StaysWhereItWas) {
    app.folder.Write("a.ogg", Ogg().Comment("TITLE=T").Comment("TRACKNUMBER=A1").Bytes());
    std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Names{"a.ogg"}).value();
    ASSERT_EQ(rows[0].Cells[TrackColumn], "A1");
    rows[0].Cells[TitleColumn] = "New";
    Write(rows);
    const auto read = [&] { return wave.GetOGGFileInfo(app.folder / "a.ogg"); };
    EXPECT_EQ(read().Title, "New");
    EXPECT_EQ(read().ID3v2Extension.TrackNumber, "A1");
    rows[0].Cells[TrackColumn] = "B2";
    Write(rows);
    EXPECT_EQ(read().ID3v2Extension.TrackNumber, "");
}

TEST_F(TagGridTest, Write_LeavesWhatOthersHaveWrittenMeanwhile) {
    WriteMp3("a.mp3");
    std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Names{"a.mp3"}).value();
    rows[0].Cells[TitleColumn] = "Mine";
    const Id3v1 others = {"Other Title", "Other Artist", "Old Album", "1991", "Old Mix", 4, 17};
    app.folder.Write("a.mp3", Mp3().Size(3000).Behind(others.Bytes()).Bytes());
    Write(rows);
    EXPECT_EQ(RowOfRecord("a.mp3", ReadMp3("a.mp3")).Cells,
              RowWith({"a.mp3", "4", "Other Artist", "Mine", "Old Mix", "Old Album", "1991"}).Cells);
}

TEST_F(TagGridTest, Write_OggDate_StaysWholeUntilTheYearIsChanged) {
    app.folder.Write("a.ogg", Ogg().Comment("TITLE=T").Comment("DATE=2001-05-01").Bytes());
    std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Names{"a.ogg"}).value();
    rows[0].Cells[TitleColumn] = "New";
    Write(rows);
    ID3Tag tag = wave.GetOGGFileInfo(app.folder / "a.ogg");
    EXPECT_EQ(tag.Title, "New");
    EXPECT_EQ(tag.OggVorbisExtension.DateTime, "2001-05-01");
    rows[0].Cells[YearColumn] = "1999";
    Write(rows);
    EXPECT_EQ(wave.GetOGGFileInfo(app.folder / "a.ogg").OggVorbisExtension.DateTime, "1999");
    rows[0].Cells[YearColumn] = "";
    rows[0].Loaded.reset();
    Write(rows);
    EXPECT_EQ(wave.GetOGGFileInfo(app.folder / "a.ogg").OggVorbisExtension.DateTime, "");
}

TEST_F(TagGridTest, Write_ApeItemsThatAreCarried_StayWhateverTheTrack) {
    const std::string tag = Ape().Item("Title", "T").Item("One", "1").Item("Two", "2").Bytes();
    app.folder.Write("a.mpc", Mpc8() + tag);
    Write({RowWith({"a.mpc", "1", "", "T", "", "", ""})});
    Write({RowWith({"a.mpc", "", "", "T", "", "", ""})});
    const std::string end = Ape().Item("Title", "T").Item("One", "1").Item("Two", "2").Bytes();
    EXPECT_TRUE(app.folder.Read("a.mpc") == Mpc8() + end);
}

TEST_F(TagGridTest, Write_UntouchedRows_KeepEveryValue) {
    WriteMp3("a.mp3");
    Write(LoadTagRows(app, app.folder.Path(), Names{"a.mp3"}).value());
    EXPECT_EQ(RowOfRecord("a.mp3", ReadMp3("a.mp3")).Cells,
              RowWith({"a.mp3", "3", "Old Artist", "Old Title", "Old Mix", "Old Album", "1990"}).Cells);
}

TEST_F(TagGridTest, Write_TellsTheProgressAndServesEvents) {
    WriteMp3("a.mp3");
    Names told;
    const UpdateEvents events = {[&](std::size_t number, std::size_t count, const std::string& name) {
                                     told.push_back(ProgressText(number, count, name));
                                 },
                                 [&](const std::string& name) { told.push_back("done " + name); },
                                 {}};
    const std::vector<TagRow> rows = {RowWith({"a.mp3", "", "", "", "", "", ""}),
                                      RowWith({"none.mp3", "", "", "", "", "", ""})};
    WriteTagRows(app, app.folder.Path(), rows, {}, events);
    EXPECT_EQ(told, (Names{"[1/2] a.mp3", "done a.mp3", "[2/2] none.mp3", "done none.mp3"}));
    EXPECT_EQ(app.desktop.servedEvents, 2);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(TagGridTest, Write_TellsWhichFilesWereNotThereToBeWritten) {
    for (const char* name : {"a.mp3", "kept.mp3", "gone.mp3", "unread.mp3"}) WriteMp3(name);
    std::filesystem::permissions(app.folder / "kept.mp3", std::filesystem::perms::owner_read);
    const Names names = {"a.mp3", "kept.mp3", "gone.mp3", "unread.mp3"};
    auto rows = LoadTagRows(app, app.folder.Path(), names).value();
    rows[3].IsRead = false;
    std::filesystem::remove(app.folder / "gone.mp3");
    Names told;
    UpdateEvents events;
    events.NotWritten = [&](const std::string& name) { told.push_back(name); };
    EXPECT_TRUE(WriteTagRows(app, app.folder.Path(), rows, {}, events));
    EXPECT_EQ(app.desktop.questions.size(), 1U) << "the read-only one is to stay as it is";
    EXPECT_EQ(told, (Names{"gone.mp3", "unread.mp3"}));
}

TEST_F(TagGridTest, Update_GivenValues_GoToEveryCompressedFile) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    const std::string wav = "not touched";
    app.folder.Write("c.wav", wav);
    Names told;
    const UpdateEvents events = {
        [&](std::size_t number, std::size_t count, const std::string& name) {
            told.push_back(std::to_string(number) + " / " + std::to_string(count) + name);
        },
        {},
        {}};
    UpdateTags(app, app.folder.Path(), Names{"a.mp3", "c.wav", "b.mp3"}, {.Year = "1999"}, events);
    EXPECT_EQ(told, (Names{"1 / 2a.mp3", "2 / 2b.mp3"}));
    EXPECT_EQ(ReadMp3("a.mp3").Year, "1999");
    EXPECT_EQ(ReadMp3("b.mp3").Artist, "Old Artist");
    EXPECT_EQ(app.folder.Read("c.wav"), wav);
}

TEST_F(TagGridTest, Update_NoValues_TouchesNothing) {
    WriteMp3("a.mp3");
    const std::string before = app.folder.Read("a.mp3");
    UpdateTags(app, app.folder.Path(), Names{"a.mp3"}, {}, {});
    EXPECT_EQ(app.folder.Read("a.mp3"), before);
}

TEST_F(TagGridTest, Cancel_EndsBehindTheFileAtHand) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    const std::string before = app.folder.Read("b.mp3");
    bool isCancelled = false;
    UpdateEvents events;
    events.Done = [&](const std::string&) { isCancelled = true; };
    events.IsCancelled = [&] { return isCancelled; };
    const std::vector<TagRow> rows = {RowWith({"a.mp3", "", "Grid", "", "", "", ""}),
                                      RowWith({"b.mp3", "", "Grid", "", "", "", ""})};
    EXPECT_FALSE(WriteTagRows(app, app.folder.Path(), rows, {}, events));
    EXPECT_EQ(ReadMp3("a.mp3").Artist, "Grid");
    EXPECT_TRUE(app.folder.Read("b.mp3") == before);

    isCancelled = false;
    const Names names = {"a.mp3", "b.mp3"};
    EXPECT_FALSE(UpdateTags(app, app.folder.Path(), names, {.Artist = "Massive "}, events));
    EXPECT_EQ(ReadMp3("a.mp3").Artist, "Massive");
    EXPECT_TRUE(app.folder.Read("b.mp3") == before);

    isCancelled = false;
    app.desktop.cancelsFromItem = 1;
    EXPECT_FALSE(UpdateTags(app, app.folder.Path(), names, {.Artist = "Desktop "}, events));
    EXPECT_EQ(ReadMp3("a.mp3").Artist, "Massive");
}

/// A disk on which nothing can be made writable.
class LockedFileSystem : public FaultInjectingFileSystem {
  public:
    using FaultInjectingFileSystem::FaultInjectingFileSystem;
    void SetReadOnly(const std::string&, bool) override { throw RuntimeError(ErrorNumber::PermissionDenied); }
};

TEST(TagGridFailures, FileThatCanNotBeMadeWritable_IsToldAndTheNextFollows) {
    PosixFileSystem real;
    LockedFileSystem locked(real);
    TestApp app(&locked);
    WaveFile wave(app);
    app.defaultWaveFile = &wave;
    for (const char* name : {"a.mp3", "b.mp3"}) app.folder.Write(name, Mp3().Size(3000).Bytes());
    real.SetReadOnly(app.folder / "a.mp3", true);
    app.desktop.answers = {true};
    const std::vector<TagRow> rows = {RowWith({"a.mp3", "", "New", "", "", "", ""}),
                                      RowWith({"b.mp3", "", "New", "", "", "", ""})};
    EXPECT_TRUE(WriteTagRows(app, app.folder.Path(), rows, {}, {}));
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "a.mp3").Artist, "");
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "b.mp3").Artist, "New");
}

TEST_F(TagGridTest, FilesToUpdate_NoneSelected_AsksForAll) {
    const Names all = {"a.mp3", "b.wav", "c.ogg"};
    EXPECT_EQ(FilesToUpdate(app, Names{"a.mp3", "b.wav"}, all), Names{"a.mp3"});
    EXPECT_TRUE(app.desktop.questions.empty());
    app.desktop.answers = {false, true};
    EXPECT_EQ(FilesToUpdate(app, Names{"b.wav"}, all), Names{});
    EXPECT_EQ(FilesToUpdate(app, Names{}, all), (Names{"a.mp3", "c.ogg"}));
    EXPECT_EQ(app.desktop.questions[0].text,
              "You did not select any file! Process all files in the current folder?");
    EXPECT_EQ(app.desktop.questions[0].caption, "Extended Rename");
}

}  // namespace
}  // namespace zefta::test
