#include "ui/cd/CDBaseControls.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/WindowTexts.h"
#include "ui/info/Genres.h"

namespace zefta {

namespace {

/// Makes the controls one after the other.
class CDBaseBuilder {
  public:
    CDBaseBuilder(App& app, QDialog* dialog) : app_(app), dialog_(dialog) {}

    CDBaseControls Build();

  private:
    QWidget* BuildInput();
    QWidget* BuildOutput();
    QWidget* BuildAlbum();
    QLayout* BuildProgress();
    QLayout* BuildButtons();

    QString Text(std::int32_t message) const { return ToQt(app_.messages.GetMessage(message)); }
    QString Own(WindowText text) const { return OwnText(app_, text); }

    template <typename Control>
    Control* Named(Control* control, const char* name) const {
        control->setObjectName(name);
        return control;
    }

    QPushButton* Button(const char* name, const QString& text, const QString& keys = {}) const;
    QPushButton* BrowseButton(const char* name, const QString& tip) const;
    QCheckBox* Check(const char* name, std::int32_t message) const;
    QLineEdit* Line(const char* name) const;
    /// A label above or beside the control, which it names for screen readers, too.
    QLabel* Label(const QString& text, QWidget* control) const;
    QLayout* PathRow(QWidget* line, QPushButton* button) const;
    void BuildSwitches(QBoxLayout* rows);

    App& app_;
    QDialog* dialog_;
    CDBaseControls form_ = {};
};

CDBaseControls CDBaseBuilder::Build() {
    form_.whole = new QWidget;
    auto* left = new QVBoxLayout;
    left->addWidget(BuildInput());
    left->addWidget(BuildOutput());
    left->addStretch();
    auto* columns = new QHBoxLayout(form_.whole);
    columns->setContentsMargins({});
    columns->addLayout(left);
    columns->addWidget(BuildAlbum(), 1);
    auto* rows = new QVBoxLayout(dialog_);
    for (QComboBox* box : {form_.cmbDrive, form_.cmbBitRate, form_.cmbGenre}) GuardAgainstScrolling(box);
    rows->addWidget(form_.whole, 1);
    rows->addLayout(BuildProgress());
    rows->addLayout(BuildButtons());
    return form_;
}

QPushButton* CDBaseBuilder::Button(const char* name, const QString& text, const QString& keys) const {
    auto* button = Named(new QPushButton(text), name);
    // Enter in a line of entry must not start what takes an hour and deletes files.
    button->setAutoDefault(false);
    if (!keys.isEmpty()) button->setToolTip(text + " (" + keys + ")");
    return button;
}

QPushButton* CDBaseBuilder::BrowseButton(const char* name, const QString& tip) const {
    auto* button = Button(name, "...");
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

QCheckBox* CDBaseBuilder::Check(const char* name, std::int32_t message) const {
    return Named(new QCheckBox(Text(message)), name);
}

QLineEdit* CDBaseBuilder::Line(const char* name) const {
    return Named(new QLineEdit, name);
}

QLabel* CDBaseBuilder::Label(const QString& text, QWidget* control) const {
    auto* label = new QLabel(text);
    label->setBuddy(control);
    control->setAccessibleName(text);
    return label;
}

QLayout* CDBaseBuilder::PathRow(QWidget* line, QPushButton* button) const {
    constexpr int CharactersInSight = 36;
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * CharactersInSight);
    auto* row = new QHBoxLayout;
    row->addWidget(line, 1);
    row->addWidget(button);
    return row;
}

QWidget* CDBaseBuilder::BuildInput() {
    auto* group = new QGroupBox(Text(33002));
    auto* rows = new QVBoxLayout(group);
    form_.cmbDrive = Named(new QComboBox, "cmbDrive");
    form_.cmbDrive->setEditable(true);
    form_.cmbDrive->setInsertPolicy(QComboBox::NoInsert);
    form_.cmbDrive->setToolTip(Own(WindowText::CDDriveTip));
    form_.cmbDrive->lineEdit()->setPlaceholderText(Own(WindowText::CDFirstDrive));
    form_.cmdBrowseForImage = BrowseButton("cmdBrowseForImage", Own(WindowText::CDChooseImage));
    rows->addWidget(Label(Own(WindowText::CDDrive), form_.cmbDrive));
    rows->addLayout(PathRow(form_.cmbDrive, form_.cmdBrowseForImage));
    auto* buttons = new QHBoxLayout;
    form_.cmdImportData = Button("cmdImportData", Text(33013), "Ctrl-R");
    form_.cmdCDDAE = Button("cmdCDDAE", Text(33014));
    form_.cmdSimulateCD = Button("cmdSimulateCD", Text(33015));
    for (QPushButton* button : {form_.cmdImportData, form_.cmdCDDAE, form_.cmdSimulateCD})
        buttons->addWidget(button);
    rows->addLayout(buttons);
    form_.txtSourceFolder = Named(new FolderLine(app_), "txtSourceFolder");
    form_.cmbBrowseForSourceFolder = BrowseButton("cmbBrowseForSourceFolder", Text(33101) + " (Alt-F1)");
    rows->addWidget(Label(Text(33003), form_.txtSourceFolder));
    rows->addLayout(PathRow(form_.txtSourceFolder, form_.cmbBrowseForSourceFolder));
    return group;
}

QWidget* CDBaseBuilder::BuildOutput() {
    auto* group = new QGroupBox(Text(33010));
    auto* rows = new QVBoxLayout(group);
    form_.txtTargetFolder = Named(new FolderLine(app_), "txtTargetFolder");
    form_.cmdBrowseForTargetFolder = BrowseButton("cmdBrowseForTargetFolder", Text(33102) + " (Alt-F2)");
    rows->addWidget(Label(Text(33012), form_.txtTargetFolder));
    rows->addLayout(PathRow(form_.txtTargetFolder, form_.cmdBrowseForTargetFolder));
    form_.cmbBitRate = Named(new QComboBox, "cmbBitRate");
    rows->addWidget(Label(Text(33011), form_.cmbBitRate));
    rows->addWidget(form_.cmbBitRate);
    BuildSwitches(rows);
    return group;
}

void CDBaseBuilder::BuildSwitches(QBoxLayout* rows) {
    form_.chkTrimSilence = Check("chkTrimSilence", 33021);
    form_.chkNormalize = Check("chkNormalize", 33024);
    form_.chkNormalizeSeparately = Check("chkNormalizeSeparately", 33026);
    form_.chkReduceLevel = Check("chkReduceLevel", 33022);
    form_.chkDeleteAfterCompress = Check("chkDeleteAfterCompress", 33023);
    form_.chkNoPlaylists = Check("chkNoPlaylists", 33027);
    form_.chkShutdown = Check("chkShutdown", 33020);
    auto* normalize = new QHBoxLayout;
    normalize->addWidget(form_.chkNormalize);
    normalize->addWidget(form_.chkNormalizeSeparately);
    normalize->addStretch();
    rows->addWidget(form_.chkTrimSilence);
    rows->addLayout(normalize);
    for (QCheckBox* box :
         {form_.chkReduceLevel, form_.chkDeleteAfterCompress, form_.chkNoPlaylists, form_.chkShutdown})
        rows->addWidget(box);
}

QWidget* CDBaseBuilder::BuildAlbum() {
    auto* group = new QGroupBox(Text(33004));
    auto* rows = new QVBoxLayout(group);
    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_.txtArtist = Line("txtArtist");
    form_.txtAlbum = Line("txtAlbum");
    form_.txtYear = Line("txtYear");
    form_.txtLength = Line("txtLength");
    form_.txtLength->setReadOnly(true);
    form_.cmbGenre = Named(new QComboBox, "cmbGenre");
    form_.cmbGenre->setEditable(true);
    form_.cmbGenre->setInsertPolicy(QComboBox::NoInsert);
    // A genre of the person's own must not become the longer one of the list that begins so.
    form_.cmbGenre->setCompleter(nullptr);
    form_.cmbGenre->addItems(GenreNames());
    form_.cmbGenre->setCurrentIndex(-1);
    fields->addRow(Label(Text(33005), form_.txtArtist), form_.txtArtist);
    fields->addRow(Label(Text(33006), form_.txtAlbum), form_.txtAlbum);
    fields->addRow(Label(Text(33007), form_.txtYear), form_.txtYear);
    fields->addRow(Label(Text(33008), form_.txtLength), form_.txtLength);
    fields->addRow(Label(Text(33025), form_.cmbGenre), form_.cmbGenre);
    rows->addLayout(fields);
    form_.chkTreatAsCompilation = Check("chkTreatAsCompilation", 33009);
    rows->addWidget(form_.chkTreatAsCompilation);
    constexpr int CharactersInSight = 44;
    form_.lstTracks = Named(new QListWidget, "lstTracks");
    form_.lstTracks->setAccessibleName(Own(WindowText::CDTracks));
    form_.lstTracks->setToolTip(Own(WindowText::CDTracksTip));
    form_.lstTracks->setAccessibleDescription(form_.lstTracks->toolTip());
    form_.lstTracks->setMinimumWidth(form_.lstTracks->fontMetrics().averageCharWidth() * CharactersInSight);
    rows->addWidget(form_.lstTracks, 1);
    return group;
}

QLayout* CDBaseBuilder::BuildProgress() {
    auto* row = new QHBoxLayout;
    form_.lblStatus = Named(new QLabel, "lblStatus");
    form_.lblStatus->setTextFormat(Qt::PlainText);
    form_.lblStatus->setWordWrap(true);
    form_.pbProgress = Named(new QProgressBar, "pbProgress");
    form_.pbProgress->setAccessibleName(Own(WindowText::ProgressOfAll));
    form_.cmdStop = Button("cmdStop", Own(WindowText::CancelBatch));
    form_.cmdStop->setToolTip(Own(WindowText::CDStopTip));
    for (QWidget* widget : {static_cast<QWidget*>(form_.pbProgress), static_cast<QWidget*>(form_.cmdStop)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
        widget->hide();
    }
    row->addWidget(form_.lblStatus, 1);
    row->addWidget(form_.pbProgress);
    row->addWidget(form_.cmdStop);
    return row;
}

QLayout* CDBaseBuilder::BuildButtons() {
    auto* row = new QHBoxLayout;
    form_.cmdSave = Button("cmdSave", Text(33016), "Ctrl-S");
    form_.cmdLoad = Button("cmdLoad", Text(33017), "Ctrl-L");
    form_.cmdOK = Button("cmdOK", Text(33018), "Ctrl-Enter");
    form_.cmdCancel = Button("cmdCancel", Text(33019));
    row->addWidget(form_.cmdSave);
    row->addWidget(form_.cmdLoad);
    row->addStretch();
    row->addWidget(form_.cmdOK);
    row->addWidget(form_.cmdCancel);
    return row;
}

}  // namespace

CDBaseControls BuildCDBase(App& app, QDialog* dialog) {
    return CDBaseBuilder(app, dialog).Build();
}

}  // namespace zefta
