#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <string>
#include <vector>

#include "app/RenamePreview.h"
#include "core/App.h"
#include "library/RenameForm.h"

namespace zefta {

class RenamePreviewModel;

/// frmRename: which files get names, and by which rule. Shows what each would be called while the person
/// chooses; nothing is renamed before the dialog is closed by its button, and not by itself.
class RenameDialog : public QDialog {
    Q_OBJECT

  public:
    /// What the main window shows.
    struct Place {
        std::string folder;
        /// The files among the selected rows.
        std::vector<std::string> selected;
    };

    RenameDialog(App& app, const Place& place, QWidget* parent);
    ~RenameDialog() override;

    /// What the controls say.
    RenameForm Form() const;

    /// The preview ends with the dialog.
    void done(int result) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QGroupBox* MakeRules();
    QWidget* MakeTemplateLine();
    QGroupBox* MakeLegend();
    QGroupBox* MakeFiles();
    QGroupBox* MakePreview();
    QLayout* MakeBottom();
    void Form_Load();
    void Connect();

    void OKButton_Click() { accept(); }
    void CancelButton_Click() { reject(); }
    void EnableControls();
    void PreviewSoon();
    void BeginPreview();
    void TakePreview();
    void ShowSummary();
    void FitNotes();

    QString Text(std::int32_t message) const;

    App& app_;
    Place place_;
    RenamePreview preview_;
    RenamePreviewModel* model_;
    QButtonGroup* formats_;
    QButtonGroup* filters_;
    QComboBox* cmbRenameTemplates_ = nullptr;
    QLineEdit* txtMask_ = nullptr;
    QCheckBox* chkProcessSubfolders_ = nullptr;
    QCheckBox* chkUpdatePlaylists_ = nullptr;
    QTableView* table_ = nullptr;
    QLabel* lblPreview_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    /// Until the person has stopped typing.
    QTimer begin_;
    QTimer take_;
};

}  // namespace zefta
