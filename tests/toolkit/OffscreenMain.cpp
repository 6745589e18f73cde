// The windows of the tests live on the offscreen platform of the toolkit: real widgets, real events, no
// display.

#include <QApplication>
#include <clocale>
#include <cstdlib>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // What the person's desktop looks like must not show in the results.
    setenv("QT_QPA_PLATFORMTHEME", "", 1);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
