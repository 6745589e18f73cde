#include "ui/desktop/MediaPlayers.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDBusVariant>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <utility>

#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr auto NamesBegin = "org.mpris.MediaPlayer2.";
constexpr auto ObjectPath = "/org/mpris/MediaPlayer2";
constexpr auto PlayerItself = "org.mpris.MediaPlayer2";
constexpr auto Playing = "org.mpris.MediaPlayer2.Player";
constexpr auto TrackList = "org.mpris.MediaPlayer2.TrackList";
/// A player that hangs must not take us with it.
constexpr int MillisecondsForAPlayer = 2000;

/// How a player is told on its command line to play a file behind what it has.
struct EnqueueOption {
    const char* player;
    const char* program;
    const char* option;
};

constexpr EnqueueOption EnqueueOptions[] = {
    {"audacious", "audacious", "--enqueue"},
    {"celluloid", "celluloid", "--enqueue"},
    {"clementine", "clementine", "--append"},
    {"deadbeef", "deadbeef", "--queue"},
    {"parole", "parole", "--add"},
    {"qmmp", "qmmp", "--enqueue"},
    {"rhythmbox", "rhythmbox-client", "--enqueue"},
    {"smplayer", "smplayer", "-add-to-playlist"},
    {"strawberry", "strawberry", "--append"},
    {"totem", "totem", "--enqueue"},
    {"vlc", "vlc", "--playlist-enqueue"},
};

std::string FullPath(const std::string& path) {
    return IsAbsolutePath(path) ? path : JoinPath(QFile::encodeName(QDir::currentPath()).toStdString(), path);
}

/// From the bytes of the name, so that one that is no UTF-8 arrives whole.
QString UriOf(const std::string& path) {
    return "file://" + QString::fromLatin1(QByteArray::fromStdString(FullPath(path)).toPercentEncoding("/"));
}

QDBusMessage Call(const QString& player, const QString& interface, const QString& method) {
    return QDBusMessage::createMethodCall(player, ObjectPath, interface, method);
}

/// Waits for the answer; the person can't press anything meanwhile that would lead here again.
QDBusMessage Ask(QDBusConnection& bus, const QDBusMessage& call) {
    QDBusPendingCallWatcher answer(bus.asyncCall(call, MillisecondsForAPlayer));
    if (!answer.isFinished()) {
        QEventLoop waiting;
        QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &waiting, &QEventLoop::quit);
        waiting.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return answer.reply();
}

bool Succeeds(QDBusConnection& bus, const QDBusMessage& call) {
    return Ask(bus, call).type() == QDBusMessage::ReplyMessage;
}

}  // namespace

MediaPlayers::MediaPlayers(QDBusConnection bus) : bus_(std::move(bus)) {}

bool MediaPlayers::Play(const std::string& path, bool append) {
    for (const QString& player : Running()) {
        if (append ? AddBehindLast(player, path) || StartToEnqueue(player, path) : Open(player, path))
            return true;
    }
    return false;
}

QStringList MediaPlayers::Running() {
    if (!bus_.isConnected()) return {};
    const QDBusReply<QStringList> names = bus_.interface()->registeredServiceNames();
    QStringList players = names.value().filter(NamesBegin);
    players.removeIf([](const QString& name) { return !name.startsWith(NamesBegin); });
    const auto rank = [this](const QString& player) {
        const QString status = Property(player, Playing, "PlaybackStatus").toString();
        return status == "Playing" ? 0 : status == "Paused" ? 1 : 2;
    };
    QList<std::pair<int, QString>> ranked;
    for (const QString& player : players) ranked.push_back({rank(player), player});
    std::sort(ranked.begin(), ranked.end());
    players.clear();
    for (const auto& [unused, player] : ranked) players.push_back(player);
    return players;
}

/// Browsers and video calls are players on the bus too.
bool MediaPlayers::TakesPlaylists(const QString& player) {
    const QStringList types = Property(player, PlayerItself, "SupportedMimeTypes").toStringList();
    return Property(player, PlayerItself, "SupportedUriSchemes").toStringList().contains("file") &&
           !types.filter("mpegurl", Qt::CaseInsensitive).isEmpty();
}

bool MediaPlayers::Open(const QString& player, const std::string& path) {
    if (!TakesPlaylists(player)) return false;
    QDBusMessage call = Call(player, Playing, "OpenUri");
    call << UriOf(path);
    return Succeeds(bus_, call);
}

bool MediaPlayers::AddBehindLast(const QString& player, const std::string& path) {
    if (!TakesPlaylists(player) || !Property(player, TrackList, "CanEditTracks").toBool()) return false;
    const QVariant known = Property(player, TrackList, "Tracks");
    const auto tracks = qdbus_cast<QList<QDBusObjectPath>>(known);
    const QDBusObjectPath noTrack("/org/mpris/MediaPlayer2/TrackList/NoTrack");
    constexpr bool SetAsCurrent = false;
    QDBusMessage call = Call(player, TrackList, "AddTrack");
    call << UriOf(path) << QVariant::fromValue(tracks.isEmpty() ? noTrack : tracks.back()) << SetAsCurrent;
    return Succeeds(bus_, call);
}

bool MediaPlayers::StartToEnqueue(const QString& player, const std::string& path) {
    // A second instance has its process number behind a dot.
    const QString name = player.mid(QString(NamesBegin).size()).section('.', 0, 0).toLower();
    for (const EnqueueOption& known : EnqueueOptions) {
        if (name != known.player) continue;
        return QProcess::startDetached(known.program,
                                       {known.option, QFile::decodeName(FullPath(path).c_str())});
    }
    return false;
}

QVariant MediaPlayers::Property(const QString& player, const QString& interface, const QString& name) {
    QDBusMessage call = Call(player, "org.freedesktop.DBus.Properties", "Get");
    call << interface << name;
    const QDBusReply<QDBusVariant> answer = Ask(bus_, call);
    return answer.isValid() ? answer.value().variant() : QVariant();
}

}  // namespace zefta
