// The grid and the clipboard; what a cell holds beside what it shows.

#include "ui/GridViewStage.h"

namespace zefta::test {
namespace {

class GridClipboardTest : public GridViewStage {};

TEST_F(GridClipboardTest, HiddenValues_StayBehindAnEditOfTheShownOne) {
    const std::string two = std::string("first\0second", 12);
    model.Load({{"f", two, "t"}});
    grid->SelectCell(0, Artist);
    Type("other");
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), std::string("other\0second", 12));
    grid->SelectCell(0, Artist);
    Key(Qt::Key_F2);
    Text1().clear();
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), "") << "an emptied field has no value at all";
}

TEST_F(GridClipboardTest, TextThatWouldTakeAllMemory_IsNotPasted) {
    std::vector<GridRow> rows;
    for (int row = 0; row < 2000; ++row) rows.push_back({"f", "a", "t"});
    model.Load(rows);
    QApplication::clipboard()->setText(QString(100'000, 'x'));
    grid->setFocus();
    grid->selectAll();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(model.CanUndo());
    grid->SelectCell(0, Artist);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(At(0, Artist).size(), 100'000U);
}

TEST_F(GridClipboardTest, RaggedBlock_IsSelectedWholeBehindThePaste) {
    QApplication::clipboard()->setText("x\ty\nz");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(At(0, Title), "y");
    EXPECT_EQ(At(1, Artist), "z");
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 4);
}

TEST_F(GridClipboardTest, OneValueOverCellsApart_LeavesThoseBetween) {
    QApplication::clipboard()->setText("Same");
    Click(0, Artist);
    Click(2, Artist, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(At(0, Artist), "Same");
    EXPECT_EQ(At(1, Artist), "a2");
    EXPECT_EQ(At(2, Artist), "Same");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(model.CanUndo()) << "one step";
}

TEST_F(GridClipboardTest, BlockOverCellsApart_IsNotPasted) {
    QApplication::clipboard()->setText("x\ty");
    Click(0, Artist);
    Click(2, Artist, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridClipboardTest, HiddenValues_AreCopiedWithinTheGridAlone) {
    const std::string two = std::string("first\0second", 12);
    model.Load({{"f", two, "t"}, {"g", "", ""}});
    grid->SelectCell(0, Artist);
    grid->selectionModel()->select(model.index(0, Title), QItemSelectionModel::Select);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "first\tt");
    grid->SelectCell(1, Artist);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(At(1, Title), "t");
    EXPECT_TRUE(At(1, Artist).starts_with("first"));
    EXPECT_TRUE(At(1, Artist).ends_with("second"));
}

TEST_F(GridClipboardTest, OldKeysOfTheClipboard_WorkAsWell) {
    Key(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "a1");
    grid->SelectCell(1, Artist);
    Key(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(At(1, Artist), "a1");
    Key(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(At(1, Artist), "");
    grid->SelectCell(2, Artist);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(At(2, Artist), "");
    EXPECT_FALSE(Text1().isVisible());
}

TEST_F(GridClipboardTest, CurrentCellWithoutSelection_IsCutWhole) {
    grid->clearSelection();
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "a1");
    EXPECT_EQ(At(0, Artist), "");
}

}  // namespace
}  // namespace zefta::test
