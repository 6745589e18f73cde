#include "ui/encode/EncodeDialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <utility>

#include "core/Boxes.h"
#include "core/Settings.h"
#include "encoding/EncodedOutput.h"
#include "encoding/ModeCatalogue.h"
#include "platform/StoreOutcome.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/WindowGeometry.h"
#include "ui/WindowTexts.h"
#include "ui/tags/DefaultsBox.h"
#include "ui/tags/TemplatesBox.h"

namespace zefta {

namespace {

constexpr std::int32_t EncodingTitle = 33301;
constexpr std::int32_t ModeText = 33302;
constexpr std::int32_t EncodeText = 33310;
constexpr std::int32_t CancelEncodeText = 33311;
constexpr std::int32_t EncodeQuestion = 33315;
constexpr std::int32_t QuestionTitle = 33316;
constexpr int ModeCharacters = 22;
constexpr auto EncodingWindow = "Encode";

}  // namespace

EncodeDialog::EncodeDialog(App& app, std::string folder, const std::vector<std::string>& names,
                           SelectionWatch watch, QWidget* parent)
    : BatchDialog(app, "frmEncode", parent),
      folder_(std::move(folder)),
      watch_(std::move(watch)),
      defaults_(new DefaultsBox(app)),
      templates_(new TemplatesBox(app)),
      table_(app, {TrackColumn, FileColumn, ArtistColumn, TitleColumn, MixColumn, AlbumColumn, YearColumn}) {
    SetTitle(EncodingTitle);
    auto* all = new QVBoxLayout;
    auto* top = new QHBoxLayout;
    top->addWidget(MakeOptions());
    top->addWidget(defaults_, 1);
    all->addLayout(top);
    all->addWidget(templates_);
    all->addWidget(&table_.View(), 1);
    chkDeleteAfterCompress_ = MakeBox("chkDeleteAfterCompress", 33318, app.state.DeleteAfterCompress);
    chkShutdown_ = MakeBox("chkShutdown", 33303, false);
    all->addWidget(chkDeleteAfterCompress_);
    all->addWidget(chkShutdown_);
    Arrange(all, EncodeText, CancelEncodeText);
    defaults_->GuardYearWith(app, CancelButton());
    connect(templates_, &TemplatesBox::Retrieve, this, &EncodeDialog::cmdRetrieveTags_Click);
    TakeStoredPlace(app.userSettings, EncodingWindow, *this);
    UpdateBoxes();
    table_.View().SetEditStart(EditStart::ClickOrKey);
    table_.Load(RowsToEncode(names));
    table_.View().setFocus();
}

QCheckBox* EncodeDialog::MakeBox(const char* name, std::int32_t text, bool isChecked) {
    auto* box = new QCheckBox(Text(text));
    box->setObjectName(name);
    box->setChecked(isChecked);
    connect(box, &QCheckBox::toggled, this, &EncodeDialog::UpdateBoxes);
    return box;
}

QWidget* EncodeDialog::MakeOptions() {
    const AppState& state = Application().state;
    auto* options = new QGroupBox(Text(QuestionTitle));
    auto* rows = new QVBoxLayout(options);
    auto* mode = new QFormLayout;
    cmbBitRate_ = new QComboBox;
    cmbBitRate_->setObjectName("cmbBitRate");
    // A preset may have a name of any length.
    cmbBitRate_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbBitRate_->setMinimumContentsLength(ModeCharacters);
    GuardAgainstScrolling(cmbBitRate_);
    AddLabelled(Application(), mode, cmbBitRate_, ModeText);
    rows->addLayout(mode);
    FillModes();
    chkTrimSilence_ = MakeBox("chkTrimSilence", 33304, state.Saved.TrimSilence);
    chkNormalize_ = MakeBox("chkNormalize", 33319, state.Saved.Normalize);
    chkNormalizeSeparately_ = MakeBox("chkNormalizeSeparately", 33320, state.Saved.NormalizeSeparately);
    chkReduceLevel_ = MakeBox("chkReduceLevel", 33317, state.Saved.ReduceLevel);
    rows->addWidget(chkTrimSilence_);
    auto* normalizing = new QHBoxLayout;
    normalizing->addSpacing(style()->pixelMetric(QStyle::PM_IndicatorWidth));
    normalizing->addWidget(chkNormalize_);
    normalizing->addWidget(chkNormalizeSeparately_);
    normalizing->addStretch(1);
    rows->addLayout(normalizing);
    rows->addWidget(chkReduceLevel_);
    rows->addStretch(1);
    return options;
}

void EncodeDialog::FillModes() {
    const ModeList modes = FillEncodingModes(Application().state);
    for (const ModeList::Item& item : modes.items) cmbBitRate_->addItem(ToQt(item.label), item.code);
    cmbBitRate_->setCurrentIndex(modes.selected ? static_cast<int>(*modes.selected) : -1);
    connect(cmbBitRate_, &QComboBox::currentIndexChanged, this, &EncodeDialog::cmbBitRate_Click);
}

RunSwitches EncodeDialog::Checked() const {
    return {chkTrimSilence_->isChecked(), chkReduceLevel_->isChecked(), chkNormalize_->isChecked(),
            chkNormalizeSeparately_->isChecked()};
}

void EncodeDialog::UpdateBoxes() {
    const EncodingBoxes boxes = EnabledBoxes(Checked(), FromQt(cmbBitRate_->currentText()));
    chkNormalize_->setEnabled(boxes.Normalize);
    chkNormalizeSeparately_->setEnabled(boxes.NormalizeSeparately);
    chkReduceLevel_->setEnabled(boxes.ReduceLevel);
}

void EncodeDialog::cmdRetrieveTags_Click() {
    table_.ChangeRows([this](std::vector<TagRow>& rows) {
        for (TagRow& row : rows) RetrieveTagsToEncode(Application(), folder_, templates_->Template(), row);
    });
}

bool EncodeDialog::HasUnsaved() const {
    table_.View().StoreEdit();
    return table_.IsChanged() || !defaults_->IsEmpty();
}

EncodingChoice EncodeDialog::Choice() const {
    EncodingChoice choice;
    if (cmbBitRate_->currentIndex() >= 0) choice.Mode = cmbBitRate_->currentData().toInt();
    choice.Checked = Checked();
    choice.DeleteSources = chkDeleteAfterCompress_->isChecked();
    choice.Defaults = defaults_->Defaults();
    choice.Made = made_;
    return choice;
}

/// False when it has failed or was ended.
bool EncodeDialog::Encode() {
    const std::vector<TagRow> rows = table_.Rows();
    const EncodingEvents events = {[this](const std::string& text) {
                                       ShowStatus(ToQt(text));
                                       watch_.status(text);
                                   },
                                   [this](const std::string& name) {
                                       // What is done does not have to be done again behind a cancel.
                                       table_.RemoveRow(name);
                                       made_.insert(EncodedOutputPath(Application().state, folder_, name));
                                       watch_.done(name);
                                   },
                                   [this] { return IsCancelled(); }};
    bool isAll = false;
    return Work([&] { isAll = EncodeRows(Application(), folder_, rows, Choice(), events); }) && isAll;
}

bool EncodeDialog::MayReplace() {
    constexpr std::size_t NamesToShow = 8;
    App& app = Application();
    EncodingChoice choice = Choice();
    choice.Made.insert(outputsOfRuns_.begin(), outputsOfRuns_.end());
    const auto names = FilesToReplace(app, folder_, table_.Rows(), choice);
    if (names.empty()) return true;
    QStringList shown;
    for (std::size_t i = 0; i < names.size() && i < NamesToShow; ++i)
        shown.push_back(ToQt(app.ansi.ToText(names[i])));
    if (names.size() > NamesToShow) shown.push_back("...");
    const QString question = OwnText(app, WindowText::EncodeReplace).replace("%1", shown.join('\n'));
    return AskYesNo(app, FromQt(question), app.messages.GetMessage(QuestionTitle), true);
}

void EncodeDialog::OKButton_Click() {
    App& app = Application();
    if (!defaults_->Validate()) return;
    table_.View().StoreEdit();
    if (!AskYesNo(app, app.messages.GetMessage(EncodeQuestion), app.messages.GetMessage(QuestionTitle)))
        return;
    if (!MayReplace()) return;
    StorePlace(app.userSettings, EncodingWindow, *this);
    // The work does not depend on it. Told while the person is still there, and not in the way of a power
    // off.
    CheckRuntimeError(app, [&] { ExpectStored(app.userSettings); });
    const bool hasFiles = !table_.Rows().empty();
    const bool isAll = Encode();
    for (const TagRow& row : table_.Rows())
        outputsOfRuns_.insert(EncodedOutputPath(app.state, folder_, row.Cells[FileColumn]));
    // Who cancels during the last file wants to go on at the machine.
    wantsPowerOff_ = isAll && hasFiles && !IsCancelled() && chkShutdown_->isChecked();
    const std::size_t left = table_.Rows().size();
    // An encoder that fails, or is not there, must not cost what was typed for its files.
    const bool losesNothing = left == 0 || wantsPowerOff_ || !HasUnsaved();
    if (isAll && losesNothing) {
        accept();
        return;
    }
    if (isAll) ShowStatus(OwnText(app, WindowText::TagsNotEncoded).arg(left));
    CloseIfAsked();
}

void EncodeDialog::done(int result) {
    App& app = Application();
    StorePlace(app.userSettings, EncodingWindow, *this);
    templates_->StoreIn(app.state);
    SaveChangeTagsSettings(app);
    BatchDialog::done(result);
}

}  // namespace zefta
