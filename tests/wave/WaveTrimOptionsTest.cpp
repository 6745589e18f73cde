// The options of the trim job, each by the file that it gives.

#include <algorithm>
#include <tuple>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "core/Options.h"
#include "wave/WaveStage.h"
#include "wave/WaveTrim.h"

namespace zefta::test {

namespace {

/// "a.wav" with these bytes after the job with these options.
std::string After(TestApp& app, const std::string& bytes, std::vector<std::string> options) {
    app.folder.Write("a.wav", bytes);
    options.insert(options.begin(), "/wavetrim");
    EXPECT_TRUE(ParseCommandLine(app, CommandLine(options)));
    WaveTrimJob(app);
    return app.folder.Read("a.wav");
}

std::size_t Frames(int frames) {
    return static_cast<std::size_t>(frames) * CdFrameBytes;
}

}  // namespace

TEST(WaveTrimOptions, EveryFormat_GivesItsLayout) {
    const std::string audio = ToneBytes(Frames(40));
    using Row = std::tuple<const char*, int, int>;
    for (const auto& [format, before, after] :
         {Row{"/f0", 9, 8}, Row{"/f1", 2, 5}, Row{"/f2", 30, 5}, Row{"/f3", 2, 60}, Row{"/f4", 30, 0},
          Row{"/f5", 0, 60}, Row{"/f6", 9, 8}}) {
        TestApp app;
        const std::string found = After(app, Wav().Silence(5000).Audio(audio).Silence(7000).Bytes(),
                                        {format, "/before", "9", "/after", "8"});
        EXPECT_TRUE(
            SameBytes(found, Wav().Silence(Frames(before)).Audio(audio).Silence(Frames(after)).Bytes()))
            << format;
    }
}

TEST(WaveTrimOptions, BoundsOfSilence_AreThoseOfTheSwitches) {
    // Four frames ahead of the tone, each louder than the one before.
    const std::string audio =
        Wav().Samples({-1, 0, -8, 7, -256, 255, -257, 256}).Tone(2 * Block).AudioBytes();
    using Row = std::pair<const char*, std::size_t>;
    for (const auto& [option, silentFrames] : {Row{"/f0", 1}, Row{"/z", 1}, Row{"/zx", 2}, Row{"/zxx", 3}}) {
        TestApp app;
        const std::string found = After(app, Wav().Silence(4000).Audio(audio).Bytes(), {option});
        EXPECT_TRUE(SameBytes(found, Wav().Audio(audio.substr(silentFrames * 4)).Bytes())) << option;
    }
}

TEST(WaveTrimOptions, Raw_GivesAFileWithHeader) {
    TestApp app;
    const std::string raw = Wav().Silence(4000).Tone(3 * Block).AudioBytes();
    EXPECT_TRUE(SameBytes(After(app, raw, {"/raw"}), Wav().Audio(raw.substr(4004)).Bytes()));
    EXPECT_TRUE(SameBytes(app.folder.Read("a.wav.BAK"), raw));
}

TEST(WaveTrimOptions, Normalize_BringsThePeaksToTheLevel) {
    for (const char* option : {"/norm", "/normalize"}) {
        TestApp app;
        const std::string found =
            After(app, Wav().Silence(4000).Tone(3 * Block, 10000).Bytes(), {option, "/norm_level", "100"});
        const std::vector<int> samples = SamplesOf(found.substr(44));
        EXPECT_EQ(*std::max_element(samples.begin(), samples.end()), 32767) << option;
    }
}

TEST(WaveTrimOptions, Normalize_LooksAtItsBounds) {
    // The peaks stand at 70 per cent of the target.
    const std::string audio = ToneBytes(3 * Block, 22937);
    const std::string source = Wav().Silence(4000).Audio(audio).Bytes();
    using Row = std::tuple<const char*, const char*, bool>;
    for (const auto& [below, above, changes] :
         {Row{"69", "71", false}, Row{"71", "98", true}, Row{"50", "69", true}}) {
        TestApp app;
        const std::string found =
            After(app, source, {"/norm", "/norm_level", "100", "/norm_below", below, "/norm_above", above});
        EXPECT_EQ(found != Wav().Audio(audio).Bytes(), changes) << below << " " << above;
    }
}

TEST(WaveTrimOptions, NormalizeSeparately_LetsCloseChannelsShareAGain) {
    Wav source = Wav().Silence(4000);
    for (std::size_t i = 0; i < Block; ++i) source.Samples({10000, 9900, -10000, -9900});
    for (const bool separately : {false, true}) {
        TestApp app;
        std::vector<std::string> options = {"/norm", "/norm_level", "100"};
        if (separately) options.emplace_back("/norm_sep");
        const std::vector<int> frame = SamplesOf(After(app, source.Bytes(), options).substr(44, 4));
        EXPECT_EQ(frame[0], 32767);
        EXPECT_EQ(frame[1] == frame[0], !separately);
    }
}

TEST(WaveTrimOptions, LevelsWithoutNormalize_KeepTheAudio) {
    TestApp app;
    const std::string audio = ToneBytes(3 * Block, 1000);
    EXPECT_TRUE(
        SameBytes(After(app, Wav().Silence(4000).Audio(audio).Bytes(), {"/norm_level", "100", "/norm_sep"}),
                  Wav().Audio(audio).Bytes()));
}

TEST(WaveTrimOptions, NoBackupForAFileThatIsRight_KeepsTheFile) {
    TestApp app;
    const std::string right = Wav().Tone(2 * Block).Bytes();
    EXPECT_TRUE(SameBytes(After(app, right, {"/nobackup"}), right));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

}  // namespace zefta::test
