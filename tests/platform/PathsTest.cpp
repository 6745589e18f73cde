#include <gtest/gtest.h>

#include "platform/Paths.h"

namespace zefta::test {
namespace {

TEST(LexicalPath, NamesThatGoNowhere_GoAway) {
    const struct {
        const char* path;
        const char* expected;
    } rows[] = {{"/a/b", "/a/b"},
                {"/a/./b", "/a/b"},
                {"a//b/", "a/b"},
                {"./x.mp3", "x.mp3"},
                {"/a/sub/../x", "/a/x"},
                {"../x", "../x"},
                {"/..", "/"},
                {"/../x", "/x"},
                {"a/../../x", "../x"},
                {"../../x", "../../x"},
                {"a/..", "."},
                {"", "."},
                {"/", "/"},
                {"/a/.hidden", "/a/.hidden"},
                {"/a/..b/c", "/a/..b/c"},
                {"a b/ c", "a b/ c"}};
    for (const auto& row : rows) EXPECT_EQ(LexicalPath(row.path), row.expected) << row.path;
}

TEST(PathFrom, AnyTwoPaths_AreJoinedByAWay) {
    EXPECT_EQ(PathFrom("/m", "/m/x"), "x");
    EXPECT_EQ(PathFrom("/m/a/", "/m/b/x"), "../b/x");
    EXPECT_EQ(PathFrom("/m/a/b", "/m/x"), "../../x");
    EXPECT_EQ(PathFrom("/m", "/m"), ".");
    EXPECT_EQ(PathFrom("a", "a/./b/../x"), "x");
    EXPECT_EQ(PathFrom("/ab", "/abc/x"), "../abc/x");
}

}  // namespace
}  // namespace zefta::test
