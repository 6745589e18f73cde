#include "ui/list/MainGeometry.h"

#include "core/History.h"
#include "core/Settings.h"
#include "ui/WindowGeometry.h"
#include "ui/list/FolderBrowser.h"

namespace zefta {

namespace {

constexpr auto Section = "Settings";
constexpr auto MainName = "Main";
constexpr auto ColumnsKey = "MainColumns";

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

void LoadMainWindow(App& app, QWidget& window, FolderBrowser& browser, FolderAhead* ahead) {
    TakeStoredPlace(app.userSettings, MainName, window);
    browser.SetColumnWidths(StoredColumns(app.userSettings));
    browser.SetHistory(LoadRecentFolders(app.userSettings));
    browser.ShowFirstFolder(app.state.CurrentFolder, ahead);
}

void UnloadMainWindow(App& app, QWidget& window, const FolderBrowser& browser) {
    app.state.CurrentFolder = browser.Folder();
    SaveRecentFolders(app.userSettings, browser.History());
    StorePlace(app.userSettings, MainName, window);
    SaveColumns(app.userSettings, browser.ColumnWidths());
    SaveMainSettings(app);
}

}  // namespace zefta
