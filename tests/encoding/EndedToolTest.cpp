// Tools that are not there, that complain by their end, and that the person has ended.

#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "encoding/ReEncodeStage.h"
#include "encoding/ToolRuns.h"

namespace zefta::test {
namespace {

using Lines = std::vector<std::string>;

class EndedToolTest : public ReEncodeStage {
  protected:
    EndedToolTest() {
        app.state.TrimSilence = false;
        decoded = Wav().Tone(1764).Bytes();
    }

    Lines NotesOf(const ToolEnd& end, const std::string& command) {
        app.processes.end = end;
        app.desktop.notes.clear();
        RunTool(app, command);
        return app.desktop.notes;
    }

    /// The person ends every tool, or those whose command line holds the text; it has left its output by
    /// then.
    void EndTools(const std::string& of = {}) {
        const auto play = app.processes.tool;
        app.processes.tool = [this, play, of](const RecordingProcesses::Run& run) {
            play(run);
            const bool isMeant = run.commandLine.find(of) != std::string::npos;
            app.processes.end.How = isMeant ? ToolEnd::Way::Ended : ToolEnd::Way::Exited;
        };
    }
};

TEST_F(EndedToolTest, RunTool_EndThatIsNoSuccess_IsNoted) {
    using Way = ToolEnd::Way;
    EXPECT_EQ(NotesOf({Way::Exited, 0}, "lame.exe x"), Lines{});
    EXPECT_EQ(NotesOf({Way::Exited, 1}, "lame.exe x"), Lines{"lame.exe ended with status 1."});
    EXPECT_EQ(NotesOf({Way::Killed, 11}, "lame.exe x"), Lines{"lame.exe crashed (signal 11)."});
    EXPECT_EQ(NotesOf({Way::Missing, 0}, "mppenc.exe x"),
              Lines{"No such program is installed: mppenc.exe, mppenc, mpcenc."});
}

TEST_F(EndedToolTest, EncodeAnew_Ended_HalfMadeOutputGoesAndTheSourceStays) {
    folder.Write("a.wav", decoded);
    for (const std::string& output : {encoded, std::string()}) {
        encoded = output;
        leavesEmptyFile = true;
        EndTools();
        EXPECT_EQ(EncodeInPlace(app, folder.Path(), "a.wav"), "");
        EXPECT_EQ(Names(), Lines{"a.wav"});
    }
    EXPECT_EQ(folder.Read("a.wav"), decoded);
}

TEST_F(EndedToolTest, EncodeAnew_EndedBeforeItWroteAnything_FormerOutputStays) {
    folder.Write("a.wav", decoded);
    folder.Write("a.mp3", "former");
    encoded.clear();
    EndTools();
    EXPECT_EQ(EncodeInPlace(app, folder.Path(), "a.wav"), "");
    EXPECT_EQ(folder.Read("a.mp3"), "former");
}

TEST_F(EndedToolTest, DecodeFile_Ended_HalfMadeWaveGoesAndNothingIsTrimmed) {
    app.state.TrimSilence = true;
    EndTools();
    for (const std::string name : {"a.mp3", "b.ogg", "c.mpc"}) {
        folder.Write(name, "x");
        EXPECT_FALSE(DecodeFile(app, folder / name)) << name;
    }
    EXPECT_EQ(Names(), (Lines{"a.mp3", "b.ogg", "c.mpc"}));
    EXPECT_EQ(app.processes.runs.size(), 3U);
}

TEST_F(EndedToolTest, DecodeFile_EndedOgg_FileThatWasSetAsideComesBack) {
    folder.Write("b.ogg", "x");
    folder.Write("b.wav", "mine");
    EndTools();
    DecodeFile(app, folder / "b.ogg");
    EXPECT_EQ(Names(), (Lines{"b.ogg", "b.wav"}));
    EXPECT_EQ(folder.Read("b.wav"), "mine");
}

TEST_F(EndedToolTest, ReEncodeFile_EndedAtEitherTool_LeavesOnlyTheSourceWithoutABox) {
    const std::string source = Mp3Frames(20);
    folder.Write("a.mp3", source);
    app.state.DeleteAfterReCompress = true;
    const auto play = app.processes.tool;
    for (const std::string tool : {"--mp3input", "-b 128"}) {
        app.processes.tool = play;
        EndTools(tool);
        ReEncode("a.mp3");
        EXPECT_EQ(Names(), Lines{"a.mp3"}) << tool;
        EXPECT_EQ(folder.Read("a.mp3"), source);
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EndedToolTest, ReEncodeFile_EndedEncoder_FilesOfThePersonComeBack) {
    folder.Write("a.mp3", Mp3Frames(20));
    folder.Write("a ().mp3", "former");
    folder.Write("a.mp3.wav", "mine");
    EndTools("-b 128");
    ReEncode("a.mp3");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "a.mp3", "a.mp3.wav"}));
    EXPECT_EQ(folder.Read("a ().mp3"), "former");
    EXPECT_EQ(folder.Read("a.mp3.wav"), "mine");
}

}  // namespace
}  // namespace zefta::test
