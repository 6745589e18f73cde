#include "ui/tags/GenreBox.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QToolTip>

#include "core/GenreTable.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/WindowTexts.h"
#include "ui/info/Genres.h"

namespace zefta {

namespace {

/// Characters of most genres.
constexpr int UsualGenre = 10;

}  // namespace

GenreBox::GenreBox(const App& app, QWidget* parent)
    : QComboBox(parent), rule_(OwnText(app, WindowText::TagsGenreRule)) {
    setObjectName("cmbGenre");
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // What was typed must not become the longer genre that begins so.
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(UsualGenre);
    for (const QString& name : GenreNames()) addItem(name, int{GenreIndexFromName(FromQt(name))});
    setCurrentIndex(-1);
    GuardAgainstScrolling(this);
    setToolTip(OwnText(app, WindowText::TagsGenreTip));
    setAccessibleDescription(toolTip());
}

int GenreBox::Entry() const {
    return findText(currentText().trimmed(), Qt::MatchFixedString);
}

std::optional<std::uint8_t> GenreBox::Genre() const {
    const int entry = Entry();
    if (entry < 0) return std::nullopt;
    return static_cast<std::uint8_t>(itemData(entry).toInt());
}

bool GenreBox::Passes() const {
    return currentText().trimmed().isEmpty() || Entry() >= 0;
}

void GenreBox::Tell() {
    QApplication::beep();
    QToolTip::showText(mapToGlobal(QPoint(0, height())), rule_, this);
}

bool GenreBox::Validate() {
    if (Passes()) return true;
    setFocus();
    lineEdit()->selectAll();
    Tell();
    return false;
}

void GenreBox::cmbGenre_LostFocus() {
    if (const int entry = Entry(); entry >= 0) setCurrentIndex(entry);
    if (Passes()) return;
    // The move of the focus would take the tip away again.
    QMetaObject::invokeMethod(this, &GenreBox::Tell, Qt::QueuedConnection);
}

void GenreBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    // Its own list and another window give the focus back.
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) cmbGenre_LostFocus();
}

}  // namespace zefta
