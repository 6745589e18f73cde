#include "agent/AgentMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFontMetrics>
#include <utility>

#include "agent/LanguageChoices.h"
#include "core/AgentTexts.h"
#include "core/Boxes.h"
#include "core/History.h"
#include "core/OptionTable.h"
#include "core/Settings.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

/// A name as it is: nothing in it marks a key. The middle of a long one is left out.
QString EntryText(const QMenu& menu, const std::string& text) {
    constexpr int MostCharacters = 60;
    const QFontMetrics metrics(menu.font());
    QString shown =
        metrics.elidedText(ToQt(text), Qt::ElideMiddle, MostCharacters * metrics.averageCharWidth());
    return shown.replace('&', "&&");
}

/// A folder of the root may have the name of an option, such as "/d"; with a separator behind it it is a
/// path.
std::string FolderArgument(const App& app, const std::string& folder) {
    return BeginsWithSlash(app.files, folder) ? WithClosingSeparator(folder) : folder;
}

}  // namespace

AgentMenu::AgentMenu(App& app, std::function<void()> readSettingsAgain)
    : app_(app), readSettingsAgain_(std::move(readSettingsAgain)) {
    connect(this, &QMenu::aboutToShow, this, &AgentMenu::Rebuild);
    // Some desktops ask for the entries before they say that the menu opens, or pass over an empty menu.
    Rebuild();
}

void AgentMenu::OpenProgram() {
    const bool isSecondClick =
        sinceOpened_.isValid() && !sinceOpened_.hasExpired(QApplication::doubleClickInterval());
    sinceOpened_.start();
    if (!isSecondClick) StartProgram("");
}

void AgentMenu::StartProgram(const std::string& argument) {
    const std::string program = JoinPath(FolderPart(app_.processes.OwnPath()), "zefta");
    const std::string command = QuotePath(program) + (argument.empty() ? "" : " " + QuotePath(argument));
    CheckRuntimeError(app_, [&] { app_.processes.StartProgram(command); });
}

QAction* AgentMenu::AddCommand(const char* objectName, const char* textKey, const std::string& argument) {
    QAction* command = addAction(ToQt(AgentTextOf(app_, textKey)));
    command->setObjectName(objectName);
    connect(command, &QAction::triggered, this, [this, argument] { StartProgram(argument); });
    return command;
}

void AgentMenu::AddRecentFolders() {
    QMenu* folders = addMenu(ToQt(AgentTextOf(app_, "MSG_RecentFolders")));
    folders->setObjectName("mnuRecentFolders");
    for (const std::string& folder : LoadRecentFolders(app_.userSettings)) {
        if (folder.empty()) continue;
        const QAction* entry = folders->addAction(EntryText(*folders, app_.ansi.ToText(folder)));
        connect(entry, &QAction::triggered, this,
                [this, folder] { StartProgram(FolderArgument(app_, folder)); });
    }
    folders->menuAction()->setEnabled(!folders->isEmpty());
}

void AgentMenu::AddLanguages() {
    QMenu* languages = addMenu(ToQt(AgentTextOf(app_, "MSG_Language")));
    languages->setObjectName("mnuLanguage");
    auto* group = new QActionGroup(languages);
    for (const LanguageChoice& choice : LanguageChoices(app_)) {
        QAction* entry = languages->addAction(EntryText(*languages, choice.caption));
        entry->setCheckable(true);
        entry->setChecked(choice.isChosen);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, path = choice.path] {
            if (!CheckRuntimeError(app_, [&] { ChooseLanguage(app_, path); }))
                ShowPlainBox(app_, AgentTextOf(app_, "MSG_LanguageChangeNote"));
        });
    }
}

void AgentMenu::Rebuild() {
    readSettingsAgain_();
    LoadSettings(app_);
    app_.messages.LanguageStrings.clear();
    const QList<QMenu*> formerMenus = findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    clear();
    qDeleteAll(formerMenus);
    setDefaultAction(AddCommand("mnuOpen", "MSG_Open", ""));
    AddRecentFolders();
    addSeparator();
    AddCommand("mnuCompress", "MSG_Compress", "/compress_audio_cd");
    AddCommand("mnuSettings", "MSG_Settings", "/setup");
    AddLanguages();
    addSeparator();
    QAction* exit = addAction(ToQt(AgentTextOf(app_, "MSG_Exit")));
    exit->setObjectName("mnuExit");
    connect(exit, &QAction::triggered, this, &AgentMenu::ExitChosen);
}

}  // namespace zefta
