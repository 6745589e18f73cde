#pragma once

#include <string>

#include "library/ListRow.h"
#include "library/ListedFile.h"

namespace zefta {

/// The names of the columns that people see, as a line of the table.
std::string TableHeader();

/// Appends the row as a line of the table. A control character in a cell (a tag may hold any) becomes a
/// blank, so that a line is a row and a tab is a column.
void AppendTableLine(std::string& text, const ListRow& row);

/// Appends the entry as a JSON object (RFC 8259) and a line end. Texts are those of the row, numbers those of
/// the record.
void AppendJsonLine(std::string& text, const ListRow& row, ListKind kind, const ListedFile& file);

}  // namespace zefta
