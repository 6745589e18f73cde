#include <gtest/gtest.h>

#include "core/GenreTable.h"
#include "library/FileInformationSavingStage.h"
#include "support/ApeBuilder.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class FileInformationSavingTest : public FileInformationSavingStage {};

// --- MP3

TEST_F(FileInformationSavingTest, MP3WithoutTags_GetsID3v1AloneAndKeepsEveryByte) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", audio);
    EXPECT_EQ(Edit("a.mp3",
                   [](FileInformation& information) {
                       information.Tag.Title = "Song";
                       information.TrackNumber = "7";
                       information.Tag.Genre = 17;
                   }),
              SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mp3"), audio + WrittenId3v1({.title = "Song", .track = 7, .genre = 17}));
}

TEST_F(FileInformationSavingTest, MP3EmptiedTitleAndMix_AreOneBlankAndNuls) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", audio + Id3v1{.title = "Old", .artist = "Ann", .comment = "Mix"}.Bytes());
    Edit("a.mp3", [](FileInformation& information) {
        information.Tag.Title.clear();
        information.Tag.Comment.clear();
    });
    const std::string tag = app.folder.Read("a.mp3").substr(audio.size());
    EXPECT_EQ(tag.substr(3, 30), " " + std::string(29, '\0'));
    EXPECT_EQ(tag.substr(97, 28), " " + std::string(27, '\0'));
    EXPECT_EQ(tag, WrittenId3v1({.artist = "Ann"}));
}

TEST_F(FileInformationSavingTest, MP3TrackNumber_IsReadFromItsLeftAndStaysWhenEmpty) {
    app.folder.Write("a.mp3", Mp3().Size(1500).Bytes() + Id3v1{.title = "T", .track = 9}.Bytes());
    const auto trackAfter = [&](const std::string& text) {
        Edit("a.mp3", [&](FileInformation& information) { information.TrackNumber = text; });
        return LoadFileInformation(app, app.folder / "a.mp3").TrackNumber;
    };
    EXPECT_EQ(trackAfter(""), "9");
    EXPECT_EQ(trackAfter("3/12"), "3");
    EXPECT_EQ(trackAfter("0"), "");
}

TEST_F(FileInformationSavingTest, MP3TrackNumberBeyondAByte_IsShownAndNothingIsWritten) {
    const std::string before = Mp3().Size(1500).Bytes();
    const std::string path = app.folder.Write("a.mp3", before);
    app.files.SetReadOnly(path, true);
    for (const char* track : {"256", "-1", "99999999999"}) {
        app.desktop.boxes.clear();
        EXPECT_EQ(Edit("a.mp3", [&](FileInformation& information) { information.TrackNumber = track; }),
                  SaveOutcome::Open);
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #6")) << app.desktop.boxes[0].text;
    }
    EXPECT_EQ(app.folder.Read("a.mp3"), before);
    EXPECT_TRUE(app.files.IsReadOnly(path));
    EXPECT_TRUE(app.desktop.questions.empty());
}

std::string EmptyFrames() {
    std::string frames;
    for (const char* name : {"TRCK", "TIT2", "TPE1", "TALB", "TYER"}) frames += TextFrame(name, "");
    frames += TextFrame("COMM", "eng\0"s);
    for (const char* name : {"TCOM", "TCON", "TOPE", "TCOP", "TENC"}) frames += TextFrame(name, "");
    return frames + TextFrame("WXXX", "\0"s);
}

TEST_F(FileInformationSavingTest, MP3EnabledID3v2_IsWrittenInFrontOfTheSameAudio) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", audio);
    Edit("a.mp3", [](FileInformation& information) { information.EnableID3v2 = true; });
    EXPECT_EQ(app.folder.Read("a.mp3"), Id3v2(EmptyFrames(), 502) + audio + WrittenId3v1({}));
}

TEST_F(FileInformationSavingTest, MP3ID3v2Fields_AreAllWrittenAndRead) {
    app.folder.Write("a.mp3", Mp3().Size(1500).Bytes());
    Edit("a.mp3", [](FileInformation& information) {
        information.EnableID3v2 = true;
        ID3v2Extension& tag = information.Tag.ID3v2Extension;
        tag = {};
        tag.TrackTitle = "Song";
        tag.Artist = "Ann";
        tag.AlbumTitle = "Debut";
        tag.Year = "2001";
        tag.Mix = "Live";
        tag.Comments = "line 1\r\nline 2";
        tag.Composer = "Bach";
        tag.OriginalArtist = "Orig";
        tag.Copyright = "Copy";
        tag.URL = "http://x";
        tag.EncodedBy = "Me";
        tag.TrackNumber = "3/12";
        tag.Genre = "Weird";
    });
    const std::string frames =
        TextFrame("TRCK", "3/12") + TextFrame("TIT2", "Song (Live)") + TextFrame("TPE1", "Ann") +
        TextFrame("TALB", "Debut") + TextFrame("TYER", "2001") + TextFrame("COMM", "eng\0line 1\r\nline 2"s) +
        TextFrame("TCOM", "Bach") + TextFrame("TCON", "Weird") + TextFrame("TOPE", "Orig") +
        TextFrame("TCOP", "Copy") + TextFrame("TENC", "Me") + TextFrame("WXXX", "\0http://x"s);
    EXPECT_TRUE(app.folder.Read("a.mp3").starts_with(Id3v2(frames, 502)));
}

TEST_F(FileInformationSavingTest, MP3SavedAsItIs_KeepsID3v2ToTheByte) {
    const std::string picture = RawFrame("APIC", Audio(300));
    const std::string frames = TextFrame("TRCK", "5") + TextFrame("TIT2", "Song (Live)") +
                               TextFrame("TPE1", "Ann") + TextFrame("TALB", "") + TextFrame("TYER", "2001") +
                               TextFrame("COMM", "eng\0a\r\nb\tc"s) + TextFrame("TCOM", "") +
                               TextFrame("TCON", "Rock") + TextFrame("TOPE", "") + TextFrame("TCOP", "") +
                               TextFrame("TENC", "") + TextFrame("WXXX", "\0"s) + picture;
    const std::string before = Id3v2(frames, 900) + Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", before);
    EXPECT_EQ(SaveAsItIs("a.mp3"), SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mp3"), before + WrittenId3v1({}));
}

TEST_F(FileInformationSavingTest, MP3UnknownFrames_AreRemovedWhenAsked) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", Id3v2(RawFrame("APIC", Audio(300)), 502) + audio);
    Edit("a.mp3", [](FileInformation& information) { information.RemoveUnknownFrames = true; });
    EXPECT_EQ(app.folder.Read("a.mp3"), Id3v2(EmptyFrames(), 502) + audio + WrittenId3v1({}));
}

TEST_F(FileInformationSavingTest, MP3LargePicture_IsRemovedWithItsRoom) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", Id3v2(RawFrame("APIC", Audio(100000)), 100100) + audio);
    EXPECT_EQ(Edit("a.mp3", [](FileInformation& information) { information.RemoveUnknownFrames = true; }),
              SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mp3"), Id3v2(EmptyFrames(), 502) + audio + WrittenId3v1({}));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(FileInformationFailure, MP3PictureThatIsRemoved_TakesNoTextWithItWhateverFails) {
    PosixFileSystem disk;
    FaultInjectingFileSystem files(disk);
    TestApp app(&files);
    WaveFile wave(app);
    app.defaultWaveFile = &wave;
    const std::string frames = TextFrame("TIT2", "Song") + RawFrame("APIC", Audio(100000));
    const std::string old = Id3v2(frames, 100200) + Mp3().Size(1500).Bytes();
    FileInformation information;
    int failing = 0;
    for (bool fails = true; fails; ++failing) {
        const std::string path = app.folder.Write("a.mp3", old);
        files.faults = {};
        information = LoadFileInformation(app, path);
        information.RemoveUnknownFrames = true;
        files.faults = {.plan = {FaultPlan::Mode::FromTheNthOn, failing + 1}};
        SaveFileInformation(app, path, information, {});
        fails = files.faults.operations > failing;
        files.faults = {};
        ASSERT_EQ(LoadFileInformation(app, path).Tag.ID3v2Extension.TrackTitle, "Song") << failing;
    }
    EXPECT_GT(failing, 10);
    EXPECT_TRUE(LoadFileInformation(app, app.folder / "a.mp3").Tag.ID3v2Extension.UnknownFrames.empty());
}

TEST_F(FileInformationSavingTest, MP3HugePicture_StaysWhenTheTagGrows) {
    const std::string picture = RawFrame("APIC", Audio(400000));
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", Id3v2(picture, static_cast<std::int32_t>(picture.size())) + audio);
    EXPECT_EQ(
        Edit("a.mp3", [](FileInformation& information) { information.Tag.ID3v2Extension.Artist = "Ann"; }),
        SaveOutcome::Done);
    EXPECT_TRUE(app.desktop.boxes.empty());
    const FileInformation after = LoadFileInformation(app, app.folder / "a.mp3");
    EXPECT_EQ(after.Tag.ID3v2Extension.Artist, "Ann");
    EXPECT_EQ(after.Tag.ID3v2Extension.UnknownFrames, picture);
    EXPECT_TRUE(app.folder.Read("a.mp3").ends_with(audio + WrittenId3v1({})));
}

TEST_F(FileInformationSavingTest, MP3DisabledID3v2_IsRemovedWhereThereIsOne) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", Id3v2(TextFrame("TIT2", "Song"), 502) + audio);
    app.folder.Write("b.mp3", audio);
    for (const char* name : {"a.mp3", "b.mp3"}) {
        Edit(name, [](FileInformation& information) { information.EnableID3v2 = false; });
        EXPECT_EQ(app.folder.Read(name), audio + WrittenId3v1({})) << name;
    }
}

TEST_F(FileInformationSavingTest, MP3_WorksOnTheFileAsItIsNow) {
    const std::string audio = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", Id3v2(TextFrame("TIT2", "Song"), 502) + audio);
    const std::string picture = RawFrame("APIC", Audio(30));
    Edit("a.mp3", [&](FileInformation&) { app.folder.Write("a.mp3", Id3v2(picture, 600) + audio); });
    const std::string after = app.folder.Read("a.mp3");
    EXPECT_NE(after.find(TextFrame("TIT2", "Song")), std::string::npos);
    EXPECT_NE(after.find(picture), std::string::npos);
}

TEST_F(FileInformationSavingTest, TagsThatAreNoLongerThoseShown_AreNotTouchedUnlessItDoesNotMatter) {
    const std::pair<std::string, std::string> files[] = {{"a.mp3", Mp3().Size(1500).Bytes()},
                                                         {"a.mpc", Mpc7(1000) + Audio(500)},
                                                         {"a.ogg", Ogg().Comment("artist=Old").Bytes()}};
    for (const auto& [name, bytes] : files) {
        const std::string path = app.folder.Write(name, bytes);
        const FileInformation shown = LoadFileInformation(app, path);
        FileInformation typed = shown;
        typed.Tag.Title = "Mine";
        Edit(name, [](FileInformation& theirs) { theirs.Tag.Artist = "Theirs"; });
        const std::string theirs = app.folder.Read(name);
        EXPECT_EQ(SaveFileInformation(app, path, typed, {.shown = &shown}), SaveOutcome::ChangedMeanwhile);
        EXPECT_EQ(app.folder.Read(name), theirs) << name;
        EXPECT_EQ(SaveFileInformation(app, path, typed, {}), SaveOutcome::Done);
        const FileInformation now = LoadFileInformation(app, path);
        EXPECT_EQ(SaveFileInformation(app, path, typed, {.shown = &now}), SaveOutcome::Done);
        EXPECT_EQ(now.Tag.Title, "Mine") << name;
    }
}

TEST_F(FileInformationSavingTest, ReadOnly_IsAskedAboutAndClearedOnYes) {
    const std::pair<std::string, std::string> files[] = {{"a.mp3", Mp3().Size(1500).Bytes()},
                                                         {"a.mpc", Mpc7(1000) + Audio(500)}};
    for (const auto& [name, bytes] : files) {
        const std::string path = app.folder.Write(name, bytes);
        app.files.SetReadOnly(path, true);
        app.desktop.questions.clear();
        app.desktop.answers = {false, true};
        EXPECT_EQ(SaveAsItIs(name), SaveOutcome::Open);
        EXPECT_EQ(app.folder.Read(name), bytes);
        EXPECT_TRUE(app.files.IsReadOnly(path));
        EXPECT_EQ(SaveAsItIs(name), SaveOutcome::Done);
        EXPECT_NE(app.folder.Read(name), bytes);
        EXPECT_FALSE(app.files.IsReadOnly(path));
        ASSERT_EQ(app.desktop.questions.size(), 2U);
        EXPECT_EQ(app.desktop.questions[0].text,
                  "File \"" + path + "\"\r\nis market as read only!\r\n\r\nContinue anyway?");
    }
}

TEST_F(FileInformationSavingTest, MissingFile_IsEmptyAndSavedToNowhere) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) {
        const FileInformation information = LoadFileInformation(app, app.folder / name);
        EXPECT_EQ(information.Tag.Path, "");
        EXPECT_FALSE(information.EnableID3v2);
        EXPECT_EQ(SaveAsItIs(name), SaveOutcome::Done) << name;
        EXPECT_FALSE(app.folder.Exists(name));
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(FileInformationSavingTest, TagThatCantBeCarriedWhole_IsNotTouchedUnlessTheLossIsTaken) {
    // A frame that is compressed: its text can't be read.
    const std::string compressed = "TIT2"s + "\0\0\0\x05"s + "\0\x80"s + "\0abcd"s;
    const std::string before = Id3v2(compressed, 502) + Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", before);
    EXPECT_EQ(SaveAsItIs("a.mp3"), SaveOutcome::WouldLose);
    EXPECT_EQ(app.folder.Read("a.mp3"), before);
    const auto asItIs = [](FileInformation&) {};
    EXPECT_EQ(Edit("a.mp3", asItIs, {.mayLose = true}), SaveOutcome::Done);
    EXPECT_NE(app.folder.Read("a.mp3"), before);
    app.folder.Write("a.mp3", before);
    EXPECT_EQ(Edit("a.mp3", [](FileInformation& information) { information.EnableID3v2 = false; }),
              SaveOutcome::Done);
}

TEST_F(FileInformationSavingTest, Writing_IsToldAheadOfTheWriters) {
    const std::string before = Mp3().Size(1500).Bytes();
    app.folder.Write("a.mp3", before);
    std::string atWriting;
    Edit("a.mp3", [](FileInformation&) {}, {.writing = [&] { atWriting = app.folder.Read("a.mp3"); }});
    EXPECT_EQ(atWriting, before);
}

TEST_F(FileInformationSavingTest, FailureOfAReader_IsShownAndWhatWasReadStands) {
    // A Lyrics3 block whose size is no number.
    const std::string bytes =
        Mp3().Size(1500).Bytes() + "LYRICSBEGIN......LYRICSEND" + Id3v1{.title = "Song"}.Bytes();
    app.folder.Write("a.mp3", bytes);
    EXPECT_EQ(LoadFileInformation(app, app.folder / "a.mp3").Tag.Title, "Song");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(SaveAsItIs("a.mp3"), SaveOutcome::Open);
    EXPECT_EQ(app.folder.Read("a.mp3"), bytes);
}

TEST_F(FileInformationSavingTest, TagsOfAStreamThatCantBeMeasured_AreWhole) {
    // More than 32767 kbps.
    const std::string stream = Mp3().Block("Xing", 39).Size(5000000).Bytes();
    app.folder.Write("a.mp3", Id3v2(TextFrame("TIT2", "Song"), 502) + stream);
    const FileInformation information = LoadFileInformation(app, app.folder / "a.mp3");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(information.IsWhole);
    EXPECT_TRUE(information.EnableID3v2);
    EXPECT_EQ(information.Tag.ID3v2Extension.TrackTitle, "Song");
}

TEST_F(FileInformationSavingTest, TagsThatAreReadInPart_AreNotWhole) {
    app.folder.Write("a.mp3", Mp3().Size(1500).Bytes() + "LYRICSBEGIN......LYRICSEND");
    app.folder.Write("b.mpc", Mpc7(0) + Audio(500));
    for (const char* name : {"a.mp3", "b.mpc", "none.ogg"})
        EXPECT_FALSE(LoadFileInformation(app, app.folder / name).IsWhole) << name;
    app.folder.Write("a.mp3", Mp3().Size(1500).Bytes());
    EXPECT_TRUE(LoadFileInformation(app, app.folder / "a.mp3").IsWhole);
}

// --- Ogg Vorbis

TEST_F(FileInformationSavingTest, Ogg_WritesTheFieldsAndThenTheExtendedComments) {
    app.folder.Write("a.ogg", Ogg().Comment("ARTIST=Old").Comment("FOO=1").Comment("year=1999").Bytes());
    EXPECT_EQ(Edit("a.ogg",
                   [](FileInformation& information) {
                       ID3Tag& tag = information.Tag;
                       tag.Artist = "Ann";
                       tag.Title = "Song";
                       tag.Comment = "Live";
                       tag.Album = "Debut";
                       tag.OggVorbisExtension.DateTime = "2001";
                       tag.ID3v2Extension.TrackNumber = "3";
                       tag.ID3v2Extension.Genre = "Rock";
                       tag.ID3v2Extension.Comments = "a\nb";
                       tag.ID3v2Extension.EncodedBy = "Me";
                       tag.OggVorbisExtension.removeAllExCom();
                       tag.OggVorbisExtension.addExCom("BAR=2");
                       tag.OggVorbisExtension.addExCom("FOO=bar=baz");
                   }),
              SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg()
                                            .Comment("ARTIST=Ann")
                                            .Comment("ALBUM=Debut")
                                            .Comment("TRACKNUMBER=3")
                                            .Comment("DATE=2001")
                                            .Comment("TITLE=Song (Live)")
                                            .Comment("GENRE=Rock")
                                            .Comment("COMMENT=a\nb")
                                            .Comment("ENCODED BY=Me")
                                            .Comment("BAR=2")
                                            .Comment("FOO=bar=baz")
                                            .Bytes());
}

TEST_F(FileInformationSavingTest, OggReadOnly_IsReplacedWithoutAQuestion) {
    const std::string path = app.folder.Write("a.ogg", Ogg().Comment("ARTIST=Old").Bytes());
    app.files.SetReadOnly(path, true);
    EXPECT_EQ(Edit("a.ogg", [](FileInformation& information) { information.Tag.Artist = "Ann"; }),
              SaveOutcome::Done);
    EXPECT_TRUE(app.desktop.questions.empty());
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg().Comment("ARTIST=Ann").Bytes());
}

TEST_F(FileInformationSavingTest, OggThatIsNone_IsRefused) {
    app.folder.Write("a.ogg", "no stream");
    EXPECT_EQ(SaveAsItIs("a.ogg"), SaveOutcome::Refused);
    EXPECT_EQ(app.folder.Read("a.ogg"), "no stream");
}

// --- MPEGplus

TEST_F(FileInformationSavingTest, MPEGplus_HasAnAPETagAloneAfterwards) {
    const std::string stream = Mpc7(1000) + Audio(500);
    app.folder.Write("a.mpc", Id3v2(TextFrame("TIT2", "Song (Live)") + TextFrame("TPE1", "Ann") +
                                        RawFrame("APIC", Audio(50)),
                                    502) +
                                  stream + Id3v1{.title = "Old", .track = 4}.Bytes());
    EXPECT_EQ(Edit("a.mpc",
                   [](FileInformation& information) {
                       information.Tag.ID3v2Extension.Composer = "Bach";
                       information.Tag.Album = "Debut";
                   }),
              SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mpc"), stream + Ape()
                                                     .Item("Artist", "Ann")
                                                     .Item("Title", "Song (Live)")
                                                     .Item("Album", "Debut")
                                                     .Item("Composer", "Bach")
                                                     .Bytes());
}

TEST_F(FileInformationSavingTest, MPEGplusValuesOfID3v2_NeedNotFitIntoTheCodePage) {
    const std::string stream = Mpc7(1000) + Audio(500);
    const std::string title = "\x03Бьорк";
    const std::string frame = "TIT2\0\0\0"s + static_cast<char>(title.size()) + "\0\0"s + title;
    app.folder.Write("a.mpc", Id3v2(frame + RawFrame("APIC", Audio(50)), 502) + stream + Id3v1{}.Bytes());
    EXPECT_EQ(SaveAsItIs("a.mpc"), SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mpc"), stream + Ape().Item("Title", "Бьорк").Bytes());
}

TEST_F(FileInformationSavingTest, MPEGplusID3v2ThatCantBeRead_IsNotTakenAwayUnlessTheLossIsTaken) {
    const std::string compressed = "TIT2"s + "\0\0\0\x05"s + "\0\x80"s + "\0abcd"s;
    const std::string before = Id3v2(compressed, 502) + Mpc7(1000) + Audio(500) + Id3v1{}.Bytes();
    app.folder.Write("a.mpc", before);
    EXPECT_EQ(SaveAsItIs("a.mpc"), SaveOutcome::WouldLose);
    EXPECT_EQ(app.folder.Read("a.mpc"), before);
}

TEST_F(FileInformationSavingTest, MPEGplusUnknownItems_StayOrAreRemoved) {
    const std::string stream = Mpc7(1000) + Audio(500);
    const std::string before =
        stream + Ape().Item("Track", "5").Item("Artist", "Ann").Item("Publisher", "P").Bytes();
    app.folder.Write("a.mpc", before);
    EXPECT_EQ(SaveAsItIs("a.mpc"), SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mpc"), before);
    Edit("a.mpc", [](FileInformation& information) { information.RemoveUnknownFrames = true; });
    EXPECT_EQ(app.folder.Read("a.mpc"), stream + Ape().Item("Track", "5").Item("Artist", "Ann").Bytes());
}

TEST_F(FileInformationSavingTest, MPEGplusFields_AreAllWritten) {
    const std::string stream = Mpc7(1000) + Audio(500);
    app.folder.Write("a.mp+", stream + Id3v1{.title = "Old"}.Bytes());
    Edit("a.mp+", [](FileInformation& information) {
        ID3Tag& tag = information.Tag;
        tag.Title = "Song";
        tag.Comment = "Live";
        tag.Artist = "Ann";
        tag.Album = "Debut";
        tag.Year = "2001";
        tag.ID3v2Extension.TrackNumber = "3/12";
        tag.ID3v2Extension.Genre = "Weird";
        tag.ID3v2Extension.Comments = "a\nb";
        tag.ID3v2Extension.Composer = "Bach";
        tag.ID3v2Extension.Copyright = "Copy";
        tag.ID3v2Extension.EncodedBy = "Me";
    });
    EXPECT_EQ(app.folder.Read("a.mp+"), stream + Ape()
                                                     .Item("Track", "3/12")
                                                     .Item("Artist", "Ann")
                                                     .Item("Title", "Song (Live)")
                                                     .Item("Album", "Debut")
                                                     .Item("Year", "2001")
                                                     .Item("Genre", "Weird")
                                                     .Item("Comment", "a\nb")
                                                     .Item("Composer", "Bach")
                                                     .Item("Copyright", "Copy")
                                                     .Item("Encoded by", "Me")
                                                     .Bytes());
}

}  // namespace
}  // namespace zefta::test
