#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QHash>
#include <map>
#include <string>

#include "core/MessageTable.h"
#include "platform/Desktop.h"

class QDialogButtonBox;
class QProgressBar;
class QPushButton;
class QTimer;

namespace zefta {

/// A dialog that shows the reports of work under way. Not modal; painted at most 25 times a second, however
/// many reports come. Its button, Escape and the closing of its window all ask the work to end, which closes
/// the dialog when it does.
class ProgressDialog : public QDialog {
    Q_OBJECT

  public:
    ProgressDialog(Language language, QWidget* parent);

    void ShowReport(const ProgressReport& report);
    bool IsCancelled() const { return isCancelled_; }

    void reject() override;

  protected:
    /// Brings the report onto the controls.
    virtual void Display(const ProgressReport& report) = 0;

    /// To be laid out at the bottom.
    QDialogButtonBox* MakeButtons();

    /// Gives every label, frame and button the text that stands under its name; a label that has none is
    /// empty.
    void ShowLabels(const std::map<std::string, std::string>& labels);
    static void ShowScale(QProgressBar& bar, const ProgressScale& scale);

    Language language_;

  private:
    void Flush();
    void FindControls();
    static void ShowText(QWidget& control, const QString& text);

    QPushButton* cancel_ = nullptr;
    QTimer* timer_;
    QElapsedTimer sinceFlush_;
    QHash<QString, QWidget*> controls_;
    ProgressReport report_;
    bool isCancelled_ = false;
};

}  // namespace zefta
