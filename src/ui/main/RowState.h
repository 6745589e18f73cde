#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/Selection.h"
#include "platform/CodePage.h"

namespace zefta {

/// What menus, toolbar and status line show for the rows that the person has chosen.
struct RowState {
    bool compressed = false;
    bool playlist = false;
    bool wave = false;
    /// For panel 1.
    std::string text;

    bool operator==(const RowState&) const = default;
};

/// With a row that has the focus its kind decides. Without one, or with `force`, the last selected row does,
/// and a playlist never.
RowState RowStateOf(const std::optional<SelectedRow>& focused, const std::vector<SelectedRow>& selected,
                    bool force, const CodePage& ansi);

}  // namespace zefta
