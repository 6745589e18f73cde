#include "ui/info/OggFileInfo.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "core/Numbers.h"
#include "ui/QtText.h"
#include "ui/info/OggEditTag.h"

namespace zefta {

namespace {

/// The line as bytes: a comment may hold what is no text, and goes back as it stands.
constexpr int BytesRole = Qt::UserRole;

std::string LineOf(const QListWidgetItem* item) {
    return item->data(BytesRole).toByteArray().toStdString();
}

}  // namespace

OggFileInfo::OggFileInfo(App& app, const std::string& path, QWidget* parent)
    : InformationDialog(app, path, {"frmFileInfoOgg", 33501, 33502}, parent) {
    auto* left = new QVBoxLayout;
    QGroupBox* file = MakeFileBox();
    lbllibVorbisVersion_ = new InfoLabel;
    lbllibVorbisVersion_->setObjectName("lbllibVorbisVersion");
    lbllibVorbisVersion_->setAccessibleDescription(Own(WindowText::InfoVendor));
    file->layout()->addWidget(lbllibVorbisVersion_);
    left->addWidget(file);
    left->addWidget(MakeComments());
    left->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addWidget(MakeExtendedComments(), 1);
    Arrange(columns);
    Form_Load();
}

QGroupBox* OggFileInfo::MakeComments() {
    auto* box = new QGroupBox(Text(33503));
    MakeFields(new QFormLayout(box), FieldsOfOgg(), {});
    return box;
}

QGroupBox* OggFileInfo::MakeExtendedComments() {
    auto* box = new QGroupBox(Text(33509));
    auto* layout = new QVBoxLayout(box);
    auto* note = new QLabel(Text(33516));
    note->setObjectName("lblExComNote");
    lstExCom_ = new QListWidget;
    lstExCom_->setObjectName("lstExCom");
    lstExCom_->setAccessibleName(box->title());
    lstExCom_->setToolTip(Own(WindowText::InfoExComKeys));
    // Lines may be many, and long: none is measured, and each is shown as far as it fits.
    lstExCom_->setUniformItemSizes(true);
    lstExCom_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstExCom_->installEventFilter(this);
    note->setBuddy(lstExCom_);
    QPushButton* add = MakeButton("cmdAddNewExCom", Text(33514));
    cmdRemoveExCom_ = MakeButton("cmdRemoveExCom", Text(33515));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(cmdRemoveExCom_);
    buttons->addStretch(1);
    layout->addWidget(note);
    layout->addWidget(lstExCom_, 1);
    layout->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, &OggFileInfo::cmdAddNewExCom_Click);
    connect(cmdRemoveExCom_, &QPushButton::clicked, this, &OggFileInfo::cmdRemoveExCom_Click);
    connect(lstExCom_, &QListWidget::itemDoubleClicked, this, &OggFileInfo::lstExCom_DblClick);
    connect(lstExCom_, &QListWidget::currentRowChanged, this,
            [this](int row) { cmdRemoveExCom_->setEnabled(row >= 0); });
    return box;
}

void OggFileInfo::ShowLine(QListWidgetItem* item, const std::string& line) const {
    item->setText(ToQt(Application().ansi.ToText(line)));
    item->setData(BytesRole, QByteArray::fromStdString(line));
}

void OggFileInfo::ShowMore(const FileInformation& information) {
    const OggVorbisExtension& tag = information.Tag.OggVorbisExtension;
    lbllibVorbisVersion_->ShowText(ToQt(Application().ansi.ToText(tag.LibVorbisVersion)));
    lstExCom_->clear();
    for (std::int32_t i = 1, count = tag.getExComCount(); i <= count; ++i)
        ShowLine(new QListWidgetItem(lstExCom_), tag.getExComValue(ToI16(std::int64_t{i})));
    cmdRemoveExCom_->setEnabled(false);
}

void OggFileInfo::TakeMore(FileInformation& information) const {
    OggVorbisExtension& tag = information.Tag.OggVorbisExtension;
    tag.removeAllExCom();
    for (int row = 0; row < lstExCom_->count(); ++row) tag.addExCom(LineOf(lstExCom_->item(row)));
}

std::optional<std::string> OggFileInfo::EditLine(const std::string& line) {
    OggEditTag dialog(Application(), line, this);
    return dialog.exec() == Accepted ? std::optional(dialog.Line()) : std::nullopt;
}

void OggFileInfo::cmdAddNewExCom_Click() {
    const std::string line = EditLine({}).value_or("");
    if (line.empty()) return;
    auto* item = new QListWidgetItem(lstExCom_);
    ShowLine(item, line);
    lstExCom_->setCurrentItem(item);
}

void OggFileInfo::cmdRemoveExCom_Click() {
    delete lstExCom_->takeItem(lstExCom_->currentRow());
}

void OggFileInfo::lstExCom_DblClick() {
    QListWidgetItem* item = lstExCom_->currentItem();
    if (item == nullptr || item->text().isEmpty()) return;
    const std::optional<std::string> line = EditLine(LineOf(item));
    if (!line) return;
    // A comment that lost its name is none.
    if (line->empty()) {
        cmdRemoveExCom_Click();
    } else {
        ShowLine(item, *line);
    }
}

bool OggFileInfo::eventFilter(QObject* watched, QEvent* event) {
    if (watched != lstExCom_ || event->type() != QEvent::KeyPress)
        return InformationDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_F2:
            lstExCom_DblClick();
            return true;
        case Qt::Key_Insert:
            cmdAddNewExCom_Click();
            return true;
        case Qt::Key_Delete:
            cmdRemoveExCom_Click();
            return true;
        default:
            return InformationDialog::eventFilter(watched, event);
    }
}

}  // namespace zefta
