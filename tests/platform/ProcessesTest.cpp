#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/PosixProcesses.h"
#include "support/ExpectRuntimeError.h"
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

/// Keeps what it is told and when.
class RecordingWatch : public ToolWatch {
  public:
    void ToolStarts(const std::string& commandLine) override { started.push_back(commandLine); }
    void ToolRuns() override {
        const auto now = Clock::now();
        if (ticks > 0) longestPause = std::max(longestPause, now - last);
        last = now;
        ++ticks;
        if (onTick) onTick();
    }
    void ToolWrites(std::string_view piece) override { output += piece; }

    using Clock = std::chrono::steady_clock;
    std::vector<std::string> started;
    std::string output;
    int ticks = 0;
    Clock::duration longestPause{};
    std::function<void()> onTick;

  private:
    Clock::time_point last;
};

class FollowedToolsTest : public ProcessesTest {
  protected:
    FollowedToolsTest() { processes.FollowTools(&watch); }

    RecordingWatch watch;
};

/// What the step leaves on our own standard output.
template <typename Step>
std::string OutputOf(Step step) {
    ::testing::internal::CaptureStdout();
    step();
    return ::testing::internal::GetCapturedStdout();
}

TEST_F(FollowedToolsTest, RunProgram_ShownTool_WritesToTheWatchAlone) {
    AddTool("lame", "echo out; echo error >&2; printf 'no end'");
    const std::string ours = OutputOf([&] { processes.RunProgram("lame.exe -h", true, NormalPriority); });
    EXPECT_EQ(watch.started, std::vector<std::string>{"lame.exe -h"});
    EXPECT_EQ(watch.output, "out\nerror\nno end");
    EXPECT_EQ(ours, "");
}

TEST_F(FollowedToolsTest, RunProgram_HiddenTool_WritesNowhere) {
    AddTool("lame", "echo noise; echo noise >&2");
    const std::string ours = OutputOf([&] { processes.RunProgram("lame.exe", false, NormalPriority); });
    EXPECT_TRUE(watch.started.empty());
    EXPECT_EQ(watch.output, "");
    EXPECT_EQ(ours, "");
    EXPECT_GT(watch.ticks, 0);
}

TEST_F(FollowedToolsTest, RunProgram_Watch_IsToldAllTheTimeUntilTheToolHasEnded) {
    AddTool("lame", "sleep 0.4; touch '" + folder.Path() + "/done'");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_TRUE(folder.Exists("done"));
    EXPECT_GE(watch.ticks, 10);
    // Without a pause in between there would be thousands.
    EXPECT_LE(watch.ticks, 60);
    // 20 milliseconds are meant; a loaded machine gets some more.
    EXPECT_LT(watch.longestPause, std::chrono::milliseconds(150));
}

TEST_F(FollowedToolsTest, RunProgram_ToolThatClosesItsStreams_IsFollowedToItsEnd) {
    AddTool("lame", "echo early; exec >&- 2>&-; sleep 0.3; touch '" + folder.Path() + "/done'");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_TRUE(folder.Exists("done"));
    EXPECT_EQ(watch.output, "early\n");
    EXPECT_LE(watch.ticks, 60);
}

TEST_F(FollowedToolsTest, RunProgram_MuchAndBinaryOutput_ComesWholeAndNeverBlocksTheTool) {
    AddTool("lame", "printf '\\000\\377'; head -c 3000000 /dev/zero | tr '\\0' 'x'; printf '\\r\\n'");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_EQ(watch.output, std::string("\0\377", 2) + std::string(3000000, 'x') + "\r\n");
}

TEST_F(FollowedToolsTest, RunProgram_ToolThatWritesWithoutEnd_LetsTheWatchLive) {
    AddTool("lame", "timeout 0.4 cat /dev/zero");
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_GE(watch.ticks, 10);
}

TEST_F(FollowedToolsTest, RunProgram_ProcessThatTheToolLeavesBehind_IsNotWaitedFor) {
    AddTool("lame", "sleep 5 & echo $! > '" + folder.Path() + "/left'; echo done");
    const auto start = std::chrono::steady_clock::now();
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(watch.output, "done\n");
    kill(static_cast<pid_t>(std::stoi(folder.Read("left"))), SIGTERM);
}

TEST_F(FollowedToolsTest, RunProgram_FromWithinAWatch_RunsToItsEndToo) {
    AddTool("lame", "sleep 0.2; echo outer");
    AddTool("oggenc", "echo inner");
    bool started = false;
    watch.onTick = [&] {
        if (std::exchange(started, true)) return;
        processes.RunProgram("oggenc.exe", true, NormalPriority);
    };
    processes.RunProgram("lame.exe", true, NormalPriority);
    EXPECT_EQ(watch.output, "inner\nouter\n");
}

TEST_F(FollowedToolsTest, RunProgram_MissingProgram_TellsNothing) {
    processes.RunProgram("no-such-tool.exe", true, NormalPriority);
    EXPECT_EQ(watch.ticks, 0);
}

TEST_F(FollowedToolsTest, FollowTools_Null_GivesTheOutputBackToOurs) {
    AddTool("lame", "echo heard");
    processes.FollowTools(nullptr);
    EXPECT_EQ(OutputOf([&] { processes.RunProgram("lame.exe", true, NormalPriority); }), "heard\n");
    EXPECT_EQ(watch.output, "");
}

/// Waits until the file holds something.
std::string WaitForFile(const TempFolder& folder, const std::string& name) {
    for (int i = 0; i < 500; ++i) {
        if (folder.Exists(name)) {
            if (std::string text = folder.Read(name); !text.empty()) return text;
        }
        usleep(10000);
    }
    return {};
}

TEST_F(ProcessesTest, StartProgram_ReturnsAtOnce) {
    AddTool("zeftaa", "sleep 0.5; echo \"$@\" > '" + folder.Path() + "/done'");
    processes.StartProgram("\"" + (folder / "zeftaa.exe") + "\" /r \"a b\"");
    EXPECT_FALSE(folder.Exists("done"));
    EXPECT_EQ(WaitForFile(folder, "done"), "/r a b\n");
}

TEST_F(ProcessesTest, StartProgram_LivesInASessionOfItsOwnAndIsNoChildOfOurs) {
    AddTool("zeftaa", "cut -d' ' -f1,4,6 /proc/$$/stat > '" + folder.Path() + "/ids'");
    processes.StartProgram("zeftaa");
    std::istringstream ids(WaitForFile(folder, "ids"));
    pid_t own = 0;
    pid_t parent = 0;
    pid_t session = 0;
    ids >> own >> parent >> session;
    EXPECT_GT(own, 0);
    EXPECT_NE(parent, getpid());
    EXPECT_NE(session, getsid(0));
    // Nothing of ours waits to be reaped.
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(ProcessesTest, StartProgram_HasNoStreamsOfOurs) {
    AddTool("zeftaa",
            "echo noise; cat > '" + folder.Path() + "/input'; echo end >> '" + folder.Path() + "/input'");
    EXPECT_EQ(OutputOf([&] {
                  processes.StartProgram("zeftaa.exe");
                  EXPECT_EQ(WaitForFile(folder, "input"), "end\n");
              }),
              "");
}

TEST_F(ProcessesTest, StartProgram_MissingProgram_FailsWith53) {
    EXPECT_EQ(RuntimeErrorOf([&] { processes.StartProgram("no-such-agent.exe /r"); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { processes.StartProgram(""); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { processes.StartProgram("\"" + folder.Path() + "\""); }), 53);
}

TEST_F(ProcessesTest, OwnPath_IsThisProgram) {
    EXPECT_NE(processes.OwnPath().find("zefta_platform_tests"), std::string::npos);
}

}  // namespace
}  // namespace zefta::test
