#include "ui/rename/RenameDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "core/History.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/WindowTexts.h"
#include "ui/main/MenuTable.h"
#include "ui/rename/RenamePreviewModel.h"

namespace zefta {

namespace {

constexpr int RuleByTemplate = 6;
constexpr int RuleWithFolder = 4;

constexpr int MillisecondsOfTyping = 250;
constexpr int MillisecondsBetweenLooks = 50;

struct PlaceHolder {
    const char* holder;
    WindowText meaning;
};

constexpr PlaceHolder Legend[] = {
    {"%A", WindowText::RenameLegendArtist},        {"%T", WindowText::RenameLegendTitle},
    {"%M", WindowText::RenameLegendMix},           {"%Y", WindowText::RenameLegendYear},
    {"%L", WindowText::RenameLegendAlbum},         {"%N", WindowText::RenameLegendTrack},
    {"%N3", WindowText::RenameLegendTrack3},       {"%R", WindowText::RenameLegendPlain},
    {"%W", WindowText::RenameLegendWithoutBlanks},
};

/// The captions of rules 1 to 5, as the menus have them; the last one has a text of its own here.
std::vector<IndexedRow> RuleRows() {
    for (const IndexedList& list : IndexedLists()) {
        if (list.kind == IndexedKind::RenameRules) return list.rows;
    }
    return {};
}

QRadioButton* AddOption(QButtonGroup* group, int id, const char* name, const QString& text) {
    auto* option = new QRadioButton(text);
    option->setObjectName(QString("%1%2").arg(name).arg(id));
    group->addButton(option, id);
    return option;
}

/// A label that wraps does not count in the least height of a window, and its further lines would be taken
/// from the lines of entry: it gets two of its own, and room for its text in them.
void KeepTwoLines(QLabel* label) {
    label->setWordWrap(true);
    QSizePolicy policy = label->sizePolicy();
    policy.setHeightForWidth(false);
    label->setSizePolicy(policy);
    label->setMinimumHeight(2 * label->fontMetrics().lineSpacing());
    // A little more than half, since lines break between words.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(label->text()) * 2 / 3);
}

}  // namespace

RenameDialog::RenameDialog(App& app, const Place& place, QWidget* parent)
    : QDialog(parent),
      app_(app),
      place_(place),
      preview_(app),
      model_(new RenamePreviewModel(app, this)),
      formats_(new QButtonGroup(this)),
      filters_(new QButtonGroup(this)) {
    setObjectName("frmRename");
    setModal(true);
    setWindowTitle(ToQt(ApplicationTitle()) + " - " + Text(34007));
    auto* top = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(MakeRules());
    left->addWidget(MakeFiles());
    left->addStretch();
    top->addLayout(left, 1);
    top->addWidget(MakeLegend());
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(top);
    whole->addWidget(MakePreview(), 1);
    whole->addLayout(MakeBottom());
    Form_Load();
    Connect();
    PreviewSoon();
}

RenameDialog::~RenameDialog() = default;

QString RenameDialog::Text(std::int32_t message) const {
    return ToQt(app_.messages.GetMessage(message));
}

QGroupBox* RenameDialog::MakeRules() {
    auto* group = new QGroupBox(OwnText(app_, WindowText::RenameRules));
    auto* layout = new QVBoxLayout(group);
    for (const IndexedRow& row : RuleRows()) {
        const QString text = row.index == RuleByTemplate ? Text(34001) : QString(row.caption);
        QRadioButton* option = AddOption(formats_, row.index, "optFormat", text);
        // The numbers of the other rules are letters of their texts.
        if (row.index == RuleByTemplate) option->setShortcut(QKeySequence(Qt::ALT | Qt::Key_6));
        layout->addWidget(option);
    }
    layout->addWidget(MakeTemplateLine());
    return group;
}

QWidget* RenameDialog::MakeTemplateLine() {
    constexpr int CharactersInSight = 30;
    cmbRenameTemplates_ = new QComboBox;
    cmbRenameTemplates_->setObjectName("cmbRenameTemplates");
    GuardAgainstScrolling(cmbRenameTemplates_);
    cmbRenameTemplates_->setEditable(true);
    cmbRenameTemplates_->setInsertPolicy(QComboBox::NoInsert);
    // A template must not become the longer one of the list that begins so.
    cmbRenameTemplates_->setCompleter(nullptr);
    cmbRenameTemplates_->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    cmbRenameTemplates_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbRenameTemplates_->setMinimumContentsLength(CharactersInSight);
    auto* label = new QLabel(Text(34009));
    label->setBuddy(cmbRenameTemplates_);
    cmbRenameTemplates_->setAccessibleName(label->text());
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(cmbRenameTemplates_, 1);
    return line;
}

QGroupBox* RenameDialog::MakeLegend() {
    auto* group = new QGroupBox(OwnText(app_, WindowText::RenameLegend));
    group->setObjectName("fraLegend");
    auto* grid = new QGridLayout(group);
    for (const auto& [holder, meaning] : Legend) {
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(holder), row, 0);
        grid->addWidget(new QLabel(OwnText(app_, meaning)), row, 1);
    }
    grid->addWidget(new QLabel(OwnText(app_, WindowText::RenameLegendBrackets)), grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return group;
}

QGroupBox* RenameDialog::MakeFiles() {
    auto* group = new QGroupBox(OwnText(app_, WindowText::RenameFiles));
    auto* layout = new QVBoxLayout(group);
    for (const int filter : {0, 1, 2})
        layout->addWidget(AddOption(filters_, filter, "optRenameFilter", Text(34002 + filter)));
    txtMask_ = new QLineEdit;
    txtMask_->setObjectName("txtMask");
    txtMask_->setAccessibleName(OwnText(app_, WindowText::RenameMask));
    chkProcessSubfolders_ = new QCheckBox(Text(34006));
    chkProcessSubfolders_->setObjectName("chkProcessSubfolders");
    chkUpdatePlaylists_ = new QCheckBox(Text(34005));
    chkUpdatePlaylists_->setObjectName("chkUpdatePlaylists");
    layout->addWidget(txtMask_);
    layout->addWidget(chkProcessSubfolders_);
    layout->addWidget(chkUpdatePlaylists_);
    return group;
}

QGroupBox* RenameDialog::MakePreview() {
    constexpr int RowsInSight = 8;
    auto* group = new QGroupBox(OwnText(app_, WindowText::RenamePreview));
    table_ = new QTableView;
    table_->setObjectName("lvPreview");
    table_->setAccessibleName(group->title());
    table_->setModel(model_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // The tab key goes through the dialog.
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const int rowHeight = table_->fontMetrics().lineSpacing() + 4;
    table_->verticalHeader()->setDefaultSectionSize(rowHeight);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // Mostly empty: the names have the room until there is something to note about those in sight.
    table_->horizontalHeader()->setSectionResizeMode(RenamePreviewModel::Note, QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setResizeContentsPrecision(0);
    table_->setMinimumHeight(rowHeight * RowsInSight / 2);
    // Two names of usual length and a note.
    constexpr int LettersInSight = 105;
    table_->setMinimumWidth(table_->fontMetrics().averageCharWidth() * LettersInSight);
    lblPreview_ = new QLabel;
    lblPreview_->setObjectName("lblPreview");
    lblPreview_->setTextFormat(Qt::PlainText);
    // What ends a rename may name a long path: told whole in the tool tip, it must not widen the window.
    lblPreview_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(table_, 1);
    layout->addWidget(lblPreview_);
    return group;
}

QLayout* RenameDialog::MakeBottom() {
    auto* sign = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
    auto* warning = new QLabel(Text(34008));
    warning->setObjectName("lblWarning");
    KeepTwoLines(warning);
    okButton_ = new QPushButton(Text(34010));
    okButton_->setObjectName("OKButton");
    cancelButton_ = new QPushButton(OwnText(app_, WindowText::BoxCancel));
    cancelButton_->setObjectName("CancelButton");
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(okButton_, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(sign);
    bottom->addWidget(warning, 1);
    bottom->addWidget(buttons);
    return bottom;
}

void RenameDialog::Form_Load() {
    const RenameForm form = LoadRenameForm(app_);
    for (const std::string& each : LoadRenameTemplates(app_.userSettings))
        cmbRenameTemplates_->addItem(ToQt(each));
    cmbRenameTemplates_->setEditText(ToQt(form.customTemplate));
    formats_->button(form.format)->setChecked(true);
    filters_->button(static_cast<int>(form.choice.filter))->setChecked(true);
    txtMask_->setText(ToQt(form.choice.mask));
    chkProcessSubfolders_->setChecked(form.choice.processSubfolders);
    chkUpdatePlaylists_->setChecked(form.choice.updatePlaylists);
    EnableControls();
    okButton_->setDefault(true);
    formats_->button(form.format)->setFocus();
}

void RenameDialog::Connect() {
    connect(okButton_, &QPushButton::clicked, this, &RenameDialog::OKButton_Click);
    connect(cancelButton_, &QPushButton::clicked, this, &RenameDialog::CancelButton_Click);
    for (QButtonGroup* group : {formats_, filters_}) {
        connect(group, &QButtonGroup::idToggled, this, [this](int, bool isChosen) {
            if (!isChosen) return;
            EnableControls();
            PreviewSoon();
        });
    }
    connect(cmbRenameTemplates_, &QComboBox::editTextChanged, this, &RenameDialog::PreviewSoon);
    connect(txtMask_, &QLineEdit::textChanged, this, &RenameDialog::PreviewSoon);
    for (QCheckBox* box : {chkProcessSubfolders_, chkUpdatePlaylists_})
        connect(box, &QCheckBox::toggled, this, &RenameDialog::PreviewSoon);
    begin_.setSingleShot(true);
    begin_.setInterval(MillisecondsOfTyping);
    take_.setInterval(MillisecondsBetweenLooks);
    connect(&begin_, &QTimer::timeout, this, &RenameDialog::BeginPreview);
    connect(&take_, &QTimer::timeout, this, &RenameDialog::TakePreview);
}

void RenameDialog::EnableControls() {
    const int format = formats_->checkedId();
    cmbRenameTemplates_->setEnabled(format == RuleByTemplate);
    chkProcessSubfolders_->setEnabled(format != RuleWithFolder);
    txtMask_->setEnabled(filters_->checkedId() == static_cast<int>(ExtendedRename::Filter::FilesByMask));
}

RenameForm RenameDialog::Form() const {
    RenameForm form;
    form.format = static_cast<std::int16_t>(formats_->checkedId());
    form.customTemplate = FromQt(cmbRenameTemplates_->currentText());
    form.choice.folder = place_.folder;
    form.choice.filter = static_cast<ExtendedRename::Filter>(filters_->checkedId());
    form.choice.mask = FromQt(txtMask_->text());
    form.choice.selected = place_.selected;
    form.choice.processSubfolders = chkProcessSubfolders_->isEnabled() && chkProcessSubfolders_->isChecked();
    form.choice.updatePlaylists = chkUpdatePlaylists_->isChecked();
    return form;
}

void RenameDialog::PreviewSoon() {
    lblPreview_->setText(OwnText(app_, WindowText::RenameWorking));
    begin_.start();
}

void RenameDialog::BeginPreview() {
    model_->Clear();
    preview_.Begin(Form());
    take_.start();
}

void RenameDialog::TakePreview() {
    // Asked first: what comes between the two is taken the next time.
    const bool isUnderWay = preview_.IsUnderWay();
    model_->Append(preview_.Take());
    if (isUnderWay) return;
    take_.stop();
    if (!begin_.isActive()) ShowSummary();
}

void RenameDialog::ShowSummary() {
    model_->SortAsList();
    FitNotes();
    QString summary =
        OwnText(app_, WindowText::RenameSummary).arg(model_->RenamedCount()).arg(model_->KeptCount());
    if (const auto failure = preview_.Failure())
        summary += "\n" + OwnText(app_, WindowText::RenameWouldEnd) + " " + ToQt(app_.ansi.ToText(*failure));
    lblPreview_->setText(summary);
    lblPreview_->setToolTip(summary.toHtmlEscaped());
}

/// The header takes no notice of rows that come; and a long note must leave the names their room.
void RenameDialog::FitNotes() {
    QHeaderView* header = table_->horizontalHeader();
    header->setMaximumSectionSize(
        std::max(table_->viewport()->width() * 3 / 5, header->minimumSectionSize()));
    header->setSectionResizeMode(RenamePreviewModel::Note, QHeaderView::ResizeToContents);
}

void RenameDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    FitNotes();
}

void RenameDialog::done(int result) {
    begin_.stop();
    take_.stop();
    preview_.Stop();
    QDialog::done(result);
}

}  // namespace zefta
