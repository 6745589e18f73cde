#pragma once

#include <QString>

#include "library/ListColours.h"
#include "ui/WindowTexts.h"

namespace zefta {

// What icons and colours tell, in words: for tool tips and screen readers.

WindowText KindWords(ListKind kind);
/// "" for a file without a bitrate.
QString BitrateWords(const App& app, ListKind kind, const RowColours& colours);
/// "" for a year that does not stand out.
QString YearWords(const App& app, const RowColours& colours);

}  // namespace zefta
