// Whole runs of the program, each told by a folder of data (JobCase.h).

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "core/Strings.h"
#include "jobs/JobCase.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(ZEFTA_JOB_CASES)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Jobs : public ::testing::TestWithParam<std::string> {
  protected:
    /// The fake under the names of all tools, in front of whatever the machine has.
    void PlaceFakeTools() {
        for (const char* tool : {"lame", "oggenc", "oggdec", "mpcenc", "mpcdec"})
            std::filesystem::create_symlink(ZEFTA_FAKE_TOOL, tools / tool);
    }

    ProgramResult Run(const JobCase& job) {
        ProgramCall call = {ZEFTA_PROGRAM, {}, folder.Path(), job.typed, job.environment};
        for (const std::string& argument : job.arguments)
            call.arguments.push_back(ReplaceAll(argument, "@FOLDER@", folder.Path()));
        call.environment.emplace("LC_ALL", "C");
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) call.environment.emplace(display, "");
        call.environment["XDG_CONFIG_HOME"] = settings.Path();
        call.environment["FAKE_TOOL_LOG"] = tools / "log";
        call.environment["PATH"] = tools.Path() + ":" + std::getenv("PATH");
        return RunToEnd(call);
    }

    void WriteInput(const JobCase& job) {
        for (const auto& [name, bytes] : job.input) {
            std::filesystem::create_directories(std::filesystem::path(folder / name).parent_path());
            folder.Write(name, bytes);
        }
    }

    std::string WithoutFolder(const std::string& text) { return ReplaceAll(text, folder.Path(), "@FOLDER@"); }

    TempFolder folder;
    TempFolder settings;
    TempFolder tools;
};

INSTANTIATE_TEST_SUITE_P(Case, Jobs, ::testing::ValuesIn(CaseNames()), [](const auto& row) {
    std::string name = row.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(Jobs, EndsAsTold) {
    const JobCase job = ReadJobCase(std::filesystem::path(ZEFTA_JOB_CASES) / GetParam());
    WriteInput(job);
    PlaceFakeTools();
    const ProgramResult result = Run(job);
    EXPECT_EQ(result.status, job.status);
    EXPECT_EQ(WithoutFolder(result.output), job.output);
    EXPECT_EQ(WithoutFolder(result.error), job.error);
    EXPECT_EQ(WithoutFolder(tools.Exists("log") ? tools.Read("log") : ""), job.tools);
    const auto after = ReadTree(folder.Path());
    for (const auto& [name, bytes] : job.expected) {
        ASSERT_TRUE(after.contains(name)) << "missing: " << name;
        EXPECT_TRUE(after.at(name) == bytes)
            << name << " differs; it has " << after.at(name).size() << " bytes";
    }
    for (const auto& file : after)
        EXPECT_TRUE(job.expected.contains(file.first)) << "left over: " << file.first;
}

TEST(Program, LinksNothingButTheStandardLibraries) {
    const ProgramResult result = RunToEnd({"ldd", {ZEFTA_PROGRAM}, "", "", {}});
    EXPECT_NE(result.output.find("libstdc++"), std::string::npos);
    for (const char* toolkit : {"Qt", "cdio", "cddb", "dbus", "X11"})
        EXPECT_EQ(result.output.find(toolkit), std::string::npos) << toolkit;
}

TEST(FileSizeLimit, WriteBeyondIt_IsADiskThatIsFull) {
    const TempFolder folder;
    const std::string command = "ulimit -f 1; exec " + std::string(ZEFTA_PROGRAM) + " /lng";
    const ProgramResult result = RunToEnd(
        {"sh", {"-c", command}, folder.Path(), "", {{"XDG_CONFIG_HOME", folder.Path()}, {"LC_ALL", "C"}}});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.error.find("Error #61"), std::string::npos) << result.error;
}

TEST(ClosedStreams, MessagesNeverReachTheFileThatIsOpen) {
    const TempFolder folder;
    const std::string bytes = "RIFF" + std::string(4, '\xFF') + "AVI " + std::string(1000, 'x');
    folder.Write("a.wav", bytes);
    const std::string command = std::string(ZEFTA_PROGRAM) + " /wt <&- >&- 2>&-";
    const ProgramResult result =
        RunToEnd({"sh", {"-c", command}, folder.Path(), "", {{"XDG_CONFIG_HOME", folder.Path()}}});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(folder.Read("a.wav"), bytes);
}

}  // namespace
}  // namespace zefta::test
