// Files that a real encoder made, measured by the program and by an independent tool. Where the two differ on
// purpose, the difference is computed from the oddity that is named at the place.

#include <cmath>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/ProgramRun.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "support/WavBuilder.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/MP3File.h"

namespace zefta::test {
namespace {

/// What the encoder puts into its first frame.
enum class FirstFrame {
    /// A block with the marker "Info": constant rate.
    Info,
    /// A block with the marker "Xing": average or variable rate.
    Xing,
    /// Audio: the block is switched off, or the frames are too small for it.
    Audio,
};

struct EncodedFile {
    std::string name;
    std::string options;
    double seconds;
    FirstFrame firstFrame;
    int channelMode = 1;
};

void PrintTo(const EncodedFile& file, std::ostream* out) {
    *out << file.options << ", " << file.seconds << " s";
}

const EncodedFile EncodedFiles[] = {
    {"OneFrame", "-b 128", 0.001, FirstFrame::Info},
    {"AFewFrames", "-b 128", 0.1, FirstFrame::Info},
    {"HalfASecond", "-b 128", 0.45, FirstFrame::Info},
    {"OneSecond", "-b 192", 1, FirstFrame::Info},
    {"SevenSeconds", "-b 128", 7.3, FirstFrame::Info},
    {"AMinute", "-f -b 128", 60, FirstFrame::Info},
    {"PlainStereo", "-b 320 -m s", 4.5, FirstFrame::Info, 0},
    {"DualChannel", "-b 128 -m d", 3, FirstFrame::Info, 2},
    {"Mono", "-b 96 -m m", 12.4, FirstFrame::Info, 3},
    {"At48000", "-b 128 --resample 48", 6.5, FirstFrame::Info},
    {"At32000", "-b 112 --resample 32", 5.6, FirstFrame::Info},
    {"WithoutBlock", "-b 128 -t", 9.5, FirstFrame::Audio},

    {"AverageRate", "--abr 128", 5.2, FirstFrame::Xing},
    {"AverageRateMono", "--abr 80 -m m", 3.7, FirstFrame::Xing, 3},
    {"VariableShort", "-V 4", 0.6, FirstFrame::Xing},
    {"VariableOneSecond", "-V 4", 1.2, FirstFrame::Xing},
    {"VariableTenSeconds", "-V 2", 10.5, FirstFrame::Xing},
    {"VariableAMinute", "-f -V 4", 60, FirstFrame::Xing},
    {"VariableOldRoutine", "-V 2 --vbr-old", 4, FirstFrame::Xing},
    {"VariableMono", "-V 3 -m m", 6.6, FirstFrame::Xing, 3},
    {"VariableAt48000", "-V 5 --resample 48", 13.3, FirstFrame::Xing},
    {"VariableAt32000", "-V 5 --resample 32", 13.3, FirstFrame::Xing},

    {"Mpeg2", "-b 64 --resample 22.05", 10.2, FirstFrame::Info},
    {"Mpeg2MonoAt24000", "-b 64 --resample 24 -m m", 6.2, FirstFrame::Info, 3},
    {"Mpeg2At16000", "-b 48 --resample 16", 8.8, FirstFrame::Info},
    {"Mpeg2SmallFrames", "-b 8 -m m --resample 16", 12.7, FirstFrame::Audio, 3},
    {"Mpeg2Variable", "-V 4 --resample 22.05", 10.2, FirstFrame::Xing},
    {"Mpeg2VariableMono", "-V 4 --resample 24 -m m", 7.1, FirstFrame::Xing, 3},
    {"Mpeg2AverageRate", "--abr 48 --resample 16 -m m", 15.4, FirstFrame::Xing, 3},
};

ProgramResult RunOk(const std::string& program, const std::vector<std::string>& arguments) {
    ProgramResult result = RunToEnd({program, arguments, {}, {}, {}});
    EXPECT_EQ(result.status, 0) << program << ": " << result.error;
    return result;
}

/// What the independent tool says of a file.
class Probe {
  public:
    explicit Probe(const std::string& path) {
        const ProgramResult result = RunOk("ffprobe", {"-v", "error", "-count_packets", "-show_format",
                                                       "-show_streams", "-of", "flat", path});
        std::istringstream lines(result.output);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t sign = line.find('=');
            std::string value = line.substr(sign + 1);
            if (value.starts_with('"')) value = value.substr(1, value.size() - 2);
            values_[line.substr(0, sign)] = value;
        }
    }

    std::string Text(const std::string& key) const {
        const auto found = values_.find(key);
        return found == values_.end() ? "(none)" : found->second;
    }
    double Number(const std::string& key) const {
        const auto found = values_.find(key);
        EXPECT_NE(found, values_.end()) << key;
        return found == values_.end() ? -1 : std::stod(found->second);
    }

    double SampleRate() const { return Number("streams.stream.0.sample_rate"); }
    /// Frames that hold audio: a block's frame is not among them.
    double AudioFrames() const { return Number("streams.stream.0.nb_read_packets"); }
    /// MPEG-2 has frames of half the length.
    double SamplesPerFrame() const { return SampleRate() < 32000 ? 576 : 1152; }
    double Channels() const { return Number("streams.stream.0.channels"); }
    double Duration() const { return Number("format.duration"); }
    double Size() const { return Number("format.size"); }
    double StreamBitRate() const { return Number("streams.stream.0.bit_rate"); }
    double FileBitRate() const { return Number("format.bit_rate"); }

  private:
    std::map<std::string, std::string> values_;
};

/// Rounding to whole numbers, and the last digit of what the tool prints.
constexpr double Rounding = 0.5 + 1e-4;

class RealMP3Test : public ::testing::Test {
  protected:
    std::string WriteNoise(double seconds) {
        const std::string wave = folder / "a.wav";
        RunOk("sox", {"-R", "-n", "-r", "44100", "-b", "16", "-c", "2", wave, "synth",
                      std::to_string(seconds), "pinknoise"});
        return wave;
    }

    std::string Encode(const std::string& options, double seconds) {
        return EncodeWave(options, WriteNoise(seconds));
    }

    std::string EncodeSilence(const std::string& options, double seconds) {
        const auto samples = static_cast<std::size_t>(seconds * 44100);
        return EncodeWave(options, folder.Write("a.wav", Wav().Silence(samples * 4).Bytes()));
    }

    std::string EncodeWave(const std::string& options, const std::string& wave) {
        std::vector<std::string> arguments = {"--quiet"};
        std::istringstream words(options);
        for (std::string word; words >> word;) arguments.push_back(word);
        const std::string path = folder / "a.mp3";
        arguments.insert(arguments.end(), {wave, path});
        RunOk("lame", arguments);
        return path;
    }

    ID3Tag Read(const std::string& path) {
        ID3Tag tag;
        error = RuntimeErrorOf([&] { ReadMP3File({files, ansi}, path, tag); });
        return tag;
    }

    /// A digest of the compressed audio as the independent tool finds it.
    static std::string AudioDigest(const std::string& path) {
        return RunOk("ffmpeg", {"-v", "error", "-i", path, "-map", "0:a", "-c", "copy", "-f", "md5", "-"})
            .output;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    int error = 0;
};

class RealMP3Measures : public RealMP3Test, public ::testing::WithParamInterface<EncodedFile> {};

INSTANTIATE_TEST_SUITE_P(Lame, RealMP3Measures, ::testing::ValuesIn(EncodedFiles),
                         [](const auto& row) { return row.param.name; });

/// All frames of a constant rate take the same time, and the whole file counts. So a block's frame, which
/// holds no audio and is not counted by others, counts as a frame of music here.
void ExpectConstantRate(const ID3Tag& tag, const Probe& probe, bool hasBlock) {
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.Bitrate * 1000, probe.StreamBitRate());
    const double frames = probe.AudioFrames() + (hasBlock ? 1 : 0);
    const double time = frames * probe.SamplesPerFrame() / probe.SampleRate();
    // Padding keeps the audio within a byte of its nominal rate; the block's frame has none.
    const double byte = 1 / (tag.Bitrate * 125.0);
    const double most = hasBlock ? 2 * byte : byte;
    ASSERT_NEAR(probe.Size() * byte, time, most);
    EXPECT_NEAR(tag.Seconds, time, Rounding + most);
    // A frame counts 26.125 ms whatever the rate; 26.122 ms are right at 44100 Hz, 24 ms at 48000 Hz.
    EXPECT_NEAR(tag.Frames, time * 1000 / 26.125, Rounding + most * 1000 / 26.125);
    if (hasBlock) {
        EXPECT_NEAR(probe.Duration(), time - probe.SamplesPerFrame() / probe.SampleRate(), 1e-5);
    } else {
        EXPECT_NEAR(probe.Duration(), time, 1e-3);
    }
}

/// The time comes from the block's frame count with 26.125 ms a frame of 1152 samples at 44100 Hz, which is a
/// ten-thousandth too long; and with frames of 576 samples taken for ones of 1152, so twice as long in
/// MPEG-2.
void ExpectXing(const ID3Tag& tag, const Probe& probe) {
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Frames, probe.AudioFrames());
    const double longer = 26.125 * 44.1 / probe.SamplesPerFrame();
    EXPECT_NEAR(longer, probe.SamplesPerFrame() == 576 ? 2 : 1, 0.0003);
    EXPECT_NEAR(tag.Seconds, probe.Duration() * longer, Rounding);
    // The rate is that of the whole file over the time as it was rounded, in MPEG-2 doubled too.
    ASSERT_GT(tag.Seconds, 0);
    const double rate = probe.FileBitRate() / 1000 * probe.Duration() / tag.Seconds;
    EXPECT_NEAR(tag.Bitrate, rate, Rounding + probe.Duration() / tag.Seconds / 1000);
}

TEST_P(RealMP3Measures, AgreeWithAnIndependentToolButForTheKeptOddities) {
    const std::string path = Encode(GetParam().options, GetParam().seconds);
    const ID3Tag tag = Read(path);
    const Probe probe(path);
    EXPECT_EQ(error, 0);
    EXPECT_TRUE(tag.AllowEdits);
    EXPECT_EQ(tag.Length, probe.Size());
    EXPECT_EQ(tag.SampleRate, probe.SampleRate());
    EXPECT_EQ(tag.ChannelMode, GetParam().channelMode);
    EXPECT_EQ(tag.ChannelMode == 3 ? 1 : 2, probe.Channels());
    // In mono and in MPEG-2 the block stands nearer to the header than 36 bytes; it is found all the same.
    EXPECT_TRUE(GetParam().firstFrame == FirstFrame::Audio ? tag.Encoder.empty()
                                                           : tag.Encoder.starts_with("LAME3."))
        << tag.Encoder;
    if (GetParam().firstFrame == FirstFrame::Xing) {
        ExpectXing(tag, probe);
    } else {
        ExpectConstantRate(tag, probe, GetParam().firstFrame == FirstFrame::Info);
    }
}

TEST_F(RealMP3Test, EveryConstantRate_IsTold) {
    const std::map<std::string, std::vector<int>> rates = {
        {"--resample 44.1", {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320}},
        {"--resample 22.05", {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}},
    };
    const std::string wave = WriteNoise(0.1);
    for (const auto& [resample, kilobits] : rates) {
        for (const int rate : kilobits) {
            const ID3Tag tag = Read(EncodeWave("-f -b " + std::to_string(rate) + " " + resample, wave));
            EXPECT_EQ(tag.Bitrate, rate);
            EXPECT_EQ(tag.SampleRate, resample == "--resample 44.1" ? 44100 : 22050);
        }
    }
}

TEST_F(RealMP3Test, FreeFormat_HasAnEncoderButNoTime) {
    const ID3Tag tag = Read(Encode("--freeformat -b 400", 2));
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_TRUE(tag.Encoder.starts_with("LAME3."));
    EXPECT_EQ(error, 0);
}

TEST_F(RealMP3Test, VariableRateOfLessThanHalfASecond_EndsInADivisionByZero) {
    // The time is rounded before the rate is taken from it.
    const std::string path = Encode("-V 4", 0.3);
    const ID3Tag tag = Read(path);
    EXPECT_EQ(error, 11);
    EXPECT_EQ(tag.Frames, Probe(path).AudioFrames());
    EXPECT_LT(Probe(path).Duration(), 0.5);
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_TRUE(tag.VBR);
    EXPECT_FALSE(tag.AllowEdits);
}

TEST_F(RealMP3Test, Mpeg25_IsNotRecognised) {
    for (const char* options : {"-b 32 -t --resample 11.025", "-V 4 -t --resample 8 -m m"}) {
        const std::string path = EncodeSilence(options, 3);
        const ID3Tag tag = Read(path);
        EXPECT_GT(Probe(path).AudioFrames(), 30);
        EXPECT_EQ(tag.Bitrate, 0);
        EXPECT_EQ(tag.Seconds, 0);
        EXPECT_EQ(tag.SampleRate, 0);
        EXPECT_EQ(tag.Encoder, "");
        EXPECT_TRUE(tag.AllowEdits);
    }
}

TEST_F(RealMP3Test, LayerTwo_IsMeasuredToo) {
    RunOk("sox",
          {"-R", "-n", "-r", "44100", "-b", "16", "-c", "2", folder / "a.wav", "synth", "5.2", "pinknoise"});
    const std::string path = folder / "layer2.mp3";
    RunOk("ffmpeg",
          {"-v", "error", "-i", folder / "a.wav", "-c:a", "mp2", "-b:a", "160k", "-f", "mp2", path});
    const ID3Tag tag = Read(path);
    const Probe probe(path);
    EXPECT_EQ(probe.Text("streams.stream.0.codec_name"), "mp2");
    EXPECT_EQ(tag.SampleRate, probe.SampleRate());
    ExpectConstantRate(tag, probe, false);
}

// Tags.

TEST_F(RealMP3Test, OwnTags_AreReadByAnIndependentTool) {
    const std::string path = Encode("-b 128", 2);
    const std::string audio = AudioDigest(path);
    ID3Tag tag;
    tag.Path = path;
    tag.ID3v2Extension.TrackTitle = "Caf\u00E9";
    tag.ID3v2Extension.Mix = "Radio Edit";
    tag.ID3v2Extension.Artist = "An Artist";
    tag.ID3v2Extension.AlbumTitle = "An Album with a name of more than thirty letters";
    tag.ID3v2Extension.Year = "1999";
    tag.ID3v2Extension.TrackNumber = "7";
    tag.ID3v2Extension.Genre = "Jazz";
    tag.ID3v2Extension.Comments = "A comment";
    tag.ID3v2Extension.Composer = "A Composer";
    tag.ID3v2Extension.Copyright = "2001 Somebody";
    tag.ID3v2Extension.EncodedBy = "Me";
    SetID3v2(files, ansi, tag);
    ASSERT_EQ(tag.Path, path);

    const Probe probe(path);
    const std::pair<const char*, const char*> rows[] = {
        {"title", "Caf\u00E9 (Radio Edit)"},
        {"artist", "An Artist"},
        {"album", "An Album with a name of more than thirty letters"},
        {"date", "1999"},
        {"track", "7"},
        {"genre", "Jazz"},
        {"comment", "A comment"},
        {"composer", "A Composer"},
        {"copyright", "2001 Somebody"},
        {"encoded_by", "Me"},
    };
    for (const auto& [key, value] : rows)
        EXPECT_EQ(probe.Text("format.tags." + std::string(key)), value) << key;
    EXPECT_EQ(probe.Number("format.probe_score") > 50, true);
    EXPECT_EQ(AudioDigest(path), audio);
}

TEST_F(RealMP3Test, OwnID3v1Tag_IsReadByAnIndependentTool) {
    const std::string path = Encode("-V 4", 2);
    const std::string audio = AudioDigest(path);
    ID3Tag tag;
    tag.Path = path;
    tag.Title = "A Title";
    tag.Artist = "An Artist";
    tag.Album = "An Album";
    tag.Year = "1999";
    tag.Comment = "A comment";
    tag.TrackNumber = 7;
    tag.Genre = 8;
    SetID3v1(files, ansi, tag);
    ASSERT_EQ(tag.Path, path);

    const Probe probe(path);
    const std::pair<const char*, const char*> rows[] = {
        {"title", "A Title"}, {"artist", "An Artist"},  {"album", "An Album"}, {"date", "1999"},
        {"track", "7"},       {"comment", "A comment"}, {"genre", "Jazz"},
    };
    for (const auto& [key, value] : rows)
        EXPECT_EQ(probe.Text("format.tags." + std::string(key)), value) << key;
    EXPECT_EQ(AudioDigest(path), audio);
}

TEST_F(RealMP3Test, OwnTagsOfBothKinds_AreReadBackWithTheMeasures) {
    const std::string path = Encode("-V 4", 4);
    const ID3Tag before = Read(path);
    ID3Tag tag = before;
    tag.Title = "First Kind";
    tag.ID3v2Extension.TrackTitle = "Second Kind";
    SetID3v1(files, ansi, tag);
    SetID3v2(files, ansi, tag);
    const ID3Tag after = Read(path);
    EXPECT_EQ(after.Title, "First Kind");
    EXPECT_EQ(after.ID3v2Extension.TrackTitle, "Second Kind");
    EXPECT_EQ(after.Length, before.Length + 512 + 128);
    EXPECT_EQ(after.Frames, before.Frames);
    EXPECT_EQ(after.Seconds, before.Seconds);
    EXPECT_EQ(after.Encoder, before.Encoder);
    EXPECT_EQ(Probe(path).AudioFrames(), before.Frames);
}

TEST_F(RealMP3Test, TagOfAConstantRateFile_CountsAsMusic) {
    const std::string path = Encode("-b 128", 5.3);
    const double frames = Probe(path).AudioFrames() + 1;
    ID3Tag tag = Read(path);
    // With a tag of 30 kB in front the file counts for 1.9 seconds more.
    tag.ID3v2Extension.UnknownFrames = RawFrame("PRIV", std::string(30'000, 'x'));
    SetID3v2(files, ansi, tag);
    const ID3Tag after = Read(path);
    const double tagTime = (after.Length - tag.Length) / 128.0 / 125;
    EXPECT_NEAR(tagTime, 2.1, 0.3);
    EXPECT_NEAR(after.Seconds, frames * 1152 / 44100 + tagTime, Rounding);
    EXPECT_EQ(after.Encoder, tag.Encoder);
}

TEST_F(RealMP3Test, TagsOfTheEncoder_AreRead) {
    // Its text is UTF-16 unless each option is told otherwise.
    std::string options = "--add-id3v2 -V 4";
    for (const char* option :
         {"--tt Title", "--ta Artist", "--tl Album", "--ty 1999", "--tc Comment", "--tn 3", "--tg Jazz"})
        options += " --id3v2-latin1 " + std::string(option);
    const ID3Tag tag = Read(Encode(options, 2));
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.Artist, "Artist");
    EXPECT_EQ(tag.Album, "Album");
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comment, "Comment");
    EXPECT_EQ(tag.TrackNumber, 3);
    EXPECT_EQ(tag.Genre, 8);
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "Title");
    EXPECT_EQ(tag.ID3v2Extension.Artist, "Artist");
    EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "Album");
    EXPECT_EQ(tag.ID3v2Extension.Year, "1999");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "3");
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Seconds, 2);
}

}  // namespace
}  // namespace zefta::test
