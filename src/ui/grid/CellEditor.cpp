#include "ui/grid/CellEditor.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <limits>

namespace zefta {

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent) {
    setObjectName("Text1");
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    // It lies over a cell that has another text.
    setAutoFillBackground(true);
    hide();
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit Stored(event->modifiers() & Qt::ShiftModifier ? CellMove::Up : CellMove::Down);
            break;
        case Qt::Key_Down:
            emit Stored(CellMove::Down);
            break;
        case Qt::Key_Up:
            emit Stored(CellMove::Up);
            break;
        case Qt::Key_Escape:
            emit Left();
            break;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            // With Ctrl: the grid knows what to do.
            emit Stored(CellMove::Stay);
            event->ignore();
            break;
        default:
            QLineEdit::keyPressEvent(event);
            // The grid must not move away below the text.
            event->accept();
    }
}

void CellEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    // Its own menu and another window give the focus back.
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) emit Stored(CellMove::Stay);
}

bool CellEditor::focusNextPrevChild(bool next) {
    emit Stored(next ? CellMove::Next : CellMove::Previous);
    return true;
}

}  // namespace zefta
