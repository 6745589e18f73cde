#include "ui/info/OggEditTag.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <limits>

#include "library/FileInformation.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

QLineEdit* MakeLine(const char* name, const std::string& text) {
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setMaxLength(std::numeric_limits<int>::max());
    line->setText(ToQt(text));
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * 50);
    return line;
}

}  // namespace

OggEditTag::OggEditTag(App& app, const std::string& line, QWidget* parent) : QDialog(parent) {
    const auto text = [&](std::int32_t message) { return ToQt(app.messages.GetMessage(message)); };
    setObjectName("frmFileInfoOgg_EditTag");
    setModal(true);
    setWindowTitle(text(33519));
    const ExtendedComment comment = SplitExtendedComment(app.ansi.ToText(line));
    txtTag_ = MakeLine("txtTag", comment.name);
    txtValue_ = MakeLine("txtValue", comment.value);
    auto* form = new QFormLayout(this);
    for (const auto& [label, field] : {std::pair{33517, txtTag_}, std::pair{33518, txtValue_}}) {
        auto* name = new QLabel(text(label));
        name->setBuddy(field);
        field->setAccessibleName(name->text());
        form->addRow(name, field);
    }
    auto* buttons = new QDialogButtonBox;
    QPushButton* ok = buttons->addButton(text(33409), QDialogButtonBox::AcceptRole);
    ok->setObjectName("OKButton");
    QPushButton* cancel = buttons->addButton(text(33410), QDialogButtonBox::RejectRole);
    cancel->setObjectName("CancelButton");
    form->addRow(buttons);
    // Not before the button is one of the dialog.
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &OggEditTag::OKButton_Click);
    connect(cancel, &QPushButton::clicked, this, &OggEditTag::CancelButton_Click);
}

void OggEditTag::OKButton_Click() {
    line_ = JoinExtendedComment({FromQt(txtTag_->text()), FromQt(txtValue_->text())});
    accept();
}

}  // namespace zefta
