#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/App.h"

namespace zefta {

enum class ListForm { Table, Json };

/// Prints the rows of the file list for each of the folders, files or masks, for the current folder when
/// there is none: a table with a header row, its cells separated by tabs, or one JSON object a line. A file
/// that can't be read gives its row; a folder that can't be entered is told by a box, and the others are
/// listed.
void PrintList(App& app, const std::vector<std::string>& specs, ListForm form, std::ostream& output);

}  // namespace zefta
