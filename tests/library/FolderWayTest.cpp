#include <gtest/gtest.h>

#include "library/FolderWay.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

TEST(TypedFolder, Paths_AreAsAPersonMeansThem) {
    TestApp app;
    app.TestWorld::machine.homeFolder = "/home/ann";
    app.files.CreateFolder(app.folder / "sub");
    app.files.CreateFolder(app.folder / "~odd");
    const std::string folder = app.folder.Path();
    EXPECT_EQ(TypedFolder(app, folder, "/tmp/"), "/tmp/");
    EXPECT_EQ(TypedFolder(app, folder, "sub"), folder + "/sub");
    EXPECT_EQ(TypedFolder(app, folder, ".."), folder + "/..");
    EXPECT_EQ(TypedFolder(app, folder, ""), folder);
    EXPECT_EQ(TypedFolder(app, folder, "~"), "/home/ann");
    EXPECT_EQ(TypedFolder(app, folder, "~/Music"), "/home/ann/Music");
    EXPECT_EQ(TypedFolder(app, folder, "~odd"), folder + "/~odd");
    EXPECT_EQ(TypedFolder(app, folder, "\\nowhere\\x"), "/nowhere/x");
    app.files.CreateFolder(app.folder / "~");
    EXPECT_EQ(TypedFolder(app, folder, "~"), folder + "/~") << "a folder of that very name goes before";
}

TEST(WithoutDoubledSeparators, EachRun_IsOne) {
    EXPECT_EQ(WithoutDoubledSeparators("/a//b///c/"), "/a/b/c/");
    EXPECT_EQ(WithoutDoubledSeparators("//"), "/");
    EXPECT_EQ(WithoutDoubledSeparators(""), "");
}

TEST(IsRoot, OnlyThePathOfTheRoot) {
    for (const char* path : {"/", "/.", "/tmp/..", "/../"}) EXPECT_TRUE(IsRoot(path)) << path;
    for (const char* path : {"/a", "/tmp", "/tmp/../a/"}) EXPECT_FALSE(IsRoot(path)) << path;
}

TEST(FolderAbove, EndsAtTheRoot) {
    EXPECT_EQ(FolderAbove("/a/b"), "/a");
    EXPECT_EQ(FolderAbove("/a/b/"), "/a");
    EXPECT_EQ(FolderAbove("/a"), "/");
    EXPECT_EQ(FolderAbove("/"), "/");
    EXPECT_EQ(FolderAbove("/a/b/.."), "/");
}

}  // namespace
}  // namespace zefta::test
