#include "ui/grid/CellBlock.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/Steps.h"
#include "core/Strings.h"

namespace zefta {

namespace {

constexpr std::string_view Special = "\t\r\n";

bool NeedsQuotes(std::string_view cell) {
    return cell.starts_with('"') || cell.find_first_of(Special) != std::string_view::npos;
}

std::string Quoted(const std::string& cell) {
    return NeedsQuotes(cell) ? "\"" + ReplaceAll(cell, "\"", "\"\"") + "\"" : cell;
}

/// Goes through a text cell by cell.
class BlockReader {
  public:
    explicit BlockReader(std::string_view text) : text_(text) {}

    bool IsAtEnd() const { return at_ == text_.size(); }

    std::string TakeCell() {
        if (const auto end = EndOfQuotes()) {
            const std::string_view inner = text_.substr(at_ + 1, *end - at_ - 1);
            if (inner.find("\"\"") != std::string_view::npos ||
                inner.find_first_of(Special) != std::string_view::npos) {
                at_ = *end + 1;
                return ReplaceAll(inner, "\"\"", "\"");
            }
        }
        const std::size_t end = std::min(text_.find_first_of(Special, at_), text_.size());
        return std::string(text_.substr(std::exchange(at_, end), end - at_));
    }

    bool TakeTab() {
        const bool isTab = !IsAtEnd() && text_[at_] == '\t';
        if (isTab) ++at_;
        return isTab;
    }

    void TakeLineEnd() {
        if (text_.substr(at_).starts_with("\r\n")) ++at_;
        if (!IsAtEnd()) ++at_;
    }

  private:
    /// Where the quotes around the whole cell end; nothing when there are none.
    std::optional<std::size_t> EndOfQuotes() const {
        if (IsAtEnd() || text_[at_] != '"') return std::nullopt;
        for (std::size_t i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != '"') continue;
            const bool isLast = i + 1 == text_.size();
            if (!isLast && text_[i + 1] == '"') {
                ++i;
            } else if (isLast || Special.find(text_[i + 1]) != std::string_view::npos) {
                return i;
            } else {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

std::size_t WidthOf(const CellBlock& block) {
    std::size_t width = 0;
    for (const auto& row : block) width = std::max(width, row.size());
    return width;
}

/// How far the block reaches along one side of the target: all of it where it fits a whole number of times.
int Extent(int size, int wanted, int room) {
    return std::min(wanted > size && wanted % size == 0 ? wanted : size, room);
}

}  // namespace

std::string TextOfBlock(const CellBlock& block) {
    std::string text;
    for (const auto& row : block) {
        if (&row != &block.front()) text += '\n';
        for (const std::string& cell : row) {
            if (&cell != &row.front()) text += '\t';
            text += Quoted(cell);
        }
    }
    return text;
}

CellBlock BlockOfText(std::string_view text) {
    CellBlock block;
    BlockReader reader(text);
    while (!reader.IsAtEnd()) {
        auto& row = block.emplace_back();
        do row.push_back(reader.TakeCell());
        while (reader.TakeTab());
        reader.TakeLineEnd();
    }
    return block;
}

std::vector<CellChange> PasteChanges(const CellBlock& block, const CellRange& target, const CellRange& grid) {
    const int height = static_cast<int>(block.size());
    const int width = static_cast<int>(WidthOf(block));
    if (height == 0 || width == 0 || target.IsEmpty()) return {};
    const int rows = Extent(height, target.RowCount(), grid.bottom - target.top + 1);
    const int columns = Extent(width, target.ColumnCount(), grid.right - target.left + 1);
    std::vector<CellChange> changes;
    for (int row = 0; row < rows; ++row) {
        const auto& cells = block[static_cast<std::size_t>(row % height)];
        for (int column = 0; column < columns; ++column) {
            const auto at = static_cast<std::size_t>(column % width);
            if (at < cells.size())
                changes.push_back({target.top + row, target.left + column, OneLine(cells[at])});
        }
    }
    return changes;
}

std::size_t PastedBytes(const CellBlock& block, std::size_t cells) {
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (const auto& row : block) {
        count += row.size();
        for (const std::string& cell : row) bytes += cell.size();
    }
    const std::size_t copies = count == 0 ? 0 : (cells + count - 1) / count;
    return bytes * std::max<std::size_t>(copies, 1);
}

CellRange BoundsOf(const std::vector<CellChange>& changes) {
    if (changes.empty()) return {};
    const CellChange& first = changes.front();
    CellRange range = {first.row, first.column, first.row, first.column};
    for (const CellChange& change : changes) {
        range.top = std::min(range.top, change.row);
        range.bottom = std::max(range.bottom, change.row);
        range.left = std::min(range.left, change.column);
        range.right = std::max(range.right, change.column);
    }
    return range;
}

}  // namespace zefta
