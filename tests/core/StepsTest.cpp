#include <sstream>

#include <gtest/gtest.h>

#include "core/Steps.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

TEST(OneLine, ControlCharacters_BecomeBlanks) {
    EXPECT_EQ(OneLine("a\tb\x7F"), "a b ");
    EXPECT_EQ(OneLine("Дом \xFF"), "Дом \xFF");
}

TEST(OneLine, RunOfLineEnds_BecomesOneBlank) {
    EXPECT_EQ(OneLine("first\r\n\r\nsecond\nthird"), "first second third");
}

TEST(TellStep, Preview_WritesALine) {
    TestApp app;
    std::ostringstream told;
    app.steps = &told;
    EXPECT_TRUE(IsPreview(app));
    TellStep(app, "rename: a\nb -> c");
    TellStep(app, "folder: d");
    EXPECT_EQ(told.str(), "rename: a b -> c\nfolder: d\n");
}

TEST(TellStep, OrdinaryRun_SaysNothing) {
    TestApp app;
    EXPECT_FALSE(IsPreview(app));
    TellStep(app, "rename: a -> b");
}

}  // namespace
}  // namespace zefta::test
