#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "library/RenameTemplate.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

ID3Tag FilledRecord() {
    ID3Tag tag;
    tag.Artist = "A1";
    tag.Title = "T1";
    tag.Comment = "C1";
    tag.Year = "1991";
    tag.Album = "L1";
    tag.TrackNumber = 7;
    return tag;
}

ID3Tag FilledWithID3v2() {
    ID3Tag tag = FilledRecord();
    tag.ID3v2Present = true;
    tag.ID3v2Extension.Artist = "A2";
    tag.ID3v2Extension.TrackTitle = "T2";
    tag.ID3v2Extension.Mix = "M2";
    tag.ID3v2Extension.Year = "2002";
    tag.ID3v2Extension.AlbumTitle = "L2";
    tag.ID3v2Extension.TrackNumber = "12";
    return tag;
}

std::string TrackOf(const std::string& text) {
    ID3Tag tag = FilledWithID3v2();
    tag.ID3v2Extension.TrackNumber = text;
    return FieldsOfMP3(tag).Track;
}

TEST(FieldsOfMP3, WithoutID3v2_AreThoseOfTheRecord) {
    const RenameFields expected = {"A1", "T1", "C1", "1991", "L1", "7"};
    EXPECT_EQ(FieldsOfMP3(FilledRecord()), expected);
    ID3Tag tag = FilledWithID3v2();
    tag.ID3v2Present = false;
    EXPECT_EQ(FieldsOfMP3(tag), expected);
}

TEST(FieldsOfMP3, WithID3v2_AreItsOwn) {
    const RenameFields expected = {"A2", "T2", "M2", "2002", "L2", "12"};
    EXPECT_EQ(FieldsOfMP3(FilledWithID3v2()), expected);
}

TEST(FieldsOfMP3, EmptyValuesOfID3v2_AreThoseOfTheRecord) {
    ID3Tag tag = FilledRecord();
    tag.ID3v2Present = true;
    EXPECT_EQ(FieldsOfMP3(tag), FieldsOfMP3(FilledRecord()));
    tag.ID3v2Extension.TrackTitle = "T2";
    EXPECT_EQ(FieldsOfMP3(tag), (RenameFields{"A1", "T2", "C1", "1991", "L1", "7"}));
}

TEST(FieldsOfMP3, NoTrackAnywhere_IsZero) {
    EXPECT_EQ(FieldsOfMP3(ID3Tag()).Track, "0");
    EXPECT_EQ(TrackOf(""), "7");
}

TEST(FieldsOfMP3, TrackOfID3v2_CountsFrom0To255) {
    const std::pair<std::string, std::string> rows[] = {
        {"0", "0"},   {"255", "255"}, {"255.4", "255.4"}, {" 9 ", " 9 "},       {"007", "007"},
        {"+3", "+3"}, {"256", ""},    {"255.6", ""},      {"-1", ""},           {"-0.4", ""},
        {"1000", ""}, {"99999", ""},  {"4294967297", ""}, {"-99999999999", ""}, {std::string(400, '9'), ""}};
    for (const auto& [text, track] : rows) EXPECT_EQ(TrackOf(text), track) << text;
}

TEST(FieldsOfMP3, TrackThatIsNoNumber_IsAFailure) {
    for (const std::string text :
         {"3/12", "abc", "7a", " ", "-1/12", "3 4", "0x10", "1e2", "\u0663", "\uFF17", "7\u00A0", "--1"})
        EXPECT_EQ(RuntimeErrorOf([&] { TrackOf(text); }), 13) << text;
}

TEST(FieldsOfMP3, TrackThatIsNoNumber_DoesNotCountWithoutID3v2) {
    ID3Tag tag = FilledWithID3v2();
    tag.ID3v2Present = false;
    tag.ID3v2Extension.TrackNumber = "3/12";
    EXPECT_EQ(FieldsOfMP3(tag).Track, "7");
}

TEST(FieldsOfOgg, YearIsTheDate_TrackIsTakenAsItStands) {
    ID3Tag tag = FilledWithID3v2();
    tag.OggVorbisExtension.DateTime = "2003-05-01";
    for (const std::string track : {"3/12", "999", "-4", "", "abc"}) {
        tag.ID3v2Extension.TrackNumber = track;
        EXPECT_EQ(FieldsOfOgg(tag), (RenameFields{"A1", "T1", "C1", "2003-05-01", "L1", track}));
    }
}

TEST(FieldsOfMPEGplus, AreThoseOfTheRecord_TrackIsTakenAsItStands) {
    ID3Tag tag = FilledWithID3v2();
    for (const std::string track : {"3/12", "999", ""}) {
        tag.ID3v2Extension.TrackNumber = track;
        EXPECT_EQ(FieldsOfMPEGplus(tag), (RenameFields{"A1", "T1", "C1", "1991", "L1", track}));
    }
}

const RenameFields SongFields = {"The Band", "Song: One", "Live", "1999", "Album", "7"};

RenameFields WithoutMix() {
    RenameFields fields = SongFields;
    fields.Mix.clear();
    return fields;
}

std::string Named(int mode, const RenameFields& fields, bool translate = false) {
    return NameByRule({mode, "%A", translate}, fields, "old.mp3").Path();
}

TEST(NameByRule, EveryMode) {
    EXPECT_EQ(Named(1, SongFields), "The Band - Song_ One");
    EXPECT_EQ(Named(2, SongFields), "The Band - Song_ One (Live)");
    EXPECT_EQ(Named(3, SongFields), "Song_ One (Live)");
    EXPECT_EQ(Named(4, SongFields), "The Band/Song_ One (Live)");
    EXPECT_EQ(Named(5, SongFields, true), "The_Band_-_Song__One_(Live)");
    EXPECT_EQ(Named(6, SongFields), "The Band");
}

TEST(NameByRule, EmptyMix_GivesNoBracketsAndNoBlank) {
    EXPECT_EQ(Named(2, WithoutMix()), "The Band - Song_ One");
    EXPECT_EQ(Named(3, WithoutMix()), "Song_ One");
    EXPECT_EQ(Named(4, WithoutMix()), "The Band/Song_ One");
    EXPECT_EQ(Named(5, WithoutMix(), true), "The_Band_-_Song__One");
}

TEST(NameByRule, OtherModes_GiveTheWholeOldName) {
    for (const int mode : {0, -1, 7, 9, 100}) EXPECT_EQ(Named(mode, SongFields), "old.mp3");
}

TEST(NameByRule, PairOfBracketsInAValue_StaysInModes1To5) {
    RenameFields fields = WithoutMix();
    fields.Title = "Song()";
    for (const int mode : {1, 2, 3, 4, 5}) EXPECT_TRUE(Named(mode, fields).ends_with("Song()")) << mode;
}

TEST(NameByRule, Mode4_KeepsFolderAndNameApart) {
    RenameFields fields = WithoutMix();
    fields.Artist = "AC/DC\\";
    fields.Title = "a/b";
    const NewFileName name = NameByRule({4, {}, false}, fields, "old.mp3");
    EXPECT_EQ(name.folder, "AC_DC_");
    EXPECT_EQ(name.name, "a_b");
    fields.Artist = "..";
    EXPECT_EQ(NameByRule({4, {}, false}, fields, "old.mp3").folder, "");
    EXPECT_EQ(Named(4, fields), "a_b");
}

TEST(NameByRule, Mode4_FolderAndNameFitTheFileSystem) {
    RenameFields fields = WithoutMix();
    fields.Artist = std::string(10000, 'a');
    fields.Title = std::string(10000, 't');
    const NewFileName name = NameByRule({4, {}, false}, fields, "old.mp3");
    EXPECT_EQ(name.folder, std::string(251, 'a'));
    EXPECT_EQ(name.name, std::string(251, 't'));
}

TEST(NameByRule, Mode5_FitsTheFileSystem) {
    RenameFields fields = SongFields;
    fields.Artist = std::string(200, 'a');
    fields.Title = std::string(200, 't');
    EXPECT_EQ(Named(5, fields, true), std::string(200, 'a') + "_-_" + std::string(48, 't'));
}

TEST(NameByRule, TranslateNames_FiltersTheValuesButNotTheTrack) {
    const RenameFields fields = {"Motörhead*", "Ж", "ß", "'99é", "Ä", "é7"};
    const RenameRule rule = {6, "%A,%T,%M,%Y,%L,%N", true};
    EXPECT_EQ(NameByRule(rule, fields, "").name, "Motorhead_,Zh,ss,'99e,A,00");
    EXPECT_EQ(Named(1, fields, true), "Motorhead_ - Zh");
    EXPECT_EQ(Named(1, fields, false), "Motörhead_ - Ж");
}

TEST(NameByRule, NothingLeft_IsEmpty) {
    EXPECT_EQ(Named(3, {"A", "", "", "", "", ""}), "");
    EXPECT_EQ(Named(3, {"A", "...", "", "", "", ""}), "");
    EXPECT_EQ(NameByRule({6, "%M", false}, WithoutMix(), "old.mp3").Path(), "");
}

TEST(ExpandTemplate, EveryToken) {
    const std::pair<std::string, std::string> rows[] = {
        {"%A", "The Band"},
        {"%T", "Song_ One"},
        {"%M", "Live"},
        {"%Y", "1999"},
        {"%L", "Album"},
        {"%N", "07"},
        {"%N3", "007"},
        {"%N. %A - %T [%M]", "07. The Band - Song_ One [Live]"},
        {"%A%A", "The BandThe Band"},
        {"%n %a %t", "%n %a %t"},
        {"%X 100% %", "%X 100% %"},
        {"%N33", "0073"},
        {"%N3%N", "00707"},
        {"%A\\%L\\%N", "The Band_Album_07"},
        {"%A/%L", "The Band_Album"},
        {"plain", "plain"},
        {"", ""}};
    for (const auto& [text, name] : rows) EXPECT_EQ(ExpandTemplate(text, SongFields), name) << text;
}

TEST(ExpandTemplate, EmptyMix_TakesItsBracketsAlongButNoBlanks) {
    EXPECT_EQ(ExpandTemplate("%A - %T [%M]", WithoutMix()), "The Band - Song_ One");
    EXPECT_EQ(ExpandTemplate("[%M](%M){%M}x", WithoutMix()), "x");
    EXPECT_EQ(ExpandTemplate("a [%M] b", WithoutMix()), "a  b");
    EXPECT_EQ(ExpandTemplate("a [ %M] b", WithoutMix()), "a [ ] b");
    EXPECT_EQ(ExpandTemplate("[[%M]]", WithoutMix()), "[]");
    EXPECT_EQ(ExpandTemplate("{[%M]}", WithoutMix()), "");
    EXPECT_EQ(ExpandTemplate("[{%M}]", WithoutMix()), "[]");
}

TEST(ExpandTemplate, BracketsAroundAnAbsentTrack_Stay) {
    RenameFields fields = SongFields;
    fields.Track.clear();
    EXPECT_EQ(ExpandTemplate("[%N] x", fields), "[] x");
    EXPECT_EQ(ExpandTemplate("(%N3)", fields), "()");
    fields.Year.clear();
    EXPECT_EQ(ExpandTemplate("x(%Y)", fields), "x");
}

TEST(ExpandTemplate, AbsentTrack_LeavesItsNeighbours) {
    const RenameFields fields = {"Artist", "Title", "", "", "", ""};
    EXPECT_EQ(ExpandTemplate("%N. %A - %T [%M]", fields), ". Artist - Title");
    EXPECT_EQ(ExpandTemplate("%N. %A - %T [%M] %W", fields), "._Artist_-_Title");
}

TEST(ExpandTemplate, PairOfBracketsInAValue_Goes) {
    RenameFields fields = SongFields;
    fields.Title = "Song()";
    EXPECT_EQ(ExpandTemplate("%T", fields), "Song");
    fields.Title = "Song(";
    fields.Mix = ")x";
    EXPECT_EQ(ExpandTemplate("%T%M", fields), "Songx");
}

TEST(ExpandTemplate, TokensInValues_AreServedByLaterSteps) {
    RenameFields fields = SongFields;
    fields.Artist = "[%T]";
    fields.Title = "t%A";
    EXPECT_EQ(ExpandTemplate("%A", fields), "[t%A]");
    fields.Title = "Ärger: %R";
    EXPECT_EQ(ExpandTemplate("%T", fields), "Arger_");
    fields.Title = "a b%W";
    EXPECT_EQ(ExpandTemplate("%T é", fields), "a_b_e");
    fields.Title = "no %N3";
    EXPECT_EQ(ExpandTemplate("%T", fields), "no 007");
}

TEST(ExpandTemplate, SplitTokenThatArises_IsServed) {
    RenameFields fields = SongFields;
    fields.Artist = "%";
    EXPECT_EQ(ExpandTemplate("%AT", fields), "Song_ One");
}

TEST(ExpandTemplate, Filters) {
    const RenameFields fields = {"Mötley: Crüe", "a b", "", "", "", "7"};
    const std::pair<std::string, std::string> rows[] = {
        {"%A %T", "Mötley_ Crüe a b"},   {"%A %T%R", "Motley_ Crue a b"}, {"%R%A %T", "Motley_ Crue a b"},
        {"%A %T%W", "Motley__Crue_a_b"}, {"%A%W %T", "Motley__Crue_a_b"}, {"%R%W%A %T", "Motley__Crue_a_b"},
        {"%A %W", "Motley__Crue"},       {"%R%R%A", "Motley_ Crue"},      {"%r%w", "%r%w"}};
    for (const auto& [text, name] : rows) EXPECT_EQ(ExpandTemplate(text, fields), name) << text;
}

TEST(ExpandTemplate, LongValues_DoNotHideTheFilter) {
    RenameFields fields = SongFields;
    fields.Artist = std::string(10000, 'x') + " ";
    EXPECT_EQ(ExpandTemplate("é %A %W", fields), "e_" + std::string(248, 'x'));
    EXPECT_EQ(ExpandTemplate("%A.%R", fields), std::string(251, 'x'));
}

TEST(ExpandTemplate, ValuesThatMultiply_StayWithinABound) {
    std::string artist;
    std::string title;
    std::string mix;
    for (int i = 0; i < 5000; ++i) {
        artist += "%T";
        title += "%M";
        mix += "%Y";
    }
    const RenameFields fields = {artist, title, mix, std::string(10000, 'y'), "L", "7"};
    EXPECT_EQ(ExpandTemplate("%A", fields), std::string(251, 'y'));
    EXPECT_EQ(ExpandTemplate("é%A %W", fields), "e" + std::string(249, 'y'));
    EXPECT_EQ(ExpandTemplate(std::string(100000, 'z') + "%A%W", fields), std::string(251, 'z'));
}

TEST(TrackDigits, FillsWithZerosOnTheLeft) {
    EXPECT_EQ(TrackDigits("7", 2), "07");
    EXPECT_EQ(TrackDigits("7", 3), "007");
    EXPECT_EQ(TrackDigits("123", 2), "123");
    EXPECT_EQ(TrackDigits("123", 3), "123");
    EXPECT_EQ(TrackDigits("0", 2), "00");
    EXPECT_EQ(TrackDigits("0007", 2), "07");
    EXPECT_EQ(TrackDigits("12345678901234567890123", 3), "12345678901234567890123");
}

TEST(TrackDigits, TakesTheLeadingDigitsOnly) {
    const std::pair<std::string, std::string> rows[] = {
        {"3/12", "03"}, {"7abc", "07"},   {" 5", "05"},     {"12.5", "12"},   {"abc", "00"},
        {"", ""},       {" ", "00"},      {"-4", "-04"},    {"-0", "00"},     {"+9", "09"},
        {"-x", "00"},   {"\u0663", "00"}, {"\uFF17", "00"}, {"1\u0663", "01"}};
    for (const auto& [text, digits] : rows) EXPECT_EQ(TrackDigits(text, 2), digits) << text;
}

}  // namespace
}  // namespace zefta::test
