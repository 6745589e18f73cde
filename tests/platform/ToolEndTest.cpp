// How tools end, and how they are ended.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/posix/ChildProcess.h"
#include "platform/posix/PosixProcesses.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// Wants every tool ended as soon as it has written something.
class ImpatientWatch : public ToolWatch {
  public:
    void ToolStarts(const std::string&) override {}
    void ToolRuns() override {}
    void ToolWrites(std::string_view) override { hasWritten = true; }
    bool WantsToolEnded() override { return hasWritten; }

    bool hasWritten = false;
};

class ToolEndTest : public ::testing::Test {
  protected:
    std::string Tool(const std::string& script) {
        const std::string path = folder.Write("tool", "#!/bin/sh\n" + script + "\n");
        chmod(path.c_str(), 0755);
        return path;
    }

    ToolEnd EndOfTool(const std::string& script) {
        processes.RunProgram("\"" + Tool(script) + "\"", true, NormalPriority);
        return processes.LastToolEnd();
    }

    TempFolder folder;
    PosixProcesses processes;
    ImpatientWatch watch;
};

constexpr std::chrono::seconds Soon{8};

TEST_F(ToolEndTest, LastToolEnd_WithAndWithoutAWatch_TellsStatusAndSignal) {
    for (ToolWatch* follower : {static_cast<ToolWatch*>(nullptr), static_cast<ToolWatch*>(&watch)}) {
        processes.FollowTools(follower);
        EXPECT_EQ(EndOfTool("exit 0").Number, 0);
        const ToolEnd failed = EndOfTool("exit 3");
        EXPECT_EQ(failed.How, ToolEnd::Way::Exited);
        EXPECT_EQ(failed.Number, 3);
        const ToolEnd crashed = EndOfTool("kill -SEGV $$");
        EXPECT_EQ(crashed.How, ToolEnd::Way::Killed);
        EXPECT_EQ(crashed.Number, SIGSEGV);
    }
}

TEST_F(ToolEndTest, LastToolEnd_ProgramThatIsNotThere_IsMissing) {
    processes.RunProgram("no-such-tool.exe", true, NormalPriority);
    EXPECT_EQ(processes.LastToolEnd().How, ToolEnd::Way::Missing);
}

TEST_F(ToolEndTest, WatchThatWantsTheEnd_ToolThatHangs_IsEnded) {
    processes.FollowTools(&watch);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(EndOfTool("echo hanging; exec sleep 60").How, ToolEnd::Way::Ended);
    EXPECT_LT(std::chrono::steady_clock::now() - start, Soon);
}

TEST_F(ToolEndTest, WatchThatWantsTheEnd_ToolThatDoesNotHear_IsEnded) {
    processes.FollowTools(&watch);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(EndOfTool("trap '' TERM; echo hanging; while :; do sleep 1; done").How, ToolEnd::Way::Ended);
    EXPECT_LT(std::chrono::steady_clock::now() - start, Soon);
}

TEST_F(ToolEndTest, WatchThatWantsTheEnd_ToolThatIsStopped_IsEnded) {
    processes.FollowTools(&watch);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(EndOfTool("echo stopping; kill -STOP $$; sleep 60").How, ToolEnd::Way::Ended);
    EXPECT_LT(std::chrono::steady_clock::now() - start, Soon);
}

TEST_F(ToolEndTest, WatchThatWantsTheEnd_ChildWithStreamsOfOurs_RunsToItsEnd) {
    watch.hasWritten = true;
    ChildSetup child{.program = Tool("sleep 0.2; touch '" + folder.Path() + "/done'"), .arguments = {}};
    child.streams = ChildStreams::Ours;
    EXPECT_EQ(RunChild(child, &watch).How, ToolEnd::Way::Exited);
    EXPECT_TRUE(folder.Exists("done"));
}

}  // namespace
}  // namespace zefta::test
