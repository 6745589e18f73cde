#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "support/PrivateBus.h"
#include "support/TempFolder.h"
#include "ui/QtText.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta::test {
namespace {

/// A media player that only remembers what it is asked.
class FakePlayer : public QDBusVirtualObject {
  public:
    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() == "Get") return AnswerGet(message, connection);
        QStringList call = {message.member()};
        for (const QVariant& argument : message.arguments()) {
            const bool isPath = argument.userType() == qMetaTypeId<QDBusObjectPath>();
            call += isPath ? argument.value<QDBusObjectPath>().path() : argument.toString();
        }
        calls.push_back(FromQt(call.join(" ")));
        return refuses ? connection.send(message.createErrorReply(QDBusError::Failed, "no"))
                       : connection.send(message.createReply());
    }

    std::map<QString, QVariant> properties = {
        {"PlaybackStatus", "Stopped"},
        {"SupportedUriSchemes", QStringList{"http", "file"}},
        {"SupportedMimeTypes", QStringList{"audio/mpeg", "audio/x-mpegurl"}},
    };
    std::vector<std::string> calls;
    bool refuses = false;

  private:
    bool AnswerGet(const QDBusMessage& message, const QDBusConnection& connection) {
        const auto found = properties.find(message.arguments().at(1).toString());
        if (found == properties.end())
            return connection.send(message.createErrorReply(QDBusError::UnknownProperty, "none"));
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(found->second))));
    }
};

class DesktopPlayersTest : public ::testing::Test {
  protected:
    DesktopPlayersTest()
        : formerPath(std::getenv("PATH")),
          desktop(Language::English, QDBusConnection::connectToBus(ToQt(bus.Address()), "asking")) {
        setenv("PATH", folder.Path().c_str(), 1);
    }

    ~DesktopPlayersTest() override {
        setenv("PATH", formerPath.c_str(), 1);
        for (const QString& name : connections) QDBusConnection::disconnectFromBus(name);
        QDBusConnection::disconnectFromBus("asking");
    }

    void Start(FakePlayer& player, const QString& name) {
        QDBusConnection connection = QDBusConnection::connectToBus(ToQt(bus.Address()), name);
        connections.push_back(name);
        ASSERT_TRUE(connection.registerVirtualObject("/org/mpris/MediaPlayer2", &player));
        ASSERT_TRUE(connection.registerService("org.mpris.MediaPlayer2." + name));
    }

    /// A program that leaves its arguments, one a line. PATH has no other.
    void AddProgram(const std::string& name) {
        const std::string path = folder.Write(
            name, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + folder.Path() + "/" + name + ".tmp'\n/bin/mv '" +
                      folder.Path() + "/" + name + ".tmp' '" + folder.Path() + "/" + name + ".args'\n");
        chmod(path.c_str(), 0755);
    }

    std::string ArgumentsOf(const std::string& name) {
        const std::string file = name + ".args";
        if (!QTest::qWaitFor([&] { return folder.Exists(file); }, 3000)) return "(not started)";
        return folder.Read(file);
    }

    const std::string formerPath;
    PrivateBus bus;
    TempFolder folder;
    QStringList connections;
    WindowDesktop desktop;
    const std::string list = "/tmp/a b/Playlist.m3u";
    const std::string uri = "file:///tmp/a%20b/Playlist.m3u";
};

TEST_F(DesktopPlayersTest, Play_IsOpenedByThePlayerThatRuns) {
    FakePlayer player;
    Start(player, "one");
    EXPECT_TRUE(desktop.PlayPlaylist(list, false));
    EXPECT_EQ(player.calls, std::vector<std::string>{"OpenUri " + uri});
}

TEST_F(DesktopPlayersTest, Play_NameThatIsNoText_ArrivesByteForByte) {
    FakePlayer player;
    Start(player, "one");
    desktop.PlayPlaylist("/tmp/\xFF#.m3u", false);
    EXPECT_EQ(player.calls, std::vector<std::string>{"OpenUri file:///tmp/%FF%23.m3u"});
}

TEST_F(DesktopPlayersTest, Play_RelativePath_ArrivesWhole) {
    FakePlayer player;
    Start(player, "one");
    desktop.PlayPlaylist("a.m3u", false);
    EXPECT_EQ(player.calls, std::vector<std::string>{"OpenUri file://" +
                                                     (std::filesystem::current_path() / "a.m3u").string()});
}

TEST_F(DesktopPlayersTest, Play_PlayingPlayerComesFirst) {
    FakePlayer stopped;
    FakePlayer paused;
    FakePlayer playing;
    paused.properties["PlaybackStatus"] = "Paused";
    playing.properties["PlaybackStatus"] = "Playing";
    Start(stopped, "a");
    Start(paused, "b");
    Start(playing, "c");
    EXPECT_TRUE(desktop.PlayPlaylist(list, false));
    EXPECT_EQ(playing.calls.size(), 1u);
    playing.refuses = true;
    EXPECT_TRUE(desktop.PlayPlaylist(list, false));
    EXPECT_EQ(paused.calls.size(), 1u);
    EXPECT_TRUE(stopped.calls.empty());
}

TEST_F(DesktopPlayersTest, Play_PlayerWithoutPlaylists_IsNotAskedAndTheDocumentIsOpened) {
    AddProgram("xdg-open");
    FakePlayer browser;
    browser.properties["SupportedMimeTypes"] = QStringList{"video/mp4"};
    Start(browser, "browser");
    EXPECT_TRUE(desktop.PlayPlaylist(list, false));
    EXPECT_TRUE(browser.calls.empty());
    EXPECT_EQ(ArgumentsOf("xdg-open"), list + "\n");
}

TEST_F(DesktopPlayersTest, Play_NothingThatCouldPlay_IsToldSo) {
    EXPECT_FALSE(desktop.PlayPlaylist(list, false));
    EXPECT_FALSE(desktop.PlayPlaylist(list, true));
}

TEST_F(DesktopPlayersTest, Append_GoesBehindTheLastTrack) {
    FakePlayer player;
    player.properties["CanEditTracks"] = true;
    player.properties["Tracks"] =
        QVariant::fromValue(QList<QDBusObjectPath>{QDBusObjectPath("/t/1"), QDBusObjectPath("/t/2")});
    Start(player, "one");
    EXPECT_TRUE(desktop.PlayPlaylist(list, true));
    EXPECT_EQ(player.calls, std::vector<std::string>{"AddTrack " + uri + " /t/2 false"});
}

TEST_F(DesktopPlayersTest, Append_ToAnEmptyList) {
    FakePlayer player;
    player.properties["CanEditTracks"] = true;
    player.properties["Tracks"] = QVariant::fromValue(QList<QDBusObjectPath>());
    Start(player, "one");
    EXPECT_TRUE(desktop.PlayPlaylist(list, true));
    EXPECT_EQ(player.calls, std::vector<std::string>{"AddTrack " + uri +
                                                     " /org/mpris/MediaPlayer2/TrackList/NoTrack false"});
}

TEST_F(DesktopPlayersTest, Append_PlayerWithoutATrackList_GetsItsOwnOption) {
    AddProgram("audacious");
    AddProgram("xdg-open");
    FakePlayer player;
    Start(player, "audacious.instance7");
    EXPECT_TRUE(desktop.PlayPlaylist(list, true));
    EXPECT_EQ(ArgumentsOf("audacious"), "--enqueue\n" + list + "\n");
    EXPECT_TRUE(player.calls.empty());
    EXPECT_FALSE(folder.Exists("xdg-open.args"));
}

TEST_F(DesktopPlayersTest, Append_UnknownPlayer_OpensTheDocument) {
    AddProgram("xdg-open");
    FakePlayer player;
    Start(player, "unknown");
    EXPECT_TRUE(desktop.PlayPlaylist(list, true));
    EXPECT_EQ(ArgumentsOf("xdg-open"), list + "\n");
}

TEST(DesktopPlayers, WithoutABus_TheDocumentIsOpened) {
    TempFolder folder;
    const std::string formerPath = std::getenv("PATH");
    setenv("PATH", folder.Path().c_str(), 1);
    WindowDesktop desktop(Language::English, QDBusConnection("no such connection"));
    EXPECT_FALSE(desktop.PlayPlaylist("/tmp/a.m3u", false));
    setenv("PATH", formerPath.c_str(), 1);
}

}  // namespace
}  // namespace zefta::test
