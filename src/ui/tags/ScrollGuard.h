#pragma once

#include <QComboBox>

namespace zefta {

/// From then on the mouse wheel changes the box only while it has the focus: who scrolls past it must not
/// choose something for many files.
void GuardAgainstScrolling(QComboBox* box);

}  // namespace zefta
