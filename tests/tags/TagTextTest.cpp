#include <gtest/gtest.h>

#include "tags/TagText.h"

namespace zefta::test {

using namespace std::string_view_literals;

TEST(ShownText, Value_EndsAtItsFirstNul) {
    EXPECT_EQ(ShownText("abc"), "abc");
    EXPECT_EQ(ShownText("abc\0def\0"sv), "abc");
    EXPECT_EQ(ShownText("\0def"sv), "");
    EXPECT_EQ(ShownText(""), "");
}

TEST(FirstShown, SecondValue_StandsWhereTheFirstShowsNothing) {
    EXPECT_EQ(FirstShown("a", "b"), "a");
    EXPECT_EQ(FirstShown("", "b"), "b");
    EXPECT_EQ(FirstShown("\0a"sv, "b\0c"sv), "b");
    EXPECT_EQ(FirstShown("", ""), "");
}

}  // namespace zefta::test
