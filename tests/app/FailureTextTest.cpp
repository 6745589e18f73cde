#include <sstream>

#include <gtest/gtest.h>

#include "app/Entry.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

TEST(FailureText, PathThatIsNoUtf8_IsShownThroughTheCodePage) {
    TestApp app;
    std::ostringstream output;
    EXPECT_EQ(RunZefta(app, {"/e", "none\xE9/*.wav"}, output), 1);
    ASSERT_FALSE(app.desktop.boxes.empty());
    EXPECT_EQ(app.desktop.boxes.back().text,
              "Error #76\r\n\r\nPath not found: " + (app.folder / "none\u00E9"));
}

}  // namespace
}  // namespace zefta::test
