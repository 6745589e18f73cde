#include "ui/WindowGeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "core/Numbers.h"

namespace zefta {

namespace {

constexpr auto PlaceSection = "Settings";
/// Stored numbers are so many to a logical pixel.
constexpr double UnitsPerPixel = 15;
/// No screen is larger; a store that a person edited may hold any number.
constexpr double LargestUnits = 1e6;
constexpr double SmallestSize = 5000;
constexpr int Maximised = 2;

struct Measure {
    const char* key;
    double standard;
};

constexpr Measure Left = {"Left", 1000};
constexpr Measure Top = {"Top", 1000};
constexpr Measure Width = {"Width", 10000};
constexpr Measure Height = {"Height", 8000};
constexpr auto StateKey = "WindowState";

double Units(const SettingsStore& store, const std::string& window, const Measure& measure) {
    const auto text = store.GetValue(PlaceSection, window + measure.key);
    const double units = text ? LeadingNumber(*text) : measure.standard;
    return std::clamp(units, -LargestUnits, LargestUnits);
}

int Pixels(double units) {
    return qRound(units / UnitsPerPixel);
}

std::string UnitsText(int pixels) {
    return NumberText(pixels * UnitsPerPixel);
}

/// Of the window in its normal state, whatever state it is in. That of a maximised one has no frame.
QRect NormalPlace(const QWidget& window) {
    return window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
}

QList<QRect> Screens() {
    QList<QRect> places;
    for (const QScreen* screen : QGuiApplication::screens()) places.append(screen->availableGeometry());
    return places;
}

}  // namespace

WindowGeometry LoadGeometry(const SettingsStore& store, const std::string& window) {
    double width = Units(store, window, Width);
    double height = Units(store, window, Height);
    if (width < SmallestSize && height < SmallestSize) {
        width = Width.standard;
        height = Height.standard;
    }
    const double state = LeadingNumber(store.GetValue(PlaceSection, window + StateKey).value_or("0"));
    const QRect place(Pixels(Units(store, window, Left)), Pixels(Units(store, window, Top)), Pixels(width),
                      Pixels(height));
    return {place, state == Maximised};
}

void SaveGeometry(SettingsStore& store, const std::string& window, const WindowGeometry& geometry) {
    store.Apply({{PlaceSection, window + StateKey, std::to_string(geometry.isMaximised ? Maximised : 0)},
                 {PlaceSection, window + Left.key, UnitsText(geometry.place.x())},
                 {PlaceSection, window + Top.key, UnitsText(geometry.place.y())},
                 {PlaceSection, window + Width.key, UnitsText(geometry.place.width())},
                 {PlaceSection, window + Height.key, UnitsText(geometry.place.height())}});
}

QRect OnScreens(const QRect& place, const QList<QRect>& screens) {
    if (screens.isEmpty()) return place;
    const auto shared = [&](const QRect& screen) {
        const QRect common = screen.intersected(place);
        return common.width() * common.height();
    };
    const QRect screen =
        *std::max_element(screens.begin(), screens.end(),
                          [&](const QRect& a, const QRect& b) { return shared(a) < shared(b); });
    QRect moved(place.topLeft(), place.size().boundedTo(screen.size()));
    moved.moveRight(std::min(moved.right(), screen.right()));
    moved.moveBottom(std::min(moved.bottom(), screen.bottom()));
    moved.moveLeft(std::max(moved.left(), screen.left()));
    moved.moveTop(std::max(moved.top(), screen.top()));
    return moved;
}

void TakeStoredPlace(const SettingsStore& store, const std::string& window, QWidget& widget) {
    const WindowGeometry geometry = LoadGeometry(store, window);
    const QRect place = OnScreens(geometry.place, Screens());
    widget.move(place.topLeft());
    widget.resize(place.size());
    if (geometry.isMaximised) widget.setWindowState(Qt::WindowMaximized);
}

void StorePlace(SettingsStore& store, const std::string& window, const QWidget& widget) {
    SaveGeometry(store, window, {NormalPlace(widget), widget.isMaximized()});
}

}  // namespace zefta
