#include "ui/desktop/TrimDialog.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/OutlineView.h"

namespace zefta {

namespace {

QLabel* MakeLabel(const char* objectName, Qt::Alignment alignment = Qt::AlignLeading) {
    auto* label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

/// Numbers that grow must not move what stands beside them.
QLabel* MakeNumber(const char* objectName, const char* longest) {
    QLabel* label = MakeLabel(objectName, Qt::AlignTrailing);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(longest));
    return label;
}

}  // namespace

TrimDialog::TrimDialog(Language language, QWidget* parent)
    : ProgressDialog(language, parent),
      fileName_(new QLineEdit),
      outline_(new OutlineView(OwnText(language, WindowText::TrimPicture))),
      options_(new QButtonGroup(this)),
      bar_(new QProgressBar),
      status_(MakeLabel("lblStatus")) {
    setObjectName("frmTrim");
    fileName_->setObjectName("txtFileName");
    fileName_->setReadOnly(true);
    fileName_->setAccessibleName(OwnText(language, WindowText::ProgressFileName));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fileName_);
    layout->addWidget(outline_, 1);
    layout->addWidget(MakeSilence());
    layout->addWidget(MakeFormatting());
    layout->addWidget(MakeProgress());
    layout->addWidget(MakeButtons());
}

QGroupBox* TrimDialog::MakeSilence() {
    auto* frame = new QGroupBox;
    frame->setObjectName("fraSilence");
    auto* grid = new QGridLayout(frame);
    const char* rows[][4] = {
        {"lblStartOffset", "lblStartOffsetValue", "lblFramesBefore", "lblBeforeMSF"},
        {"lblEndOffset", "lblEndOffsetValue", "lblFramesAfter", "lblAfterMSF"},
    };
    int row = 0;
    for (const auto& [caption, bytes, frames, time] : rows) {
        grid->addWidget(MakeLabel(caption), row, 0);
        grid->addWidget(MakeNumber(bytes, "000 000 000 bytes"), row, 1);
        grid->addWidget(MakeNumber(frames, "000000 frames"), row, 2);
        grid->addWidget(MakeNumber(time, "00 mins 00 secs 000 ms"), row, 3);
        ++row;
    }
    return frame;
}

QGroupBox* TrimDialog::MakeFormatting() {
    auto* frame = new QGroupBox;
    frame->setObjectName("fraFormatting");
    auto* grid = new QGridLayout(frame);
    for (const int index : {0, 1, 2, 3}) grid->addWidget(MakeOption(index), 0, index);
    grid->addWidget(MakeLabel("lblNonstop"), 1, 0);
    // Below the buttons of the same names in the row above.
    grid->addWidget(MakeOption(4), 1, 2);
    grid->addWidget(MakeOption(5), 1, 3);
    return frame;
}

QRadioButton* TrimDialog::MakeOption(int index) {
    auto* option = new QRadioButton;
    option->setObjectName(QString("optFormatting%1").arg(index));
    option->setFocusPolicy(Qt::NoFocus);
    option->setAttribute(Qt::WA_TransparentForMouseEvents);
    options_->addButton(option, index);
    return option;
}

QWidget* TrimDialog::MakeProgress() {
    bar_->setObjectName("ProgressBar");
    bar_->setAccessibleName(OwnText(language_, WindowText::ProgressOfFile));
    auto* rows = new QWidget;
    auto* grid = new QGridLayout(rows);
    grid->setContentsMargins({});
    grid->addWidget(status_, 0, 0, 1, 2);
    grid->addWidget(bar_, 1, 0, 1, 2);
    grid->addWidget(MakeLabel("lblMSFWritten"), 2, 0);
    grid->addWidget(MakeLabel("lblMSFRemaining", Qt::AlignTrailing), 2, 1);
    return rows;
}

void TrimDialog::Display(const ProgressReport& report) {
    ShowLabels(report.labels);
    NameNonstopOptions();
    if (const QString name = ToQt(report.fileName); name != fileName_->text()) fileName_->setText(name);
    status_->setText(ToQt(report.status));
    ShowScale(*bar_, {report.minimum, report.maximum, report.value});
    const auto format = report.labels.find("optFormatting");
    SelectFormat(format == report.labels.end() ? std::string() : format->second);
    outline_->Show(report);
}

/// They have the captions of the buttons above them; only the label beside them tells which is which.
void TrimDialog::NameNonstopOptions() {
    const QString group = findChild<QLabel*>("lblNonstop")->text();
    for (const int index : {4, 5}) {
        QAbstractButton* option = options_->button(index);
        option->setAccessibleName(group + " " + option->text());
    }
}

void TrimDialog::SelectFormat(const std::string& format) {
    bool isNumber = false;
    QAbstractButton* option = options_->button(ToQt(format).toInt(&isNumber));
    if (isNumber && option != nullptr) return option->setChecked(true);
    QAbstractButton* former = options_->checkedButton();
    if (former == nullptr) return;
    // A layout that has no button of its own: a group that excludes keeps one checked.
    options_->setExclusive(false);
    former->setChecked(false);
    options_->setExclusive(true);
}

}  // namespace zefta
