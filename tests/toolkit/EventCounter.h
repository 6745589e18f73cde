#pragma once

#include <QEvent>
#include <QObject>

namespace zefta::test {

/// Counts the events of one kind that a watched object gets.
class EventCounter : public QObject {
  public:
    EventCounter(QObject& watched, QEvent::Type type) : type_(type) { watched.installEventFilter(this); }

    int Count() const { return count_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == type_) ++count_;
        return QObject::eventFilter(watched, event);
    }

  private:
    QEvent::Type type_;
    int count_ = 0;
};

}  // namespace zefta::test
