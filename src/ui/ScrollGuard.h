#pragma once

#include <QWidget>

namespace zefta {

/// From then on the mouse wheel changes the box, of choices or of a number, only while it has the focus: who
/// scrolls past it must not choose something for many files.
void GuardAgainstScrolling(QWidget* box);

}  // namespace zefta
