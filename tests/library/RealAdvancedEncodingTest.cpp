// The advanced encoding by the real encoders, started by the real service; somebody else reads the tags.

#include <gtest/gtest.h>

#include "library/AdvancedEncoding.h"
#include "platform/posix/PosixProcesses.h"
#include "support/ProgramRun.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

/// Bytes of a second.
constexpr std::size_t Second = 176400;

struct EncoderCase {
    std::int32_t mode;
    const char* output;
    /// The title as the kind of file holds it.
    const char* title;
};

class RealAdvancedEncoding : public ::testing::TestWithParam<EncoderCase> {
  protected:
    RealAdvancedEncoding()
        : app(world.TestWorld::machine, world.TestWorld::files, world.desktop, processes, world.userSettings,
              world.machineSettings) {
        app.defaultWaveFile = &wave;
        app.state.ShowExecuteWindows = false;
    }

    /// All that an independent reader says of the tags.
    std::string Probe(const std::string& name) const {
        const ProgramResult result = RunToEnd({"ffprobe",
                                               {"-v", "error", "-show_entries", "format_tags:stream_tags",
                                                "-of", "default=nw=1", world.folder / name},
                                               "",
                                               "",
                                               {}});
        return result.output;
    }

    TestApp world;
    PosixProcesses processes;
    App app;
    WaveFile wave{app};
};

TEST_P(RealAdvancedEncoding, EncodesTagsAndDeletesTheSource) {
    const EncoderCase& each = GetParam();
    world.folder.Write("a b.wav", Wav().Tone(Second * 3).Bytes());
    const TagRow row = {{"a b.wav", "07", "Ärtist", "Title", "Mix", "", "2001"}};
    EncodingChoice choice;
    choice.Mode = each.mode;
    choice.Checked = {.TrimSilence = false};
    choice.DeleteSources = true;
    choice.Defaults = {.Artist = "Default", .Album = "Album", .Genre = 8};
    EXPECT_TRUE(EncodeRows(app, world.folder.Path(), std::span(&row, 1), choice, {}));
    EXPECT_TRUE(world.desktop.boxes.empty());
    EXPECT_TRUE(world.desktop.notes.empty());
    EXPECT_FALSE(world.folder.Exists("a b.wav"));
    ASSERT_TRUE(world.folder.Exists(each.output));
    const std::string tags = Probe(each.output);
    for (const std::string value : {"Ärtist", each.title, "Album", "2001", "Jazz", "07"})
        EXPECT_NE(tags.find("=" + value), std::string::npos) << value << " in\n" << tags;
    EXPECT_EQ(tags.find("Default"), std::string::npos) << tags;
}

INSTANTIATE_TEST_SUITE_P(Encoders, RealAdvancedEncoding,
                         ::testing::Values(EncoderCase{128, "a b.MP3", "Title"},
                                           EncoderCase{2015, "a b.ogg", "Title (Mix)"},
                                           EncoderCase{3003, "a b.mpc", "Title (Mix)"}),
                         [](const auto& each) {
                             return each.param.mode == 128    ? "Lame"
                                    : each.param.mode == 2015 ? "OggVorbis"
                                                              : "MPEGplus";
                         });

}  // namespace
}  // namespace zefta::test
