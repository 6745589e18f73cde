// The job of /encode over compressed files.

#include "core/Options.h"
#include "encoding/Encode.h"
#include "encoding/ReEncodeStage.h"

namespace zefta::test {
namespace {

class ReEncodeJobTest : public ReEncodeStage {
  protected:
    void Run(std::vector<std::string> tokens, int answersYes = 0) {
        tokens.insert(tokens.begin(), "/e");
        ParseCommandLine(app, CommandLine(std::move(tokens)));
        app.desktop.answers.assign(static_cast<std::size_t>(answersYes), true);
        EncodeJob(app);
    }
};

TEST_F(ReEncodeJobTest, Question_NamesTheFileUnderTheTitleOfTheTarget) {
    folder.Write("caf\xE9.mp3", "x");
    for (const char* mode : {"128", "oq5", "standard"}) Run({mode, "*.mp3"});
    ASSERT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_EQ(app.desktop.questions[0].text,
              "File \"café.mp3\"is not a valid WAVe file.\r\n\r\nReencode it to desired format?");
    EXPECT_FALSE(app.desktop.questions[0].noIsDefault);
    EXPECT_EQ(app.desktop.questions[0].caption, "MP3 Encoding");
    app.state.UseMPEGplus = false;
    EXPECT_EQ(app.desktop.questions[1].caption, "Ogg Vorbis Encoding");
    EXPECT_EQ(app.desktop.questions[2].caption, "MPEGplus Encoding");
}

TEST_F(ReEncodeJobTest, No_LeavesTheFileAndTheSettingAlone) {
    folder.Write("a.mp3", "x");
    app.state.DeleteAfterReCompress = true;
    Run({"128", "*.mp3"});
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_TRUE(app.state.DeleteAfterReCompress);
    EXPECT_EQ(Names(), std::vector<std::string>{"a.mp3"});
}

TEST_F(ReEncodeJobTest, Yes_ReEncodesAndNeverDeletesTheSource) {
    folder.Write("a.mp3", Mp3Frames(20));
    app.state.DeleteAfterReCompress = true;
    Run({"abr", "192", "*.mp3"}, 1);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a (192 abr).mp3", "a.mp3"}));
    EXPECT_FALSE(app.state.DeleteAfterReCompress);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ReEncodeJobTest, NamesOfTheModes_AreThoseOfTheCommandLine) {
    folder.Write("a.mp3", "x");
    Run({"128", "a.mp3"}, 1);
    EXPECT_TRUE(folder.Exists("a ().mp3"));
    encoded = Ogg().Bytes();
    Run({"oq8", "a.mp3"}, 1);
    EXPECT_TRUE(folder.Exists("a (mode 18).ogg"));
}

TEST_F(ReEncodeJobTest, SeveralKinds_AllGoToTheTargetOfTheJob) {
    for (const char* name : {"a.mp3", "b.ogg", "c.mpc"}) folder.Write(name, Mpc8());
    folder.Write("d.wav", decoded);
    encoded = Mpc8();
    Run({"radio", "*.*", "/notrim"}, 3);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a (radio).mpc", "a.mp3", "b (radio).mpc", "b.ogg",
                                                 "c (radio).mpc", "c.mpc", "d.mpc", "d.wav"}));
}

TEST_F(ReEncodeJobTest, FileThatCannotBeDecoded_LeavesTheNextOnesToTheTargetOfTheJob) {
    folder.Write("a.ogg", "x");
    folder.Write("b.wav", "x");
    folder.Write("c.mpc", Mpc8());
    decoded.clear();
    Run({"128", "*.*", "/notrim"}, 2);
    EXPECT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.ogg", "b.MP3", "b.wav", "c.mpc"}));
}

TEST_F(ReEncodeJobTest, EncoderThatFails_IsToldAndTheNextFileIsTaken) {
    folder.Write("a.mp3", "x");
    folder.Write("b.mp3", "x");
    encoded.clear();
    Run({"128", "*.mp3"}, 2);
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #53\r\n\r\nFile not found: " + folder.Path() + "/temp.mp3");
    EXPECT_EQ(app.processes.runs.size(), 6U);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.mp3", "b.mp3", "temp.wav"}));
}

TEST_F(ReEncodeJobTest, WavFilesBehindACompressedOne_AreNotTrimmedAnyMore) {
    folder.Write("a.wav", "x");
    folder.Write("b.mp3", "x");
    Run({"128", "b.mp3", "/trim"}, 1);
    EXPECT_FALSE(app.state.TrimSilence);
    EXPECT_EQ(app.processes.runs.size(), 3U);
}

}  // namespace
}  // namespace zefta::test
