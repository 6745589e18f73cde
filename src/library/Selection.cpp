#include "library/Selection.h"

#include <algorithm>

namespace zefta {

std::vector<std::string> NamesOf(const Selection& selection, std::initializer_list<RowIcon> icons) {
    std::vector<std::string> names;
    for (const SelectedRow& row : selection.rows) {
        if (std::find(icons.begin(), icons.end(), row.icon) != icons.end()) names.push_back(row.name);
    }
    return names;
}

}  // namespace zefta
