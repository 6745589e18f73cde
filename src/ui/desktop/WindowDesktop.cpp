#include "ui/desktop/WindowDesktop.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

#include "platform/OpenDocument.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

QMessageBox::Icon IconOf(BoxKind kind) {
    switch (kind) {
        case BoxKind::Warning:
            return QMessageBox::Warning;
        case BoxKind::Critical:
            return QMessageBox::Critical;
        default:
            return QMessageBox::NoIcon;
    }
}

/// Shows what is missing of progress nowhere.
class NoProgressView : public ProgressView {
  public:
    void Show(const ProgressReport& report) override { (void)report; }
};

}  // namespace

void WindowDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    if (kind != BoxKind::Plain) hasComplained_ = true;
    QMessageBox box(IconOf(kind), ToQt(caption), ToQt(text), QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool WindowDesktop::AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) {
    QMessageBox box(QMessageBox::Question, ToQt(caption), ToQt(text), QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(noIsDefault ? QMessageBox::No : QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

std::string WindowDesktop::AskInput(const std::string& prompt, const std::string& title,
                                    const std::string& defaultAnswer) {
    bool accepted = false;
    const QString answer = QInputDialog::getText(QApplication::activeWindow(), ToQt(title), ToQt(prompt),
                                                 QLineEdit::Normal, ToQt(defaultAnswer), &accepted);
    return accepted ? FromQt(answer) : std::string();
}

std::string WindowDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                        const std::string& startFolder) {
    (void)title;
    const QString folder = QFileDialog::getExistingDirectory(QApplication::activeWindow(), ToQt(prompt),
                                                             QFile::decodeName(startFolder.c_str()));
    return QFile::encodeName(folder).toStdString();
}

void WindowDesktop::Note(const std::string& text) {
    (void)text;
}

std::unique_ptr<ProgressView> WindowDesktop::OpenProgress() {
    return std::make_unique<NoProgressView>();
}

void WindowDesktop::ServeEvents() {
    QApplication::processEvents();
}

bool WindowDesktop::OpenDocument(const std::string& address) {
    return zefta::OpenDocument(address);
}

}  // namespace zefta
