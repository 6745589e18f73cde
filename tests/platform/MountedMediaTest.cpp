#include <gtest/gtest.h>

#include "platform/MountedMedia.h"

namespace zefta::test {
namespace {

using Paths = std::vector<std::string>;

TEST(MediaOf, MountsOfMedia_AreTakenInOrder) {
    const char* table =
        "/dev/sda1 / ext4 rw 0 0\n"
        "proc /proc proc rw 0 0\n"
        "/dev/sdc1 /run/media/ann/STICK vfat rw 0 0\n"
        "/dev/sdb1 /media/usb vfat rw 0 0\n"
        "/dev/sdd1 /mnt/card exfat rw 0 0\n"
        "/dev/sda2 /home ext4 rw 0 0\n";
    EXPECT_EQ(MediaOf(table), (Paths{"/media/usb", "/mnt/card", "/run/media/ann/STICK"}));
}

TEST(MediaOf, Discs_AreMediaWhereverTheyAre) {
    EXPECT_EQ(MediaOf("/dev/sr0 /cdrom ext2 ro 0 0\n"), Paths{"/cdrom"});
    EXPECT_EQ(MediaOf("/dev/loop0 /srv/image iso9660 ro 0 0\n"), Paths{"/srv/image"});
    EXPECT_EQ(MediaOf("/dev/loop0 /srv/image udf ro 0 0\n"), Paths{"/srv/image"});
}

TEST(MediaOf, FolderForMounts_IsAMediumItself) {
    EXPECT_EQ(MediaOf("/dev/sdb1 /mnt ext4 rw 0 0\n/dev/sdc1 /mntx ext4 rw 0 0\n"), Paths{"/mnt"});
}

TEST(MediaOf, EscapedCharacters_AreTheirOwn) {
    EXPECT_EQ(MediaOf(R"(/dev/sdb1 /media/MY\040STICK\134x vfat rw 0 0)"), Paths{R"(/media/MY STICK\x)"});
    EXPECT_EQ(MediaOf(R"(/dev/sdb1 /media/no\9octal\04 vfat rw 0 0)"), Paths{R"(/media/no\9octal\04)"});
}

TEST(MediaOf, OneFolderMountedTwice_IsOneMedium) {
    EXPECT_EQ(MediaOf("/dev/sdb1 /media/a vfat rw 0 0\n/dev/sdb2 /media/a vfat rw 0 0\n"), Paths{"/media/a"});
}

TEST(MediaOf, DamagedTable_GivesNothing) {
    for (const char* table : {"", "\n\n", "x", "/dev/sdb1", "/dev/sdb1 /mediaX vfat"})
        EXPECT_EQ(MediaOf(table), Paths{}) << table;
}

TEST(MountedMedia, OfThisMachine_AreNeitherTheRootNorDoubled) {
    const Paths media = MountedMedia();
    for (const std::string& path : media) {
        EXPECT_TRUE(path.starts_with('/')) << path;
        EXPECT_NE(path, "/");
    }
}

}  // namespace
}  // namespace zefta::test
