#pragma once

#include <QProxyStyle>

namespace zefta {

/// The toolkit's own style, which looks the same and is painted sooner. Its pictures of the buttons that bars
/// get when their items find no room are black in dark palettes, too, and in pixels, for which all plugins
/// that read such files are loaded at the first bar, whether it shows such a button or not: we have our own.
/// The lines around the bar are of half-transparent colour, which the toolkit hands to a pool of threads,
/// piece by piece.
class OwnStyle : public QProxyStyle {
  public:
    /// For a desktop that brings no style.
    static constexpr const char* BaseName = "fusion";

    OwnStyle() : QProxyStyle(BaseName) {}

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace zefta
