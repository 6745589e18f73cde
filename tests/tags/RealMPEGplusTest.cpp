// The outside tools of today: an encoder and a decoder of MPEGplus, and two readers of tags.

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ApeBuilder.h"
#include "support/MpcBuilder.h"
#include "support/ProgramRun.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "support/WavBuilder.h"
#include "tags/APE2.h"
#include "tags/ID3v2.h"
#include "tags/MPEGplusFile.h"

namespace zefta::test {
namespace {

/// What the decoder says about a stream.
struct Facts {
    std::string profile;
    int version = 0;
    int channels = 0;
    std::int32_t rate = 0;
    double samples = 0;
    double kbps = 0;
    bool midSide = false;
};

class RealMPEGplusTest : public ::testing::Test {
  protected:
    std::string Run(const std::string& program, const std::vector<std::string>& arguments) {
        const ProgramResult result = RunToEnd({program, arguments, folder.Path(), "", {}});
        EXPECT_EQ(result.status, 0) << program << " " << result.error;
        return result.output + result.error;
    }

    /// Name of a new MPEGplus file of this audio.
    std::string Encode(const Wav& wav, std::vector<std::string> options) {
        const std::string name = std::to_string(++encoded);
        folder.Write(name + ".wav", wav.Bytes());
        options.insert(options.end(), {"--overwrite", name + ".wav", name + ".mpc"});
        Run("mpcenc", options);
        return name + ".mpc";
    }

    std::string Encode(std::size_t samples, const std::vector<std::string>& options = {"--standard"}) {
        return Encode(Wav().Tone(samples * 4), options);
    }

    Facts FactsOf(const std::string& name) {
        const std::string text = Run("mpcdec", {"-i", name});
        // The first word behind a label.
        const auto after = [&](const std::string& label) {
            const std::size_t at = text.find(label);
            EXPECT_NE(at, std::string::npos) << label << " in " << text;
            std::istringstream rest(at == std::string::npos ? "0" : text.substr(at + label.size()));
            std::string word;
            rest >> word;
            return word;
        };
        const std::string length = text.substr(std::min(text.find("length: "), text.size()));
        return {.profile = after("profile: "),
                .version = std::stoi(after("stream version ")),
                .channels = std::stoi(after("channels: ")),
                .rate = std::stoi(after("samplerate: ")),
                .samples = std::stod(length.substr(std::min(length.find('(') + 1, length.size()))),
                .kbps = std::stod(after("average bitrate: ")),
                .midSide = after("mid/side stereo: ") == "on"};
    }

    /// The whole WAV file that the decoder makes of it.
    std::string Decoded(const std::string& name) {
        Run("mpcdec", {name, "decoded.wav"});
        return folder.Read("decoded.wav");
    }

    ID3Tag Read(const std::string& name) {
        ID3Tag tag;
        ReadMPEGplusFile({files, ansi}, folder / name, tag);
        EXPECT_TRUE(tag.AllowEdits);
        return tag;
    }

    void Set(const std::string& name, ID3Tag tag) {
        tag.Path = folder / name;
        SetAPE2(files, tag);
        EXPECT_EQ(tag.Path, folder / name);
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    int encoded = 0;
};

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

void ExpectMeasures(const ID3Tag& tag, const Facts& facts) {
    const double seconds = facts.samples / facts.rate;
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, facts.version);
    EXPECT_EQ(tag.Seconds, std::nearbyint(seconds));
    EXPECT_EQ(tag.Bitrate, std::nearbyint(tag.Length / seconds / 125));
    EXPECT_EQ(tag.SampleRate, facts.rate);
    EXPECT_EQ(tag.ChannelMode, facts.channels == 1 ? 3 : 0);
    // The decoder prints one decimal.
    EXPECT_NEAR(tag.Bitrate, facts.kbps, 0.5 + 0.05);
}

TEST_F(RealMPEGplusTest, Read_StreamsOfManyLengths_AreMeasuredAsTheDecoderDoes) {
    for (const std::size_t samples :
         {200U, 1152U, 22050U, 44100U, 60000U, 66150U, 100000U, 110250U, 321930U, 800000U}) {
        const std::string name = Encode(samples);
        const Facts facts = FactsOf(name);
        SCOPED_TRACE(samples);
        ExpectMeasures(Read(name), facts);
        // 44 bytes of header, 4 bytes a sample.
        EXPECT_EQ(static_cast<double>(Decoded(name).size() - 44) / 4, facts.samples);
    }
}

TEST_F(RealMPEGplusTest, Read_Profiles_AreTheOnesThatTheDecoderNames) {
    struct Profile {
        std::vector<std::string> options;
        const char* name;
        int number;
    };
    const Profile profiles[] = {
        {{"--telephone"}, "Telephone", 0},
        {{"--thumb", "-bw", "16000", "-ms", "1"}, "Thumb", 1},
        {{"--radio", "-bw", "18000", "-ms", "1"}, "Radio", 2},
        {{"--standard", "-bw", "20000", "-ms", "2"}, "Standard", 3},
        {{"--xtreme", "-bw", "20000", "-ms", "0"}, "Extreme", 4},
        {{"--insane", "-ltq", "fil", "-ms", "0"}, "Insane", 5},
        {{"--braindead", "-ltq", "fil", "-ms", "0"}, "BrainDead", 0},
        {{"--quality", "5.5"}, "Standard", 0},
    };
    for (const Profile& profile : profiles) {
        const std::string name = Encode(100000, profile.options);
        const Facts facts = FactsOf(name);
        EXPECT_EQ(facts.profile, Quoted(profile.name));
        EXPECT_EQ(Read(name).MPEGplusExtension.StreamProfile, profile.number) << profile.name;
        ExpectMeasures(Read(name), facts);
    }
}

TEST_F(RealMPEGplusTest, Read_NoEncoderInformation_HasNoProfile) {
    const std::string name = Encode(100000, {"--no_ei", "--no_st"});
    EXPECT_EQ(Read(name).MPEGplusExtension.StreamProfile, 0);
    ExpectMeasures(Read(name), FactsOf(name));
}

TEST_F(RealMPEGplusTest, Read_StreamCutAtBothEnds_LeavesOutTheSilenceAtItsBeginning) {
    const std::string name = Encode(321930);
    Run("mpccut", {"-s", "50000", "-e", "200000", name, "cut.mpc"});
    const Facts facts = FactsOf("cut.mpc");
    EXPECT_EQ(facts.samples, 150000);
    ExpectMeasures(Read("cut.mpc"), facts);
}

TEST_F(RealMPEGplusTest, Read_OtherRatesAndMono_AreOfTheStream) {
    for (const std::int32_t rate : {32000, 37800, 44100, 48000}) {
        for (const std::int16_t channels : {std::int16_t{1}, std::int16_t{2}}) {
            const std::string name = Encode(Wav().Rate(rate).Channels(channels).Tone(200000), {"--standard"});
            const Facts facts = FactsOf(name);
            EXPECT_EQ(facts.rate, rate);
            EXPECT_EQ(facts.channels, channels);
            ExpectMeasures(Read(name), facts);
        }
    }
}

TEST_F(RealMPEGplusTest, Read_Version7Header_SaysWhatTheDecoderSays) {
    struct Case {
        int profile;
        int channels;
    };
    for (const auto& [profile, channels] :
         {Case{128, 27}, {144, 64 + 27}, {160, 27}, {176, 64 + 27}, {192, 27}}) {
        folder.Write("7.mpc", Mpc7(5000, profile, channels) + Audio(400000));
        const Facts facts = FactsOf("7.mpc");
        const ID3Tag tag = Read("7.mpc");
        const char* names[] = {"", "Thumb", "Radio", "Standard", "Extreme", "Insane"};
        EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, facts.version);
        EXPECT_EQ(Quoted(names[tag.MPEGplusExtension.StreamProfile]), facts.profile);
        EXPECT_EQ(tag.ChannelMode == 1, facts.midSide);
        // The decoder leaves out a part of the last frame.
        EXPECT_NEAR(tag.Seconds, facts.samples / facts.rate, 0.5 + 1152.0 / 44100);
        EXPECT_NEAR(tag.Bitrate, facts.kbps, 0.5 + 0.05);
    }
}

// Tags.

ID3Tag RecordForRealFile() {
    ID3Tag tag;
    tag.Artist = "Zażółć Дом";
    tag.Title = "Söng";
    tag.Comment = "Radio Edit";
    tag.Album = "Album";
    tag.Year = "1999";
    tag.ID3v2Extension.TrackNumber = "7";
    tag.ID3v2Extension.Genre = "Rock";
    tag.ID3v2Extension.Comments = "Some = words";
    tag.ID3v2Extension.Composer = "Composer";
    tag.ID3v2Extension.Copyright = "1999 Me";
    tag.ID3v2Extension.EncodedBy = "Encoder";
    return tag;
}

const std::vector<std::string> FullLines = {
    "Track=7",           "Artist=Zażółć Дом", "Title=Söng (Radio Edit)", "Album=Album",
    "Year=1999",         "Genre=Rock",        "Comment=Some = words",    "Composer=Composer",
    "Copyright=1999 Me", "Encoded by=Encoder"};

bool HasLine(const std::string& text, const std::string& line) {
    return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
}

class RealTagTest : public RealMPEGplusTest {
  protected:
    /// Both readers of tags see these items and no others.
    void ExpectTags(const std::string& name, const std::vector<std::string>& lines) {
        const std::string inspected =
            RunToEnd(
                {"mutagen-inspect", {name}, folder.Path(), "", {{"LC_ALL", "C.UTF-8"}, {"PYTHONUTF8", "1"}}})
                .output;
        const std::string probed =
            Run("ffprobe", {"-v", "error", "-show_entries", "format_tags", "-of", "default=nw=1", name});
        for (const std::string& line : lines) {
            EXPECT_TRUE(HasLine(inspected, line)) << line << " in\n" << inspected;
            EXPECT_TRUE(HasLine(probed, "TAG:" + line)) << line << " in\n" << probed;
        }
        EXPECT_EQ(Count(probed, "TAG:"), lines.size()) << probed;
    }

    static std::size_t Count(const std::string& text, const std::string& what) {
        std::size_t count = 0;
        for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
        return count;
    }

    void ExpectSameAudio(const std::string& name, const std::string& decodedBefore, const Facts& before) {
        EXPECT_TRUE(Decoded(name) == decodedBefore);
        EXPECT_EQ(FactsOf(name).samples, before.samples);
        EXPECT_EQ(Read(name).Seconds, std::nearbyint(before.samples / before.rate));
    }
};

TEST_F(RealTagTest, Set_NewTag_IsReadByOthersAndTheAudioStays) {
    for (const std::size_t samples : {200U, 100000U}) {
        const std::string name = Encode(samples);
        const Facts facts = FactsOf(name);
        const std::string decoded = Decoded(name);
        const std::string stream = folder.Read(name);
        Set(name, RecordForRealFile());
        EXPECT_EQ(folder.Read(name).substr(0, stream.size()), stream);
        ExpectTags(name, FullLines);
        ExpectSameAudio(name, decoded, facts);
        // Smaller, then larger again, in the same place.
        ID3Tag small;
        small.Artist = "A";
        Set(name, small);
        ExpectTags(name, {"Artist=A"});
        Set(name, RecordForRealFile());
        ExpectTags(name, FullLines);
        ExpectSameAudio(name, decoded, facts);
    }
}

TEST_F(RealTagTest, Set_ID3v1Tag_IsReplacedAndTheAudioStays) {
    const std::string name = Encode(100000);
    const Facts facts = FactsOf(name);
    const std::string decoded = Decoded(name);
    const std::string stream = folder.Read(name);
    folder.Write(name, stream + Id3v1{"T1", "A1"}.Bytes());
    EXPECT_EQ(Read(name).Artist, "A1");
    Set(name, RecordForRealFile());
    EXPECT_EQ(folder.Read(name).substr(0, stream.size() + 8), stream + "APETAGEX");
    ExpectTags(name, FullLines);
    ExpectSameAudio(name, decoded, facts);
}

TEST_F(RealTagTest, Read_TagOfTheEncoder_HasItsValues) {
    const std::string name =
        Encode(Wav().Tone(200000), {"--unicode", "--artist", "A", "--album", "L", "--track", "3", "--tag",
                                    "Title=Song (Mix)", "--tag", "Publisher=P"});
    const ID3Tag tag = Read(name);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.Title, "Song");
    EXPECT_EQ(tag.Comment, "Mix");
    EXPECT_EQ(tag.Album, "L");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "3");
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, ApeItem("Publisher", "P"));
    EXPECT_EQ(tag.TrackNumber, 1);
}

TEST_F(RealTagTest, Set_TagOfTheEncoder_KeepsTheUnknownItem) {
    const std::string name = Encode(Wav().Tone(200000), {"--artist", "A", "--tag", "Title=Song (Mix)",
                                                         "--tag", "Track=3", "--tag", "Publisher=P"});
    const Facts facts = FactsOf(name);
    const std::string decoded = Decoded(name);
    ID3Tag tag = Read(name);
    tag.Album = "L";
    Set(name, tag);
    ExpectTags(name, {"Track=3", "Artist=A", "Title=Song (Mix)", "Album=L", "Publisher=P"});
    ExpectSameAudio(name, decoded, facts);
}

TEST_F(RealTagTest, Read_AllThreeTags_APEBeforeID3v2BeforeID3v1) {
    const std::string name = Encode(100000);
    const Facts facts = FactsOf(name);
    const std::string decoded = Decoded(name);
    folder.Write(name, folder.Read(name) + Id3v1{"T1", "A1", "L1", "1991", "", 11, 17}.Bytes());
    EXPECT_EQ(Read(name).Artist, "A1");
    Run("mid3v2", {"-a", "A2", "-t", "T2", "-T", "22", name});
    ID3Tag tag = Read(name);
    EXPECT_TRUE(tag.ID3v2Present);
    EXPECT_EQ(tag.Artist.substr(0, 2), "A2");
    EXPECT_EQ(tag.Title.substr(0, 2), "T2");
    EXPECT_EQ(tag.TrackNumber, 22);
    EXPECT_EQ(tag.MPEGplusExtension.StreamVersion, 8);
    tag.Artist = "A3";
    tag.Album = "L3";
    Set(name, tag);
    tag = Read(name);
    EXPECT_EQ(tag.Artist, "A3");
    EXPECT_EQ(tag.Album, "L3");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "22");
    ExpectSameAudio(name, decoded, facts);
    EXPECT_TRUE(RemoveID3v2(files, tag));
    EXPECT_EQ(Read(name).Artist, "A3");
    ExpectSameAudio(name, decoded, facts);
}

}  // namespace
}  // namespace zefta::test
