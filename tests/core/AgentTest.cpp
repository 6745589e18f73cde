#include <gtest/gtest.h>

#include "core/Agent.h"
#include "core/AgentTexts.h"
#include "platform/CommandText.h"
#include "platform/RuntimeError.h"
#include "support/ExpectRuntimeError.h"
#include "support/FakeAgent.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class AgentTest : public ::testing::Test {
  protected:
    AgentTest() { app.App::agent = &agent; }

    FakeAgent agent;
    TestApp app;
};

/// A person whose messages are Russian.
struct RussianApp : TestWorld, App {
    RussianApp()
        : App(Russian(TestWorld::machine), TestWorld::files, TestWorld::desktop, TestWorld::processes,
              TestWorld::userSettings, TestWorld::machineSettings) {}

    static const Machine& Russian(Machine& machine) {
        machine.language = "ru_RU.UTF-8";
        return machine;
    }
};

TEST_F(AgentTest, Title_IsThatOfTheApplicationAndAgent) {
    EXPECT_EQ(AgentTitle(), "Kestrin Zeftaworks Agent");
}

TEST_F(AgentTest, IsAgentRunning_LooksForTheTitle) {
    EXPECT_FALSE(IsAgentRunning(app));
    agent.runs = true;
    EXPECT_TRUE(IsAgentRunning(app));
}

TEST_F(AgentTest, CloseAgent_AsksOneThatRuns) {
    CloseAgent(app);
    EXPECT_TRUE(agent.closed.empty());
    agent.runs = true;
    CloseAgent(app);
    EXPECT_EQ(agent.closed, std::vector<std::string>{"Kestrin Zeftaworks Agent"});
}

TEST_F(AgentTest, WithoutAWayToTheAgent_NoneRuns) {
    app.App::agent = nullptr;
    EXPECT_FALSE(IsAgentRunning(app));
    CloseAgent(app);
}

TEST_F(AgentTest, StartAgent_RunsTheAgentOfTheProgramsFolder) {
    StartAgent(app);
    EXPECT_EQ(app.processes.started, std::vector<std::string>{"/opt/zefta/zeftaa.exe"});
    EXPECT_TRUE(agent.closed.empty());
}

TEST_F(AgentTest, StartAgent_WhileOneRuns_ClosesItFirst) {
    agent.runs = true;
    StartAgent(app);
    EXPECT_EQ(agent.closed.size(), 1U);
    EXPECT_EQ(app.processes.started.size(), 1U);
}

TEST_F(AgentTest, StartAgent_MissingFile_FailsWith53AndIsNotTrapped) {
    app.processes.canStartPrograms = false;
    EXPECT_EQ(RuntimeErrorOf([&] { StartAgent(app); }), 53);
}

TEST_F(AgentTest, Command_InRussian_IsQuotedAndSelectsRussian) {
    RussianApp russian;
    EXPECT_EQ(AgentCommand(russian), "\"/opt/zefta/zeftaa.exe\" /r");
}

TEST_F(AgentTest, Command_FolderOfAnyCharacters_StaysOneArgument) {
    for (const std::string folder : {"/home/my programs", "/a\"b", "/back\\slash", "/a\\", "/50%1 %2\\n"}) {
        app.processes.ownPath = folder + "/zefta";
        const auto arguments = SplitCommandLine(AgentCommand(app));
        ASSERT_EQ(arguments.size(), 1U) << folder;
        EXPECT_EQ(arguments[0].text, folder + "/zeftaa.exe");
    }
}

TEST_F(AgentTest, TextOf_IsTheStoresElseThatOfTheLanguage) {
    EXPECT_EQ(AgentTextOf(app, "MSG_Open"), "Open");
    EXPECT_EQ(AgentTextOf(app, "MSG_LanguageDefault"), "Default (English)");
    app.userSettings.values[{"Agent", "MSG_Open"}] = "Aufmachen";
    EXPECT_EQ(AgentTextOf(app, "MSG_Open"), "Aufmachen");
    app.userSettings.values[{"Agent", "MSG_Open"}] = "";
    EXPECT_EQ(AgentTextOf(app, "MSG_Open"), "Open");
    EXPECT_EQ(AgentTextOf(app, "MSG_Other"), "");
}

TEST_F(AgentTest, ExitApplication_ClosesTheAgentAndLetsGoBeforeTheWindowsGo) {
    agent.runs = true;
    app.messages.LanguageStrings["1"] = "x";
    bool unloaded = false;
    ExitApplication(app, [&] {
        unloaded = true;
        EXPECT_FALSE(agent.runs);
        EXPECT_TRUE(app.messages.LanguageStrings.empty());
    });
    EXPECT_TRUE(unloaded);
}

}  // namespace
}  // namespace zefta::test
