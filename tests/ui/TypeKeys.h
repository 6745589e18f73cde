#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <string>

#include "ui/QtText.h"

namespace zefta::test {

/// Types the text as a person does: each key goes to the control that has the focus by then.
inline void TypeKeys(const std::string& text) {
    for (const QChar character : ToQt(text)) {
        QWidget* focus = QApplication::focusWidget();
        if (character.unicode() < 128) {
            QTest::keyClick(focus, character.toLatin1());
        } else {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(character));
            QApplication::sendEvent(focus, &press);
        }
    }
}

}  // namespace zefta::test
