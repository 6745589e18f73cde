#pragma once

#include <QIcon>
#include <QString>

namespace zefta {

/// The picture of that name among our own, such as "row-wave".
QIcon OwnIcon(const QString& name);

}  // namespace zefta
