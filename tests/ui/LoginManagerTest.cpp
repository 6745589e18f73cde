#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QTimer>

#include <gtest/gtest.h>

#include "support/ExpectRuntimeError.h"
#include "support/PrivateBus.h"
#include "ui/QtText.h"
#include "ui/desktop/LoginManager.h"

namespace zefta::test {
namespace {

constexpr int Flags = ExitShutDown + ExitPowerOff;

/// A login manager that only remembers.
class FakeLoginManager : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

  public:
    QList<bool> requests;
    QString refusal;
    bool takesItsTime = false;

  public slots:
    void PowerOff(bool interactive) {
        requests.push_back(interactive);
        if (!refusal.isEmpty())
            sendErrorReply("org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", refusal);
        if (!takesItsTime) return;
        setDelayedReply(true);
        QTimer::singleShot(100, this,
                           [bus = connection(), answer = message().createReply()] { bus.send(answer); });
    }
};

/// The manager and who asks it have a connection each, as in life.
class LoginManagerTest : public ::testing::Test {
  protected:
    LoginManagerTest()
        : served(QDBusConnection::connectToBus(ToQt(bus.Address()), "served")),
          asking(QDBusConnection::connectToBus(ToQt(bus.Address()), "asking")) {}

    ~LoginManagerTest() override {
        QDBusConnection::disconnectFromBus("served");
        QDBusConnection::disconnectFromBus("asking");
    }

    void StartManager() {
        ASSERT_TRUE(
            served.registerObject("/org/freedesktop/login1", &manager, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(served.registerService("org.freedesktop.login1"));
    }

    PrivateBus bus;
    QDBusConnection served;
    QDBusConnection asking;
    FakeLoginManager manager;
};

TEST_F(LoginManagerTest, ExitSystem_AsksForAPowerOffOnceAndMayAskThePerson) {
    StartManager();
    EXPECT_EQ(LoginManager(asking).ExitSystem(Flags), "");
    EXPECT_EQ(manager.requests, QList<bool>{true});
}

TEST_F(LoginManagerTest, ExitSystem_AnswerThatComesLate_IsWaitedForWithEventsServed) {
    StartManager();
    manager.takesItsTime = true;
    bool ticked = false;
    QTimer::singleShot(20, [&] { ticked = true; });
    EXPECT_EQ(LoginManager(asking).ExitSystem(Flags), "");
    EXPECT_TRUE(ticked);
}

TEST_F(LoginManagerTest, ExitSystem_Refused_GivesTheReason) {
    StartManager();
    manager.refusal = "Interactive authentication required.";
    EXPECT_EQ(LoginManager(asking).ExitSystem(Flags), "Interactive authentication required.");
    EXPECT_EQ(manager.requests.size(), 1);
}

TEST_F(LoginManagerTest, ExitSystem_WithoutAManager_GivesTheReason) {
    EXPECT_NE(LoginManager(asking).ExitSystem(Flags), "");
}

TEST_F(LoginManagerTest, ExitSystem_WithoutABus_GivesTheReason) {
    EXPECT_NE(LoginManager(QDBusConnection("none")).ExitSystem(Flags), "");
}

TEST_F(LoginManagerTest, ExitSystem_OtherFlags_Fail) {
    StartManager();
    for (const int flags : {0, 1, 8, 11})
        EXPECT_EQ(RuntimeErrorOf([&] { LoginManager(asking).ExitSystem(flags); }), 5);
    EXPECT_TRUE(manager.requests.isEmpty());
}

}  // namespace
}  // namespace zefta::test

#include "LoginManagerTest.moc"
