#include "ui/list/PathBox.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QWheelEvent>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

/// The paths of the subfolders, as one goes on typing behind `typed`.
QStringList SubfoldersOf(const App& app, const std::string& folder, const std::string& typed) {
    QStringList paths;
    try {
        for (const FolderEntry& entry : app.files.List(folder)) {
            if (entry.isFolder) paths.append(ToQt(app.ansi.ToText(JoinPath(typed, entry.name))));
        }
    } catch (const RuntimeError&) {
        // A folder that can't be read has nothing to offer.
    }
    paths.sort(Qt::CaseInsensitive);
    return paths;
}

}  // namespace

PathBox::PathBox(App& app, QWidget* parent)
    : QComboBox(parent), app_(app), offers_(new QStringListModel(this)) {
    setObjectName("cmbPath");
    setAccessibleName(OwnText(app, WindowText::FolderBox));
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    // Else a typed text that is in the list would count as chosen as soon as the box is left.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* completer = new QCompleter(offers_, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    lineEdit()->setCompleter(completer);
    connect(lineEdit(), &QLineEdit::textEdited, this, &PathBox::OfferSubfolders);
    connect(lineEdit(), &QLineEdit::returnPressed, this,
            [this] { emit PathTyped(PathOf(lineEdit()->text())); });
    connect(this, &QComboBox::activated, this,
            [this](int index) { emit PathChosen(itemData(index).toByteArray().toStdString()); });
}

void PathBox::ShowPath(const std::string& path) {
    path_ = path;
    // Subfolders come and go: they are asked for anew.
    offeredFolder_.clear();
    setCurrentIndex(findData(QByteArray::fromStdString(path)));
    setEditText(ToQt(app_.ansi.ToText(path)));
}

std::vector<std::string> PathBox::History() const {
    std::vector<std::string> folders;
    for (int i = 0; i < count(); ++i) folders.push_back(itemData(i).toByteArray().toStdString());
    return folders;
}

void PathBox::SetHistory(const std::vector<std::string>& folders) {
    clear();
    for (const std::string& folder : folders) {
        if (!folder.empty()) addItem(ToQt(app_.ansi.ToText(folder)), QByteArray::fromStdString(folder));
    }
    ShowPath(path_);
}

void PathBox::Remember(const std::string& path) {
    if (findData(QByteArray::fromStdString(path)) >= 0) return;
    insertItem(0, ToQt(app_.ansi.ToText(path)), QByteArray::fromStdString(path));
}

std::string PathBox::PathOf(const QString& text) const {
    if (text == ToQt(app_.ansi.ToText(path_))) return path_;
    const int item = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return item >= 0 ? itemData(item).toByteArray().toStdString() : FromQt(text);
}

void PathBox::OfferSubfolders(const QString& text) {
    const std::string typed = FolderPart(app_.files.ToNativePath(FromQt(text)));
    if (typed == offeredFolder_) return;
    offeredFolder_ = typed;
    offers_->setStringList(typed.empty() ? QStringList() : SubfoldersOf(app_, typed, typed));
}

void PathBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        ShowPath(path_);
        emit Left();
        return;
    }
    QComboBox::keyPressEvent(event);
}

void PathBox::wheelEvent(QWheelEvent* event) {
    // Turning the wheel over the bar must not leave the folder.
    event->ignore();
}

}  // namespace zefta
