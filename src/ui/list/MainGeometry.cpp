#include "ui/list/MainGeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "core/History.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "ui/list/FolderBrowser.h"

namespace zefta {

namespace {

constexpr auto Section = "Settings";
constexpr auto ColumnsKey = "MainColumns";
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

constexpr Measure Left = {"MainLeft", 1000};
constexpr Measure Top = {"MainTop", 1000};
constexpr Measure Width = {"MainWidth", 10000};
constexpr Measure Height = {"MainHeight", 8000};
constexpr auto StateKey = "MainWindowState";

double Units(const SettingsStore& store, const Measure& measure) {
    const auto text = store.GetValue(Section, measure.key);
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

std::vector<int> StoredColumns(const SettingsStore& store) {
    std::vector<int> widths;
    const QString text = QString::fromStdString(store.GetValue(Section, ColumnsKey).value_or(""));
    for (const QString& width : text.split(',', Qt::SkipEmptyParts)) widths.push_back(width.toInt());
    return widths;
}

void SaveColumns(SettingsStore& store, const std::vector<int>& widths) {
    if (widths.empty()) return;
    QStringList texts;
    for (const int width : widths) texts.append(QString::number(width));
    store.Apply({{Section, ColumnsKey, texts.join(',').toStdString()}});
}

}  // namespace

WindowGeometry LoadGeometry(const SettingsStore& store) {
    double width = Units(store, Width);
    double height = Units(store, Height);
    if (width < SmallestSize && height < SmallestSize) {
        width = Width.standard;
        height = Height.standard;
    }
    const double state = LeadingNumber(store.GetValue(Section, StateKey).value_or("0"));
    const QRect place(Pixels(Units(store, Left)), Pixels(Units(store, Top)), Pixels(width), Pixels(height));
    return {place, state == Maximised};
}

void SaveGeometry(SettingsStore& store, const WindowGeometry& geometry) {
    store.Apply({{Section, StateKey, std::to_string(geometry.isMaximised ? Maximised : 0)},
                 {Section, Left.key, UnitsText(geometry.place.x())},
                 {Section, Top.key, UnitsText(geometry.place.y())},
                 {Section, Width.key, UnitsText(geometry.place.width())},
                 {Section, Height.key, UnitsText(geometry.place.height())}});
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

void LoadMainWindow(App& app, QWidget& window, FolderBrowser& browser) {
    const WindowGeometry geometry = LoadGeometry(app.userSettings);
    const QRect place = OnScreens(geometry.place, Screens());
    window.move(place.topLeft());
    window.resize(place.size());
    if (geometry.isMaximised) window.setWindowState(Qt::WindowMaximized);
    browser.SetColumnWidths(StoredColumns(app.userSettings));
    browser.SetHistory(LoadRecentFolders(app.userSettings));
    browser.ShowFirstFolder(app.state.CurrentFolder);
}

void UnloadMainWindow(App& app, QWidget& window, const FolderBrowser& browser) {
    app.state.CurrentFolder = browser.Folder();
    SaveRecentFolders(app.userSettings, browser.History());
    SaveGeometry(app.userSettings, {NormalPlace(window), window.isMaximized()});
    SaveColumns(app.userSettings, browser.ColumnWidths());
    SaveMainSettings(app);
}

}  // namespace zefta
