#include "ui/info/InformationDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <limits>
#include <utility>

#include "core/Boxes.h"
#include "platform/Paths.h"
#include "ui/QtText.h"
#include "ui/info/Genres.h"

namespace zefta {

namespace {

/// What a line of entry shows without scrolling.
constexpr int UsualCharacters = 26;

/// The mark in titles for unsaved changes is none of a name; doubled it stands for itself.
QString TitleOf(const std::string& name) {
    return ToQt(name).replace("[*]", "[*][*]");
}

}  // namespace

InformationDialog::InformationDialog(App& app, std::string path, const Names& names, QWidget* parent)
    : QDialog(parent), app_(app), path_(std::move(path)), kind_(names.kind) {
    setObjectName(names.dialog);
    setModal(true);
    setWindowTitle(TitleOf(app_.ansi.ToText(NamePart(path_))) + " - " + Text(names.title));
}

QString InformationDialog::Text(std::int32_t message) const {
    return ToQt(app_.messages.GetMessage(message));
}

QGroupBox* InformationDialog::MakeFileBox() {
    auto* box = new QGroupBox(Text(kind_));
    auto* layout = new QVBoxLayout(box);
    auto* path = new QLineEdit(ToQt(app_.ansi.ToText(path_)));
    path->setObjectName("txtFileName");
    path->setReadOnly(true);
    path->setAccessibleName(Own(WindowText::InfoFileName));
    path->setToolTip(Own(WindowText::InfoFileName));
    lblFileInfo_ = new InfoLabel;
    lblFileInfo_->setObjectName("lblFileInfo");
    lblFileInfo_->setAccessibleDescription(Own(WindowText::InfoMeasures));
    lblEncoder_ = new InfoLabel;
    lblEncoder_->setObjectName("lblEncoder");
    for (QWidget* widget : {static_cast<QWidget*>(path), static_cast<QWidget*>(lblFileInfo_),
                            static_cast<QWidget*>(lblEncoder_)})
        layout->addWidget(widget);
    return box;
}

QLabel* InformationDialog::AddRow(QFormLayout* form, std::int32_t label, QWidget* control,
                                  const QString& group) {
    auto* text = new QLabel(Text(label));
    text->setBuddy(control);
    control->setAccessibleName(group.isEmpty() ? text->text() : group + ": " + text->text());
    form->addRow(text, control);
    return text;
}

QComboBox* InformationDialog::MakeGenre() {
    auto* genre = new QComboBox;
    genre->setEditable(true);
    genre->setInsertPolicy(QComboBox::NoInsert);
    // A genre of the person's own must not become the longer one of the list that begins so.
    genre->setCompleter(nullptr);
    genre->addItems(GenreNames());
    genre->setCurrentIndex(-1);
    genre->installEventFilter(this);
    return genre;
}

QLineEdit* InformationDialog::MakeControl(const InformationField& field, QFormLayout* form,
                                          const QString& group) {
    QComboBox* genre = field.control == std::string_view("cmbGenre") ? MakeGenre() : nullptr;
    QLineEdit* edit = genre != nullptr ? genre->lineEdit() : new QLineEdit;
    QWidget* control = genre != nullptr ? static_cast<QWidget*>(genre) : edit;
    control->setObjectName(field.control);
    edit->setMaxLength(std::numeric_limits<int>::max());
    control->setMinimumWidth(control->fontMetrics().averageCharWidth() * UsualCharacters);
    AddRow(form, field.label, control, group);
    return edit;
}

void InformationDialog::MakeFields(QFormLayout* form, std::span<const InformationField> fields,
                                   const QString& group) {
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const InformationField& field : fields) fields_.emplace_back(field, MakeControl(field, form, group));
}

QCheckBox* InformationDialog::MakeRemoveUnknownFrames() {
    chkRemoveUnknownFrames_ = new QCheckBox;
    chkRemoveUnknownFrames_->setObjectName("chkRemoveUnknownFrames");
    return chkRemoveUnknownFrames_;
}

QPushButton* InformationDialog::MakeButton(const char* name, const QString& text) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    return button;
}

void InformationDialog::MakeNoteAndButtons(QLayout* bottom) {
    lblWriteNote_ = new QLabel(Text(33419));
    lblWriteNote_->setObjectName("lblWriteNote");
    QSizePolicy policy = lblWriteNote_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    lblWriteNote_->setSizePolicy(policy);
    lblWriteNote_->hide();
    okButton_ = MakeButton("OKButton", Text(33409));
    cancelButton_ = MakeButton("CancelButton", Text(33410));
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(okButton_, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    bottom->addWidget(lblWriteNote_);
    bottom->addWidget(buttons);
    connect(okButton_, &QPushButton::clicked, this, &InformationDialog::OKButton_Click);
    connect(cancelButton_, &QPushButton::clicked, this, &InformationDialog::CancelButton_Click);
}

void InformationDialog::GuardYears() {
    for (const FieldBinding& field : fields_) {
        QLineEdit* edit = field.Edit();
        if (!edit->objectName().startsWith("txtYear")) continue;
        edit->setToolTip(Own(WindowText::InfoYearRule));
        edit->setAccessibleDescription(edit->toolTip());
        const auto row = static_cast<std::size_t>(&field - fields_.data());
        // What the file holds is nobody's mistake: a whole date of an Ogg Vorbis file, for one.
        const auto passes = [this, row, edit] {
            return fields_[row].IsUntouched() || IsYearText(FromQt(edit->text()));
        };
        years_.push_back(new YearGuard(edit, passes, cancelButton_, edit->toolTip()));
    }
}

void InformationDialog::Arrange(QBoxLayout* columns) {
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(columns);
    auto* bottom = new QHBoxLayout;
    MakeNoteAndButtons(bottom);
    whole->addLayout(bottom);
    // Not before the button is one of the dialog.
    okButton_->setDefault(true);
    GuardYears();
}

void InformationDialog::Form_Load() {
    information_ = LoadFileInformation(app_, path_);
    lblFileInfo_->ShowText(ToQt(MeasuresText(information_.Tag)));
    lblEncoder_->ShowText(ToQt(EncoderText(information_.Tag)));
    for (FieldBinding& field : fields_) {
        field.Show(information_);
        if (field.Edit()->isReadOnly()) field.Edit()->setToolTip(Own(WindowText::InfoTooLong));
    }
    if (const QComboBox* genre = Genre()) ShowGenre(genre->currentText());
    if (chkRemoveUnknownFrames_ != nullptr)
        chkRemoveUnknownFrames_->setText(ToQt(UnknownFramesText(app_, information_.Tag)));
    ShowMore(information_);
    if (QLineEdit* title = Line("txtTitle")) title->setFocus();
}

void InformationDialog::ShowGenre(const QString& genre) const {
    Genre()->setEditText(genre);
    cmbGenre_LostFocus();
}

void InformationDialog::cmbGenre_LostFocus() const {
    QComboBox* genre = Genre();
    const int entry = genre->findText(genre->currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (entry >= 0) genre->setCurrentIndex(entry);
}

bool InformationDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && watched == Genre()) cmbGenre_LostFocus();
    return QDialog::eventFilter(watched, event);
}

void InformationDialog::Form_KeyDown(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        CancelButton_Click();
    } else {
        QDialog::keyPressEvent(event);
    }
}

/// Controls of a file that could not be opened or read are empty, and would clear it now that it can be.
bool InformationDialog::HasToBeLoadedAgain() const {
    return !information_.IsWhole && app_.files.OpenReadOnly(path_) != nullptr;
}

void InformationDialog::ShowWriteNote() {
    lblWriteNote_->show();
    lblWriteNote_->repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

SaveOutcome InformationDialog::Save(const FileInformation& information) {
    SaveManner manner{.shown = hasWritten_ ? nullptr : &information_, .writing = [this] {
                          hasWritten_ = true;
                          ShowWriteNote();
                      }};
    while (true) {
        const SaveOutcome outcome = SaveFileInformation(app_, path_, information, manner);
        const bool wouldLose = outcome == SaveOutcome::WouldLose;
        if (!wouldLose && outcome != SaveOutcome::ChangedMeanwhile) return outcome;
        const QString question = Own(wouldLose ? WindowText::InfoWouldLose : WindowText::InfoChanged);
        if (!AskYesNo(app_, FromQt(question), FromQt(windowTitle()), true)) return SaveOutcome::Open;
        if (wouldLose) {
            manner.mayLose = true;
        } else {
            manner.shown = nullptr;
        }
    }
}

void InformationDialog::OKButton_Click() {
    for (YearGuard* year : years_) {
        if (!year->Validate()) return;
    }
    if (HasToBeLoadedAgain()) {
        Form_Load();
        return;
    }
    FileInformation information = information_;
    for (const FieldBinding& field : fields_) field.Take(information);
    information.RemoveUnknownFrames =
        chkRemoveUnknownFrames_ != nullptr && chkRemoveUnknownFrames_->isChecked();
    TakeMore(information);
    const SaveOutcome outcome = Save(information);
    lblWriteNote_->hide();
    if (outcome == SaveOutcome::Refused) ShowWarning(app_, FromQt(Own(WindowText::InfoRefusedOgg)));
    if (outcome != SaveOutcome::Open) accept();
}

}  // namespace zefta
