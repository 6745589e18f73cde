// A CD compressed by the real encoders, its tags read back by a reader that is not ours.

#include <filesystem>

#include <gtest/gtest.h>

#include "cd/CompressCD.h"
#include "core/Version.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ProgramRun.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

struct EncoderCase {
    std::int32_t mode;
    const char* name;
    /// What the other reader says of each tag, one a line, by name.
    std::string tags;
};

class RealCompressCDTest : public ::testing::TestWithParam<EncoderCase> {
  protected:
    RealCompressCDTest()
        : app(world.TestWorld::machine, world.TestWorld::files, world.desktop, processes, world.userSettings,
              world.machineSettings) {
        app.defaultWaveFile = &wave;
        app.state.ShowExecuteWindows = false;
    }

    static std::string TagsOf(const std::string& path) {
        const std::string script =
            "import sys, mutagen\n"
            "tags = mutagen.File(sys.argv[1]).tags\n"
            "for key, value in sorted((k.lower(), v) for k, v in tags.items()):\n"
            "    text = value if isinstance(value, list) else [str(value)]\n"
            "    print(key + '=' + '; '.join(text))\n";
        return RunToEnd({"/usr/bin/python3", {"-c", script, path}, "", "", {}}).output;
    }

    TestApp world;
    PosixProcesses processes;
    App app;
    WaveFile wave{app};
};

TEST_P(RealCompressCDTest, Tracks_AreEncodedTaggedNamedAndListed) {
    constexpr std::size_t Second = 176400;
    std::filesystem::create_directories(world.folder / "in");
    world.folder.Write("in/Track01.WAV", Wav().Tone(2 * Second).Bytes());
    world.folder.Write("in/Track02.WAV", Wav().Tone(Second).Bytes());
    CompressCDJob job;
    job.Info.Artist = "Bänd";
    job.Info.Title = "Débüt";
    job.Info.Year = "1999";
    job.Info.Genre = "Jazz";
    job.Info.Source = world.folder / "in";
    job.Info.Target = world.folder / "out";
    job.Info.Tracks = {{"One", 2, false}, {"Gäst / Twö / Live", 1, true}};
    job.ModeCode = GetParam().mode;
    job.Wave.TrimSilence = false;
    job.DeleteAfterCompress = true;
    EXPECT_TRUE(CompressCD(app, job, {}));
    EXPECT_EQ(world.folder.Read("out/Bänd - Débüt.m3u"), std::string(GetParam().name) + "\n");
    const std::string path = world.folder / ("out/" + std::string(GetParam().name));
    EXPECT_EQ(TagsOf(path), GetParam().tags);
    EXPECT_TRUE(world.folder.Exists("in/Track01.WAV"));
    EXPECT_FALSE(world.folder.Exists("in/Track02.WAV"));
    RunToEnd({"ffmpeg", {"-v", "error", "-i", path, world.folder / "decoded.wav"}, "", "", {}});
    EXPECT_NEAR(static_cast<double>(world.folder.Read("decoded.wav").size()), Second, Second * 0.15);
}

INSTANTIATE_TEST_SUITE_P(
    Encoders, RealCompressCDTest,
    ::testing::Values(
        EncoderCase{
            128, "Gäst - Twö (Live).MP3",
            "comm:id3v1 comment:eng=Live\ntalb=Débüt\ntcon=Jazz\ntdrc=1999\ntenc=Kestrin Zeftaworks " +
                VersionText() + "\ntit2=Twö (Live)\ntpe1=Gäst\ntrck=2\n"},
        EncoderCase{2013, "Gäst - Twö (Live).ogg",
                    "album=Débüt\nartist=Gäst\ndate=1999\nencoded by=Kestrin Zeftaworks " + VersionText() +
                        "\ngenre=Jazz\ntitle=Twö (Live)\ntracknumber=2\n"},
        EncoderCase{3003, "Gäst - Twö (Live).mpc",
                    "album=Débüt\nartist=Gäst\nencoded by=Kestrin Zeftaworks " + VersionText() +
                        "\ngenre=Jazz\ntitle=Twö (Live)\ntrack=2\nyear=1999\n"}));

}  // namespace
}  // namespace zefta::test
