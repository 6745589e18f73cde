#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/Encode.h"
#include "platform/CommandText.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ExpectRuntimeError.h"
#include "support/MpcBuilder.h"
#include "support/ProgramRun.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "tags/ID3v2.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

class EncodeTest : public ::testing::Test {
  protected:
    EncodeTest() { app.defaultWaveFile = &wave; }

    void Run(std::vector<std::string> tokens) {
        tokens.insert(tokens.begin(), "/e");
        ParseCommandLine(app, CommandLine(std::move(tokens)));
        EncodeJob(app);
    }

    /// The tool writes these bytes to the last path of its command line, or behind -n.
    void PlayTool(const std::string& bytes) {
        app.processes.tool = [this, bytes](const RecordingProcesses::Run& run) {
            const auto arguments = SplitCommandLine(run.commandLine);
            if (arguments[0].text == app.processes.OwnPath() + ".exe") return;
            std::string output = arguments.back().text;
            for (const CommandArgument& argument : arguments) {
                if (argument.quoted && argument.text.starts_with("-n")) output = argument.text.substr(2);
            }
            WriteWholeFile(output, bytes);
        };
    }

    static ID3Tag ReadTags(const std::string& path) {
        PosixFileSystem files;
        ID3Tag tag;
        const auto file = files.OpenReadOnly(path);
        const CodePage ansi = LoadCodePage(1252);
        ReadID3v1(*file, tag, ansi);
        ReadID3v2(*file, tag, ansi);
        return tag;
    }

    TestApp app;
    WaveFile wave{app};
    const std::string encoder = "Kestrin Zeftaworks " + VersionText();
};

TEST_F(EncodeTest, TrimChild_RunsFirstHiddenAtThePriority) {
    app.folder.Write("a.wav", "x");
    Run({"128", "a.wav", "/trim", "/norm", "/idle", "/dontshowexec"});
    const std::string path = app.folder / "a.wav";
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(app.processes.runs[0],
              (RecordingProcesses::Run{"\"/opt/zefta/zefta.exe\" /wavetrim \"" + path +
                                           "\" /f0 /nb /zx /before 1 /after 1 /norm /dontshowexec",
                                       false, IdlePriority}));
    EXPECT_EQ(app.processes.runs[1].commandLine,
              "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   \"" + path + "\" \"" +
                  (app.folder / "a.MP3") + "\"");
    EXPECT_FALSE(app.processes.runs[1].showWindow);
    EXPECT_EQ(app.processes.runs[1].priorityClass, IdlePriority);
}

TEST_F(EncodeTest, NoTrim_RunsTheEncoderAlone) {
    app.folder.Write("a.wav", "x");
    Run({"/notrim"});
    ASSERT_EQ(app.processes.runs.size(), 1U);
    EXPECT_TRUE(app.processes.runs[0].showWindow);
}

TEST_F(EncodeTest, ModeWithoutACommand_RunsNothing) {
    app.folder.Write("a.wav", "x");
    ParseCommandLine(app, CommandLine({"/e", "/notrim"}));
    app.state.Bitrate = 100;
    EncodeJob(app);
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(EncodeTest, DoubledSeparators_AreCleanedInEveryCommand) {
    app.state.TrimSilence = true;
    for (const bool mpegPlus : {false, true}) {
        app.state.UseMPEGplus = mpegPlus;
        EncodeFile(app, {"a.wav", "/m//sub//a.wav", ""});
    }
    ASSERT_EQ(app.processes.runs.size(), 4U);
    for (const auto& run : app.processes.runs) {
        EXPECT_NE(run.commandLine.find("\"/m/sub/a.wav\""), std::string::npos);
        EXPECT_EQ(run.commandLine.find("//"), std::string::npos);
    }
    EXPECT_TRUE(app.processes.runs[1].commandLine.ends_with(" \"a.MP3\""));
    EXPECT_TRUE(app.processes.runs[3].commandLine.ends_with(" \"a.mpc\""));
}

TEST_F(EncodeTest, Mp3Output_GetsBothTags) {
    app.folder.Write("My Song.WAV", "x");
    PlayTool(Audio(5000));
    Run({"128", "/notrim"});
    const ID3Tag tag = ReadTags(app.folder / "My Song.MP3");
    EXPECT_EQ(tag.Title, "My Song");
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "My Song");
    EXPECT_EQ(tag.ID3v2Extension.EncodedBy, encoder);
    const std::string bytes = app.folder.Read("My Song.MP3");
    EXPECT_EQ(bytes.size(), 512 + 5000 + 128U);
    EXPECT_EQ(bytes.substr(512, 5000), Audio(5000));
}

TEST_F(EncodeTest, NameThatIsNoUtf8_IsReadIntoTheTagThroughTheCodePage) {
    app.folder.Write("caf\xE9.wav", "x");
    PlayTool(Audio(500));
    Run({"128", "/notrim"});
    EXPECT_EQ(ReadTags(app.folder / "caf\xE9.MP3").Title, "café");
}

TEST_F(EncodeTest, MissingOrEmptyOutput_IsPassedOverInSilence) {
    app.folder.Write("a.wav", "x");
    Run({"128", "/notrim"});
    EXPECT_FALSE(app.folder.Exists("a.MP3"));
    PlayTool("");
    Run({"128", "/notrim"});
    EXPECT_EQ(app.folder.Read("a.MP3"), "");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EncodeTest, OldOutputOfAnEncoderThatFails_KeepsItsTags) {
    app.folder.Write("a.wav", "x");
    const std::string old = Audio(700) + Id3v1{"Somebody's work"}.Bytes();
    app.folder.Write("a.MP3", old);
    Run({"128", "a.wav", "/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(app.folder.Read("a.MP3"), old);
    PlayTool(Audio(500));
    Run({"128", "a.wav", "/notrim"});
    EXPECT_EQ(ReadTags(app.folder / "a.MP3").Title, "a");
}

TEST_F(EncodeTest, OtherEncoders_LeaveTheirOutputBesideTheSource) {
    app.folder.Write("a.wav", "x");
    PlayTool(Audio(500));
    Run({"oq5", "/notrim"});
    EXPECT_EQ(app.folder.Read("a.ogg"), Audio(500));
    Run({"xtreme", "/notrim"});
    EXPECT_TRUE(app.folder.Read("a.mpc").starts_with(Audio(500 - 128)));
}

TEST_F(EncodeTest, MPEGplusOutput_GetsAnApeTag) {
    app.folder.Write("My Song.wav", "x");
    PlayTool(Mpc8());
    Run({"standard", "/notrim"});
    EXPECT_TRUE(app.folder.Read("My Song.mpc").starts_with(Mpc8() + "APETAGEX"));
    const ID3Tag tag = wave.GetMPEGplusFileInfo(app.folder / "My Song.mpc");
    EXPECT_EQ(tag.Title, "My Song");
    EXPECT_EQ(tag.ID3v2Extension.EncodedBy, encoder);
}

TEST_F(EncodeTest, OutputThatIsNoOggStream_StaysAsTheToolLeftIt) {
    app.folder.Write("a.wav", "x");
    PlayTool("OggS, but no stream");
    Run({"oq5", "/notrim"});
    EXPECT_EQ(app.folder.Read("a.ogg"), "OggS, but no stream");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EncodeTest, NameOfAWavFileWithoutItsExtension_IsPassedOver) {
    app.folder.Write("xwav", "mine");
    PlayTool("encoded");
    for (const char* mode : {"128", "oq5", "standard"}) Run({mode, "*wav", "/trim"});
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(app.folder.Read("xwav"), "mine");
    EXPECT_FALSE(EncodeAndTag(app, app.folder.Path(), "xwav"));
}

TEST_F(EncodeTest, EncodeAndTag_TellsWhetherThereIsAnOutput) {
    app.folder.Write("a.wav", "x");
    app.state.TrimSilence = false;
    EXPECT_FALSE(EncodeAndTag(app, app.folder.Path(), "a.wav"));
    PlayTool("");
    EXPECT_FALSE(EncodeAndTag(app, app.folder.Path(), "a.wav"));
    PlayTool(Audio(500));
    EXPECT_TRUE(EncodeAndTag(app, app.folder.Path(), "a.wav"));
    EXPECT_EQ(ReadTags(app.folder / "a.MP3").Title, "a");
}

TEST_F(EncodeTest, ExtensionTwice_IsReplacedTwice) {
    app.folder.Write("a.wav.WAV", "x");
    PlayTool(Audio(500));
    Run({"128", "/notrim"});
    EXPECT_EQ(ReadTags(app.folder / "a.MP3.MP3").Title, "a");
}

TEST_F(EncodeTest, FolderPart_BecomesCurrent_SoThatOggGoesThere) {
    std::filesystem::create_directory(app.folder / "sub");
    app.folder.Write("sub/a.wav", "x");
    app.folder.Write("b.wav", "x");
    PlayTool("encoded");
    Run({"oq5", "sub\\*.WAV", "/notrim"});
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
    EXPECT_TRUE(app.folder.Exists("sub/a.ogg"));
    EXPECT_EQ(app.processes.runs.size(), 1U);
}

TEST_F(EncodeTest, MissingFolder_Fails76) {
    EXPECT_EQ(RuntimeErrorOf([&] { Run({"128", "none/*.wav"}); }), 76);
}

TEST_F(EncodeTest, OtherFilesOfTheMask_ArePassedOver) {
    app.folder.Write("a.txt", "x");
    std::filesystem::create_directory(app.folder / "d.wav");
    Run({"128", "*.*", "/notrim"});
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EncodeTest, TagThatCannotBeWritten_IsToldAndTheNextFileIsEncoded) {
    app.folder.Write("a.wav", "x");
    app.folder.Write("b.wav", "x");
    PlayTool(Id3v2("", 40000) + Audio(10));
    Run({"128", "/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 2U);
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #6\r\n\r\nOverflow");
}

TEST_F(EncodeTest, ReadOnlyOutput_KeepsItsTag) {
    app.folder.Write("a.wav", "x");
    app.files.SetReadOnly(app.folder.Write("a.mp3", "kept"), true);
    Run({"128", "/notrim"});
    EXPECT_EQ(app.folder.Read("a.mp3"), "kept");
}

/// The real tools, started by the real service.
class RealEncodeTest : public EncodeTest {
  protected:
    RealEncodeTest()
        : realApp(app.machine, app.files, app.desktop, processes, app.userSettings, app.machineSettings) {
        realApp.defaultWaveFile = &realWave;
    }

    void RunReal(std::vector<std::string> tokens) {
        tokens.insert(tokens.begin(), "/e");
        tokens.insert(tokens.end(), {"/notrim", "/dontshowexec"});
        ParseCommandLine(realApp, CommandLine(std::move(tokens)));
        EncodeJob(realApp);
    }

    /// What an independent reader says of the file.
    static std::string Probe(const std::string& path, const std::string& entries) {
        const ProgramResult result =
            RunToEnd({"ffprobe",
                      {"-v", "error", "-show_entries", entries, "-of", "default=nw=1:nk=1", path},
                      "",
                      "",
                      {}});
        EXPECT_EQ(result.error, "");
        return result.output;
    }

    void WriteTone(const std::string& name) { app.folder.Write(name, Wav().Tone(176400 * 2).Bytes()); }

    PosixProcesses processes;
    App realApp;
    WaveFile realWave{realApp};
};

TEST_F(RealEncodeTest, Lame_ConstantRate_IsReadByOthersWithLengthAndTag) {
    WriteTone("My \"odd\" 100% name.wav");
    RunReal({"128"});
    const std::string path = app.folder / "My \"odd\" 100% name.MP3";
    EXPECT_NEAR(std::stod(Probe(path, "format=duration")), 2.0, 0.06);
    EXPECT_EQ(Probe(path, "format_tags=title"), "My \"odd\" 100% name\n");
    EXPECT_EQ(Probe(path, "format_tags=encoded_by"), encoder + "\n");
}

TEST_F(RealEncodeTest, Lame_AverageAndVariableRate_DecodeToTheRightLength) {
    for (const char* mode : {"abr", "s3"}) {
        WriteTone("a.wav");
        RunReal(std::string(mode) == "abr" ? std::vector<std::string>{"abr", "160"}
                                           : std::vector<std::string>{mode});
        const ProgramResult decoded = RunToEnd(
            {"lame", {"--quiet", "--decode", app.folder / "a.MP3", app.folder / "out.wav"}, "", "", {}});
        EXPECT_EQ(decoded.status, 0) << decoded.error;
        EXPECT_EQ(WaveFile(realApp).GetWaveInfo(app.folder / "out.wav").Seconds, 2) << mode;
    }
}

TEST_F(RealEncodeTest, Lame_OutputThereInAnotherCase_IsReplacedNotDoubled) {
    WriteTone("a.wav");
    app.folder.Write("a.mp3", "old");
    RunReal({"128"});
    EXPECT_FALSE(app.folder.Exists("a.MP3"));
    EXPECT_NEAR(std::stod(Probe(app.folder / "a.mp3", "format=duration")), 2.0, 0.06);
}

TEST_F(RealEncodeTest, OggencAndMpcenc_AreReadByOthers) {
    WriteTone("100% live.wav");
    RunReal({"oq5"});
    const std::string ogg = app.folder / "100% live.ogg";
    EXPECT_NEAR(std::stod(Probe(ogg, "format=duration")), 2.0, 0.01);
    const ProgramResult comments = RunToEnd({"vorbiscomment", {"-R", "-l", ogg}, "", "", {}});
    EXPECT_EQ(comments.error, "");
    EXPECT_EQ(AsciiLower(comments.output), AsciiLower("title=100% live\nencoded by=" + encoder + "\n"));
    RunReal({"standard"});
    const std::string mpc = app.folder / "100% live.mpc";
    EXPECT_EQ(Probe(mpc, "format_tags=Title"), "100% live\n");
    EXPECT_EQ(Probe(mpc, "format_tags=Encoded by"), encoder + "\n");
    const std::string decodedPath = app.folder / "decoded.wav";
    EXPECT_EQ(RunToEnd({"mpcdec", {app.folder / "100% live.mpc", decodedPath}, "", "", {}}).status, 0);
    EXPECT_EQ(WaveFile(realApp).GetWaveInfo(decodedPath).Length, 176400 * 2);
}

}  // namespace
}  // namespace zefta::test
