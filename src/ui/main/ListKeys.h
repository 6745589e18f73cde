#pragma once

#include <QKeyEvent>
#include <QObject>
#include <optional>
#include <span>

#include "ui/main/MenuTable.h"

namespace zefta {

/// A key of the file list.
struct KeyRow {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    /// Only the key of the numeric keypad counts.
    bool onKeypad;
    Command command;
};

std::span<const KeyRow> KeyTable();

/// What the key asks for; nothing for one that is not in the table.
std::optional<Command> CommandOfKey(const QKeyEvent& event);

/// Takes the keys of the table from the view that it is installed on, also those that have nothing to act on
/// at the moment; all others go their usual way. A key that is held counts once.
class ListKeys : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void Pressed(zefta::Command command);
};

}  // namespace zefta
