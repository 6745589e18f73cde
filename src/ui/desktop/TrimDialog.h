#pragma once

#include <array>

#include "ui/desktop/ProgressDialog.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace zefta {

class OutlineView;

/// frmTrim: what the trimming of silence does to the file at hand.
class TrimDialog : public ProgressDialog {
    Q_OBJECT

  public:
    TrimDialog(Language language, QWidget* parent);

  protected:
    void Display(const ProgressReport& report) override;

  private:
    QGroupBox* MakeSilence();
    QGroupBox* MakeFormatting();
    QWidget* MakeProgress();
    /// The buttons only show a format: no click or key changes it.
    QRadioButton* MakeOption(int index);
    void NameNonstopOptions();
    void SelectFormat(const std::string& format);

    QLineEdit* fileName_;
    OutlineView* outline_;
    QButtonGroup* options_;
    QProgressBar* bar_;
    QLabel* status_;
};

}  // namespace zefta
