#include "ui/ScrollGuard.h"

#include <QEvent>

namespace zefta {

namespace {

/// Lives with its box.
class ScrollGuard : public QObject {
  public:
    explicit ScrollGuard(QWidget* box) : QObject(box) { box->installEventFilter(this); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* box = static_cast<const QWidget*>(watched);
        if (event->type() != QEvent::Wheel || box->hasFocus()) return false;
        // What the box stands in may scroll.
        event->ignore();
        return true;
    }
};

}  // namespace

void GuardAgainstScrolling(QWidget* box) {
    // By default the wheel gives the focus as well.
    box->setFocusPolicy(Qt::StrongFocus);
    new ScrollGuard(box);
}

}  // namespace zefta
