#include "ui/desktop/InputDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/BoxText.h"

namespace zefta {

namespace {

/// A label that belongs to a field takes an ampersand for the mark of a key.
QString PromptText(const std::string& prompt) {
    return BoxText(prompt).replace("&", "&&");
}

QDialogButtonBox* MakeButtons(Language language, QDialog* dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(OwnText(language, WindowText::BoxOk));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setText(OwnText(language, WindowText::BoxCancel));
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

}  // namespace

InputDialog::InputDialog(Language language, const InputQuestion& question, QWidget* parent)
    : QDialog(parent), answer_(new QLineEdit(ToQt(question.defaultAnswer))) {
    constexpr int CharactersInSight = 60;
    setObjectName("frmInput");
    setWindowTitle(ToQt(question.title));
    auto* prompt = new QLabel(PromptText(question.prompt));
    prompt->setObjectName("lblPrompt");
    prompt->setTextFormat(Qt::PlainText);
    prompt->setWordWrap(true);
    prompt->setBuddy(answer_);
    answer_->setObjectName("txtAnswer");
    answer_->setAccessibleName(ToQt(question.prompt));
    answer_->setMinimumWidth(answer_->fontMetrics().averageCharWidth() * CharactersInSight);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addWidget(answer_);
    layout->addWidget(MakeButtons(language, this));
    answer_->setFocus();
    answer_->selectAll();
}

std::string InputDialog::Answer() const {
    return FromQt(answer_->text());
}

}  // namespace zefta
