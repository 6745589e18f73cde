#include <cstdlib>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/PosixProcesses.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// Scripts stand for the tools; they are found through PATH alone.
class ProcessesTest : public ::testing::Test {
  protected:
    ProcessesTest() : formerPath_(std::getenv("PATH")) {
        setenv("PATH", (folder.Path() + ":" + formerPath_).c_str(), 1);
    }
    ~ProcessesTest() override { setenv("PATH", formerPath_.c_str(), 1); }

    void AddTool(const std::string& name, const std::string& script) {
        const std::string path = folder.Write(name, "#!/bin/sh\n" + script + "\n");
        chmod(path.c_str(), 0755);
    }

    /// A tool that leaves its arguments, one a line.
    void AddRecordingTool(const std::string& name) {
        AddTool(name, "printf '%s\\n' \"$@\" > '" + folder.Path() + "/arguments'");
    }

    TempFolder folder;
    PosixProcesses processes;

  private:
    std::string formerPath_;
};

TEST_F(ProcessesTest, RunProgram_ArgumentsArriveUntouchedByAnyShell) {
    AddRecordingTool("lame");
    processes.RunProgram("lame.exe -h \"a $HOME `x` *.wav\" ';&|'", true, NormalPriority);
    EXPECT_EQ(folder.Read("arguments"), "-h\na $HOME `x` *.wav\n';&|'\n");
}

TEST_F(ProcessesTest, RunProgram_WaitsForTheEnd) {
    AddTool("lame", "sleep 0.2; touch '" + folder.Path() + "/done'");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_TRUE(folder.Exists("done"));
}

TEST_F(ProcessesTest, RunProgram_DocumentedNameWinsOverTodays) {
    AddRecordingTool("mppenc");
    AddTool("mpcenc", "touch '" + folder.Path() + "/wrong'");
    processes.RunProgram("mppenc.exe \"x\"", true, NormalPriority);
    EXPECT_EQ(folder.Read("arguments"), "x\n");
    EXPECT_FALSE(folder.Exists("wrong"));
}

TEST_F(ProcessesTest, RunProgram_MissingProgramOrEmptyLine_IsPassedOver) {
    processes.RunProgram("no-such-tool.exe x", true, NormalPriority);
    processes.RunProgram("", true, NormalPriority);
    processes.RunProgram("\"" + (folder / "none.exe") + "\" x", true, NormalPriority);
    EXPECT_FALSE(folder.Exists("arguments"));
}

TEST_F(ProcessesTest, RunProgram_PathWithExe_IsFoundWithoutIt) {
    AddRecordingTool("child program");
    processes.RunProgram("\"" + (folder / "child program.exe") + "\" /x", false, NormalPriority);
    EXPECT_EQ(folder.Read("arguments"), "/x\n");
}

TEST_F(ProcessesTest, RunProgram_QuotedNameInAnotherCase_IsPassedInTheSpellingOfTheDisk) {
    AddRecordingTool("lame");
    folder.Write("Song.WAV", "");
    folder.Write("J", "");
    const std::string given = "\"" + (folder / "song.wav") + "\"";
    processes.RunProgram("lame.exe -m j " + given, true, NormalPriority);
    EXPECT_EQ(folder.Read("arguments"), "-m\nj\n" + (folder / "Song.WAV") + "\n");
}

TEST_F(ProcessesTest, RunProgram_QuotedTextThatIsNoPath_StaysAsItIs) {
    AddRecordingTool("lame");
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    folder.Write("hello", "");
    processes.RunProgram("lame.exe --tt \"HELLO\" \"X:\\HELLO\" \"\"", true, NormalPriority);
    std::filesystem::current_path(former);
    EXPECT_EQ(folder.Read("arguments"), "--tt\nHELLO\nX:\\HELLO\n\n");
}

TEST_F(ProcessesTest, RunProgram_OutputBehindAnOption_IsPassedInTheSpellingOfTheDisk) {
    AddRecordingTool("oggenc");
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    folder.Write("Song.OGG", "");
    for (const std::string& place : {folder / "", std::string()}) {
        processes.RunProgram("oggenc.exe -n\"" + place + "song.ogg\"", true, NormalPriority);
        EXPECT_EQ(folder.Read("arguments"), "-n" + place + "Song.OGG\n");
    }
    std::filesystem::current_path(former);
}

/// What the step gives in a process of its own that runs at nice 5; the test itself stays as it is.
template <typename Step>
int AtNice5(Step step) {
    const pid_t child = fork();
    if (child == 0) {
        setpriority(PRIO_PROCESS, 0, 5);
        step();
        // Exit statuses are not negative; nice values begin at -20.
        _exit(getpriority(PRIO_PROCESS, 0) + 20);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status) - 20;
}

TEST_F(ProcessesTest, RunProgram_EveryPriority_IsItsNiceValueWhereTheSystemAllowsIt) {
    AddTool("lame", "nice > '" + folder.Path() + "/nice'");
    const std::pair<int, int> rows[] = {{IdlePriority, 19}, {NormalPriority, 0}, {HighPriority, -10}};
    for (const auto& [priority, nice] : rows) {
        const int allowed = AtNice5([value = nice] { setpriority(PRIO_PROCESS, 0, value); });
        AtNice5([&, value = priority] { processes.RunProgram("lame.exe", true, value); });
        EXPECT_EQ(folder.Read("nice"), std::to_string(allowed) + "\n") << priority;
    }
}

TEST_F(ProcessesTest, RunProgram_Tool_GetsNoInputOfOurs) {
    AddTool("lame", "cat > '" + folder.Path() + "/input'");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_EQ(folder.Read("input"), "");
}

TEST_F(ProcessesTest, RunProgram_Hidden_OutputGoesNowhere) {
    AddTool("lame", "echo noise; echo noise >&2");
    ::testing::internal::CaptureStdout();
    processes.RunProgram("lame.exe", false, NormalPriority);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    ::testing::internal::CaptureStdout();
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "noise\n");
}

TEST_F(ProcessesTest, OwnPath_IsThisProgram) {
    EXPECT_NE(processes.OwnPath().find("zefta_platform_tests"), std::string::npos);
}

}  // namespace
}  // namespace zefta::test
