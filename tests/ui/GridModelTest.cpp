#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QtText.h"
#include "ui/grid/GridModel.h"

namespace zefta::test {
namespace {

class GridModelTest : public ::testing::Test {
  protected:
    GridModelTest() { model.Load({{"f", "a", "b"}, {"g", "c", "d"}}); }

    using Rows = std::vector<GridRow>;

    GridModel model{{{"File", true}, {"Artist"}, {"Title"}}};
};

TEST_F(GridModelTest, CellsAndHeadings_AreShown) {
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 3);
    EXPECT_EQ(FromQt(model.index(1, 2).data().toString()), "d");
    EXPECT_EQ(FromQt(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString()), "Artist");
    EXPECT_EQ(model.headerData(1, Qt::Vertical, Qt::DisplayRole).toInt(), 2);
    EXPECT_FALSE(model.flags(model.index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_TRUE(model.flags(model.index(0, 1)) & Qt::ItemIsEditable);
    EXPECT_EQ(model.Whole(), (CellRange{0, 0, 1, 2}));
}

TEST_F(GridModelTest, WhatCanNotBeShown_StaysInTheCell) {
    const std::string odd = std::string("two\nlines\0rest", 14);
    model.Load({{"f", odd, ""}});
    EXPECT_EQ(FromQt(model.ShownAt(0, 1)), "two lines");
    EXPECT_EQ(FromQt(model.index(0, 1).data().toString()), "two lines");
    EXPECT_EQ(model.TextAt(0, 1), odd);
}

TEST_F(GridModelTest, Change_IsOneStepHoweverManyCells) {
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.Change({{0, 1, "A"}, {1, 2, "D"}}));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(model.Rows(), (Rows{{"f", "A", "b"}, {"g", "c", "D"}}));
    EXPECT_EQ(model.Undo(), (CellRange{0, 1, 1, 2}));
    EXPECT_EQ(model.Rows(), (Rows{{"f", "a", "b"}, {"g", "c", "d"}}));
    EXPECT_FALSE(model.CanUndo());
    EXPECT_EQ(model.Redo(), (CellRange{0, 1, 1, 2}));
    EXPECT_EQ(model.Rows(), (Rows{{"f", "A", "b"}, {"g", "c", "D"}}));
    EXPECT_FALSE(model.CanRedo());
}

TEST_F(GridModelTest, ManySteps_GoBackAndForthInOrder) {
    for (const char* text : {"1", "2", "3"}) model.Change({{0, 1, text}});
    model.Undo();
    model.Undo();
    EXPECT_EQ(model.TextAt(0, 1), "1");
    model.Redo();
    EXPECT_EQ(model.TextAt(0, 1), "2");
    model.Change({{0, 1, "other"}});
    EXPECT_FALSE(model.CanRedo());
    model.Undo();
    EXPECT_EQ(model.TextAt(0, 1), "2");
}

TEST_F(GridModelTest, CellThatIsChangedTwiceInAStep_ComesBack) {
    model.Change({{0, 1, "x"}, {0, 1, "y"}});
    EXPECT_EQ(model.TextAt(0, 1), "y");
    model.Undo();
    EXPECT_EQ(model.TextAt(0, 1), "a");
    model.Redo();
    EXPECT_EQ(model.TextAt(0, 1), "y");
}

TEST_F(GridModelTest, FixedCellsSameTextsAndPlacesOutside_AreNoChange) {
    EXPECT_FALSE(model.Change({{0, 0, "new name"}, {0, 1, "a"}, {2, 1, "x"}, {0, 3, "x"}, {-1, 1, "x"}}));
    EXPECT_FALSE(model.CanUndo());
    EXPECT_TRUE(model.Change({{0, 0, "new name"}, {0, 1, "x"}}));
    EXPECT_EQ(model.TextAt(0, 0), "f");
}

TEST_F(GridModelTest, UndoWithoutAStep_DoesNothing) {
    EXPECT_TRUE(model.Undo().IsEmpty());
    EXPECT_TRUE(model.Redo().IsEmpty());
}

TEST_F(GridModelTest, RowThatIsTakenOut_TakesItsStepsAlong) {
    QSignalSpy history(&model, &GridModel::HistoryChanged);
    model.Change({{0, 1, "x"}});
    model.RemoveRow(0);
    EXPECT_EQ(model.Rows(), (Rows{{"g", "c", "d"}}));
    EXPECT_FALSE(model.CanUndo());
    EXPECT_EQ(history.count(), 2);
}

TEST_F(GridModelTest, RowThatIsTakenOut_LeavesTheStepsOfOthers) {
    model.Load({{"f", "a", "b"}, {"g", "c", "d"}, {"h", "e", "f"}});
    model.Change({{0, 1, "both"}, {2, 1, "both"}});
    model.Change({{1, 1, "gone"}});
    model.Change({{2, 2, "last"}});
    model.Undo();
    model.RemoveRow(1);
    EXPECT_TRUE(model.CanRedo());
    model.Redo();
    EXPECT_EQ(model.Rows(), (Rows{{"f", "both", "b"}, {"h", "both", "last"}}));
    EXPECT_EQ(model.Undo(), (CellRange{1, 2, 1, 2}));
    EXPECT_EQ(model.Undo(), (CellRange{0, 1, 1, 1}));
    EXPECT_EQ(model.Rows(), (Rows{{"f", "a", "b"}, {"h", "e", "f"}}));
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridModelTest, OtherRows_ForgetTheSteps) {
    model.Change({{0, 1, "x"}});
    model.Load({{"f", "a", "b"}});
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridModelTest, LongText_IsShownUpToAWholeCharacter) {
    std::string text = "x";
    for (int i = 0; i < 2'000; ++i) text += "ё";
    model.Load({{"f", text, ""}});
    const std::string shown = FromQt(model.index(0, 1).data().toString());
    EXPECT_LT(shown.size(), 2'001U);
    EXPECT_EQ(shown, text.substr(0, shown.size()));
    EXPECT_EQ(shown.size() % 2, 1U);
}

}  // namespace
}  // namespace zefta::test
