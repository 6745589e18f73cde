// The way of one file, with tools that are played.

#include <filesystem>

#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/ReEncodeStage.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

using Lines = std::vector<std::string>;

class ReEncodeTest : public ReEncodeStage {};

TEST_F(ReEncodeTest, MP3ToOgg_DecodesTrimsAndEncodesByTheseCommands) {
    folder.Write("a.mp3", "x");
    app.state.OggVorbisMode = 18;
    app.state.ShowExecuteWindows = false;
    encoded = Ogg().Bytes();
    ReEncode("a.mp3", true);
    EXPECT_EQ(Commands(),
              (Lines{"lame.exe --mp3input --decode \"@/a.mp3\"",
                     "\"/opt/zefta/zefta.exe\" /wavetrim \"@/a.mp3.wav\" /f0 /nb /zx /before 1 /after 1 "
                     "/dontshowexec",
                     "oggenc.exe -q8 -n\"temp.ogg\" \"@/temp.wav\""}));
    EXPECT_EQ(Names(), (Lines{"a (mode 18).ogg", "a.mp3"}));
    EXPECT_EQ(folder.Read("a.mp3"), "x");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ReEncodeTest, OggToMPEGplus_DecodesTrimsAndEncodesByTheseCommands) {
    folder.Write("a.ogg", "x");
    app.state.MPEGplusMode = 4;
    app.state.ReduceLevel = true;
    encoded = Mpc8();
    ReEncode("a.ogg", false, true);
    const Lines commands = Commands();
    ASSERT_EQ(commands.size(), 3U);
    EXPECT_EQ(commands[0], "oggdec.exe \"@/a.ogg\"");
    EXPECT_EQ(commands[2],
              "mppenc.exe  -v --overwrite --xtreme -bw 20000 -ms 0   -scale 0.95 \"@/temp.wav\" "
              "\"@/temp.mpc\"");
    EXPECT_EQ(Names(), (Lines{"a (xtreme).mpc", "a.ogg"}));
}

TEST_F(ReEncodeTest, MPEGplusToMP3_DecodesTrimsAndEncodesByTheseCommands) {
    folder.Write("a.mpc", Mpc8());
    ReEncode("a.mpc");
    const Lines commands = Commands();
    ASSERT_EQ(commands.size(), 3U);
    EXPECT_EQ(commands[0], "mppdec.exe \"@/a.mpc\" \"@/a.mpc.wav\"");
    EXPECT_EQ(commands[2],
              "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   \"@/temp.wav\" \"@/temp.MP3\"");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mpc"}));
}

TEST_F(ReEncodeTest, NormaliseOfTheDecodedFile_ComesFromTheSetting) {
    folder.Write("a.mp3", "x");
    app.state.Normalize = true;
    ReEncode("a.mp3");
    EXPECT_EQ(Commands()[1].find("/norm"), std::string::npos);
    app.state.Saved.Normalize = true;
    ReEncode("a.mp3");
    EXPECT_NE(Commands()[4].find(" /norm"), std::string::npos);
}

TEST_F(ReEncodeTest, State_IsThatOfTheTargetAndNothingTrimsAfterwards) {
    folder.Write("a.ogg", "x");
    app.state.TrimSilence = true;
    ReEncode("a.ogg");
    EXPECT_FALSE(app.state.TrimSilence);
    EXPECT_FALSE(app.state.UseOggVorbis);
    EXPECT_FALSE(app.state.UseMPEGplus);
    folder.Write("b.mp3", "x");
    encoded = Mpc8();
    ReEncode("b.mp3", false, true);
    EXPECT_TRUE(app.state.UseMPEGplus);
    EXPECT_FALSE(app.state.TrimSilence);
}

TEST_F(ReEncodeTest, TagValuesForOgg_AreThoseOfTheSourceWhileTheEncoderRuns) {
    const std::string tags = Id3v2(TextFrame("TPE1", "Long artist") + TextFrame("TIT2", "Song (Live)"), 300);
    const Id3v1 old{.title = "t", .artist = "a", .album = "Album", .year = "1999", .track = 7, .genre = 17};
    folder.Write("a.mp3", tags + Mp3Frames(20) + old.Bytes());
    AppState seen;
    const auto play = app.processes.tool;
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        seen = app.state;
        play(run);
    };
    encoded = Ogg().Bytes();
    ReEncode("a.mp3", true);
    EXPECT_EQ(seen.OptArtist, "Long artist");
    EXPECT_EQ(seen.OptTitle, "Song");
    EXPECT_EQ(seen.OptMix, "Live");
    EXPECT_EQ(seen.OptAlbum, "Album");
    EXPECT_EQ(seen.OptYear, "1999");
    EXPECT_EQ(seen.OptTrack, "7");
    EXPECT_EQ(seen.OptGenre, "Rock");
}

TEST_F(ReEncodeTest, TagValues_OfOtherTargets_StayAlone) {
    folder.Write("a.mp3", Mp3Frames(20) + Id3v1{.artist = "a"}.Bytes());
    app.state.OptArtist = "given ";
    ReEncode("a.mp3");
    EXPECT_EQ(app.state.OptArtist, "given ");
}

TEST_F(ReEncodeTest, CurrentFolderElsewhere_OggGoesToTheFolderOfTheSource) {
    std::filesystem::create_directory(folder / "sub");
    folder.Write("sub/a.mp3", "x");
    folder.Write("temp.ogg", "mine");
    encoded = Ogg().Bytes();
    ReEncode("sub/a.mp3", true);
    EXPECT_TRUE(folder.Exists("sub/a (mode 5).ogg"));
    EXPECT_EQ(folder.Read("temp.ogg"), "mine");
    EXPECT_EQ(app.files.CurrentFolder(), folder.Path());
}

TEST_F(ReEncodeTest, NamesOfAllSorts_AreKept) {
    encoded = Ogg().Bytes();
    for (const char* stem : {"caf\xE9", "100% live", "q\"x", "a.b", "-n x", "a  b "}) {
        folder.Write(std::string(stem) + ".mp3", "x");
        ReEncode(std::string(stem) + ".mp3", true);
        EXPECT_TRUE(folder.Exists(std::string(stem) + " (mode 5).ogg")) << stem;
    }
    folder.Write("xmp3", "x");
    ReEncode("xmp3", true);
    EXPECT_TRUE(folder.Exists("xmp3 (mode 5).ogg"));
}

// A former file of the new name.

TEST_F(ReEncodeTest, SecondRun_ReplacesTheFormerResult) {
    folder.Write("a.mp3", "x");
    ReEncode("a.mp3");
    const std::string first = folder.Read("a ().mp3");
    encoded = Mp3Frames(30);
    ReEncode("a.mp3");
    EXPECT_GT(folder.Read("a ().mp3").size(), first.size());
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3"}));
}

TEST_F(ReEncodeTest, FormerResult_GoesAlsoWhenReadOnlyOrInAnotherCase) {
    folder.Write("a.mp3", "x");
    app.files.SetReadOnly(folder.Write("A ().MP3", "old"), true);
    ReEncode("a.mp3");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3"}));
    EXPECT_FALSE(app.files.IsReadOnly(folder / "a ().mp3"));
    EXPECT_EQ(wave.GetMP3FileInfo(folder / "a ().mp3").ID3v2Extension.EncodedBy,
              ApplicationTitle() + " " + VersionText());
}

TEST_F(ReEncodeTest, FormerResultThatIsALinkToTheSource_GoesAndTheSourceStays) {
    folder.Write("a.mp3", "x");
    std::filesystem::create_symlink(folder / "a.mp3", folder / "a ().mp3");
    ReEncode("a.mp3");
    EXPECT_EQ(folder.Read("a.mp3"), "x");
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "a ().mp3"));
}

TEST_F(ReEncodeTest, FormerResultThatIsAHardLinkToTheSource_GoesAndTheSourceStays) {
    folder.Write("a.mp3", "x");
    std::filesystem::create_hard_link(folder / "a.mp3", folder / "a ().mp3");
    ReEncode("a.mp3");
    EXPECT_EQ(folder.Read("a.mp3"), "x");
    EXPECT_GT(folder.Read("a ().mp3").size(), encoded.size());
}

// The decoder fails.

TEST_F(ReEncodeTest, NothingDecoded_IsToldByAPlainBox) {
    folder.Write("a.mp3", "x");
    decoded.clear();
    ReEncode("a.mp3", true);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Plain);
    EXPECT_EQ(app.desktop.boxes[0].text, "File not found!");
    EXPECT_EQ(Names(), Lines{"a.mp3"});
    EXPECT_FALSE(app.state.TrimSilence);
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(ReEncodeTest, EmptyDecodedFile_CountsAsNoneAndGoes) {
    decoded.clear();
    leavesEmptyFile = true;
    for (const char* name : {"a.mp3", "b.mpc", "c.ogg"}) {
        folder.Write(name, Mpc8());
        ReEncode(name);
    }
    EXPECT_EQ(app.desktop.boxes.size(), 3U);
    EXPECT_EQ(Names(), (Lines{"a.mp3", "b.mpc", "c.ogg"}));
}

TEST_F(ReEncodeTest, OwnFileOfTheDecodedName_IsNeitherTakenForItNorLost) {
    folder.Write("a.mp3", "x");
    folder.Write("a.mp3.wav", "mine");
    decoded.clear();
    ReEncode("a.mp3");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(folder.Read("a.mp3.wav"), "mine");
    decoded = "audio";
    ReEncode("a.mp3");
    EXPECT_EQ(folder.Read("a.mp3.wav"), "mine");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3", "a.mp3.wav"}));
}

TEST_F(ReEncodeTest, OggInOtherLetters_KeepsTheDecodersNameAndIsToldSo) {
    folder.Write("a.OGG", "x");
    ReEncode("a.OGG");
    EXPECT_EQ(app.desktop.boxes.at(0).text, "File not found!");
    EXPECT_EQ(app.desktop.notes, Lines{"a.OGG: the decoder's output is a.wav"});
    EXPECT_EQ(folder.Read("a.wav"), decoded);
}

// The encoder fails.

TEST_F(ReEncodeTest, NothingEncoded_FailsWith53AndKeepsSourceDecodedAndFormerFile) {
    folder.Write("a.mp3", "x");
    folder.Write("a ().mp3", "former");
    encoded.clear();
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 53);
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3", "temp.wav"}));
    EXPECT_EQ(folder.Read("a ().mp3"), "former");
    EXPECT_EQ(folder.Read("temp.wav"), decoded);
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(ReEncodeTest, EmptyOutput_IsAFailedRunAndGoes) {
    folder.Write("a.mp3", "x");
    encoded.clear();
    leavesEmptyFile = true;
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3", true); }), 53);
    EXPECT_EQ(Names(), (Lines{"a.mp3", "temp.wav"}));
}

TEST_F(ReEncodeTest, HalfAnOutput_FailsWith62AndGoes) {
    folder.Write("a.mp3", "x");
    folder.Write("a ().mp3", "former");
    encoded = Mp3Frames(30).substr(0, 417 * 25 + 200);
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 62);
    const std::string ogg = Ogg().Bytes();
    encoded = ogg.substr(0, ogg.size() - 1000);
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3", true); }), 62);
    const std::string mpc = Mpc8();
    encoded = mpc.substr(0, mpc.size() - 100);
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3", false, true); }), 62);
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3", "temp.wav"}));
    EXPECT_EQ(folder.Read("a ().mp3"), "former");
}

TEST_F(ReEncodeTest, RunAfterAFailedOne_GoesThroughAndKeepsWhatThatLeft) {
    folder.Write("a.mp3", "x");
    const std::string whole = encoded;
    encoded.clear();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 53);
    EXPECT_EQ(Names(), (Lines{"a.mp3", "temp.wav"}));
    encoded = whole;
    ReEncode("a.mp3");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3", "temp.wav"}));
}

// The temporary names.

TEST_F(ReEncodeTest, OwnFilesOfTheTemporaryNames_AreKept) {
    folder.Write("a.mp3", "x");
    for (const char* name : {"Temp.WAV", "temp.mp3", "temp.ogg", "temp.mpc"}) folder.Write(name, name);
    const Lines own = {"Temp.WAV", "a.mp3", "temp.mp3", "temp.mpc", "temp.ogg"};
    const std::string whole = encoded;
    encoded.clear();
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 53);
    EXPECT_EQ(Names(), own);
    encoded = whole;
    ReEncode("a.mp3");
    encoded = Ogg().Bytes();
    ReEncode("a.mp3", true);
    encoded = Mpc8();
    ReEncode("a.mp3", false, true);
    EXPECT_EQ(Names().size(), own.size() + 3);
    for (const char* name : {"Temp.WAV", "temp.mp3", "temp.ogg", "temp.mpc"})
        EXPECT_EQ(folder.Read(name), name);
}

TEST_F(ReEncodeTest, SourceOfATemporaryName_IsReEncodedAndStays) {
    folder.Write("temp.mp3", "x");
    ReEncode("temp.mp3");
    EXPECT_EQ(Names(), (Lines{"temp ().mp3", "temp.mp3"}));
    EXPECT_EQ(folder.Read("temp.mp3"), "x");
    folder.Write("temp.ogg", "y");
    encoded = Ogg().Bytes();
    ReEncode("temp.ogg", true);
    EXPECT_EQ(folder.Read("temp.ogg"), "y");
    EXPECT_EQ(Names(), (Lines{"temp ().mp3", "temp (mode 5).ogg", "temp.mp3", "temp.ogg"}));
}

TEST_F(ReEncodeTest, PresetNamedLikeAFileThatIsAway_DoesNotTakeItsPlace) {
    folder.Write("temp.ogg", "x");
    folder.Write("temp.mpc", "mine");
    app.state.CustomMPCPreset[0] = {"set aside", "--radio"};
    app.state.MPEGplusMode = 11;
    encoded = Mpc8();
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("temp.ogg", false, true); }), 58);
    EXPECT_EQ(folder.Read("temp.mpc"), "mine");
    EXPECT_EQ(folder.Read("temp.ogg"), "x");
}

// Refused before a tool has run.

TEST_F(ReEncodeTest, NamesThatCannotBe_AreRefusedBeforeAnyToolRuns) {
    const std::string longName(247, 'n');
    folder.Write(longName + ".mp3", "x");
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode(longName + ".mp3", true); }), 52);
    const std::string longest(251, 'm');
    folder.Write(longest + ".mp3", "x");
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode(longest + ".mp3"); }), 52);
    folder.Write("a.mp3", "x");
    for (const char* name : {"a ().mp3", "temp.mp3", "temp.wav", "a.mp3.wav"}) {
        std::filesystem::create_directory(folder / name);
        EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 75) << name;
        std::filesystem::remove(folder / name);
        folder.Write(name, "1");
        folder.Write(ToUpper(name), "2");
        EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 58) << name;
        EXPECT_EQ(folder.Read(name), "1");
        EXPECT_EQ(folder.Read(ToUpper(name)), "2");
        std::filesystem::remove(folder / name);
        std::filesystem::remove(folder / ToUpper(name));
    }
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(ReEncodeTest, LongestNamesThatFit_AreReEncoded) {
    const std::string name(243, 'n');
    folder.Write(name + ".mp3", "x");
    ReEncode(name + ".mp3");
    EXPECT_TRUE(folder.Exists(name + " ().mp3"));
}

TEST_F(ReEncodeTest, ModeWithoutACommand_IsRefusedBeforeAnyToolRuns) {
    folder.Write("a.mp3", "x");
    app.state.Bitrate = 100;
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 5);
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(ReEncodeTest, SourceWhoseTagCannotBeRead_IsRefusedBeforeAnyToolRuns) {
    folder.Write("a.mpc", Id3v2(TextFrame("TRCK", "3/12"), 100) + Mpc8());
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mpc"); }), 13);
    EXPECT_TRUE(app.processes.runs.empty());
}

// What is told.

TEST_F(ReEncodeTest, Note_TellsWhatWasCarriedAndWhatWasLeftOut) {
    const std::string frames = TextFrame("TPE1", "Artist") + TextFrame("TIT2", "Song") +
                               TextFrame("TOPE", "First") + RawFrame("APIC", "picture");
    folder.Write("a.mp3", Id3v2(frames, 400) + Mp3Frames(20));
    encoded = Mpc8();
    ReEncode("a.mp3", false, true);
    EXPECT_EQ(
        app.desktop.notes,
        Lines{"a.mp3 -> a (standard).mpc: carried artist, title; left out original artist (MPEGplus tags "
              "have no place for it), other frames and items, such as pictures (they have no field "
              "here)"});
    folder.Write("b.mp3", Mp3Frames(20));
    encoded = Mp3Frames(20);
    ReEncode("b.mp3");
    EXPECT_EQ(app.desktop.notes.at(1), "b.mp3 -> b ().mp3: carried no tags");
}

}  // namespace
}  // namespace zefta::test
