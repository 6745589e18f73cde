#include <gtest/gtest.h>

#include "core/Version.h"
#include "support/TestApp.h"
#include "ui/QtText.h"
#include "ui/main/MainWindow.h"

namespace zefta::test {
namespace {

TEST(MainWindow, Caption_IsTitleAndVersion) {
    TestApp app;
    MainWindow window(app);
    EXPECT_EQ(FromQt(window.windowTitle()), ApplicationTitle() + " " + VersionText());
}

}  // namespace
}  // namespace zefta::test
