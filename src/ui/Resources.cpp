#include "ui/Resources.h"

#include "ui/OwnIconEngine.h"

// The pictures lie in a static library, whose initialisers nobody runs unless told.
static void UseResources() {
    Q_INIT_RESOURCE(zefta);
}

namespace zefta {

QIcon OwnIcon(const QString& name) {
    UseResources();
    return QIcon(new OwnIconEngine(name));
}

}  // namespace zefta
