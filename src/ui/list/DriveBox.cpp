#include "ui/list/DriveBox.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

#include "platform/MountedMedia.h"
#include "platform/Paths.h"
#include "ui/WindowTexts.h"
#include "ui/list/OneLineText.h"

namespace zefta {

namespace {

/// Longer paths are cut in the box, not in its list.
constexpr int LettersInBox = 14;

bool IsOnDrive(const std::string& folder, const std::string& drive) {
    return WithClosingSeparator(folder).starts_with(WithClosingSeparator(drive));
}

}  // namespace

DriveBox::DriveBox(const App& app, QWidget* parent) : QComboBox(parent), app_(app), listMedia_(MountedMedia) {
    setObjectName("drvBox");
    setAccessibleName(OwnText(app, WindowText::DriveBox));
    setToolTip(OwnText(app, WindowText::DriveBox));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(LettersInBox);
    connect(this, &QComboBox::activated, this, &DriveBox::Choose);
    Refresh();
}

void DriveBox::Refresh() {
    std::vector<std::string> drives = {std::string(1, PathSeparator)};
    const std::string& home = app_.machine.homeFolder;
    if (!home.empty() && home != drives.front()) drives.push_back(home);
    for (std::string& medium : listMedia_()) {
        if (std::find(drives.begin(), drives.end(), medium) == drives.end())
            drives.push_back(std::move(medium));
    }
    if (drives == drives_) return;
    drives_ = std::move(drives);
    const QSignalBlocker blocker(this);
    clear();
    for (const std::string& drive : drives_) addItem(OneLineText(app_.ansi.ToText(drive)));
    Follow(folder_);
}

void DriveBox::Follow(const std::string& folder) {
    folder_ = folder;
    std::size_t found = 0;
    for (std::size_t i = 0; i < drives_.size(); ++i) {
        if (IsOnDrive(folder, drives_[i]) && drives_[i].size() > drives_[found].size()) found = i;
    }
    setCurrentIndex(static_cast<int>(found));
}

void DriveBox::Choose(int index) {
    if (index < 0 || index >= count()) return;
    // A copy: the list may be made anew on the way.
    const std::string drive = drives_.at(static_cast<std::size_t>(index));
    emit DriveChosen(drive);
}

void DriveBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Choose(currentIndex());
        return;
    }
    QComboBox::keyPressEvent(event);
}

void DriveBox::wheelEvent(QWheelEvent* event) {
    // Turning the wheel over the bar must not leave the folder.
    event->ignore();
}

}  // namespace zefta
