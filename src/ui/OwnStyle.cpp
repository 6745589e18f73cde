#include "ui/OwnStyle.h"

#include "ui/Resources.h"

namespace zefta {

QIcon OwnStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                             const QWidget* widget) const {
    switch (picture) {
        case SP_ToolBarHorizontalExtensionButton:
            return OwnIcon("more-right");
        case SP_ToolBarVerticalExtensionButton:
            return OwnIcon("more-down");
        default:
            return QProxyStyle::standardIcon(picture, option, widget);
    }
}

}  // namespace zefta
