#include "ui/main/RowState.h"

namespace zefta {

RowState RowStateOf(const std::optional<SelectedRow>& focused, const std::vector<SelectedRow>& selected,
                    bool force, const CodePage& ansi) {
    if (!focused || force) {
        if (selected.empty()) return {};
        const RowIcon last = selected.back().icon;
        return {last == RowIcon::Compressed, false, last == RowIcon::Wave, {}};
    }
    return {focused->icon == RowIcon::Compressed, focused->icon == RowIcon::Playlist,
            focused->icon == RowIcon::Wave, ansi.ToText(focused->name)};
}

}  // namespace zefta
