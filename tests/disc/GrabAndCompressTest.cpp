// From an image of a disc to tagged files: helper, grabber, encoder.

#include <cmath>

#include <gtest/gtest.h>

#include "cd/CdBase.h"
#include "cd/CompressCD.h"
#include "cd/GrabTracks.h"
#include "disc/CddbServer.h"
#include "disc/DiscImage.h"
#include "platform/posix/PosixProcesses.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

TEST(GrabAndCompress, ImageBecomesTaggedFiles) {
    TestApp world;
    PosixProcesses processes;
    App app(world.TestWorld::machine, world.TestWorld::files, world.desktop, processes, world.userSettings,
            world.machineSettings);
    WaveFile wave(app);
    app.defaultWaveFile = &wave;
    app.state.ShowExecuteWindows = false;
    const DiscImage image = DiscImage().Audio(150).Audio(160).Audio(170).Data(90);
    const std::string source = image.WriteTo(world.folder);
    const auto disc = MakeAudioDisc(ZEFTA_PROGRAM);
    const auto database = MakeDiscDatabase(ZEFTA_PROGRAM);
    CddbServer server;
    server.answers["cddb query"] = {"200 rock 1f000604 Band / Debut"};
    server.answers["cddb read"] = {"210 rock 1f000604 CD database entry follows",
                                   "# xmcd",
                                   "# Track frame offsets:",
                                   "#\t150",
                                   "#\t300",
                                   "#\t460",
                                   "#\t630",
                                   "#",
                                   "# Disc length: 9 seconds",
                                   "# Revision: 0",
                                   "DISCID=1f000604",
                                   "DTITLE=Band / Debut",
                                   "TTITLE0=One / Live",
                                   "TTITLE1=Two / Demo",
                                   "TTITLE2=Three / Mix",
                                   "TTITLE3=Video",
                                   "."};

    CdBase cd(app, *disc, *database);
    cd.Source = source;
    cd.Access = {"127.0.0.1", server.Port(), "EasyCD", cd.ClientVersion(), "me@home", 10};
    ASSERT_EQ(cd.ReadDisc({}), DiscEnd::Read);
    EXPECT_EQ(cd.Word(), DatabaseWord::Found) << cd.Reason();
    ASSERT_EQ(cd.Tracks().size(), 4U);
    EXPECT_FALSE(cd.Tracks()[3].Selected);

    EXPECT_EQ(GrabTracks(app, *disc, {source, world.folder / "in"}, {}), GrabEnd::Done);
    for (const int number : {1, 2, 3}) {
        const std::string name = "in/Track0" + std::to_string(number) + ".WAV";
        EXPECT_TRUE(world.folder.Read(name) ==
                    Wav().Audio(image.BytesOf(static_cast<std::size_t>(number))).Bytes())
            << name;
    }
    EXPECT_FALSE(world.folder.Exists("in/Track04.WAV"));

    CompressCDJob job;
    job.Info.Artist = cd.Artist();
    job.Info.Title = cd.Title();
    job.Info.Tracks = cd.Tracks();
    job.Info.Source = world.folder / "in";
    job.Info.Target = world.folder / "out";
    job.ModeCode = 128;
    job.Wave.TrimSilence = false;
    EXPECT_TRUE(CompressCD(app, job, {}));
    EXPECT_EQ(world.folder.Read("out/Band - Debut.m3u"),
              "Band - One (Live).MP3\nBand - Two (Demo).MP3\nBand - Three (Mix).MP3\n");
    EXPECT_EQ(wave.GetMP3FileInfo(world.folder / "out/Band - Three (Mix).MP3").TrackNumber, 3);
}

}  // namespace
}  // namespace zefta::test
