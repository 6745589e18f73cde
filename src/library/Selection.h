#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "library/ListRow.h"

namespace zefta {

/// A row of the file list that a command is to work on.
struct SelectedRow {
    RowIcon icon = RowIcon::Compressed;
    /// As the file system has it; ".." for the row that goes up.
    std::string name;
};

/// What the person has selected when a command of the main window begins.
struct Selection {
    /// The folder that the list shows.
    std::string folder;
    /// In the order of the list.
    std::vector<SelectedRow> rows;
};

/// What the window wants to hear while a command works on its selection.
struct SelectionWatch {
    /// What is at hand, for the status line.
    std::function<void(const std::string& text)> status = [](const std::string&) {};
    /// A row whose work has succeeded: it need not stay selected.
    std::function<void(const std::string& name)> done = [](const std::string&) {};
};

/// The names of the selected rows of these kinds, in list order.
std::vector<std::string> NamesOf(const Selection& selection, std::initializer_list<RowIcon> icons);

}  // namespace zefta
