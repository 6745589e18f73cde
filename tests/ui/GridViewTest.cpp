#include <QAction>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QScrollBar>

#include "ui/GridViewStage.h"

namespace zefta::test {
namespace {

class GridViewTest : public GridViewStage {};

using Cell = std::pair<int, int>;

// Editing.

TEST_F(GridViewTest, Typing_ReplacesTheCell_AndReturnGoesDown) {
    Type("New");
    EXPECT_TRUE(Text1().isVisible());
    EXPECT_TRUE(Text1().hasFocus());
    EXPECT_EQ(At(0, Artist), "a1") << "not before the edit ends";
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), "New");
    EXPECT_FALSE(Text1().isVisible());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(Current(), Cell(1, Artist));
    Type("Next");
    Key(Qt::Key_Enter);
    EXPECT_EQ(At(1, Artist), "Next");
    EXPECT_EQ(Current(), Cell(2, Artist));
}

TEST_F(GridViewTest, Typing_OfAnyScript_StartsTheEdit) {
    Type("Ё");
    EXPECT_EQ(FromQt(Text1().text()), "Ё");
}

TEST_F(GridViewTest, Blank_DoesNotStartTheEdit) {
    Key(Qt::Key_Space);
    EXPECT_FALSE(Text1().isVisible());
}

TEST_F(GridViewTest, ReturnInTheLastRow_StoresAndStays) {
    grid->SelectCell(2, Title);
    Type("End");
    Key(Qt::Key_Return);
    EXPECT_EQ(At(2, Title), "End");
    EXPECT_EQ(Current(), Cell(2, Title));
}

TEST_F(GridViewTest, Return_WithoutEdit_GoesDown_WithShiftUp) {
    Key(Qt::Key_Return);
    EXPECT_EQ(Current(), Cell(1, Artist));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Current(), Cell(0, Artist));
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridViewTest, UpAndDown_StoreAndMove) {
    Type("x");
    Key(Qt::Key_Down);
    EXPECT_EQ(At(0, Artist), "x");
    EXPECT_EQ(Current(), Cell(1, Artist));
    Type("y");
    Key(Qt::Key_Up);
    EXPECT_EQ(At(1, Artist), "y");
    EXPECT_EQ(Current(), Cell(0, Artist));
}

TEST_F(GridViewTest, Tab_GoesToTheNextCellThatCanBeEdited) {
    Type("x");
    Key(Qt::Key_Tab);
    EXPECT_EQ(At(0, Artist), "x");
    EXPECT_EQ(Current(), Cell(0, Title));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Current(), Cell(1, Artist)) << "the file is fixed";
    Type("y");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(At(1, Artist), "y");
    EXPECT_EQ(Current(), Cell(0, Title));
}

TEST_F(GridViewTest, Escape_LeavesTheCellUnchanged) {
    Type("x");
    Key(Qt::Key_Escape);
    EXPECT_EQ(At(0, Artist), "a1");
    EXPECT_FALSE(Text1().isVisible());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(Current(), Cell(0, Artist));
}

TEST_F(GridViewTest, F2AndDoubleClick_EditTheTextThatIsThere) {
    Key(Qt::Key_F2);
    EXPECT_EQ(FromQt(Text1().text()), "a1");
    Type("!");
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), "a1!");
    DoubleClick(1, Title);
    EXPECT_EQ(FromQt(Text1().text()), "t2");
    EXPECT_EQ(Current(), Cell(1, Title));
}

TEST_F(GridViewTest, ClickOnTheCurrentCell_EditsIt) {
    Click(1, Artist);
    EXPECT_FALSE(Text1().isVisible());
    Click(1, Artist);
    EXPECT_TRUE(Text1().isVisible());
    EXPECT_EQ(FromQt(Text1().text()), "a2");
}

TEST_F(GridViewTest, ClickOrKey_EditsTheTextThatIsThereWhereAsked) {
    grid->SetEditStart(EditStart::ClickOrKey);
    Click(1, Artist);
    EXPECT_EQ(FromQt(Text1().text()), "a2");
    Type("!");
    Click(2, Title);
    EXPECT_EQ(At(1, Artist), "a2!");
    EXPECT_EQ(FromQt(Text1().text()), "t3");
    Key(Qt::Key_Escape);
    Type("!");
    EXPECT_EQ(FromQt(Text1().text()), "t3!");
    Key(Qt::Key_Escape);
    Click(1, 0);
    EXPECT_FALSE(Text1().isVisible()) << "fixed";
}

TEST_F(GridViewTest, SelectingByTheMouse_DoesNotEdit) {
    grid->SetEditStart(EditStart::ClickOrKey);
    Click(2, Title, Qt::ControlModifier);
    EXPECT_FALSE(Text1().isVisible());
    Click(2, Artist, Qt::ShiftModifier);
    EXPECT_FALSE(Text1().isVisible());
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, PlaceOf(0, Artist));
    QTest::mouseMove(grid->viewport(), PlaceOf(1, Artist));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, PlaceOf(1, Artist));
    EXPECT_FALSE(Text1().isVisible());
}

TEST_F(GridViewTest, CellThatIsTooLongToEdit_IsNotReplacedByAKey) {
    const std::string text(100'001, 'x');
    model.Load({{"f", text, ""}});
    grid->SelectCell(0, Artist);
    Key(Qt::Key_F2);
    EXPECT_FALSE(Text1().isVisible());
    Type("y");
    EXPECT_FALSE(Text1().isVisible());
    EXPECT_EQ(At(0, Artist), text);
}

TEST_F(GridViewTest, ClickOnAnotherCell_StoresTheEdit) {
    Type("x");
    Click(2, Title);
    EXPECT_EQ(At(0, Artist), "x");
    EXPECT_FALSE(Text1().isVisible());
    EXPECT_EQ(Current(), Cell(2, Title));
}

TEST_F(GridViewTest, FixedCell_IsNotEdited) {
    grid->SelectCell(0, 0);
    Type("x");
    Key(Qt::Key_F2);
    DoubleClick(0, 0);
    EXPECT_FALSE(Text1().isVisible());
}

TEST_F(GridViewTest, Text1_LiesOverItsCell_AlsoAfterScrollingAndResizing) {
    std::vector<GridRow> rows(100, {"f", "a", "t"});
    model.Load(rows);
    grid->SelectCell(1, Artist);
    Key(Qt::Key_F2);
    const auto covers = [&] {
        return grid->visualRect(model.index(1, Artist)).adjusted(0, 0, -1, -1) == Text1().geometry();
    };
    EXPECT_TRUE(covers());
    grid->setColumnWidth(0, grid->columnWidth(0) + 30);
    EXPECT_TRUE(covers());
    window.resize(700, 320);
    QApplication::processEvents();
    EXPECT_TRUE(covers());
    grid->verticalScrollBar()->setValue(1);
    EXPECT_TRUE(covers());
    EXPECT_TRUE(Text1().isVisible());
}

TEST_F(GridViewTest, CellThatCanNotBeShownAsItIs_KeepsItsBytesUnlessEdited) {
    model.Load({{"f", "two\nlines", ""}});
    grid->SelectCell(0, Artist);
    Key(Qt::Key_F2);
    EXPECT_EQ(FromQt(Text1().text()), "two lines");
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), "two\nlines");
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridViewTest, InputMethod_StartsTheEdit) {
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8("日本"));
    QApplication::sendEvent(grid, &event);
    EXPECT_EQ(FromQt(Text1().text()), "日本");
    Key(Qt::Key_Return);
    EXPECT_EQ(At(0, Artist), "日本");
}

// The way out.

TEST_F(GridViewTest, CtrlTab_GoesOnToTheNextControl) {
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(behind->hasFocus());
    grid->setFocus();
    Key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(ahead->hasFocus());
    grid->setFocus();
    Type("x");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(behind->hasFocus());
    EXPECT_EQ(At(0, Artist), "x");
}

TEST_F(GridViewTest, TabAtTheEnds_LeavesTheGrid) {
    grid->SelectCell(2, Title);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(behind->hasFocus());
    grid->setFocus();
    grid->SelectCell(0, Artist);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(ahead->hasFocus());
}

// Blocks.

TEST_F(GridViewTest, CopyAndPaste_MoveABlock) {
    Click(0, 0);
    Click(1, Title, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "f1\ta1\tt1\nf2\ta2\tt2");
    grid->SelectCell(1, 0);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(model.Rows(),
              (std::vector<GridRow>{{"f1", "a1", "t1"}, {"f2", "a1", "t1"}, {"f3", "a2", "t2"}}));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(At(2, Title), "t3");
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridViewTest, OneValue_IsPastedIntoAllSelectedCells) {
    QApplication::clipboard()->setText("Same");
    Click(0, Artist);
    Click(2, Artist, Qt::ShiftModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    for (int row = 0; row < 3; ++row) EXPECT_EQ(At(row, Artist), "Same");
    EXPECT_EQ(At(0, Title), "t1");
}

TEST_F(GridViewTest, RowsApart_AreCopiedAlone) {
    Click(0, Artist);
    Click(2, Artist, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "a1\na3");
}

TEST_F(GridViewTest, CellsWithGaps_AreNeitherCopiedNorCut) {
    QApplication::clipboard()->setText("before");
    Click(0, Artist);
    Click(1, Title, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "before");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(model.CanUndo());
}

TEST_F(GridViewTest, CutAndDelete_ClearTheCells) {
    Click(0, 0);
    Click(0, Title, Qt::ShiftModifier);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "f1\ta1\tt1");
    EXPECT_EQ(model.Rows().front(), (GridRow{"f1", "", ""}));
    grid->SelectCell(1, Artist);
    Key(Qt::Key_Delete);
    EXPECT_EQ(At(1, Artist), "");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(At(1, Artist), "a2");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(At(0, Title), "t1");
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(At(0, Title), "");
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(At(1, Artist), "");
}

TEST_F(GridViewTest, Undo_ShowsWhatItChanged) {
    Type("x");
    Key(Qt::Key_Return);
    grid->SelectCell(2, Title);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Current(), Cell(0, Artist));
}

TEST_F(GridViewTest, Menu_HasTheCommands_EnabledAsThereAreSteps) {
    const QList<QAction*> actions = grid->actions();
    ASSERT_EQ(actions.size(), 6);
    EXPECT_EQ(grid->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_FALSE(actions[0]->isEnabled());
    actions[5]->trigger();
    EXPECT_EQ(At(0, Artist), "");
    EXPECT_TRUE(actions[0]->isEnabled());
    actions[0]->trigger();
    EXPECT_EQ(At(0, Artist), "a1");
    EXPECT_FALSE(actions[0]->isEnabled());
    EXPECT_TRUE(actions[1]->isEnabled());
    actions[1]->trigger();
    EXPECT_EQ(At(0, Artist), "");
    for (const QAction* action : actions) EXPECT_FALSE(action->text().isEmpty());
}

// The look.

TEST_F(GridViewTest, Columns_FillTheWidthByTheirShares) {
    window.resize(900, 300);
    QApplication::processEvents();
    const auto all = [&] { return grid->columnWidth(0) + grid->columnWidth(1) + grid->columnWidth(2); };
    EXPECT_EQ(all(), grid->viewport()->width());
    EXPECT_NEAR(grid->columnWidth(0), grid->columnWidth(1), 2);
    grid->setColumnWidth(0, grid->columnWidth(0) / 2);
    window.resize(1000, 300);
    QApplication::processEvents();
    EXPECT_EQ(all(), grid->viewport()->width());
    EXPECT_LT(grid->columnWidth(0), grid->columnWidth(1) * 2 / 3);
}

TEST_F(GridViewTest, Readers_HearTheKeysAndTheColumn) {
    EXPECT_FALSE(grid->accessibleDescription().isEmpty());
    Key(Qt::Key_F2);
    EXPECT_EQ(FromQt(Text1().accessibleName()), "Artist");
}

TEST_F(GridViewTest, TenThousandRows_StaySmooth) {
    std::vector<GridRow> rows;
    for (int i = 0; i < 10'000; ++i) rows.push_back({"file", "artist " + std::to_string(i), "title"});
    QElapsedTimer timer;
    timer.start();
    model.Load(rows);
    QApplication::processEvents();
    for (int i = 0; i < 50; ++i) {
        grid->SelectCell(i * 200, Artist);
        Type("x");
        Key(Qt::Key_Return);
    }
    grid->selectAll();
    Key(Qt::Key_C, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(At(9'999, Title), "title");
    // A look at every row for every step would take minutes.
    EXPECT_LT(timer.elapsed(), 20'000);
}

}  // namespace
}  // namespace zefta::test
