// Decoding with a recording fake in the place of the tools.

#include <filesystem>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "core/Strings.h"
#include "encoding/Decode.h"
#include "platform/CommandText.h"
#include "platform/ToolTranslation.h"
#include "support/ExpectRuntimeError.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class DecodeTest : public ::testing::Test {
  protected:
    DecodeTest() { app.state.TrimSilence = false; }

    void Run(std::vector<std::string> tokens) {
        tokens.insert(tokens.begin(), "/d");
        ParseCommandLine(app, CommandLine(std::move(tokens)));
        DecodeJob(app);
    }

    void Decode(const std::string& name) { DecodeFile(app, app.folder / name); }

    /// The decoder writes these bytes where the real one of its kind does.
    void PlayDecoder(const std::string& bytes) {
        app.processes.tool = [this, bytes](const RecordingProcesses::Run& run) {
            const auto command = SplitCommandLine(run.commandLine);
            const auto arguments = TranslateToolArguments(command);
            const std::string& last = arguments.back();
            if (command[0].text == "oggdec.exe") {
                WriteWholeFile(last.substr(0, last.rfind('.')) + ".wav", bytes);
            } else if (command[0].text != app.processes.OwnPath() + ".exe") {
                WriteWholeFile(last, bytes);
            }
        };
    }

    std::string CommandLineOf(const std::string& path) {
        app.processes.runs.clear();
        DecodeFile(app, path);
        return app.processes.runs.at(0).commandLine;
    }

    std::vector<std::string> ArgumentsOf(const std::string& path) {
        return TranslateToolArguments(SplitCommandLine(CommandLineOf(path)));
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(app.folder.Path()))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    using Strings = std::vector<std::string>;

    TestApp app;
};

TEST_F(DecodeTest, EveryKind_HasItsCommandLine) {
    const std::string folder = app.folder.Path();
    EXPECT_EQ(CommandLineOf(folder + "/My Song.ogg"), "oggdec.exe \"" + folder + "/My Song.ogg\"");
    EXPECT_EQ(CommandLineOf(folder + "/My Song.OGG"), "oggdec.exe \"" + folder + "/My Song.OGG\"");
    EXPECT_EQ(CommandLineOf(folder + "/b.mpc"),
              "mppdec.exe \"" + folder + "/b.mpc\" \"" + folder + "/b.mpc.wav\"");
    EXPECT_EQ(CommandLineOf(folder + "/b.Mp+"),
              "mppdec.exe \"" + folder + "/b.Mp+\" \"" + folder + "/b.Mp+.wav\"");
    EXPECT_EQ(CommandLineOf(folder + "/c.mp3"), "lame.exe --mp3input --decode \"" + folder + "/c.mp3\"");
}

TEST_F(DecodeTest, EveryKind_HasTheArgumentsOfTodaysTool) {
    const std::string folder = app.folder.Path();
    EXPECT_EQ(ArgumentsOf(folder + "/a b.ogg"), Strings({folder + "/a b.ogg"}));
    EXPECT_EQ(ArgumentsOf(folder + "/a b.mpc"), Strings({folder + "/a b.mpc", folder + "/a b.mpc.wav"}));
    EXPECT_EQ(ArgumentsOf(folder + "/a b.mp3"),
              Strings({"--mp3input", "--decode", folder + "/a b.mp3", folder + "/a b.mp3.wav"}));
    EXPECT_EQ(ToolNames("oggdec.exe"), Strings({"oggdec.exe", "oggdec"}));
    EXPECT_EQ(ToolNames("mppdec.exe"), Strings({"mppdec.exe", "mppdec", "mpcdec"}));
}

TEST_F(DecodeTest, OddNames_ArriveAsTheyAre) {
    for (const char* name : {"q\"x.mp3", "100% $HOME.mp3", "-x.mp3", "a  b.mp3", "песня.mp3"})
        EXPECT_EQ(ArgumentsOf(app.folder / name)[2], app.folder / name);
}

TEST_F(DecodeTest, NameWithoutADot_GoesToLame) {
    EXPECT_TRUE(CommandLineOf(app.folder / "xogg").starts_with("lame.exe --mp3input --decode "));
    EXPECT_TRUE(CommandLineOf(app.folder / "xmpc").starts_with("lame.exe --mp3input --decode "));
}

TEST_F(DecodeTest, Encoder_IsOverwrittenForEachFile) {
    app.state.UseOggVorbis = app.state.UseMPEGplus = true;
    Decode("a.mp3");
    EXPECT_FALSE(app.state.UseOggVorbis);
    EXPECT_FALSE(app.state.UseMPEGplus);
    Decode("a.MPC");
    EXPECT_TRUE(app.state.UseMPEGplus);
    Decode("a.ogg");
    EXPECT_TRUE(app.state.UseOggVorbis);
    EXPECT_FALSE(app.state.UseMPEGplus);
}

TEST_F(DecodeTest, Tools_RunShownAndAtThePriorityAsTold) {
    app.state.ShowExecuteWindows = false;
    app.state.PriorityClass = HighPriority;
    for (const char* name : {"a.ogg", "a.mpc", "a.mp3"}) Decode(name);
    app.state.ShowExecuteWindows = true;
    Decode("a.ogg");
    ASSERT_EQ(app.processes.runs.size(), 4U);
    for (const auto& run : app.processes.runs) EXPECT_EQ(run.priorityClass, HighPriority);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(app.processes.runs[static_cast<std::size_t>(i)].showWindow);
    EXPECT_TRUE(app.processes.runs[3].showWindow);
}

TEST_F(DecodeTest, DecodedFile_BearsTheNameOfItsSourceAndWav) {
    PlayDecoder("decoded");
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc", "a.mp+", "b.ogg.ogg", "c.wav.ogg"}) {
        app.folder.Write(name, "source");
        Decode(name);
        EXPECT_EQ(app.folder.Read(std::string(name) + ".wav"), "decoded") << name;
        EXPECT_EQ(app.folder.Read(name), "source");
    }
    EXPECT_EQ(Names().size(), 12U);
}

TEST_F(DecodeTest, FolderThatEndsInOgg_IsNoPartOfTheName) {
    PlayDecoder("decoded");
    std::filesystem::create_directory(app.folder / "live.ogg");
    Decode("live.ogg/a.ogg");
    EXPECT_EQ(app.folder.Read("live.ogg/a.ogg.wav"), "decoded");
    EXPECT_FALSE(app.folder.Exists("live.ogg/a.wav"));
}

TEST_F(DecodeTest, UpperCaseExtension_StaysUnderTheToolsOwnName) {
    PlayDecoder("decoded");
    app.folder.Write("a.OGG", "source");
    Decode("a.OGG");
    EXPECT_EQ(Names(), Strings({"a.OGG", "a.wav"}));
    EXPECT_EQ(app.folder.Read("a.wav"), "decoded");
    EXPECT_EQ(app.folder.Read("a.OGG"), "source");
}

TEST_F(DecodeTest, UpperCaseExtension_NameIsThePersons_DecodedFileBearsTheSourcesName) {
    PlayDecoder("decoded");
    app.folder.Write("a.wav", "mine");
    Decode("a.OGG");
    EXPECT_EQ(Names(), Strings({"a.OGG.wav", "a.wav"}));
    EXPECT_EQ(app.folder.Read("a.wav"), "mine");
    EXPECT_EQ(app.folder.Read("a.OGG.wav"), "decoded");
}

TEST_F(DecodeTest, TwoSpellingsOfOneName_BothAreDecoded) {
    PlayDecoder("decoded");
    Decode("a.ogg");
    Decode("a.OGG");
    EXPECT_EQ(Names(), Strings({"a.ogg.wav", "a.wav"}));
}

// The trim child behind the decoder.

TEST_F(DecodeTest, Trim_RunsBehindTheDecoderHidden) {
    app.state.TrimSilence = true;
    app.state.PriorityClass = IdlePriority;
    Decode("a b.mp3");
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(
        app.processes.runs[1],
        (RecordingProcesses::Run{"\"/opt/zefta/zefta.exe\" /wavetrim \"" + (app.folder / "a b.mp3.wav") +
                                     "\" /f0 /nb /zx /before 1 /after 1 /showexec",
                                 false, IdlePriority}));
}

TEST_F(DecodeTest, Trim_NormalisesAsTheSettingSaysAndNotTheJob) {
    app.state.TrimSilence = true;
    app.state.ShowExecuteWindows = false;
    app.state.Normalize = true;
    Decode("a.ogg");
    EXPECT_TRUE(app.processes.runs.at(1).commandLine.ends_with(" /after 1 /dontshowexec"));
    app.state.Normalize = false;
    app.state.Saved.Normalize = true;
    Decode("a.mpc");
    EXPECT_TRUE(app.processes.runs.at(3).commandLine.ends_with(" /after 1 /norm /dontshowexec"));
}

TEST_F(DecodeTest, Trim_OptionsOfTheJobOverrideTheSetting) {
    app.folder.Write("a.mp3", "x");
    Run({"/trim"});
    EXPECT_EQ(app.processes.runs.size(), 2U);
    Run({"/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 3U);
}

TEST_F(DecodeTest, Trim_OutputOfNoBytes_IsAFailedRun) {
    app.state.TrimSilence = true;
    PlayDecoder("");
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) Decode(name);
    EXPECT_EQ(app.processes.runs.size(), 3U);
}

// The job.

TEST_F(DecodeTest, Job_TakesEveryCompressedFileOfTheFolderAndNothingElse) {
    const char* names[] = {"a.mp3", "b.ogg", "c.mpc", "d.MP+", "e.txt", "f.wav", "g.m3u", "h.mp3.bak"};
    for (const char* name : names) app.folder.Write(name, "x");
    std::filesystem::create_directory(app.folder / "folder.mp3");
    PlayDecoder("decoded");
    Run({"/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 4U);
    for (const char* name : {"a.mp3.wav", "b.ogg.wav", "c.mpc.wav", "d.MP+.wav"})
        EXPECT_EQ(app.folder.Read(name), "decoded") << name;
    EXPECT_EQ(Names().size(), 13U);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(DecodeTest, Job_MaskOfAKind_TakesThatKindInAnyCase) {
    for (const char* name : {"a.mp3", "B.MP3", "c.ogg"}) app.folder.Write(name, "x");
    Run({"*.Mp3", "/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 2U);
}

TEST_F(DecodeTest, Job_FileSpecOfAnotherKind_IsRefused) {
    app.folder.Write("a.mp3", "x");
    for (const char* spec : {"*.wav", "*", "a.*", "/sync", ""}) {
        app.desktop.boxes.clear();
        app.state.FileSpec = spec;
        DecodeJob(app);
        ASSERT_EQ(app.desktop.boxes.size(), 1U) << spec;
        EXPECT_EQ(app.desktop.boxes[0].text, "This one is not a valid file!");
        EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    }
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(DecodeTest, Job_LineOfTheShellVerb_IsRefused) {
    app.folder.Write("a.mp3", "x");
    Run({"a.mp3", "/sync"});
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(app.desktop.boxes.at(0).text, "This one is not a valid file!");
}

TEST_F(DecodeTest, Job_FolderPart_BecomesCurrent) {
    std::filesystem::create_directory(app.folder / "sub");
    app.folder.Write("sub/a.mp3", "x");
    app.folder.Write("b.mp3", "x");
    Run({"sub\\*.MP3", "/notrim"});
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
    ASSERT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(app.processes.runs[0].commandLine,
              "lame.exe --mp3input --decode \"" + (app.folder / "sub/a.mp3") + "\"");
}

TEST_F(DecodeTest, Job_MissingFolder_Fails76) {
    EXPECT_EQ(RuntimeErrorOf([&] { Run({"none/*.mp3"}); }), 76);
}

TEST_F(DecodeTest, Job_FileThatFails_IsToldAndTheNextIsDecoded) {
    for (const char* name : {"a.ogg", "b.ogg"}) {
        app.folder.Write(name, "source");
        app.files.SetReadOnly(app.folder.Write(std::string(name) + ".wav", "mine"), true);
    }
    PlayDecoder("decoded");
    Run({"/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 2U);
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #70\r\n\r\nPermission denied: "));
}

TEST_F(DecodeTest, Job_MissingTools_AreSilent) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) app.folder.Write(name, "x");
    app.folder.Write("a.wav", "mine");
    Run({"/notrim"});
    EXPECT_EQ(app.processes.runs.size(), 3U);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(Names(), Strings({"a.mp3", "a.mpc", "a.ogg", "a.wav"}));
    EXPECT_EQ(app.folder.Read("a.wav"), "mine");
}

}  // namespace
}  // namespace zefta::test
