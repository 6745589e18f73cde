#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace zefta {

/// Waits for the notification area of the desktop, which may come up later than the agent does.
class TrayWatch : public QObject {
    Q_OBJECT

  public:
    /// How often it looks, and which look without success is the one after which the person is told.
    struct Patience {
        int millisecondsBetweenLooks = 1000;
        int looksBeforeComplaint = 5;
    };

    TrayWatch(std::function<bool()> isThere, Patience patience);

    /// Looks at once, and goes on looking until the notification area is there.
    void Begin();

  signals:
    void Found();
    /// Sent once; the looking goes on.
    void Missing();

  private:
    void Look();

    std::function<bool()> isThere_;
    Patience patience_;
    QTimer timer_;
    int looks_ = 0;
};

}  // namespace zefta
