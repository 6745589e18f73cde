#include "ui/desktop/OutputPane.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

constexpr int MillisecondsBetweenFlushes = 40;

QPlainTextEdit* MakeText(const QString& name) {
    constexpr int LinesInSight = 6;
    auto* text = new QPlainTextEdit;
    text->setObjectName("txtOutput");
    text->setAccessibleName(name);
    text->setReadOnly(true);
    text->setUndoRedoEnabled(false);
    text->setMaximumBlockCount(OutputPane::MostLines);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    // The tabulator key leads on to the next control.
    text->setTabChangesFocus(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * LinesInSight);
    return text;
}

}  // namespace

OutputPane::OutputPane(Language language, QWidget* parent)
    : QDockWidget(OwnText(language, WindowText::ToolOutput), parent),
      text_(MakeText(windowTitle())),
      timer_(new QTimer(this)) {
    setObjectName("OutputPane");
    setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
    setWidget(text_);
    hide();
    timer_->setSingleShot(true);
    timer_->setInterval(MillisecondsBetweenFlushes);
    connect(timer_, &QTimer::timeout, this, &OutputPane::Flush);
}

void OutputPane::Begin(std::string_view commandLine) {
    AddLine("> " + std::string(commandLine));
}

void OutputPane::AddLine(std::string_view text) {
    isClosedByPerson_ = false;
    EndLine();
    output_.Write(text);
    EndLine();
    Touch();
}

void OutputPane::Write(std::string_view output) {
    output_.Write(output);
    Touch();
}

/// A tool that ends without a line end must not run into what comes next.
void OutputPane::EndLine() {
    if (!output_.CurrentLine().empty()) output_.Write("\n");
}

void OutputPane::Touch() {
    if (!isClosedByPerson_) show();
    if (!timer_->isActive()) timer_->start();
}

void OutputPane::Flush() {
    timer_->stop();
    QScrollBar& bar = *text_->verticalScrollBar();
    const int position = bar.value();
    const bool isAtEnd = position == bar.maximum();
    QString text;
    for (const std::string& line : output_.TakeLines()) text += ToQt(line) + '\n';
    ReplaceCurrentLine(text + ToQt(output_.CurrentLine()));
    // Whoever looks back at earlier lines is left there.
    bar.setValue(isAtEnd ? bar.maximum() : position);
}

void OutputPane::ReplaceCurrentLine(const QString& text) {
    QTextCursor cursor(text_->document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

void OutputPane::closeEvent(QCloseEvent* event) {
    isClosedByPerson_ = true;
    QDockWidget::closeEvent(event);
}

}  // namespace zefta
