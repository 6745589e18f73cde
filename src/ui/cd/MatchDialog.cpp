#include "ui/cd/MatchDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

QString TextOf(const DatabaseMatch& match) {
    return ToQt(match.Artist + " - " + match.Title + " (" + match.Category + ")");
}

}  // namespace

MatchDialog::MatchDialog(const App& app, const std::vector<DatabaseMatch>& matches, QWidget* parent)
    : QDialog(parent), lstMatches_(new QListWidget) {
    setObjectName("frmMatches");
    setWindowTitle(ToQt(ApplicationTitle()));
    lstMatches_->setObjectName("lstMatches");
    for (const DatabaseMatch& match : matches) lstMatches_->addItem(TextOf(match));
    lstMatches_->setCurrentRow(0);
    constexpr int CharactersInSight = 60;
    lstMatches_->setMinimumWidth(lstMatches_->fontMetrics().averageCharWidth() * CharactersInSight);
    auto* label = new QLabel(OwnText(app, WindowText::CDMatches));
    label->setWordWrap(true);
    label->setBuddy(lstMatches_);
    lstMatches_->setAccessibleName(label->text());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(OwnText(app, WindowText::BoxOk));
    buttons->button(QDialogButtonBox::Cancel)->setText(OwnText(app, WindowText::CDNoMatch));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstMatches_, &QListWidget::itemActivated, this, &QDialog::accept);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(label);
    rows->addWidget(lstMatches_);
    rows->addWidget(buttons);
    lstMatches_->setFocus();
}

std::size_t MatchDialog::Choice() const {
    return static_cast<std::size_t>(std::max(lstMatches_->currentRow(), 0));
}

std::optional<std::size_t> ChooseMatch(const App& app, const std::vector<DatabaseMatch>& matches,
                                       QWidget* parent) {
    MatchDialog dialog(app, matches, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Choice();
}

}  // namespace zefta
