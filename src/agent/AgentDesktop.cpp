#include "agent/AgentDesktop.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/BoxText.h"

namespace zefta {

void AgentDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    ConsoleDesktop::ShowBox(kind, text, caption);
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return;
    auto* box = new QMessageBox(BoxIcon(kind), ToQt(caption), BoxText(text), QMessageBox::NoButton);
    box->addButton(QMessageBox::Ok)->setText(OwnText(language_, WindowText::BoxOk));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    box->show();
}

}  // namespace zefta
