// The agent as the program that it is, found and ended from outside.

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/Agent.h"
#include "platform/posix/AgentSocket.h"
#include "support/PrivateBus.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"
#include "ui/QtText.h"

namespace zefta::test {
namespace {

constexpr int Patience = 20'000;

/// Each test has a session of its own: no agent but those that it starts is in it.
class AgentProgramTest : public ::testing::Test {
  protected:
    AgentProgramTest() { setenv("XDG_RUNTIME_DIR", session.Path().c_str(), 1); }

    ~AgentProgramTest() override {
        agent.SendClose(AgentTitle());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !IsServed(); }, Patience));
    }

    bool IsServed() const { return agent.IsServed(AgentTitle()); }

    bool WaitUntilServed() const {
        return QTest::qWaitFor([&] { return IsServed(); }, Patience);
    }

    /// Another value as soon as another agent serves.
    timespec SocketMade() const {
        struct stat status = {};
        stat((session / AgentTitle()).c_str(), &status);
        return status.st_ctim;
    }

    QProcessEnvironment Environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS"})
            environment.remove(name);
        environment.insert("XDG_CONFIG_HOME", ToQt(session.Path()));
        environment.insert("LC_ALL", "C");
        return environment;
    }

    void Start(QProcess& process, const QProcessEnvironment& environment) {
        process.setProcessEnvironment(environment);
        process.start(ZEFTA_AGENT, QStringList());
        ASSERT_TRUE(process.waitForStarted(Patience));
    }

    void Start(QProcess& process) { Start(process, Environment()); }

    ProgramResult RunZefta(const std::string& program = ZEFTA_PROGRAM) const {
        return RunToEnd({program,
                         {"/agent"},
                         session.Path(),
                         "",
                         {{"XDG_CONFIG_HOME", session.Path()},
                          {"LC_ALL", "C"},
                          {"DISPLAY", ""},
                          {"WAYLAND_DISPLAY", ""},
                          {"QT_QPA_PLATFORM", ""}}});
    }

    TempFolder session;
    AgentSocket agent;
};

bool operator==(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

TEST_F(AgentProgramTest, WithoutADisplay_ServesUntilItIsAskedToEnd) {
    QProcess process;
    Start(process);
    ASSERT_TRUE(WaitUntilServed());
    agent.SendClose(AgentTitle());
    ASSERT_TRUE(process.waitForFinished(Patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_FALSE(session.Exists(AgentTitle()));
    EXPECT_EQ(process.readAllStandardError(), "");
}

TEST_F(AgentProgramTest, EverySignalToEnd_EndsItCleanly) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        QProcess process;
        Start(process);
        ASSERT_TRUE(WaitUntilServed());
        kill(static_cast<pid_t>(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(Patience));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << signal;
        EXPECT_EQ(process.exitCode(), 0) << signal;
        EXPECT_FALSE(session.Exists(AgentTitle())) << signal;
    }
}

TEST_F(AgentProgramTest, AfterAKill_TheNextOneServes) {
    QProcess killed;
    Start(killed);
    ASSERT_TRUE(WaitUntilServed());
    killed.kill();
    ASSERT_TRUE(killed.waitForFinished(Patience));
    EXPECT_TRUE(session.Exists(AgentTitle()));
    EXPECT_FALSE(IsServed());
    QProcess next;
    Start(next);
    EXPECT_TRUE(WaitUntilServed());
    agent.SendClose(AgentTitle());
    EXPECT_TRUE(next.waitForFinished(Patience));
}

TEST_F(AgentProgramTest, SecondAgent_EndsQuietlyAndTheFirstServesOn) {
    QProcess first;
    Start(first);
    ASSERT_TRUE(WaitUntilServed());
    const timespec made = SocketMade();
    QProcess second;
    Start(second);
    ASSERT_TRUE(second.waitForFinished(Patience));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(second.readAllStandardError(), "");
    EXPECT_TRUE(IsServed());
    EXPECT_TRUE(SocketMade() == made);
    agent.SendClose(AgentTitle());
    EXPECT_TRUE(first.waitForFinished(Patience));
}

TEST_F(AgentProgramTest, AgentJob_StartsIt) {
    const ProgramResult result = RunZefta();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_TRUE(WaitUntilServed());
}

TEST_F(AgentProgramTest, AgentJob_WhileOneRuns_PutsAnotherInItsPlace) {
    QProcess former;
    Start(former);
    ASSERT_TRUE(WaitUntilServed());
    const timespec made = SocketMade();
    EXPECT_EQ(RunZefta().status, 0);
    EXPECT_TRUE(former.waitForFinished(Patience));
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsServed() && !(SocketMade() == made); }, Patience));
}

TEST_F(AgentProgramTest, AgentJob_WithoutTheAgentBesideIt_EndsWith53) {
    const std::string alone = session / "alone";
    std::filesystem::create_directory(alone);
    std::filesystem::copy_file(ZEFTA_PROGRAM, alone + "/zefta");
    const ProgramResult result = RunZefta(alone + "/zefta");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.error.find("Error #53"), std::string::npos) << result.error;
    EXPECT_FALSE(IsServed());
}

/// A display without anything on it; "" when it could not be started.
class BareDisplay {
  public:
    BareDisplay() {
        server_.start("Xvfb", {"-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp"});
        while (server_.waitForReadyRead(Patience) && !server_.canReadLine()) {
        }
        const QByteArray number = server_.readLine().trimmed();
        if (!number.isEmpty()) name_ = ":" + QString::fromLatin1(number);
    }
    ~BareDisplay() {
        server_.terminate();
        server_.waitForFinished(Patience);
    }
    BareDisplay(const BareDisplay&) = delete;
    BareDisplay& operator=(const BareDisplay&) = delete;

    const QString& Name() const { return name_; }

  private:
    QProcess server_;
    QString name_;
};

TEST_F(AgentProgramTest, DesktopWithoutATray_IsToldOnceAndTheAgentServesOn) {
    const BareDisplay display;
    ASSERT_FALSE(display.Name().isEmpty());
    QProcessEnvironment environment = Environment();
    environment.insert("DISPLAY", display.Name());
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    QProcess process;
    Start(process, environment);
    ASSERT_TRUE(WaitUntilServed());
    QByteArray error;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (error += process.readAllStandardError()).contains("no notification area"); },
        Patience));
    QTest::qWait(2500);
    error += process.readAllStandardError();
    EXPECT_EQ(error.count("no notification area"), 1) << error.constData();
    EXPECT_TRUE(IsServed());
    agent.SendClose(AgentTitle());
    EXPECT_TRUE(process.waitForFinished(Patience));
}

// --- A display that is set, and no server behind it.

constexpr auto NoServer = ":7999";
constexpr auto Failing = "the display of this session can't be opened";

TEST_F(AgentProgramTest, DisplayWithoutAServer_IsToldAndTheAgentServesAllTheSame) {
    QProcessEnvironment environment = Environment();
    environment.insert("DISPLAY", NoServer);
    QProcess process;
    Start(process, environment);
    ASSERT_TRUE(WaitUntilServed());
    QByteArray error;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (error += process.readAllStandardError()).contains(Failing); },
                                Patience))
        << error.constData();
    EXPECT_TRUE(IsServed());
    agent.SendClose(AgentTitle());
    ASSERT_TRUE(process.waitForFinished(Patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

/// The program with such a display, standard error kept.
ProgramResult RunWithoutAServer(const TempFolder& folder, const std::vector<std::string>& arguments) {
    return RunToEnd({ZEFTA_PROGRAM,
                     arguments,
                     folder.Path(),
                     "",
                     {{"XDG_CONFIG_HOME", folder / "settings"},
                      {"LC_ALL", "C"},
                      {"DISPLAY", NoServer},
                      {"WAYLAND_DISPLAY", ""},
                      {"QT_QPA_PLATFORM", ""}}});
}

TEST(DisplayWithoutAServer, JobsThatNeedOne_EndWith2AndOneLine) {
    const TempFolder folder;
    for (const char* job : {"/setup", "/compress_audio_cd"}) {
        const ProgramResult result = RunWithoutAServer(folder, {job});
        EXPECT_EQ(result.status, 2) << job;
        EXPECT_EQ(result.error,
                  "Kestrin Zeftaworks: " + std::string(job) + " needs a display, and " + Failing + ".\n");
    }
}

TEST(DisplayWithoutAServer, WindowOfAFolder_IsPrintedAsAList) {
    const TempFolder folder;
    folder.Write("song.wav", "x");
    const ProgramResult result = RunWithoutAServer(folder, {folder.Path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find("song.wav\t"), std::string::npos) << result.output;
    EXPECT_EQ(result.error, "");
}

TEST(DisplayWithoutAServer, BoxOfAJob_IsALineOnStandardError) {
    const TempFolder folder;
    const ProgramResult result = RunWithoutAServer(folder, {"/copy", "none.m3u"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.error.find("none.m3u"), std::string::npos) << result.error;
    EXPECT_EQ(result.error.find("Qt"), std::string::npos) << result.error;
}

/// The notification area of a desktop, as far as icons see it.
class FakeTray : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ IsHostRegistered)

  public:
    QStringList owners;
    static bool IsHostRegistered() { return true; }

  public slots:
    void RegisterStatusNotifierItem(const QString&) { owners.push_back(message().service()); }
};

/// How many entries the answer to GetLayout has on its first level, separators among them.
qsizetype EntriesOf(const QDBusMessage& layout) {
    const auto root = layout.arguments().value(1).value<QDBusArgument>();
    int id = -1;
    QVariantMap properties;
    QVariantList entries;
    root.beginStructure();
    root >> id >> properties >> entries;
    root.endStructure();
    return entries.size();
}

TEST_F(AgentProgramTest, DesktopWithATray_HoldsItsIconAndMenu) {
    const BareDisplay display;
    const PrivateBus bus;
    QDBusConnection desktop = QDBusConnection::connectToBus(ToQt(bus.Address()), "tray");
    FakeTray tray;
    ASSERT_TRUE(
        desktop.registerObject("/StatusNotifierWatcher", &tray,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties));
    ASSERT_TRUE(desktop.registerService("org.kde.StatusNotifierWatcher"));
    QProcessEnvironment environment = Environment();
    environment.insert("DISPLAY", display.Name());
    environment.insert("DBUS_SESSION_BUS_ADDRESS", ToQt(bus.Address()));
    // The tray of this kind is that of desktops the toolkit knows by name.
    environment.insert("XDG_CURRENT_DESKTOP", "KDE");
    QProcess process;
    Start(process, environment);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !tray.owners.isEmpty(); }, Patience))
        << process.readAllStandardError().constData();
    EXPECT_EQ(tray.owners.size(), 1);
    QDBusMessage question = QDBusMessage::createMethodCall(tray.owners.front(), "/MenuBar",
                                                           "com.canonical.dbusmenu", "GetLayout");
    question << 0 << -1 << QStringList();
    const QDBusMessage layout = desktop.call(question, QDBus::BlockWithGui, Patience);
    ASSERT_EQ(layout.type(), QDBusMessage::ReplyMessage) << FromQt(layout.errorMessage());
    EXPECT_EQ(EntriesOf(layout), 8);
    agent.SendClose(AgentTitle());
    EXPECT_TRUE(process.waitForFinished(Patience));
    QDBusConnection::disconnectFromBus("tray");
}

}  // namespace
}  // namespace zefta::test

#include "AgentProgramTest.moc"
