#pragma once

#include <QDBusConnection>
#include <QStringList>
#include <QVariant>
#include <string>

namespace zefta {

/// The media players that run now, as they show themselves on the message bus (MPRIS 2.2,
/// specifications.freedesktop.org/mpris-spec).
class MediaPlayers {
  public:
    explicit MediaPlayers(QDBusConnection bus);

    /// Has one of them, a playing one first, play the playlist, or with `append` play it behind what it has:
    /// through the bus, or else by the player's own option for that when we know it. False when none that
    /// runs takes playlists so. Events are served meanwhile, but for those of the person.
    bool Play(const std::string& path, bool append);

  private:
    /// Names on the bus, in the order in which they are asked.
    QStringList Running();
    bool TakesPlaylists(const QString& player);
    bool Open(const QString& player, const std::string& path);
    bool AddBehindLast(const QString& player, const std::string& path);
    bool StartToEnqueue(const QString& player, const std::string& path);
    QVariant Property(const QString& player, const QString& interface, const QString& name);

    QDBusConnection bus_;
};

}  // namespace zefta
