#include "ui/cd/CDBaseDialog.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <utility>

#include "cd/CDSettings.h"
#include "core/Boxes.h"
#include "core/Settings.h"
#include "core/Strings.h"
#include "encoding/ModeCatalogue.h"
#include "platform/Paths.h"
#include "ui/QtText.h"
#include "ui/Resources.h"

namespace zefta {

namespace {

constexpr std::string_view InfoFileEnding = ".zfc";

}  // namespace

CDBaseDialog::CDBaseDialog(App& app, const CDBaseServices& services, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      app_(app),
      services_(services),
      cd_(app, services.disc, services.database) {
    setObjectName("frmCDBase");
    setWindowIcon(OwnIcon("zefta"));
    form_ = BuildCDBase(app, this);
    Form_Load();
}

QString CDBaseDialog::Text(std::int32_t message) const {
    return ToQt(app_.messages.GetMessage(message));
}

void CDBaseDialog::Say(const QString& text) {
    form_.lblStatus->setText(text);
}

// Loading and unloading.

void CDBaseDialog::Form_Load() {
    setWindowTitle(ToQt(Caption()));
    form_.txtSourceFolder->SetPath(app_.state.CompressCD_SourceFolder);
    form_.txtTargetFolder->SetPath(app_.state.CompressCD_TargetFolder);
    form_.chkTreatAsCompilation->setChecked(app_.state.IsCompilation);
    form_.cmdSave->setEnabled(false);
    form_.cmdOK->setEnabled(false);
    LoadDrives();
    LoadModes();
    LoadSwitches();
    Connect();
    form_.cmdImportData->setFocus();
    if (AsciiLower(app_.state.FileSpec).ends_with(InfoFileEnding))
        LoadFile(app_.files.ToNativePath(app_.state.FileSpec));
}

void CDBaseDialog::LoadDrives() {
    for (const std::string& drive : services_.disc.Drives()) form_.cmbDrive->addItem(ToQt(drive));
    SetDrive(DeviceOfCD(app_));
}

void CDBaseDialog::LoadModes() {
    const ModeList modes = FillEncodingModes(app_.state);
    for (const auto& mode : modes.items) form_.cmbBitRate->addItem(ToQt(mode.label), mode.code);
    form_.cmbBitRate->setCurrentIndex(modes.selected ? static_cast<int>(*modes.selected) : -1);
}

void CDBaseDialog::LoadSwitches() {
    form_.chkTrimSilence->setChecked(app_.state.TrimSilence);
    form_.chkNormalize->setChecked(app_.state.Normalize);
    form_.chkNormalizeSeparately->setChecked(app_.state.NormalizeSeparately);
    form_.chkDeleteAfterCompress->setChecked(app_.state.DeleteAfterCompress);
    wantsReducedLevel_ = app_.state.ReduceLevel;
    chkTrimSilence_Click();
    cmbBitRate_Click();
}

void CDBaseDialog::Connect() {
    const auto press = [this](QPushButton* button, void (CDBaseDialog::*handler)()) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    press(form_.cmdImportData, &CDBaseDialog::cmdImportData_Click);
    press(form_.cmdCDDAE, &CDBaseDialog::cmdCDDAE_Click);
    press(form_.cmdSimulateCD, &CDBaseDialog::cmdSimulateCD_Click);
    press(form_.cmdSave, &CDBaseDialog::cmdSave_Click);
    press(form_.cmdLoad, &CDBaseDialog::cmdLoad_Click);
    press(form_.cmdOK, &CDBaseDialog::cmdOK_Click);
    press(form_.cmdStop, &CDBaseDialog::cmdStop_Click);
    press(form_.cmdCancel, &CDBaseDialog::reject);
    press(form_.cmdBrowseForImage, &CDBaseDialog::cmdBrowseForImage_Click);
    press(form_.cmbBrowseForSourceFolder, &CDBaseDialog::cmbBrowseForSourceFolder_Click);
    press(form_.cmdBrowseForTargetFolder, &CDBaseDialog::cmdBrowseForTargetFolder_Click);
    connect(form_.lstTracks, &QListWidget::itemDoubleClicked, this, &CDBaseDialog::lstTracks_DblClick);
    connect(form_.chkTrimSilence, &QCheckBox::toggled, this, &CDBaseDialog::chkTrimSilence_Click);
    connect(form_.chkNormalize, &QCheckBox::toggled, this, &CDBaseDialog::chkNormalize_Click);
    connect(form_.cmbBitRate, &QComboBox::currentIndexChanged, this, &CDBaseDialog::cmbBitRate_Click);
    connect(form_.chkReduceLevel, &QCheckBox::clicked, this,
            [this](bool isChecked) { wantsReducedLevel_ = isChecked; });
    for (QLineEdit* line : {form_.txtArtist, form_.txtAlbum, form_.txtYear, form_.cmbGenre->lineEdit()})
        connect(line, &QLineEdit::textEdited, this, &CDBaseDialog::AlbumTyped);
    connect(form_.cmbGenre, &QComboBox::activated, this, &CDBaseDialog::AlbumTyped);
    // The window has its keys ahead of them: a list of choices takes every letter, and so do some buttons
    // Enter.
    for (QWidget* control : findChildren<QWidget*>()) control->installEventFilter(this);
}

void CDBaseDialog::Form_Unload() {
    app_.state.CompressCD_SourceFolder = form_.txtSourceFolder->Path();
    app_.state.CompressCD_TargetFolder = form_.txtTargetFolder->Path();
    if (const auto code = ModeCode()) app_.state.CompressCD_Bitrate = static_cast<std::int16_t>(*code);
    SaveCompressCDSettings(app_);
    if (Drive() != DeviceOfCD(app_)) SaveDeviceOfCD(app_, Drive());
}

void CDBaseDialog::done(int result) {
    Form_Unload();
    QDialog::done(result);
}

void CDBaseDialog::reject() {
    if (isBusy_) return cmdStop_Click();
    if (MayDiscard()) QDialog::reject();
}

void CDBaseDialog::closeEvent(QCloseEvent* event) {
    closesBehindWork_ = isBusy_;
    QDialog::closeEvent(event);
}

void CDBaseDialog::CloseIfAsked() {
    if (std::exchange(closesBehindWork_, false)) reject();
}

bool CDBaseDialog::MayDiscard() {
    return !isTyped_ || AskYesNo(app_, FromQt(Own(WindowText::CDDiscard)), Caption(), true);
}

// Keys and rules.

bool CDBaseDialog::Form_KeyDown(const QKeyEvent& event) {
    struct Row {
        QKeyCombination key;
        QPushButton* button;
    };
    const Row rows[] = {
        {Qt::AltModifier | Qt::Key_F1, form_.cmbBrowseForSourceFolder},
        {Qt::AltModifier | Qt::Key_F2, form_.cmdBrowseForTargetFolder},
        {Qt::ControlModifier | Qt::Key_R, form_.cmdImportData},
        {Qt::ControlModifier | Qt::Key_S, form_.cmdSave},
        {Qt::ControlModifier | Qt::Key_L, form_.cmdLoad},
        {Qt::ControlModifier | Qt::Key_Return, form_.cmdOK},
        {Qt::ControlModifier | Qt::Key_Enter, form_.cmdOK},
    };
    const auto pressed = QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    for (const Row& row : rows) {
        if (row.key != pressed) continue;
        // A key that is held would read or compress again as soon as that is done.
        if (!event.isAutoRepeat()) row.button->click();
        return true;
    }
    return false;
}

void CDBaseDialog::keyPressEvent(QKeyEvent* event) {
    if (!Form_KeyDown(*event)) QDialog::keyPressEvent(event);
}

/// The keys of the control that has the focus: true when it was one.
bool CDBaseDialog::ControlKeyDown(QObject* control, const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) return false;
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (control == form_.lstTracks && (isEnter || event.key() == Qt::Key_F2)) {
        if (!event.isAutoRepeat()) lstTracks_DblClick();
        return true;
    }
    // None of the buttons is the default one, and yet whoever has gone to one means it.
    auto* button = qobject_cast<QPushButton*>(control);
    if (button == nullptr || !isEnter) return false;
    if (!event.isAutoRepeat()) button->click();
    return true;
}

bool CDBaseDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == form_.cmbGenre && event->type() == QEvent::FocusOut) cmbGenre_LostFocus();
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->window() == this) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (Form_KeyDown(*key) || ControlKeyDown(watched, *key)) return true;
    }
    return QDialog::eventFilter(watched, event);
}

void CDBaseDialog::chkTrimSilence_Click() {
    form_.chkNormalize->setEnabled(form_.chkTrimSilence->isChecked());
    chkNormalize_Click();
}

void CDBaseDialog::chkNormalize_Click() {
    form_.chkNormalizeSeparately->setEnabled(form_.chkTrimSilence->isChecked() &&
                                             form_.chkNormalize->isChecked());
}

/// The MPEGplus encoder could reduce the level, too, and would by a tick that can't be taken away: where the
/// box is closed it has none, and gets it back with the next LAME mode.
void CDBaseDialog::cmbBitRate_Click() {
    QCheckBox* box = form_.chkReduceLevel;
    const bool isAllowed = MatchesMask(FromQt(form_.cmbBitRate->currentText()), "LAME*");
    box->setEnabled(isAllowed);
    box->setChecked(isAllowed && wantsReducedLevel_);
}

void CDBaseDialog::cmbGenre_LostFocus() {
    const int entry = form_.cmbGenre->findText(form_.cmbGenre->currentText(),
                                               Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (entry >= 0) form_.cmbGenre->setCurrentIndex(entry);
}

void CDBaseDialog::AllowCompressing() {
    canCompress_ = true;
    form_.cmdSave->setEnabled(!isBusy_);
    form_.cmdOK->setEnabled(!isBusy_);
}

// Folders.

void CDBaseDialog::BrowseInto(FolderLine* line, std::int32_t prompt) {
    const std::string folder =
        app_.desktop.ChooseFolder(app_.messages.GetMessage(prompt), Caption(), line->Path());
    if (!folder.empty()) line->SetPath(app_.files.ToNativePath(folder));
}

void CDBaseDialog::cmbBrowseForSourceFolder_Click() {
    BrowseInto(form_.txtSourceFolder, 33101);
}

void CDBaseDialog::cmdBrowseForTargetFolder_Click() {
    BrowseInto(form_.txtTargetFolder, 33102);
}

void CDBaseDialog::cmdBrowseForImage_Click() {
    FileChoice choice;
    choice.title = FromQt(Own(WindowText::CDChooseImage));
    choice.kind = FromQt(Own(WindowText::CDImages));
    choice.masks = "*.cue *.nrg *.toc";
    choice.startFolder = FolderPart(Drive());
    const std::string path = app_.desktop.ChooseFile(choice);
    if (!path.empty()) SetDrive(path);
}

void CDBaseDialog::SetDrive(const std::string& path) {
    drive_ = path;
    form_.cmbDrive->setEditText(ToQt(app_.ansi.ToText(path)));
}

/// A name that is no text in Unicode stays what it is until the person types.
std::string CDBaseDialog::Drive() const {
    const std::string typed = FromQt(form_.cmbDrive->currentText());
    return typed == app_.ansi.ToText(drive_) ? drive_ : app_.files.ToNativePath(Trim(typed));
}

/// The job writes and deletes in both: neither may be wherever the program happens to be.
bool CDBaseDialog::HasFolders() {
    if (form_.txtSourceFolder->Path().empty()) cmbBrowseForSourceFolder_Click();
    if (form_.txtSourceFolder->Path().empty()) return false;
    if (form_.txtTargetFolder->Path().empty()) cmdBrowseForTargetFolder_Click();
    return !form_.txtTargetFolder->Path().empty();
}

// What the controls say.

std::optional<std::int32_t> CDBaseDialog::ModeCode() const {
    if (form_.cmbBitRate->currentIndex() < 0) return std::nullopt;
    return form_.cmbBitRate->currentData().toInt();
}

CDInfo CDBaseDialog::TakeInfo() const {
    CDInfo info;
    info.Artist = Trim(FromQt(form_.txtArtist->text()));
    info.Title = Trim(FromQt(form_.txtAlbum->text()));
    info.Year = Trim(FromQt(form_.txtYear->text()));
    info.Tracks = cd_.Tracks();
    for (std::size_t i = 0; i < info.Tracks.size(); ++i)
        info.Tracks[i].Selected = form_.lstTracks->item(static_cast<int>(i))->checkState() == Qt::Checked;
    info.Length = cd_.Length();
    info.Source = form_.txtSourceFolder->Path();
    info.Target = form_.txtTargetFolder->Path();
    info.BitrateIndex = form_.cmbBitRate->currentIndex();
    info.BitrateText = FromQt(form_.cmbBitRate->currentText());
    info.Compilation = form_.chkTreatAsCompilation->isChecked() ? 1 : 0;
    info.Genre = Trim(FromQt(form_.cmbGenre->currentText()));
    return info;
}

CompressCDJob CDBaseDialog::TakeJob() const {
    CompressCDJob job;
    job.Info = TakeInfo();
    job.ModeCode = ModeCode();
    job.Wave.TrimSilence = form_.chkTrimSilence->isChecked();
    job.Wave.Normalize = form_.chkNormalize->isChecked();
    job.Wave.NormalizeSeparately = form_.chkNormalizeSeparately->isChecked();
    job.Wave.ReduceLevel = form_.chkReduceLevel->isChecked();
    job.DeleteAfterCompress = form_.chkDeleteAfterCompress->isChecked();
    job.NoPlaylists = form_.chkNoPlaylists->isChecked();
    return job;
}

void CDBaseDialog::ShowTracks(const std::vector<QString>& lines) {
    form_.lstTracks->clear();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        auto* item = new QListWidgetItem(lines[i], form_.lstTracks);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(cd_.Tracks()[i].Selected ? Qt::Checked : Qt::Unchecked);
    }
    if (!lines.empty()) form_.lstTracks->setCurrentRow(0);
}

void CDBaseDialog::ShowDisc() {
    form_.txtLength->setText(ToQt(CDTimeText(cd_.Length())));
    std::vector<QString> lines;
    for (std::size_t i = 0; i < cd_.Tracks().size(); ++i)
        lines.push_back(ToQt(CDTrackLine(i + 1, cd_.Tracks()[i])));
    ShowTracks(lines);
}

void CDBaseDialog::ShowInfo(const CDInfo& info) {
    form_.txtArtist->setText(ToQt(info.Artist));
    form_.txtAlbum->setText(ToQt(info.Title));
    form_.txtYear->setText(ToQt(info.Year));
    form_.txtSourceFolder->SetPath(app_.files.ToNativePath(info.Source));
    form_.txtTargetFolder->SetPath(app_.files.ToNativePath(info.Target));
    // A place of a list that was longer, or of another person's.
    if (info.BitrateIndex < form_.cmbBitRate->count())
        form_.cmbBitRate->setCurrentIndex(std::max(info.BitrateIndex, -1));
    form_.chkTreatAsCompilation->setChecked(info.Compilation != 0);
    form_.cmbGenre->setEditText(ToQt(info.Genre));
    cmbGenre_LostFocus();
    cd_.SetTracks(info.Tracks);
    cd_.SetLength(info.Length);
    ShowDisc();
    AlbumKept();
}

// CD information files.

void CDBaseDialog::cmdSave_Click() {
    const CDInfo info = TakeInfo();
    FileChoice choice;
    choice.title = app_.messages.GetMessage(33108);
    choice.kind = app_.messages.GetMessage(33106);
    choice.masks = "*.zfc";
    choice.startFolder = info.Source;
    choice.name = SuggestedCDInfoName(info.Artist, info.Title);
    choice.isToBeWritten = true;
    const std::string path = app_.files.ToNativePath(app_.desktop.ChooseFile(choice));
    if (path.empty()) return;
    const std::string question = app_.messages.GetMessage(33109, app_.ansi.ToText(path));
    if (app_.files.FileExists(path) && !AskYesNo(app_, question, choice.title, true)) return;
    if (!CheckRuntimeError(app_, [&] { SaveCDInfo(app_, path, info); })) AlbumKept();
    SaveMainSettings(app_);
}

void CDBaseDialog::cmdLoad_Click() {
    FileChoice choice;
    choice.title = app_.messages.GetMessage(33107);
    choice.kind = app_.messages.GetMessage(33106);
    choice.masks = "*.zfc";
    choice.startFolder = form_.txtSourceFolder->Path();
    choice.name = "config.zfc";
    const std::string path = app_.files.ToNativePath(app_.desktop.ChooseFile(choice));
    if (!path.empty()) LoadFile(path);
}

void CDBaseDialog::LoadFile(const std::string& path) {
    // One that is not there would read as an album without anything, over the one that is shown.
    if (!app_.files.FileExists(path))
        return ShowWarning(app_, app_.messages.GetMessage(1009, app_.ansi.ToText(path)));
    if (!MayDiscard()) return;
    CDInfo info = TakeInfo();
    if (CheckRuntimeError(app_, [&] { LoadCDInfo(app_, path, info); })) return;
    ShowInfo(info);
    AllowCompressing();
    cmbBitRate_Click();
    Say({});
}

}  // namespace zefta
