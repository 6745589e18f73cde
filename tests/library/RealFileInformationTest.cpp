#include <gtest/gtest.h>

#include "library/FileInformationSavingStage.h"
#include "support/ApeBuilder.h"
#include "support/ProgramRun.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

class RealFileInformationTest : public FileInformationSavingStage {
  protected:
    void Encode(const std::string& program, const std::vector<std::string>& arguments) {
        app.folder.Write("a.wav", Wav().Tone(44100 * 4).Bytes());
        const ProgramResult result = RunToEnd({program, arguments, app.folder.Path(), "", {}});
        ASSERT_EQ(result.status, 0) << result.error;
    }
};

TEST_F(RealFileInformationTest, Lame_AudioStaysToTheByte) {
    Encode("lame", {"--quiet", "-b", "128", "a.wav", "a.mp3"});
    const std::string audio = app.folder.Read("a.mp3");
    const auto name = [](FileInformation& information) {
        information.Tag.Title = information.Tag.ID3v2Extension.TrackTitle = "Song";
        information.EnableID3v2 = true;
    };
    EXPECT_EQ(Edit("a.mp3", name), SaveOutcome::Done);
    const std::string tagged = app.folder.Read("a.mp3");
    EXPECT_EQ(tagged.substr(512), audio + WrittenId3v1({.title = "Song"}));
    EXPECT_EQ(SaveAsItIs("a.mp3"), SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mp3"), tagged);
    const FileInformation after = LoadFileInformation(app, app.folder / "a.mp3");
    EXPECT_TRUE(EncoderText(after.Tag).starts_with("LAME")) << EncoderText(after.Tag);
    EXPECT_EQ(after.Tag.Bitrate, 128);
}

TEST_F(RealFileInformationTest, Oggenc_DecodesToTheSameAudio) {
    Encode("oggenc", {"-Q", "-a", "Old", "a.wav", "-o", "a.ogg"});
    const auto decoded = [&] {
        const ProgramResult result =
            RunToEnd({"oggdec", {"-Q", "a.ogg", "-o", "b.wav"}, app.folder.Path(), "", {}});
        EXPECT_EQ(result.status, 0) << result.error;
        return app.folder.Read("b.wav");
    };
    const std::string audio = decoded();
    EXPECT_EQ(Edit("a.ogg", [](FileInformation& information) { information.Tag.Artist = "Бьорк"; }),
              SaveOutcome::Done);
    EXPECT_EQ(decoded(), audio);
    EXPECT_EQ(LoadFileInformation(app, app.folder / "a.ogg").Tag.Artist, "Бьорк");
    const std::string tagged = app.folder.Read("a.ogg");
    EXPECT_EQ(SaveAsItIs("a.ogg"), SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.ogg"), tagged);
}

TEST_F(RealFileInformationTest, Mpcenc_AudioStaysToTheByte) {
    Encode("mpcenc", {"--silent", "a.wav", "a.mpc"});
    const std::string audio = app.folder.Read("a.mpc");
    EXPECT_EQ(Edit("a.mpc", [](FileInformation& information) { information.Tag.Artist = "Ann"; }),
              SaveOutcome::Done);
    EXPECT_EQ(app.folder.Read("a.mpc"), audio + Ape().Item("Artist", "Ann").Bytes());
    EXPECT_TRUE(EncoderText(LoadFileInformation(app, app.folder / "a.mpc").Tag).starts_with("MPEGplus SV8"));
}

}  // namespace
}  // namespace zefta::test
