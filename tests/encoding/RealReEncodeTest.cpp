// Re-encoding by the real tools, started by the real service; the trim child's work is done in this process.

#include <map>

#include "core/Options.h"
#include "core/Version.h"
#include "encoding/Encode.h"
#include "encoding/ReEncode.h"
#include "encoding/ReEncodeStage.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ProgramRun.h"
#include "wave/TagWriters.h"
#include "wave/WaveTrim.h"

namespace zefta::test {
namespace {

/// The real service for all tools; the program itself, as a child, runs in here on an App of its own.
class ToolsAndChild : public Processes {
  public:
    explicit ToolsAndChild(TestApp& theWorld) : world(theWorld) {}

    void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) override {
        const auto arguments = SplitCommandLine(commandLine);
        if (arguments.front().text != OwnPath() + ".exe") {
            real.RunProgram(commandLine, showWindow, priorityClass);
            return;
        }
        std::vector<std::string> tokens;
        for (std::size_t i = 1; i < arguments.size(); ++i) tokens.push_back(arguments[i].text);
        App child(world.TestWorld::machine, world.TestWorld::files, world.desktop, *this, world.userSettings,
                  world.machineSettings);
        ParseCommandLine(child, CommandLine(tokens));
        WaveTrimJob(child);
    }

    void StartProgram(const std::string& commandLine) override { real.StartProgram(commandLine); }

    std::string OwnPath() const override { return "/opt/zefta/zefta"; }

  private:
    TestApp& world;
    PosixProcesses real;
};

/// Bytes of a second.
constexpr std::size_t Second = 176400;

struct Pair {
    std::string source;
    std::string sourceMode;
    std::string target;
    std::string targetMode;
    std::string name;
};

class RealReEncodeTest : public ::testing::Test {
  protected:
    RealReEncodeTest()
        : app(world.TestWorld::machine, world.TestWorld::files, world.desktop, processes, world.userSettings,
              world.machineSettings) {
        app.defaultWaveFile = &wave;
    }

    void Run(std::vector<std::string> tokens) {
        tokens.insert(tokens.begin(), "/e");
        tokens.insert(tokens.end(), {"/notrim", "/dontshowexec"});
        app.state.UseVBR = app.state.UseOggVorbis = app.state.UseMPEGplus = false;
        ParseCommandLine(app, CommandLine(tokens));
        world.desktop.answers.assign(1, true);
        EncodeJob(app);
    }

    /// Two seconds of tone between silence, encoded; only the compressed file is left.
    void WriteCompressed(const std::string& name, const std::string& mode) {
        const std::string source = name.substr(0, name.rfind('.')) + ".wav";
        folder.Write(source, Wav().Silence(Second).Tone(Second * 2).Silence(Second).Bytes());
        Run({mode, source});
        app.files.DeleteFile(folder / source, Force::No);
        if (!folder.Exists(name)) app.files.MoveFile(folder / name, folder / name);
    }

    /// Every field that the kind holds, written by its writer.
    void WriteFullTag(const std::string& name) {
        ID3Tag tag;
        tag.Path = folder / name;
        tag.Artist = tag.ID3v2Extension.Artist = "Ärtist";
        tag.Title = tag.ID3v2Extension.TrackTitle = "Title";
        tag.Album = tag.ID3v2Extension.AlbumTitle = "Album";
        tag.Year = tag.ID3v2Extension.Year = tag.OggVorbisExtension.DateTime = "2001";
        tag.ID3v2Extension.Mix = "Mix";
        tag.Comment = name.ends_with(".mp3") ? "Comment" : "Mix";
        tag.ID3v2Extension.Comments = "Comment";
        tag.TrackNumber = 7;
        tag.ID3v2Extension.TrackNumber = "7";
        tag.Genre = 8;
        tag.ID3v2Extension.Genre = "Jazz";
        tag.ID3v2Extension.Composer = "Composer";
        tag.ID3v2Extension.OriginalArtist = "Original";
        tag.ID3v2Extension.Copyright = "Copyright";
        tag.ID3v2Extension.URL = "http://x";
        tag.ID3v2Extension.EncodedBy = "somebody";
        for (const char* line :
             {"composer=Composer", "original artist=Original", "copyright=Copyright", "url=http://x"})
            tag.OggVorbisExtension.addExCom(line);
        WriteTags(wave, TagJob::ReEncoding, tag);
    }

    /// What an independent reader says of the file.
    static std::string Probe(const std::string& path, const std::string& entries) {
        const ProgramResult result =
            RunToEnd({"ffprobe",
                      {"-v", "error", "-show_entries", entries, "-of", "default=nw=1:nk=1", path},
                      "",
                      "",
                      {}});
        return result.output;
    }

    void ExpectFullTag(const Pair& pair, const std::string& path);

    TestApp world;
    TempFolder& folder = world.folder;
    ToolsAndChild processes{world};
    App app;
    WaveFile wave{app};
};

void RealReEncodeTest::ExpectFullTag(const Pair& pair, const std::string& path) {
    const std::string line = pair.source + " to " + pair.target;
    const bool isMP3 = pair.target == "mp3";
    const bool isOgg = pair.target == "ogg";
    const ID3Tag tag = isMP3   ? wave.GetMP3FileInfo(path)
                       : isOgg ? wave.GetOGGFileInfo(path)
                               : wave.GetMPEGplusFileInfo(path);
    const ID3v2Extension& extension = tag.ID3v2Extension;
    EXPECT_EQ(tag.Artist, "Ärtist") << line;
    EXPECT_EQ(tag.Title, "Title") << line;
    EXPECT_EQ(tag.Album, "Album") << line;
    EXPECT_EQ(isOgg ? tag.OggVorbisExtension.DateTime : tag.Year, "2001") << line;
    EXPECT_EQ(isMP3 ? extension.Mix : tag.Comment, "Mix") << line;
    EXPECT_EQ(extension.Comments, "Comment") << line;
    EXPECT_EQ(extension.TrackNumber, "7") << line;
    EXPECT_EQ(extension.Genre, "Jazz") << line;
    EXPECT_EQ(extension.EncodedBy, ApplicationTitle() + " " + VersionText()) << line;
    if (isMP3) {
        EXPECT_EQ(extension.Artist, "Ärtist") << line;
        EXPECT_EQ(extension.TrackTitle, "Title") << line;
        EXPECT_EQ(tag.Comment, "Comment") << line;
        EXPECT_EQ(tag.TrackNumber, 7) << line;
        EXPECT_EQ(tag.Genre, 8) << line;
    }
    // An APE tag as it is written holds neither of these two.
    const bool hasAll = pair.source != "mpc";
    const std::string original = hasAll ? "Original" : "";
    const std::string url = hasAll ? "http://x" : "";
    if (isOgg) {
        std::string lines = "composer=Composer";
        if (hasAll) lines += std::string(1, '\0') + "original artist=Original";
        lines += std::string(1, '\0') + "copyright=Copyright";
        if (hasAll) lines += std::string(1, '\0') + "url=http://x";
        EXPECT_EQ(tag.OggVorbisExtension.getExComInOneString(), lines) << line;
    } else {
        EXPECT_EQ(extension.Composer, "Composer") << line;
        EXPECT_EQ(extension.Copyright, "Copyright") << line;
        EXPECT_EQ(extension.OriginalArtist, isMP3 ? original : "") << line;
        EXPECT_EQ(extension.URL, isMP3 ? url : "") << line;
    }
}

TEST_F(RealReEncodeTest, EverySourceAndTarget_KeepsTheAudioAndEveryField) {
    const std::map<std::string, std::string> sourceModes = {
        {"mp3", "160"}, {"ogg", "oq5"}, {"mpc", "standard"}};
    const std::map<std::string, std::pair<std::string, std::string>> targets = {
        {"mp3", {"128", "()"}}, {"ogg", {"oq8", "(mode 18)"}}, {"mpc", {"xtreme", "(xtreme)"}}};
    for (const auto& [source, sourceMode] : sourceModes) {
        const std::string name = "100% \"odd\" " + source + "." + source;
        WriteCompressed(name, sourceMode);
        WriteFullTag(name);
        const std::string before = folder.Read(name);
        for (const auto& [target, mode] : targets) {
            const Pair pair{source, sourceMode, target, mode.first, mode.second};
            Run({pair.targetMode, name});
            const std::string path = folder / ("100% \"odd\" " + source + " " + pair.name + "." + target);
            ASSERT_TRUE(app.files.FileExists(path)) << path;
            ExpectFullTag(pair, path);
            // The silence around the tone is gone, but for a frame of 75th of a second on each side.
            const std::string decoded = folder / "check.wav";
            EXPECT_EQ(RunToEnd({"ffmpeg", {"-v", "error", "-y", "-i", path, decoded}, "", "", {}}).status, 0);
            EXPECT_NEAR(wave.GetWaveInfo(decoded).Length / static_cast<double>(Second), 2.03, 0.15)
                << source << " to " << target;
            app.files.DeleteFile(decoded, Force::No);
            EXPECT_EQ(folder.Read(name), before);
        }
    }
    EXPECT_TRUE(world.desktop.boxes.empty());
    // Three sources, nine results, nothing else.
    EXPECT_EQ(app.files.List(folder.Path()).size(), 12U);
    EXPECT_EQ(world.desktop.notes.size(), 9U);
}

TEST_F(RealReEncodeTest, OtherReaders_SeeTheTags) {
    WriteCompressed("a.mp3", "128");
    WriteFullTag("a.mp3");
    Run({"oq5", "a.mp3"});
    const std::string ogg = folder / "a (mode 15).ogg";
    EXPECT_EQ(Probe(ogg, "stream_tags=artist"), "Ärtist\n");
    EXPECT_EQ(Probe(ogg, "stream_tags=title"), "Title (Mix)\n");
    Run({"standard", "a.mp3"});
    const std::string mpc = folder / "a (standard).mpc";
    EXPECT_EQ(Probe(mpc, "format_tags=Artist"), "Ärtist\n");
    EXPECT_EQ(Probe(mpc, "format_tags=Genre"), "Jazz\n");
    Run({"320", "a (standard).mpc"});
    EXPECT_EQ(Probe(folder / "a (standard) ().mp3", "format_tags=artist"), "Ärtist\n");
    EXPECT_EQ(Probe(folder / "a (standard) ().mp3", "format_tags=album"), "Album\n");
}

TEST_F(RealReEncodeTest, TagsOfOtherPrograms_InUtf16_AreCarried) {
    WriteCompressed("a.mp3", "128");
    EXPECT_EQ(RunToEnd({"ffmpeg",
                        {"-v", "error", "-i", folder / "a.mp3", "-codec", "copy", "-metadata", "artist=Кино",
                         "-metadata", "title=Песня", "-id3v2_version", "3", folder / "b.mp3"},
                        "",
                        "",
                        {}})
                  .status,
              0);
    Run({"oq5", "b.mp3"});
    EXPECT_EQ(wave.GetOGGFileInfo(folder / "b (mode 15).ogg").Artist, "Кино");
    EXPECT_EQ(wave.GetOGGFileInfo(folder / "b (mode 15).ogg").Title, "Песня");
}

TEST_F(RealReEncodeTest, DeleteAfterReCompress_SourceGoesForEachPair) {
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc"}) {
        const std::string mode = std::string(name).ends_with("3")   ? "160"
                                 : std::string(name).ends_with("g") ? "oq5"
                                                                    : "standard";
        for (int target = 0; target < 3; ++target) {
            WriteCompressed(name, mode);
            app.state.DeleteAfterReCompress = true;
            app.state.UseVBR = false;
            app.state.Bitrate = 128;
            ReEncodeFile(app, folder / name, target == 1, target == 2);
            EXPECT_FALSE(folder.Exists(name)) << name << " to " << target;
        }
    }
    EXPECT_EQ(app.files.List(folder.Path()).size(), 9U);
    EXPECT_TRUE(world.desktop.boxes.empty());
}

TEST_F(RealReEncodeTest, SourceThatIsNoAudio_IsToldAndDestroysNothing) {
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc"}) folder.Write(name, Mpc8().substr(0, 60));
    const char* own[] = {"a.mp3.wav", "b.wav", "b.ogg.wav", "c.mpc.wav", "temp.wav", "temp.mp3"};
    for (const char* name : own) folder.Write(name, name);
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc"}) Run({"128", name});
    for (const char* name : own) EXPECT_EQ(folder.Read(name), name);
    EXPECT_EQ(app.files.List(folder.Path()).size(), 9U);
    EXPECT_FALSE(world.desktop.boxes.empty());
}

}  // namespace
}  // namespace zefta::test
