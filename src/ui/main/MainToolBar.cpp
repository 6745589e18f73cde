#include "ui/main/MainToolBar.h"

#include <QAction>
#include <QIcon>

#include "ui/QtText.h"
#include "ui/Resources.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

/// A desktop without a theme of its own names the one that holds the pictures of programs and none of
/// commands: looking there costs more than all else that the bar does.
bool HasThemeOfCommands() {
    return QIcon::themeName() != "hicolor" && !QIcon::themeName().isEmpty();
}

bool ShowsOwnPicture(const ToolRow& row) {
    return *row.themeIcon == '\0' || !HasThemeOfCommands();
}

QIcon IconOf(const ToolRow& row) {
    const QIcon own = OwnIcon(row.ownIcon);
    return ShowsOwnPicture(row) ? own : QIcon::fromTheme(row.themeIcon, own);
}

}  // namespace

MainToolBar::MainToolBar(App& app, QWidget* parent) : QToolBar(parent), app_(app) {
    setObjectName("tbToolBar");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ToolRow& row : ToolTable()) {
        QAction* button = addAction(IconOf(row), QString());
        button->setObjectName(row.key);
        connect(button, &QAction::triggered, this, [this, command = row.command] { emit Chosen(command); });
        // Reached by Tab, so that each one works without a mouse.
        widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
    }
    LoadCaptions();
}

QStringList MainToolBar::OwnPictures() {
    QStringList names;
    for (const ToolRow& row : ToolTable()) {
        if (ShowsOwnPicture(row)) names.append(row.ownIcon);
    }
    return names;
}

void MainToolBar::LoadCaptions() {
    const QString name = OwnText(app_, WindowText::ToolBar);
    setWindowTitle(name);
    setAccessibleName(name);
    for (const ToolRow& row : ToolTable()) {
        const QString tip = ToQt(app_.messages.GetMessage(row.tip));
        Button(row.key)->setText(tip);
        Button(row.key)->setToolTip(tip);
        widgetForAction(Button(row.key))->setAccessibleName(tip);
    }
}

void MainToolBar::SetButtonEnabled(const std::string& key, bool enabled) {
    Button(key)->setEnabled(enabled);
}

QAction* MainToolBar::Button(const std::string& key) const {
    return findChild<QAction*>(ToQt(key), Qt::FindDirectChildrenOnly);
}

}  // namespace zefta
