#include "ui/tags/ChangeTagsDialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <utility>

#include "core/GenreTable.h"
#include "core/Strings.h"
#include "library/TagGrid.h"
#include "ui/QtText.h"
#include "ui/info/YearGuard.h"
#include "ui/tags/DefaultsBox.h"
#include "ui/tags/GenreBox.h"

namespace zefta {

namespace {

constexpr std::int32_t MassiveTitle = 34101;
constexpr std::int32_t NewValues = 34102;
constexpr std::int32_t FieldsNote = 34103;
constexpr std::int32_t UpdatingNote = 34104;
constexpr int FieldCharacters = 40;

/// As the writers take a value: a lone blank clears, nothing leaves the field alone.
std::string ValueOf(const QLineEdit* line) {
    const std::string text = FromQt(line->text());
    return text.empty() ? text : Trim(text) + " ";
}

}  // namespace

ChangeTagsDialog::ChangeTagsDialog(App& app, TagFiles files, FileDone done, QWidget* parent)
    : BatchDialog(app, "frmChangeTags", parent),
      files_(std::move(files)),
      done_(std::move(done)),
      cmbGenre_(new GenreBox(app)),
      lblNote_(new QLabel(Text(FieldsNote))) {
    SetTitle(MassiveTitle);
    auto* rows = new QVBoxLayout;
    rows->addWidget(MakeFields());
    lblNote_->setObjectName("lblNote");
    lblNote_->setWordWrap(true);
    rows->addWidget(lblNote_);
    rows->addStretch(1);
    Arrange(rows, OkText, CancelText);
    year_ = GuardYear(app, txtYear_, CancelButton());
    txtArtist_->setFocus();
}

QWidget* ChangeTagsDialog::MakeFields() {
    auto* box = new QGroupBox(Text(NewValues));
    auto* form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    App& app = Application();
    txtArtist_ = AddLine(app, form, "txtArtist", 33306);
    txtTitle_ = AddLine(app, form, "txtTitle", 33313);
    txtMix_ = AddLine(app, form, "txtMix", 33314);
    txtAlbum_ = AddLine(app, form, "txtAlbum", 33307);
    txtYear_ = AddLine(app, form, "txtYear", 33308);
    AddLabelled(app, form, cmbGenre_, 33025);
    txtArtist_->setMinimumWidth(fontMetrics().averageCharWidth() * FieldCharacters);
    return box;
}

TagValues ChangeTagsDialog::Values() const {
    TagValues values;
    values.Artist = ValueOf(txtArtist_);
    values.Title = ValueOf(txtTitle_);
    values.Mix = ValueOf(txtMix_);
    values.Album = ValueOf(txtAlbum_);
    values.Year = ValueOf(txtYear_);
    if (const auto genre = cmbGenre_->Genre()) {
        values.GenreIndex = *genre;
        values.Genre = GenreNameFromIndex(*genre);
    }
    return values;
}

bool ChangeTagsDialog::Update(const TagValues& values) {
    App& app = Application();
    const UpdateEvents events = {[this](std::size_t number, std::size_t count, const std::string&) {
                                     ShowStatus(QString("%1 / %2").arg(number).arg(count));
                                 },
                                 [this](const std::string& name) {
                                     std::erase(*left_, name);
                                     done_(name);
                                 },
                                 [this] { return IsCancelled(); }};
    app.desktop.ServeEvents();
    if (!left_) left_ = FilesToUpdate(app, files_.selected, files_.all);
    return UpdateTags(app, files_.folder, std::vector<std::string>(*left_), values, events);
}

bool ChangeTagsDialog::HasUnsaved() const {
    return HasValue(Values()) || !cmbGenre_->currentText().isEmpty();
}

void ChangeTagsDialog::OKButton_Click() {
    if (!year_->Validate() || !cmbGenre_->Validate()) return;
    const TagValues values = Values();
    if (!HasValue(values)) {
        accept();
        return;
    }
    lblNote_->setText(Text(UpdatingNote));
    bool isAll = false;
    Work([&] { isAll = Update(values); });
    lblNote_->setText(Text(FieldsNote));
    if (isAll) {
        accept();
    } else {
        // Behind a cancel the person may go on with the rest.
        CloseIfAsked();
    }
}

}  // namespace zefta
