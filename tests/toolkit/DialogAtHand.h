#pragma once

#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include "toolkit/FindControl.h"

namespace zefta::test {

/// Keys go to it from now on.
inline void ShowInFront(QWidget& dialog) {
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
}

inline void ClickOn(const QWidget& dialog, const char* button) {
    QTest::mouseClick(&FindControl<QPushButton>(dialog, button), Qt::LeftButton);
}

}  // namespace zefta::test
