#pragma once

#include <QProxyStyle>

namespace zefta {

/// The toolkit's own style, with our pictures of the buttons that bars get when their items find no room: its
/// pictures are black in dark palettes, too, and in pixels, for which all plugins that read such files are
/// loaded at the first bar, whether it shows such a button or not.
class OwnStyle : public QProxyStyle {
  public:
    /// For a desktop that brings no style.
    static constexpr const char* BaseName = "fusion";

    OwnStyle() : QProxyStyle(BaseName) {}

    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace zefta
