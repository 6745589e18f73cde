#include "agent/AgentDesktop.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/QtText.h"

namespace zefta {

namespace {

QMessageBox::Icon IconOf(BoxKind kind) {
    return kind == BoxKind::Plain ? QMessageBox::Information : QMessageBox::Warning;
}

}  // namespace

void AgentDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    ConsoleDesktop::ShowBox(kind, text, caption);
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return;
    auto* box = new QMessageBox(IconOf(kind), ToQt(caption), ToQt(text), QMessageBox::Ok);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    box->show();
}

}  // namespace zefta
