#include "ui/desktop/WindowDesktop.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "platform/OpenDocument.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/BatchView.h"
#include "ui/desktop/BoxText.h"
#include "ui/desktop/CopyPlaylistDialog.h"
#include "ui/desktop/InputDialog.h"
#include "ui/desktop/MediaPlayers.h"
#include "ui/desktop/TrimDialog.h"

namespace zefta {

namespace {

/// The window that the person works in: none of ours is active while another program is in front.
QWidget* WindowAtHand() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
            return window;
    }
    return nullptr;
}

/// A button of a box with its caption in the language of the program.
struct BoxButton {
    QMessageBox::StandardButton button;
    WindowText caption;
};

void AddButtons(QMessageBox& box, Language language, const std::vector<BoxButton>& buttons) {
    for (const BoxButton& button : buttons)
        box.addButton(button.button)->setText(OwnText(language, button.caption));
}

/// Bytes that the toolkit can't tell as a name would name another file, or none.
std::optional<QString> NameForToolkit(const std::string& path) {
    const QString name = QFile::decodeName(path.c_str());
    if (QFile::encodeName(name).toStdString() != path) return std::nullopt;
    return name;
}

/// What the chooser of files shows of the kind: some texts name the masks themselves.
QString NameFilter(const FileChoice& choice) {
    const QString masks = "(" + ToQt(choice.masks) + ")";
    const QString kind = ToQt(choice.kind);
    return kind.endsWith(masks) ? kind : kind + " " + masks;
}

void BeginIn(QFileDialog& dialog, const std::string& folder) {
    const auto start = NameForToolkit(folder);
    if (start && !start->isEmpty() && QDir(*start).exists()) dialog.setDirectory(*start);
}

std::string ChosenPath(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

/// Makes the person's trash where there is none yet. It is where the toolkit turns to in the end: without it
/// some versions take the current folder for one.
bool HasTrash() {
    QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    data.mkpath(".");
    data.mkdir("Trash", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return data.exists("Trash/.");
}

}  // namespace

/// The dialog of one job, made when it is known which one it is.
class ProgressDialogView : public ProgressView {
  public:
    explicit ProgressDialogView(WindowDesktop& desktop) : desktop_(desktop) {
        desktop_.progress_.push_back(this);
    }

    ~ProgressDialogView() override {
        std::erase(desktop_.progress_, this);
        delete dialog_;
    }

    void Show(const ProgressReport& report) override {
        const bool isFirst = !wasShown_;
        wasShown_ = true;
        if (isFirst) Make(report.kind);
        if (!dialog_) return;
        dialog_->ShowReport(report);
        if (!isFirst) return;
        dialog_->show();
        // To be painted at the next turn, whenever the last one was.
        desktop_.sinceServed_.invalidate();
    }

    bool DrawsOutline() const override { return true; }
    bool IsCancelled() const { return dialog_ && dialog_->IsCancelled(); }

  private:
    void Make(ProgressKind kind) {
        if (kind == ProgressKind::Trim) {
            dialog_ = new TrimDialog(desktop_.language_, WindowAtHand());
        } else {
            dialog_ = new CopyPlaylistDialog(desktop_.language_, WindowAtHand());
        }
    }

    WindowDesktop& desktop_;
    /// Goes with the window that it stands over, should that be closed first.
    QPointer<ProgressDialog> dialog_;
    bool wasShown_ = false;
};

WindowDesktop::WindowDesktop(Language language, std::optional<QDBusConnection> bus)
    : language_(language), bus_(std::move(bus)) {}

void WindowDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    if (kind != BoxKind::Plain) hasComplained_ = true;
    QMessageBox box(BoxIcon(kind), ToQt(caption), BoxText(text), QMessageBox::NoButton, WindowAtHand());
    box.setTextFormat(Qt::PlainText);
    AddButtons(box, language_, {{QMessageBox::Ok, WindowText::BoxOk}});
    box.setDefaultButton(QMessageBox::Ok);
    RunBox(box);
}

int WindowDesktop::RunBox(QMessageBox& box) {
    if (batchItem_ < batchCount_ && !IsCancelled())
        AddButtons(box, language_, {{QMessageBox::Abort, WindowText::BoxCancelRest}});
    const int button = box.exec();
    if (button == QMessageBox::Abort) isCancelledAtBox_ = true;
    return button;
}

bool WindowDesktop::AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) {
    QMessageBox box(QMessageBox::Question, ToQt(caption), BoxText(text), QMessageBox::NoButton,
                    WindowAtHand());
    box.setTextFormat(Qt::PlainText);
    AddButtons(box, language_,
               {{QMessageBox::Yes, WindowText::BoxYes}, {QMessageBox::No, WindowText::BoxNo}});
    box.setDefaultButton(noIsDefault ? QMessageBox::No : QMessageBox::Yes);
    return RunBox(box) == QMessageBox::Yes;
}

std::string WindowDesktop::AskInput(const std::string& prompt, const std::string& title,
                                    const std::string& defaultAnswer) {
    InputDialog dialog(language_, {prompt, title, defaultAnswer}, WindowAtHand());
    return dialog.exec() == QDialog::Accepted ? dialog.Answer() : std::string();
}

std::string WindowDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                        const std::string& startFolder) {
    // The dialog has one line for words: what is asked matters more than who asks.
    QFileDialog dialog(WindowAtHand(), ToQt(prompt.empty() ? title : prompt));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    BeginIn(dialog, startFolder);
    return ChosenPath(dialog);
}

std::string WindowDesktop::ChooseFile(const FileChoice& choice) {
    QFileDialog dialog(WindowAtHand(), ToQt(choice.title));
    dialog.setNameFilter(NameFilter(choice));
    dialog.setFileMode(choice.isToBeWritten ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(choice.isToBeWritten ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    BeginIn(dialog, choice.startFolder);
    if (const auto name = NameForToolkit(choice.name)) {
        dialog.setDefaultSuffix(QFileInfo(*name).suffix());
        dialog.selectFile(*name);
    }
    return ChosenPath(dialog);
}

void WindowDesktop::WriteInto(OutputPane* pane) {
    makePane_ = nullptr;
    pane_ = pane;
}

OutputPane* WindowDesktop::Pane() {
    if (makePane_) pane_ = std::exchange(makePane_, nullptr)();
    return pane_;
}

void WindowDesktop::Note(const std::string& text) {
    if (OutputPane* pane = Pane()) pane->AddLine(text);
}

std::unique_ptr<ProgressView> WindowDesktop::OpenProgress() {
    return std::make_unique<ProgressDialogView>(*this);
}

void WindowDesktop::ServeEvents() {
    constexpr qint64 MillisecondsBetween = 10;
    if (sinceServed_.isValid() && !sinceServed_.hasExpired(MillisecondsBetween)) return;
    QApplication::processEvents();
    sinceServed_.start();
}

bool WindowDesktop::OpenDocument(const std::string& address) {
    return zefta::OpenDocument(address);
}

bool WindowDesktop::MoveToTrash(const std::string& path) {
    const auto name = NameForToolkit(path);
    return name && HasTrash() && QFile::moveToTrash(*name);
}

bool WindowDesktop::PlayPlaylist(const std::string& path, bool append) {
    return MediaPlayers(bus_ ? *bus_ : QDBusConnection::sessionBus()).Play(path, append) ||
           OpenDocument(path);
}

void WindowDesktop::ShowBatch(std::size_t item, std::size_t count) {
    batchItem_ = item;
    batchCount_ = count;
    if (item == 0) isCancelledAtBox_ = false;
    if (batchView_ != nullptr) batchView_->ShowBatch(item, count);
}

bool WindowDesktop::IsCancelled() const {
    return isCancelledAtBox_ || (batchView_ != nullptr && batchView_->IsCancelled()) ||
           std::any_of(progress_.begin(), progress_.end(),
                       [](const ProgressDialogView* view) { return view->IsCancelled(); });
}

void WindowDesktop::ToolStarts(const std::string& commandLine) {
    if (OutputPane* pane = Pane()) pane->Begin(commandLine);
}

void WindowDesktop::ToolWrites(std::string_view output) {
    if (OutputPane* pane = Pane()) pane->Write(output);
}

}  // namespace zefta
