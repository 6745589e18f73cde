#include "ui/tags/DefaultsBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <limits>

#include "core/Strings.h"
#include "library/FileInformation.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/info/YearGuard.h"
#include "ui/tags/GenreBox.h"

namespace zefta {

namespace {

/// Of a name that is to be read while it is typed.
constexpr int LeastCharacters = 14;

}  // namespace

void AddLabelled(App& app, QFormLayout* form, QWidget* control, std::int32_t label) {
    auto* text = new QLabel(ToQt(app.messages.GetMessage(label)));
    text->setBuddy(control);
    control->setAccessibleName(text->text());
    form->addRow(text, control);
}

QLineEdit* AddLine(App& app, QFormLayout* form, const char* name, std::int32_t label) {
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setMaxLength(std::numeric_limits<int>::max());
    AddLabelled(app, form, line, label);
    return line;
}

/// Blanks around a year do no harm, and a blank alone clears the field of the files.
YearGuard* GuardYear(App& app, QLineEdit* year, QWidget* wayOut) {
    year->setToolTip(OwnText(app, WindowText::InfoYearRule));
    year->setAccessibleDescription(year->toolTip());
    return new YearGuard(
        year, [year] { return IsYearText(Trim(FromQt(year->text()))); }, wayOut, year->toolTip());
}

DefaultsBox::DefaultsBox(App& app, QWidget* parent)
    : QGroupBox(ToQt(app.messages.GetMessage(33305)), parent), cmbGenre_(new GenreBox(app)) {
    setObjectName("fraDefaults");
    auto* rows = new QVBoxLayout(this);
    auto* columns = new QHBoxLayout;
    auto* names = new QFormLayout;
    auto* rest = new QFormLayout;
    for (QFormLayout* form : {names, rest}) form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    txtDefArtist_ = AddLine(app, names, "txtDefArtist", 33306);
    txtDefAlbum_ = AddLine(app, names, "txtDefAlbum", 33307);
    txtDefYear_ = AddLine(app, rest, "txtDefYear", 33308);
    AddLabelled(app, rest, cmbGenre_, 33025);
    for (QLineEdit* line : {txtDefArtist_, txtDefAlbum_})
        line->setMinimumWidth(fontMetrics().averageCharWidth() * LeastCharacters);
    columns->addLayout(names, 3);
    columns->addLayout(rest, 2);
    rows->addLayout(columns);
    auto* note = new QLabel(ToQt(app.messages.GetMessage(33309)));
    note->setObjectName("lblDefaultsNote");
    note->setWordWrap(true);
    rows->addWidget(note);
}

void DefaultsBox::GuardYearWith(App& app, QWidget* wayOut) {
    year_ = GuardYear(app, txtDefYear_, wayOut);
}

TagDefaults DefaultsBox::Defaults() const {
    const auto text = [](const QLineEdit* line) { return FromQt(line->text()); };
    return {text(txtDefArtist_), text(txtDefAlbum_), text(txtDefYear_), cmbGenre_->Genre()};
}

bool DefaultsBox::IsEmpty() const {
    return txtDefArtist_->text().isEmpty() && txtDefAlbum_->text().isEmpty() &&
           txtDefYear_->text().isEmpty() && cmbGenre_->currentText().isEmpty();
}

bool DefaultsBox::Validate() {
    return (year_ == nullptr || year_->Validate()) && cmbGenre_->Validate();
}

}  // namespace zefta
