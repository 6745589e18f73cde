#pragma once

#include <QMessageBox>
#include <QString>
#include <string>

#include "platform/Desktop.h"

namespace zefta {

/// A text of ours as a box shows it: with line ends as the toolkit has them, and places at which a long path
/// or name may be broken, which the eye does not see. The middle of a very long one is left out.
QString BoxText(const std::string& text);

/// A plain box has none.
QMessageBox::Icon BoxIcon(BoxKind kind);

}  // namespace zefta
