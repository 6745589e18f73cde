#pragma once

#include <QObject>
#include <map>
#include <string>

#include "core/App.h"
#include "library/ListRow.h"
#include "ui/main/MenuTable.h"

class QAction;
class QMenu;
class QMenuBar;

namespace zefta {

/// The menus of the main window, made from their tables. Menus and items are found by their control's name,
/// an item of an indexed list by "<list>_<index>".
class MainMenu : public QObject {
    Q_OBJECT

  public:
    /// Fills the bar, which has to live as long.
    MainMenu(App& app, QMenuBar& bar);

    /// Sets all captions and shows the modes that are enabled. To be called again when settings or language
    /// have changed.
    void LoadCaptions();

    /// The menu of that kind of row; null for folders and the way up.
    QMenu* MenuOf(RowIcon icon) const;
    /// Whether the menu of that kind of row can be used, with its keys.
    void SetMenuEnabled(RowIcon icon, bool enabled);

    QAction* Item(const std::string& control) const;

    /// How people know a rule of renaming: its caption without number and key.
    std::string ShownTemplate(std::int32_t rule) const;

  signals:
    /// `index`: of the item in its list; 0 for others.
    void Chosen(zefta::Command command, int index);

  private:
    void AddRow(QMenuBar& bar, const MenuRow& row);
    void AddList(const IndexedList& list);
    void LoadListCaptions(const IndexedList& list);
    void ApplyPresetCaption(const CustomPreset& preset, QAction& item) const;

    App& app_;
    std::map<std::string, QMenu*> menus_;
    std::map<std::string, QAction*> items_;
};

}  // namespace zefta
