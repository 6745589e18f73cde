#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "core/FolderTree.h"
#include "platform/Paths.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class FolderTreeTest : public ::testing::Test {
  protected:
    /// The paths of all folders that a walk from there enters, in rising order, without the root's own path.
    std::vector<std::string> Walked(const std::string& start = "") {
        FolderTree tree(files);
        std::vector<std::string> paths;
        Walk(tree, start.empty() ? root.Path() : root / start, paths);
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    void Walk(FolderTree& tree, const std::string& folder, std::vector<std::string>& paths) {
        if (!tree.Enter(folder)) return;
        paths.push_back(folder.substr(root.Path().size()));
        for (const FolderEntry& entry : files.List(folder)) {
            if (entry.isFolder) Walk(tree, JoinPath(folder, entry.name), paths);
        }
        tree.Leave();
    }

    void Link(const std::string& name, const std::string& target) {
        std::filesystem::create_directory_symlink(target, root / name);
    }

    void Make(const std::string& path) { std::filesystem::create_directories(root / path); }

    using Paths = std::vector<std::string>;

    TempFolder root;
    PosixFileSystem files;
};

TEST_F(FolderTreeTest, Walk_EntersEveryFolder) {
    Make("a/b/c");
    Make("d");
    EXPECT_EQ(Walked(), (Paths{"", "/a", "/a/b", "/a/b/c", "/d"}));
}

TEST_F(FolderTreeTest, LinkToAFolderOnTheWay_IsNotEntered) {
    Make("a/b");
    Link("a/self", ".");
    Link("a/b/up", "../..");
    Link("a/b/full", root.Path());
    EXPECT_EQ(Walked(), (Paths{"", "/a", "/a/b"}));
}

TEST_F(FolderTreeTest, LinkToAFolderAboveTheRoot_ComesToAnEnd) {
    Make("a/b");
    Make("c");
    Link("a/b/up", "../..");
    EXPECT_EQ(Walked("a"), (Paths{"/a", "/a/b", "/a/b/up", "/a/b/up/c"}));
}

TEST_F(FolderTreeTest, LinkToAnotherFolder_IsEnteredOnce) {
    Make("album");
    Make("a");
    Link("a/link", "../album");
    EXPECT_EQ(Walked(), (Paths{"", "/a", "/a/link", "/album"}));
    Link("a/twin", "../album");
    EXPECT_EQ(Walked().size(), 4U);
}

TEST_F(FolderTreeTest, FoldersFullOfLinksToEachOther_ComeToAnEnd) {
    for (int i = 0; i < 14; ++i) {
        Make(std::to_string(i));
        for (int j = 0; j < 14; ++j)
            Link(std::to_string(i) + "/" + std::to_string(j), "../" + std::to_string(j));
    }
    EXPECT_LE(Walked().size(), 29U);
}

TEST_F(FolderTreeTest, RootThatIsALink_IsWalked) {
    Make("real/sub");
    Link("link", "real");
    EXPECT_EQ(Walked("link"), (Paths{"/link", "/link/sub"}));
}

}  // namespace
}  // namespace zefta::test
