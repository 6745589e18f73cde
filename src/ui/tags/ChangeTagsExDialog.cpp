#include "ui/tags/ChangeTagsExDialog.h"

#include <QHBoxLayout>
#include <utility>

#include "core/Settings.h"
#include "ui/QtText.h"
#include "ui/WindowGeometry.h"
#include "ui/WindowTexts.h"
#include "ui/tags/DefaultsBox.h"
#include "ui/tags/TemplatesBox.h"

namespace zefta {

namespace {

constexpr std::int32_t AdvancedTitle = 34108;
constexpr auto AdvancedWindow = "ChangeTagsEx";

}  // namespace

ChangeTagsExDialog::ChangeTagsExDialog(App& app, std::string folder, const std::vector<TagRow>& rows,
                                       FileDone done, QWidget* parent)
    : BatchDialog(app, "frmChangeTagsEx", parent),
      folder_(std::move(folder)),
      done_(std::move(done)),
      defaults_(new DefaultsBox(app)),
      templates_(new TemplatesBox(app)),
      table_(app, {FileColumn, TrackColumn, ArtistColumn, TitleColumn, MixColumn, AlbumColumn, YearColumn}) {
    SetTitle(AdvancedTitle);
    auto* all = new QVBoxLayout;
    auto* top = new QHBoxLayout;
    top->addWidget(defaults_, 1);
    top->addWidget(MakeCaseBox());
    all->addLayout(top);
    all->addWidget(templates_);
    all->addWidget(&table_.View(), 1);
    Arrange(all, OkText, CancelText);
    defaults_->GuardYearWith(app, CancelButton());
    connect(templates_, &TemplatesBox::Retrieve, this, &ChangeTagsExDialog::cmdRetrieveTags_Click);
    TakeStoredPlace(app.userSettings, AdvancedWindow, *this);
    table_.Load(rows);
    table_.View().setFocus();
}

QGroupBox* ChangeTagsExDialog::MakeCaseBox() {
    auto* box = new QGroupBox(Text(34111));
    box->setObjectName("fraChangeCase");
    auto* rows = new QVBoxLayout(box);
    const AppState& state = Application().state;
    optFirstLetterCaps_ = new QRadioButton(Text(34109));
    optFirstLetterCaps_->setObjectName("optFirstLetterCaps");
    optAllFirstLettersCaps_ = new QRadioButton(Text(34110));
    optAllFirstLettersCaps_->setObjectName("optAllFirstLettersCaps");
    (state.ChangeTags_AllFirstCaps ? optAllFirstLettersCaps_ : optFirstLetterCaps_)->setChecked(true);
    chkUpdateAllColumns_ = new QCheckBox(Text(34113));
    chkUpdateAllColumns_->setObjectName("chkUpdateAllColumns");
    chkUpdateAllColumns_->setChecked(state.ChangeTags_AllTags);
    auto* change = new QPushButton(Text(34112));
    change->setObjectName("cmdChangeCase");
    change->setAutoDefault(false);
    for (QWidget* control : std::initializer_list<QWidget*>{optFirstLetterCaps_, optAllFirstLettersCaps_,
                                                            chkUpdateAllColumns_, change})
        rows->addWidget(control);
    rows->addStretch(1);
    connect(change, &QPushButton::clicked, this, &ChangeTagsExDialog::cmdChangeCase_Click);
    return box;
}

void ChangeTagsExDialog::cmdChangeCase_Click() {
    const bool isOfAll = chkUpdateAllColumns_->isChecked();
    const auto column = isOfAll ? std::nullopt : table_.CurrentColumn();
    if (!isOfAll && !column) return;
    const auto change = optAllFirstLettersCaps_->isChecked() ? CapitalizeWords : CapitalizeFirst;
    table_.ChangeRows([&](std::vector<TagRow>& rows) { ChangeCase(rows, change, column); });
}

void ChangeTagsExDialog::cmdRetrieveTags_Click() {
    table_.ChangeRows([this](std::vector<TagRow>& rows) {
        for (TagRow& row : rows) RetrieveTags(Application(), folder_, templates_->Template(), row);
    });
}

bool ChangeTagsExDialog::HasUnsaved() const {
    table_.View().StoreEdit();
    return table_.IsChanged() || !defaults_->IsEmpty();
}

bool ChangeTagsExDialog::Write(const std::vector<TagRow>& rows) {
    App& app = Application();
    const UpdateEvents events = {[&](std::size_t number, std::size_t count, const std::string& name) {
                                     row_ = number - 1;
                                     ShowStatus(ToQt(ProgressText(number, count, app.ansi.ToText(name))));
                                 },
                                 [this](const std::string& name) {
                                     table_.MeanAllOf(name);
                                     done_(name);
                                 },
                                 [this] { return IsCancelled(); },
                                 [this](const std::string& name) {
                                     if (table_.IsMeant(name, !defaults_->IsEmpty())) left_.push_back(row_);
                                 }};
    app.desktop.ServeEvents();
    return WriteTagRows(app, folder_, rows, defaults_->Defaults(), events);
}

void ChangeTagsExDialog::OKButton_Click() {
    if (!defaults_->Validate()) return;
    table_.View().StoreEdit();
    bool isAll = false;
    left_.clear();
    if (!Work([&] { isAll = Write(table_.Rows()); })) {
        // No byte holds its track.
        table_.View().setFocus();
        table_.SelectCell(row_, TrackColumn);
    } else if (isAll && left_.empty()) {
        accept();
        return;
    } else if (isAll) {
        ShowLeft();
    }
    CloseIfAsked();
}

/// A disk that is full or was taken away must not cost what was typed for an hour.
void ChangeTagsExDialog::ShowLeft() {
    table_.View().setFocus();
    table_.SelectCell(left_.front(), ArtistColumn);
    ShowStatus(OwnText(Application(), WindowText::TagsNotWritten).arg(left_.size()));
}

void ChangeTagsExDialog::done(int result) {
    App& app = Application();
    StorePlace(app.userSettings, AdvancedWindow, *this);
    templates_->StoreIn(app.state);
    app.state.ChangeTags_AllFirstCaps = optAllFirstLettersCaps_->isChecked();
    app.state.ChangeTags_AllTags = chkUpdateAllColumns_->isChecked();
    SaveChangeTagsSettings(app);
    BatchDialog::done(result);
}

}  // namespace zefta
