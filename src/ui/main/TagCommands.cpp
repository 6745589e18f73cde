// The commands of the main window that open a grid of tags.

#include "ui/desktop/ExitWindowsDialog.h"
#include "ui/encode/EncodeDialog.h"
#include "ui/list/StatusPanels.h"
#include "ui/main/MainCommands.h"
#include "ui/tags/ChangeTagsDialog.h"
#include "ui/tags/ChangeTagsExDialog.h"

namespace zefta {

int MainCommands::RunInFront(BatchDialog& dialog) {
    putInFront_(&dialog);
    const int result = dialog.exec();
    putInFront_(nullptr);
    return result;
}

void MainCommands::OnAdvancedEncoding(int) {
    const std::string status = panels_.StatusText(1);
    bool hasWorked = false;
    SelectionWatch watch = WatchOfRun();
    watch.status = [this, &hasWorked](const std::string& text) {
        hasWorked = true;
        panels_.SetStatusText(1, text);
    };
    const auto names = NamesOf(CurrentSelection(), {RowIcon::Wave});
    EncodeDialog dialog(app_, browser_.Folder(), names, watch, &window_);
    const bool isDone = RunInFront(dialog) == QDialog::Accepted;
    panels_.SetStatusText(1, status);
    // Work that was ended has left its files too.
    if (isDone || hasWorked) browser_.RefreshContents();
    if (dialog.WantsPowerOff()) RunPowerOffCountdown(app_);
}

void MainCommands::OnChangeTags(int) {
    TagFiles files{browser_.Folder(), NamesOf(CurrentSelection(), {RowIcon::Compressed}), {}};
    for (const BrowserRow& row : browser_.Rows()) {
        if (row.icon == RowIcon::Compressed) files.all.push_back(row.name);
    }
    const auto done = [this](const std::string& name) {
        browser_.RefillRow(name, name);
        browser_.SetRowSelected(name, false);
    };
    ChangeTagsDialog dialog(app_, std::move(files), done, &window_);
    RunInFront(dialog);
    UpdateMenuAndToolbar(false);
}

void MainCommands::OnChangeTagsEx(int) {
    const std::string folder = browser_.Folder();
    const auto rows = LoadTagRows(app_, folder, NamesOf(CurrentSelection(), {RowIcon::Compressed}));
    if (!rows) return;
    const auto done = [this](const std::string& name) { browser_.RefillRow(name, name); };
    ChangeTagsExDialog dialog(app_, folder, *rows, done, &window_);
    RunInFront(dialog);
    UpdateMenuAndToolbar(false);
}

}  // namespace zefta
