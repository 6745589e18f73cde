// A plugin that the toolkit loads into the program itself, by QT_QPA_GENERIC_PLUGINS=windowwatch:WHAT. Ends
// the process as soon as the list of the main window is painted, and what of it is asked for, and prints when
// that was:
//
//   view    the rows that are in view are full
//   rows    all rows are

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>

#include "../EndOfPainting.h"

namespace zefta {
namespace {

/// The column that a row has from its file.
constexpr int SizeColumn = 1;

bool IsFull(const QAbstractItemModel& model, int first, int last) {
    for (int row = first; row <= last; ++row) {
        const bool isUp = row == 0 && model.index(row, 0).data().toString() == "..";
        if (!isUp && model.index(row, SizeColumn).data().toString().isEmpty()) return false;
    }
    return model.rowCount() > 0;
}

bool IsFull(const QAbstractItemModel& model) {
    return IsFull(model, 0, model.rowCount() - 1);
}

bool IsFullInView(const QAbstractItemView& view) {
    const QModelIndex last = view.indexAt(QPoint(0, view.viewport()->height() - 1));
    const int lastRow = last.isValid() ? last.row() : view.model()->rowCount() - 1;
    return IsFull(*view.model(), view.indexAt(QPoint(0, 0)).row(), lastRow);
}

/// Looks at each painting of the list.
class WindowWatch : public QObject {
  public:
    explicit WindowWatch(bool wantsRows) : wantsRows_(wantsRows) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* painted, QEvent* event) override {
        QObject* list = event->type() == QEvent::Paint ? painted->parent() : nullptr;
        if (list == nullptr || list->objectName() != "lvFiles") return false;
        auto* view = qobject_cast<QAbstractItemView*>(list);
        if (view != nullptr && view->viewport() == painted) OnPainting(*view);
        return false;
    }

  private:
    void OnPainting(QAbstractItemView& view) {
        if (wantsRows_ ? IsFull(*view.model()) : IsFullInView(view)) {
            // When the painting has gone to the display.
            QTimer::singleShot(0, this, EndPainted);
        } else if (wantsRows_ && !follows_) {
            // The last rows to be filled are out of view: nothing is painted for them.
            follows_ = connect(view.model(), &QAbstractItemModel::dataChanged, this, [&view] {
                if (IsFull(*view.model())) view.viewport()->update();
            });
        }
    }

    const bool wantsRows_;
    QMetaObject::Connection follows_;
};

}  // namespace

class WindowWatchPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "WindowWatch.json")

  public:
    QObject* create(const QString& name, const QString& what) override {
        return name == "windowwatch" ? new WindowWatch(what == "rows") : nullptr;
    }
};

}  // namespace zefta

#include "WindowWatch.moc"
