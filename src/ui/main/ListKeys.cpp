#include "ui/main/ListKeys.h"

namespace zefta {

namespace {

const KeyRow Keys[] = {
    // clang-format off
    {Qt::Key_Menu, Qt::NoModifier, false, Command::PopUpMenu},
    // Many keyboards have no menu key.
    {Qt::Key_F10, Qt::ShiftModifier, false, Command::PopUpMenu},
    {Qt::Key_3, Qt::AltModifier, false, Command::Properties},
    {Qt::Key_Return, Qt::ControlModifier, false, Command::Properties},
    {Qt::Key_Plus, Qt::ControlModifier, true, Command::SelectKind},
    {Qt::Key_Minus, Qt::ControlModifier, true, Command::DeselectKind},
    {Qt::Key_Return, Qt::AltModifier, false, Command::Play},
    {Qt::Key_X, Qt::NoModifier, false, Command::Play},
    {Qt::Key_Return, Qt::ShiftModifier, false, Command::Append},
    {Qt::Key_F1, Qt::AltModifier, false, Command::FocusDrives},
    {Qt::Key_Return, Qt::NoModifier, false, Command::Enter},
    {Qt::Key_Backspace, Qt::NoModifier, false, Command::GoUp},
    {Qt::Key_Asterisk, Qt::NoModifier, true, Command::InvertSelection},
    // clang-format on
};

int KeyOf(const QKeyEvent& event) {
    // The letter of the same key on a Cyrillic keyboard.
    constexpr int CyrillicX = 0x0427;
    switch (event.key()) {
        case Qt::Key_Enter:
            return Qt::Key_Return;
        case CyrillicX:
            return Qt::Key_X;
        default:
            return event.key();
    }
}

}  // namespace

std::span<const KeyRow> KeyTable() {
    return Keys;
}

std::optional<Command> CommandOfKey(const QKeyEvent& event) {
    const bool onKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
    const auto modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    for (const KeyRow& row : Keys) {
        if (row.key == KeyOf(event) && row.modifiers == modifiers && (onKeypad || !row.onKeypad))
            return row.command;
    }
    return std::nullopt;
}

bool ListKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto command = CommandOfKey(*static_cast<QKeyEvent*>(event));
    if (!command) return false;
    // A key that is held would start one player after the other.
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) emit Pressed(*command);
    return true;
}

}  // namespace zefta
