#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zefta {

/// Texts of cells, row by row; UTF-8. Rows may differ in length.
using CellBlock = std::vector<std::vector<std::string>>;

/// Some rows and columns of a grid; first and last are both within. Empty when a last is before its first.
struct CellRange {
    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;

    bool IsEmpty() const { return bottom < top || right < left; }
    int RowCount() const { return bottom - top + 1; }
    int ColumnCount() const { return right - left + 1; }
    bool operator==(const CellRange&) const = default;
};

/// A new text for a cell.
struct CellChange {
    int row = 0;
    int column = 0;
    std::string text;

    bool operator==(const CellChange&) const = default;
};

/// The block as spreadsheets exchange it: a line for each row, a tab between cells; a cell that holds one of
/// these, or begins with a quote, stands in quotes, with its own doubled.
std::string TextOfBlock(const CellBlock& block);

/// The reverse. Any kind of line end counts; one behind the last row does not make another. Quotes that
/// enclose nothing that needs them are the cell's own: a title may have some. "" gives no rows.
CellBlock BlockOfText(std::string_view text);

/// What pasting changes: a single cell goes to all of the target, a block that fits into the target several
/// times is repeated, any other stands once at the target's first cell, cut at the end of the grid. A cell
/// is one line: line ends in it become blanks.
std::vector<CellChange> PasteChanges(const CellBlock& block, const CellRange& target, const CellRange& grid);

/// Bytes of text in all changes that pasting the block to so many cells makes, at most.
std::size_t PastedBytes(const CellBlock& block, std::size_t cells);

/// Around all the cells; empty without changes.
CellRange BoundsOf(const std::vector<CellChange>& changes);

}  // namespace zefta
