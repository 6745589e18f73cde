// Streams by oggenc, looked at by other people's programs before and after.

#include <cmath>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "support/OggBuilder.h"
#include "support/ProgramRun.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "tags/OggFile.h"

namespace zefta::test {
namespace {

struct Recording {
    double seconds;
    std::int32_t rate;
    std::int16_t channels;
    const char* quality;
};

void PrintTo(const Recording& recording, std::ostream* out) {
    *out << recording.seconds << " s, " << recording.rate << " Hz, " << recording.channels << " channels, "
         << recording.quality;
}

const Recording Recordings[] = {
    {0.05, 44100, 2, "-q3"}, {0.05, 22050, 1, "-q3"}, {0.4, 44100, 2, "-q3"}, {0.5, 44100, 2, "-q10"},
    {0.9, 48000, 2, "-q10"}, {1, 44100, 1, "-q3"},    {1.5, 44100, 2, "-q6"}, {2.5, 44100, 2, "-q3"},
    {3, 48000, 1, "-q3"},    {5, 22050, 2, "-q3"},    {7.3, 22050, 1, "-q0"}, {12, 44100, 1, "-q10"},
    {20, 48000, 2, "-q5"},   {30, 22050, 2, "-q8"},   {60, 44100, 2, "-q2"},  {61.5, 44100, 1, "-q5"},
};

const Recording TaggedRecordings[] = {
    {0.05, 22050, 1, "-q3"}, {0.5, 44100, 2, "-q10"}, {5, 22050, 2, "-q3"},
    {20, 48000, 2, "-q5"},   {60, 44100, 2, "-q2"},
};

class RealOggTest : public ::testing::TestWithParam<Recording> {
  protected:
    void SetUp() override {
        const Recording& recording = GetParam();
        const auto frames = static_cast<std::size_t>(recording.seconds * recording.rate);
        app.folder.Write("a.wav", Wav()
                                      .Channels(recording.channels)
                                      .Rate(recording.rate)
                                      .Tone(frames * 2 * static_cast<std::size_t>(recording.channels))
                                      .Bytes());
        Run("oggenc", {"-Q", recording.quality, "a.wav", "-o", "a.ogg"});
    }

    /// What the program printed; it has to end well.
    std::string Run(const std::string& program, const std::vector<std::string>& arguments) {
        const ProgramResult result = RunToEnd({program, arguments, app.folder.Path(), {}, {}});
        EXPECT_EQ(result.status, 0) << program << ": " << result.output << result.error;
        return result.output;
    }

    /// What ffprobe tells about the file, by the names of its values.
    std::map<std::string, std::string> Probe() {
        std::istringstream lines(Run(
            "ffprobe", {"-v", "error", "-show_entries", "stream=duration_ts:stream_tags:format=size,duration",
                        "-of", "default=nw=1", "a.ogg"}));
        std::map<std::string, std::string> values;
        for (std::string line; std::getline(lines, line);)
            values[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
        return values;
    }

    std::string Decoded() {
        Run("oggdec", {"-Q", "a.ogg", "-o", "decoded.wav"});
        return app.folder.Read("decoded.wav");
    }

    ID3Tag Read() {
        ID3Tag tag;
        ReadOGGFile({app.files, app.ansi}, app.folder / "a.ogg", tag);
        return tag;
    }

    /// Writes the record and has every program look at the file.
    void WriteAndCheck(ID3Tag record, const std::string& expectedComments) {
        const std::string decodedBefore = Decoded();
        const auto packetsBefore = PacketsOf(PagesOf(app.folder.Read("a.ogg")));
        const std::string samplesBefore = Probe()["duration_ts"];
        record.Path = app.folder / "a.ogg";
        SetOggComments(app, record);
        EXPECT_TRUE(app.desktop.boxes.empty());
        EXPECT_EQ(Run("vorbiscomment", {"-l", "-R", "a.ogg"}), expectedComments);
        const std::string info = Run("ogginfo", {"a.ogg"});
        for (const char* complaint : {"WARNING", "Warning", "ERROR", "Negative", "hole", "corrupt"})
            EXPECT_EQ(info.find(complaint), std::string::npos) << info;
        EXPECT_NE(info.find("Logical stream 1 ended"), std::string::npos) << info;
        EXPECT_EQ(Probe()["duration_ts"], samplesBefore);
        EXPECT_TRUE(Decoded() == decodedBefore);
        auto packets = PacketsOf(PagesOf(app.folder.Read("a.ogg")));
        ASSERT_EQ(packets.size(), packetsBefore.size());
        packets[1] = packetsBefore[1];
        EXPECT_TRUE(packets == packetsBefore);
    }

    TestApp app;
};

class TaggedOggTest : public RealOggTest {};

INSTANTIATE_TEST_SUITE_P(Oggenc, RealOggTest, ::testing::ValuesIn(Recordings));
INSTANTIATE_TEST_SUITE_P(Oggenc, TaggedOggTest, ::testing::ValuesIn(TaggedRecordings));

TEST_P(RealOggTest, Measures_AgreeWithFfprobeAtTheCountedRate) {
    const ID3Tag tag = Read();
    auto probed = Probe();
    EXPECT_TRUE(tag.IsOggVorbisFile);
    EXPECT_EQ(tag.OggVorbisExtension.LibVorbisVersion,
              "Xiph.Org libVorbis I 20200704 (Reducing Environment)");
    EXPECT_EQ(tag.Length, std::stoi(probed["size"]));
    const bool isMeasured = tag.Length >= 8192;
    const double samples = isMeasured ? std::stod(probed["duration_ts"]) : 0;
    EXPECT_EQ(tag.VBR, isMeasured);
    EXPECT_EQ(tag.Seconds, std::lrint(samples / 44100));
    if (isMeasured && GetParam().rate == 44100) {
        EXPECT_EQ(tag.Seconds, std::lrint(std::stod(probed["duration"])));
    }
    EXPECT_EQ(tag.Bitrate, tag.Seconds == 0 ? 0 : std::lrint(1.0 * tag.Length / tag.Seconds / 125));
    const auto pages = PagesOf(app.folder.Read("a.ogg"));
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount,
              isMeasured ? static_cast<std::int32_t>(pages.back().number) : 0);
}

TEST_P(TaggedOggTest, Comments_Written_AreWhatOtherProgramsRead) {
    ID3Tag record = Read();
    record.Artist = "Исполнитель";
    record.Title = "Song";
    record.Comment = "Live";
    record.Album = "Álbum";
    record.ID3v2Extension.TrackNumber = "7";
    record.OggVorbisExtension.DateTime = "2001";
    record.ID3v2Extension.EncodedBy = "me";
    record.OggVorbisExtension.addExCom("MOOD=calm");
    WriteAndCheck(record,
                  "ARTIST=Исполнитель\nALBUM=Álbum\nTRACKNUMBER=7\nDATE=2001\nTITLE=Song (Live)\n"
                  "ENCODED BY=me\nMOOD=calm\n");
    EXPECT_EQ(Probe()["TAG:ARTIST"], "Исполнитель");
    EXPECT_EQ(Probe()["TAG:TITLE"], "Song (Live)");
    const ID3Tag back = Read();
    EXPECT_EQ(back.Title, "Song");
    EXPECT_EQ(back.Comment, "Live");
    EXPECT_EQ(back.Year, "2001");
}

TEST_P(TaggedOggTest, Comments_OfSeveralPagesAndBack_LeaveTheStreamWhole) {
    const std::string original = app.folder.Read("a.ogg");
    const ID3Tag former = Read();
    ID3Tag record = former;
    const std::string text(150000, 't');
    record.OggVorbisExtension.addExCom("TEXT=" + text);
    WriteAndCheck(record, "TEXT=" + text + "\n");
    WriteAndCheck(former, "");
    EXPECT_TRUE(app.folder.Read("a.ogg") == original);
}

TEST_P(TaggedOggTest, Comments_ByVorbiscomment_AreReadAndComeBackTheSame) {
    Run("vorbiscomment",
        {"-w", "-R", "-t", "title=One (Two)", "-t", "Artist=A", "-t", "artist=B", "-t", "X=y", "a.ogg"});
    const ID3Tag tag = Read();
    EXPECT_EQ(tag.Title, "One");
    EXPECT_EQ(tag.Comment, "Two");
    EXPECT_EQ(tag.Artist, "A, B");
    EXPECT_EQ(tag.OggVorbisExtension.getExComInOneString(), "X=y");
    WriteAndCheck(tag, "ARTIST=A, B\nTITLE=One (Two)\nX=y\n");
}

}  // namespace
}  // namespace zefta::test
