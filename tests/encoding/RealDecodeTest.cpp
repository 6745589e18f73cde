// Decoding by the real tools, started by the real service.

#include <gtest/gtest.h>

#include "core/Options.h"
#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ProgramRun.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

/// Bytes of a second.
constexpr std::int32_t ToneLength = 176400;

class RealDecodeTest : public ::testing::Test {
  protected:
    RealDecodeTest()
        : app(world.TestWorld::machine, world.files, world.desktop, processes, world.userSettings,
              world.machineSettings) {
        app.defaultWaveFile = &wave;
    }

    void Run(std::vector<std::string> tokens) {
        tokens.insert(tokens.end(), {"/notrim", "/dontshowexec"});
        ParseCommandLine(app, CommandLine(tokens));
        tokens.front() == "/e" ? EncodeJob(app) : DecodeJob(app);
    }

    /// Tone, encoded and tagged by the job; only the compressed file is left.
    void WriteCompressed(const std::string& name, const std::string& mode, int seconds = 1) {
        const std::string source = name.substr(0, name.rfind('.')) + ".wav";
        folder.Write(source, Wav().Tone(static_cast<std::size_t>(ToneLength * seconds)).Bytes());
        Run({"/e", mode, source});
        app.files.DeleteFile(folder / source, Force::No);
        // LAME's output bears its extension in upper case.
        if (!folder.Exists(name)) app.files.MoveFile(folder / name, folder / name);
    }

    /// Length of the audio of a WAV file, after a look by somebody else.
    std::int32_t AudioLength(const std::string& name) {
        const ProgramResult seen = RunToEnd({"soxi", {"-s", folder / name}, "", "", {}});
        const std::int32_t length = wave.GetWaveInfo(folder / name).Length;
        EXPECT_EQ(seen.output, std::to_string(length / 4) + "\n") << seen.error;
        return length;
    }

    TestApp world;
    TempFolder& folder = world.folder;
    PosixProcesses processes;
    App app;
    WaveFile wave{app};
};

TEST_F(RealDecodeTest, EveryKind_DecodesToTheLengthThatWasEncoded) {
    WriteCompressed("a.mp3", "128");
    WriteCompressed("b.ogg", "oq5");
    WriteCompressed("c.mpc", "standard");
    Run({"/d"});
    EXPECT_EQ(AudioLength("a.mp3.wav"), ToneLength);
    EXPECT_EQ(AudioLength("b.ogg.wav"), ToneLength);
    EXPECT_EQ(AudioLength("c.mpc.wav"), ToneLength);
    EXPECT_FALSE(folder.Exists("b.wav"));
    EXPECT_TRUE(world.desktop.boxes.empty());
}

TEST_F(RealDecodeTest, SecondRun_ReplacesTheDecodedFiles) {
    WriteCompressed("a.mp3", "128");
    WriteCompressed("b.ogg", "oq5");
    WriteCompressed("c.mpc", "standard");
    for (const char* name : {"a.mp3.wav", "b.ogg.wav", "c.mpc.wav"}) folder.Write(name, "of a former run");
    Run({"/d"});
    for (const char* name : {"a.mp3.wav", "b.ogg.wav", "c.mpc.wav"}) EXPECT_EQ(AudioLength(name), ToneLength);
}

TEST_F(RealDecodeTest, OddNames_AreDecoded) {
    for (const char* stem : {"100% live $x", "q\"x", "-n песня", "a  b (c)"}) {
        const std::string name = stem;
        WriteCompressed(name + ".ogg", "oq5");
        WriteCompressed(name + ".mpc", "standard");
        WriteCompressed(name + ".mp3", "128");
        for (const char* extension : {".ogg", ".mpc", ".mp3"}) {
            Run({"/d", name + extension});
            EXPECT_EQ(AudioLength(name + extension + ".wav"), ToneLength) << name << extension;
        }
    }
}

TEST_F(RealDecodeTest, OtherExtensionOfMPEGplus_IsDecoded) {
    WriteCompressed("a.mpc", "standard");
    app.files.MoveFile(folder / "a.mpc", folder / "a.MP+");
    Run({"/d", "*.mp+"});
    EXPECT_EQ(AudioLength("a.MP+.wav"), ToneLength);
}

TEST_F(RealDecodeTest, Ogg_FileOfTheDecodersOutputName_IsKept) {
    WriteCompressed("a.ogg", "oq5");
    folder.Write("a.wav", "mine");
    Run({"/d"});
    EXPECT_EQ(folder.Read("a.wav"), "mine");
    EXPECT_EQ(AudioLength("a.ogg.wav"), ToneLength);
}

TEST_F(RealDecodeTest, Ogg_UpperCaseExtension_KeepsTheDecodersNameWhenItIsFree) {
    WriteCompressed("a.ogg", "oq5");
    app.files.MoveFile(folder / "a.ogg", folder / "a.OGG");
    Run({"/d"});
    EXPECT_EQ(AudioLength("a.wav"), ToneLength);
    EXPECT_FALSE(folder.Exists("a.OGG.wav"));
    folder.Write("a.wav", "mine");
    Run({"/d"});
    EXPECT_EQ(folder.Read("a.wav"), "mine");
    EXPECT_EQ(AudioLength("a.OGG.wav"), ToneLength);
}

TEST_F(RealDecodeTest, FileThatIsNoAudio_DestroysNothing) {
    for (const char* name : {"a.ogg", "b.mpc", "c.mp3"}) folder.Write(name, "no audio");
    const char* kept[] = {"a.wav", "a.ogg.wav", "b.mpc.wav", "c.wav", "c.mp3.wav"};
    for (const char* name : kept) folder.Write(name, "mine");
    Run({"/d"});
    for (const char* name : kept) EXPECT_EQ(folder.Read(name), "mine") << name;
    EXPECT_TRUE(world.desktop.boxes.empty());
}

TEST_F(RealDecodeTest, CutOffFile_DecodesAsFarAsItGoes) {
    WriteCompressed("a.ogg", "oq5", 10);
    const std::string bytes = folder.Read("a.ogg");
    folder.Write("a.ogg", bytes.substr(0, bytes.size() * 3 / 4));
    folder.Write("a.wav", "mine");
    Run({"/d"});
    EXPECT_GT(folder.Read("a.ogg.wav").size(), 44U);
    EXPECT_LT(folder.Read("a.ogg.wav").size(), static_cast<std::size_t>(ToneLength * 10));
    EXPECT_EQ(folder.Read("a.wav"), "mine");
}

}  // namespace
}  // namespace zefta::test
