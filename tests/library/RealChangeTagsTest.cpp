// Files of the real encoders, read by other programs.

#include <filesystem>

#include "library/ChangeTagsStage.h"
#include "support/ProgramRun.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class RealFiles : public ChangeTagsTest, public ::testing::WithParamInterface<const char*> {
  protected:
    void Encode(const std::string& name) {
        const std::string wav = app.folder.Write("in.wav", Wav().Tone(88200).Bytes());
        const std::string out = app.folder / name;
        if (name.ends_with("mp3"))
            RunToEnd({"lame", {"--quiet", "--tt", "Old", "--ta", "Old", wav, out}, "", "", {}});
        if (name.ends_with("ogg")) RunToEnd({"oggenc", {"-Q", "-a", "Old", "-o", out, wav}, "", "", {}});
        if (name.ends_with("mpc")) RunToEnd({"mpcenc", {"--silent", wav, out}, "", "", {}});
        ASSERT_TRUE(app.folder.Exists(name));
    }

    std::string TagsByOthers(const std::string& name) {
        const std::vector<std::string> arguments = {"-v",
                                                    "error",
                                                    "-show_entries",
                                                    "format_tags:stream_tags",
                                                    "-of",
                                                    "default=noprint_wrappers=1",
                                                    app.folder / name};
        return RunToEnd({"ffprobe", arguments, "", "", {}}).output;
    }

    std::string Decoded(const std::string& name) {
        const std::string out = app.folder / "out.raw";
        std::filesystem::remove(out);
        RunToEnd({"ffmpeg", {"-v", "error", "-i", app.folder / name, "-f", "s16le", out}, "", "", {}});
        return app.folder.Read("out.raw");
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, RealFiles, ::testing::Values("a.mp3", "a.ogg", "a.mpc"));

TEST_P(RealFiles, Change_OtherProgramsReadTheNewTagsAndTheSameAudio) {
    const std::string name = GetParam();
    Encode(name);
    const std::string audio = Decoded(name);
    ASSERT_GT(audio.size(), 10000U);
    Change(name, All);
    EXPECT_TRUE(Decoded(name) == audio);
    const std::string seen = TagsByOthers(name);
    for (const char* text :
         {"=New Artist\n", "=New Title (New Mix)\n", "=New Album\n", "=2001\n", "=Rock\n", "=7\n"})
        EXPECT_NE(seen.find(text), std::string::npos) << text << seen;
    EXPECT_EQ(seen.find("=Old\n"), std::string::npos) << seen;
    EXPECT_EQ(StepsOf(name, All), "unchanged: " + name + "\n");
}

TEST_P(RealFiles, ChangeOfOneField_OthersStayReadableByOtherPrograms) {
    const std::string name = GetParam();
    Encode(name);
    Change(name, {.Artist = "Kept "});
    const std::string before = TagsByOthers(name);
    Change(name, {.Year = "1999 "});
    const std::string after = TagsByOthers(name);
    EXPECT_NE(before.find("=Kept\n"), std::string::npos) << before;
    EXPECT_NE(after.find("=Kept\n"), std::string::npos) << after;
    EXPECT_NE(after.find("=1999\n"), std::string::npos) << after;
    EXPECT_EQ(after.find("=Old\n") == std::string::npos, name != "a.mp3") << after;
}

}  // namespace
}  // namespace zefta::test
