#pragma once

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/TestApp.h"
#include "ui/QtText.h"
#include "ui/TypeKeys.h"
#include "ui/grid/GridView.h"

namespace zefta::test {

/// A grid between two lines of entry, worked by clicks and keys.
class GridViewStage : public ::testing::Test {
  protected:
    GridViewStage() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(ahead);
        column->addWidget(grid);
        column->addWidget(behind);
        model.Load({{"f1", "a1", "t1"}, {"f2", "a2", "t2"}, {"f3", "a3", "t3"}});
        window.resize(600, 300);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        grid->setFocus();
        grid->SelectCell(0, Artist);
    }

    static constexpr int Artist = 1;
    static constexpr int Title = 2;

    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    static void Type(const char* text) { TypeKeys(text); }

    QPoint PlaceOf(int row, int column) { return grid->visualRect(model.index(row, column)).center(); }
    void Click(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, modifiers, PlaceOf(row, column));
    }

    void DoubleClick(int row, int column) {
        Click(row, column);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, PlaceOf(row, column));
    }

    QLineEdit& Text1() const { return *grid->findChild<QLineEdit*>("Text1"); }
    std::pair<int, int> Current() const {
        return {grid->currentIndex().row(), grid->currentIndex().column()};
    }
    const std::string& At(int row, int column) const { return model.TextAt(row, column); }
    static std::string Clipboard() { return FromQt(QApplication::clipboard()->text()); }

    TestApp app;
    GridModel model{{{"File", true, 2}, {"Artist", false, 2}, {"Title", false, 2}}};
    QWidget window;
    QLineEdit* ahead = new QLineEdit;
    GridView* grid = new GridView(app, model);
    QLineEdit* behind = new QLineEdit;
};

}  // namespace zefta::test
