#include <gtest/gtest.h>

#include "ui/grid/CellBlock.h"

namespace zefta::test {
namespace {

TEST(CellBlock, Text_HasATabBetweenCellsAndALineForEachRow) {
    EXPECT_EQ(TextOfBlock({{"a", "b"}, {"", "d"}}), "a\tb\n\td");
    EXPECT_EQ(TextOfBlock({{"one"}}), "one");
    EXPECT_EQ(TextOfBlock({}), "");
}

TEST(CellBlock, TextAndBack_AgreeForEveryCell) {
    const CellBlock block = {
        {"a\tb", "c\nd", "\"Heroes\""}, {"say \"x\"", "", "\""}, {"\"\"", "a\"\tb", "é"}};
    EXPECT_EQ(BlockOfText(TextOfBlock(block)), block);
}

TEST(CellBlock, Block_OfWhatSpreadsheetsAndEditorsPutThere) {
    const std::pair<const char*, CellBlock> cases[] = {
        {"", {}},
        {"a", {{"a"}}},
        {"a\n", {{"a"}}},
        {"a\r\nb\r\n", {{"a"}, {"b"}}},
        {"a\rb", {{"a"}, {"b"}}},
        {"a\tb\tc", {{"a", "b", "c"}}},
        {"\t", {{"", ""}}},
        {"\n\nx", {{""}, {""}, {"x"}}},
        {"\"Heroes\"", {{"\"Heroes\""}}},
        {"\"Heroes\" (live)\tx", {{"\"Heroes\" (live)", "x"}}},
        {"\"\"\"Heroes\"\"\"\tx", {{"\"Heroes\"", "x"}}},
        {"\"two\nlines\"\tx\ny", {{"two\nlines", "x"}, {"y"}}},
        {"\"open\tx", {{"\"open", "x"}}},
        {"12\" mix\tx", {{"12\" mix", "x"}}},
    };
    for (const auto& [text, block] : cases) EXPECT_EQ(BlockOfText(text), block) << text;
}

constexpr CellRange Grid = {0, 0, 9, 3};

TEST(PasteChanges, OneValue_GoesToTheWholeSelection) {
    EXPECT_EQ(PasteChanges({{"x"}}, {2, 1, 3, 2}, Grid),
              (std::vector<CellChange>{{2, 1, "x"}, {2, 2, "x"}, {3, 1, "x"}, {3, 2, "x"}}));
}

TEST(PasteChanges, Block_StandsOnceAtTheFirstCell) {
    const CellBlock block = {{"a", "b"}, {"c", "d"}};
    const std::vector<CellChange> once = {{4, 1, "a"}, {4, 2, "b"}, {5, 1, "c"}, {5, 2, "d"}};
    EXPECT_EQ(PasteChanges(block, {4, 1, 4, 1}, Grid), once);
    EXPECT_EQ(PasteChanges(block, {4, 1, 6, 3}, Grid), once);
}

TEST(PasteChanges, Block_IsRepeatedWhereItFitsSeveralTimes) {
    EXPECT_EQ(PasteChanges({{"a"}, {"b"}}, {0, 0, 3, 0}, Grid),
              (std::vector<CellChange>{{0, 0, "a"}, {1, 0, "b"}, {2, 0, "a"}, {3, 0, "b"}}));
}

TEST(PasteChanges, Block_IsCutAtTheEndOfTheGrid) {
    EXPECT_EQ(PasteChanges({{"a", "b"}, {"c", "d"}}, {9, 3, 9, 3}, Grid),
              (std::vector<CellChange>{{9, 3, "a"}}));
}

TEST(PasteChanges, RowsOfSeveralLengths_LeaveTheCellsTheyLack) {
    EXPECT_EQ(PasteChanges({{"a", "b"}, {"c"}}, {0, 0, 0, 0}, Grid),
              (std::vector<CellChange>{{0, 0, "a"}, {0, 1, "b"}, {1, 0, "c"}}));
}

TEST(PasteChanges, LineEndsWithinACell_BecomeBlanks) {
    EXPECT_EQ(PasteChanges({{"a\r\nb\tc"}}, {0, 0, 0, 0}, Grid), (std::vector<CellChange>{{0, 0, "a b c"}}));
}

TEST(PasteChanges, NothingToPasteOrNowhere_IsNoChange) {
    EXPECT_TRUE(PasteChanges({}, {0, 0, 1, 1}, Grid).empty());
    EXPECT_TRUE(PasteChanges({{"a"}}, {}, Grid).empty());
}

}  // namespace
}  // namespace zefta::test
