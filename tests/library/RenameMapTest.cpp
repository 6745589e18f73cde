#include <gtest/gtest.h>

#include "library/RenameMap.h"

namespace zefta::test {
namespace {

std::string Found(const RenameMap& map, const std::string& path) {
    const RenamedEntry* entry = map.Find(path);
    return entry == nullptr ? "(none)" : entry->newName;
}

TEST(RenameMap, Find_WhatWasAdded) {
    RenameMap map;
    EXPECT_EQ(Found(map, "/m/a.mp3"), "(none)");
    map.Add("/m/a.mp3", "Artist - Title.MP3");
    EXPECT_EQ(Found(map, "/m/a.mp3"), "Artist - Title.MP3");
    EXPECT_EQ(Found(map, "/m/b.mp3"), "(none)");
    EXPECT_EQ(Found(map, "/n/a.mp3"), "(none)");
    EXPECT_EQ(map.Count(), 1U);
}

TEST(RenameMap, Find_IgnoresTheCaseOfAllScripts) {
    RenameMap map;
    map.Add("/M\xC3\xBCsik/\xD0\x9F\xD0\xB5\xD1\x81\xD0\xBD\xD1\x8F.mp3", "new");
    EXPECT_EQ(Found(map, "/m\xC3\x9CSIK/\xD0\xBF\xD0\x95\xD0\xA1\xD0\x9D\xD0\xAF.MP3"), "new");
}

TEST(RenameMap, Find_PathsThatDifferInCaseOnly_TheVerySpellingWins) {
    RenameMap map;
    map.Add("/m/a.mp3", "first");
    map.Add("/m/A.mp3", "second");
    EXPECT_EQ(Found(map, "/m/a.mp3"), "first");
    EXPECT_EQ(Found(map, "/m/A.mp3"), "second");
    EXPECT_EQ(Found(map, "/m/A.MP3"), "first");
}

TEST(RenameMap, Add_PathThatIsThere_KeepsItsName) {
    RenameMap map;
    map.Add("/m/a.mp3", "first");
    map.Add("/m/a.mp3", "second");
    EXPECT_EQ(Found(map, "/m/a.mp3"), "first");
    EXPECT_EQ(map.Count(), 1U);
}

TEST(RenameMap, Find_PathWithDots_IsThatOfThePlainPath) {
    RenameMap map;
    map.Add("/m/./a.mp3", "new a");
    map.Add("/m/b.mp3", "new b");
    EXPECT_EQ(Found(map, "/m/a.mp3"), "new a");
    EXPECT_EQ(Found(map, "/m/sub/../B.mp3"), "new b");
    EXPECT_EQ(Found(map, "/m//b.mp3"), "new b");
    EXPECT_EQ(Found(map, "/m/sub/b.mp3"), "(none)");
}

TEST(RenameMap, Holds_TheVerySpellingOnly) {
    RenameMap map;
    map.Add("/m/a.mp3", "new");
    EXPECT_TRUE(map.Holds("/m/./a.mp3"));
    EXPECT_FALSE(map.Holds("/m/A.mp3"));
}

TEST(RenameMap, Add_WhereANameCountsFrom) {
    RenameMap map;
    map.Add("/m/s/a.mp3", "s/new", "/m/");
    map.Add("/m/b.mp3", "new");
    EXPECT_EQ(map.Find("/m/s/a.mp3")->countsFrom, "/m/");
    EXPECT_EQ(map.Find("/m/b.mp3")->countsFrom, "");
}

TEST(RenameMap, Find_BytesThatAreNoText) {
    RenameMap map;
    map.Add("/m/caf\xE9.mp3", "new");
    EXPECT_EQ(Found(map, "/m/caf\xE9.mp3"), "new");
    EXPECT_EQ(Found(map, "/m/CAF\xE9.MP3"), "new");
    EXPECT_EQ(Found(map, "/m/caf\xC9.mp3"), "(none)");
}

TEST(RenameMap, ManyEntries_AreAllFound) {
    constexpr int Count = 50000;
    RenameMap map;
    for (int i = 0; i < Count; ++i) map.Add("/m/" + std::to_string(i) + ".mp3", std::to_string(i));
    for (int i = 0; i < Count; ++i)
        ASSERT_EQ(Found(map, "/M/" + std::to_string(i) + ".MP3"), std::to_string(i));
}

}  // namespace
}  // namespace zefta::test
