#include <chrono>
#include <cstdlib>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/AgentSocket.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

const std::string Title = "Kestrin Zeftaworks Agent";

/// Each test has a session of its own.
class AgentSocketTest : public ::testing::Test {
  protected:
    AgentSocketTest() { UseRuntimeFolder(folder.Path()); }
    ~AgentSocketTest() override { UseRuntimeFolder(formerRuntime); }

    static void UseRuntimeFolder(const std::string& path) {
        if (path.empty()) {
            unsetenv("XDG_RUNTIME_DIR");
        } else {
            setenv("XDG_RUNTIME_DIR", path.c_str(), 1);
        }
    }

    static std::string Variable(const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr ? value : "";
    }

    std::string formerRuntime = Variable("XDG_RUNTIME_DIR");
    TempFolder folder;
    AgentSocket agent;
};

TEST_F(AgentSocketTest, Nobody_IsNotServedAndCloseDoesNothing) {
    EXPECT_FALSE(agent.IsServed(Title));
    agent.SendClose(Title);
    EXPECT_FALSE(folder.Exists(Title));
}

TEST_F(AgentSocketTest, Server_IsFoundUnderItsTitleAloneUntilItEnds) {
    auto server = ServeAgent(Title, 0);
    ASSERT_NE(server, nullptr);
    EXPECT_TRUE(folder.Exists(Title));
    EXPECT_TRUE(agent.IsServed(Title));
    EXPECT_FALSE(agent.IsServed(Title + "s"));
    server.reset();
    EXPECT_FALSE(agent.IsServed(Title));
    EXPECT_FALSE(folder.Exists(Title));
}

TEST_F(AgentSocketTest, CloseRequest_ReachesTheServerOnce) {
    const auto server = ServeAgent(Title, 0);
    EXPECT_TRUE(agent.IsServed(Title));
    EXPECT_FALSE(server->TakeCloseRequest());
    agent.SendClose(Title);
    EXPECT_TRUE(server->TakeCloseRequest());
    EXPECT_FALSE(server->TakeCloseRequest());
}

TEST_F(AgentSocketTest, OtherRequests_AreNone) {
    const auto server = ServeAgent(Title, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    (folder / Title).copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int sender = socket(AF_UNIX, SOCK_DGRAM, 0);
    for (const std::string& request : {std::string(), std::string("closed"), std::string(4000, 'x')})
        sendto(sender, request.data(), request.size(), 0, reinterpret_cast<const sockaddr*>(&address),
               sizeof(address));
    close(sender);
    EXPECT_FALSE(server->TakeCloseRequest());
}

TEST_F(AgentSocketTest, AgentThatHangs_KeepsNobodyWaiting) {
    const auto server = ServeAgent(Title, 0);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 1000; ++i) agent.SendClose(Title);
    EXPECT_TRUE(agent.IsServed(Title));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(server->TakeCloseRequest());
}

TEST_F(AgentSocketTest, SecondServer_IsRefusedAndLeavesTheFirstAlone) {
    const auto first = ServeAgent(Title, 0);
    EXPECT_EQ(ServeAgent(Title, 50), nullptr);
    EXPECT_TRUE(agent.IsServed(Title));
}

TEST_F(AgentSocketTest, ServerThatComesWhileTheFormerGoes_WaitsForIt) {
    auto former = ServeAgent(Title, 0);
    std::thread going([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        former.reset();
    });
    const auto next = ServeAgent(Title, 10000);
    going.join();
    EXPECT_NE(next, nullptr);
    EXPECT_TRUE(agent.IsServed(Title));
}

TEST_F(AgentSocketTest, SocketOfAKilledAgent_IsStaleAndReplaced) {
    const pid_t child = fork();
    if (child == 0) {
        const auto killed = ServeAgent(Title, 0);
        _exit(killed != nullptr ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(folder.Exists(Title));
    EXPECT_FALSE(agent.IsServed(Title));
    const auto server = ServeAgent(Title, 0);
    ASSERT_NE(server, nullptr);
    EXPECT_TRUE(agent.IsServed(Title));
}

TEST_F(AgentSocketTest, Descriptor_BecomesReadableByARequest) {
    const auto server = ServeAgent(Title, 0);
    fd_set descriptors;
    FD_ZERO(&descriptors);
    FD_SET(server->Descriptor(), &descriptors);
    agent.SendClose(Title);
    timeval limit = {10, 0};
    EXPECT_EQ(select(server->Descriptor() + 1, &descriptors, nullptr, nullptr, &limit), 1);
}

TEST_F(AgentSocketTest, Path_LiesInTheRuntimeFolder) {
    EXPECT_EQ(AgentSocketPath(Title), folder / Title);
}

TEST_F(AgentSocketTest, Path_WithoutAUsableRuntimeFolder_LiesInAFolderThatIsOursAlone) {
    const std::string inTmp = "/tmp/kestrin-zeftaworks-" + std::to_string(geteuid());
    const std::string unusable[] = {"", "relative", folder / "missing", folder.Write("file", ""),
                                    folder / std::string(100, 'x')};
    mkdir(unusable[4].c_str(), S_IRWXU);
    for (const std::string& runtime : unusable) {
        UseRuntimeFolder(runtime);
        EXPECT_EQ(AgentSocketPath(Title), inTmp + "/" + Title) << runtime;
    }
    struct stat status = {};
    ASSERT_EQ(lstat(inTmp.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
}

TEST_F(AgentSocketTest, TitleTooLongForASocket_IsNeverServed) {
    EXPECT_EQ(AgentSocketPath(std::string(200, 'x')), "");
    EXPECT_EQ(ServeAgent(std::string(200, 'x'), 0), nullptr);
    EXPECT_FALSE(agent.IsServed(std::string(200, 'x')));
}

}  // namespace
}  // namespace zefta::test
