#include "ui/main/MainMenu.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "ui/QtText.h"

namespace zefta {

namespace {

constexpr std::int32_t NoPresetCaption = 32118;
constexpr std::int32_t TemplateRule = 6;

std::string ItemName(const IndexedList& list, std::int32_t index) {
    return std::string(list.list) + "_" + std::to_string(index);
}

/// A name of the person's is no caption: its "&" marks no key.
QString WithoutKey(const std::string& name) {
    return ToQt(name).replace("&", "&&");
}

}  // namespace

MainMenu::MainMenu(App& app, QMenuBar& bar) : QObject(&bar), app_(app) {
    for (const MenuRow& row : MenuTable()) AddRow(bar, row);
    for (const IndexedList& list : IndexedLists()) AddList(list);
    // The same rows of the bar for all folders: what is not for them can't be opened.
    for (const RowIcon icon : {RowIcon::Compressed, RowIcon::Playlist, RowIcon::Wave})
        SetMenuEnabled(icon, false);
    LoadCaptions();
}

void MainMenu::AddRow(QMenuBar& bar, const MenuRow& row) {
    QMenu* parent = row.menu != nullptr ? menus_.at(row.menu) : nullptr;
    if (row.command == Command::None) {
        QMenu* menu = parent != nullptr ? parent->addMenu(QString()) : bar.addMenu(QString());
        menu->setObjectName(row.control);
        menus_[row.control] = menu;
        return;
    }
    QAction* item = parent->addAction(QString());
    item->setObjectName(row.control);
    item->setShortcuts(QKeySequence::listFromString(row.keys));
    // A key that is held would start one program after the other.
    item->setAutoRepeat(false);
    // A program menu of the desktop would take items with some names out of ours.
    item->setMenuRole(QAction::NoRole);
    connect(item, &QAction::triggered, this, [this, command = row.command] { emit Chosen(command, 0); });
    items_[row.control] = item;
}

void MainMenu::AddList(const IndexedList& list) {
    QMenu* menu = menus_.at(list.menu);
    for (const IndexedRow& row : list.rows) {
        QAction* item = row.IsSeparator() ? menu->addSeparator() : menu->addAction(QString());
        const std::string name = ItemName(list, row.index);
        item->setObjectName(ToQt(name));
        connect(item, &QAction::triggered, this,
                [this, command = list.command, index = row.index] { emit Chosen(command, index); });
        items_[name] = item;
    }
}

void MainMenu::LoadCaptions() {
    for (const MenuRow& row : MenuTable()) {
        const QString caption = ToQt(app_.messages.GetMessage(row.message));
        if (row.command == Command::None) {
            menus_.at(row.control)->setTitle(caption);
        } else {
            items_.at(row.control)->setText(caption);
        }
    }
    for (const IndexedList& list : IndexedLists()) LoadListCaptions(list);
}

void MainMenu::LoadListCaptions(const IndexedList& list) {
    const std::vector<bool> shown = ShownRows(list, app_.state);
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        const IndexedRow& row = list.rows[i];
        QAction& item = *items_.at(ItemName(list, row.index));
        item.setVisible(shown[i]);
        if (const CustomPreset* preset = PresetOf(list, row, app_.state)) {
            ApplyPresetCaption(*preset, item);
        } else if (!row.IsSeparator()) {
            item.setText(row.message != 0 ? ToQt(app_.messages.GetMessage(row.message)) : row.caption);
        }
    }
}

void MainMenu::ApplyPresetCaption(const CustomPreset& preset, QAction& item) const {
    const bool isUsable = !preset.Name.empty() && !preset.Code.empty();
    item.setText(isUsable ? WithoutKey(preset.Name) : ToQt(app_.messages.GetMessage(NoPresetCaption)));
    item.setEnabled(isUsable);
}

QMenu* MainMenu::MenuOf(RowIcon icon) const {
    switch (icon) {
        case RowIcon::Compressed:
            return menus_.at("mnuMP3");
        case RowIcon::Playlist:
            return menus_.at("mnuM3U");
        case RowIcon::Wave:
            return menus_.at("mnuWAVe");
        default:
            return nullptr;
    }
}

void MainMenu::SetMenuEnabled(RowIcon icon, bool enabled) {
    MenuOf(icon)->menuAction()->setEnabled(enabled);
}

QAction* MainMenu::Item(const std::string& control) const {
    return items_.at(control);
}

std::string MainMenu::ShownTemplate(std::int32_t rule) const {
    if (rule == TemplateRule) return app_.state.CustomRenameTemplate;
    constexpr int KeyAndNumber = 4;
    return FromQt(items_.at("mnuMP3Rename_" + std::to_string(rule))->text().mid(KeyAndNumber));
}

}  // namespace zefta
