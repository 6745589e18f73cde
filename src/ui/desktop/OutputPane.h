#pragma once

#include <QDockWidget>
#include <string>
#include <string_view>

#include "core/MessageTable.h"
#include "core/OutputText.h"

class QPlainTextEdit;
class QTimer;

namespace zefta {

/// What the outside tools write, at the edge of a window. Hidden until something is written; when the
/// person closes it, until a line of ours or the next tool comes.
class OutputPane : public QDockWidget {
    Q_OBJECT

  public:
    static constexpr int MostLines = 5000;

    OutputPane(Language language, QWidget* parent);

    /// A tool begins: its command line is a line of its own.
    void Begin(std::string_view commandLine);
    /// A piece of the tool's output, cut anywhere.
    void Write(std::string_view output);
    /// A line of ours.
    void AddLine(std::string_view text);

    /// Shows at once what is still to be shown; done by itself a moment later.
    void Flush();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void EndLine();
    void Touch();
    void ReplaceCurrentLine(const QString& text);

    QPlainTextEdit* text_;
    QTimer* timer_;
    OutputText output_;
    bool isClosedByPerson_ = false;
};

}  // namespace zefta
