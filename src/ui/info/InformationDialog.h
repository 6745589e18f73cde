#pragma once

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <span>
#include <string>
#include <vector>

#include "core/App.h"
#include "library/FileInformation.h"
#include "library/InformationFields.h"
#include "ui/WindowTexts.h"
#include "ui/info/FieldBinding.h"
#include "ui/info/InfoLabel.h"
#include "ui/info/YearGuard.h"

namespace zefta {

/// What the dialogs of all kinds of files have in common: the file's path and measures, lines of entry for
/// its texts, OK and Cancel. A dialog reads the file when it is made and again on OK.
class InformationDialog : public QDialog {
    Q_OBJECT

  public:
  protected:
    struct Names {
        const char* dialog;
        /// Numbers of messages: of the window's title behind the file's name, and the kind of the file.
        std::int32_t title;
        std::int32_t kind;
    };

    InformationDialog(App& app, std::string path, const Names& names, QWidget* parent);

    // For the constructors of the dialogs, top to bottom: the tab key goes through the controls as they are
    // made.

    /// Path, measures and encoder of the file; `layout()` of it takes more.
    QGroupBox* MakeFileBox();
    /// A label and a control for each field. `group` tells screen readers which of two alike it is.
    void MakeFields(QFormLayout* form, std::span<const InformationField> fields, const QString& group);
    /// Everything under the given columns, the note and the buttons.
    void Arrange(QBoxLayout* columns);
    QCheckBox* MakeRemoveUnknownFrames();

    /// Fills the controls from the file.
    void Form_Load();

    /// What a dialog shows and takes beside its fields.
    virtual void ShowMore(const FileInformation& information) { (void)information; }
    virtual void TakeMore(FileInformation& information) const { (void)information; }

    void keyPressEvent(QKeyEvent* event) override { Form_KeyDown(event); }
    bool eventFilter(QObject* watched, QEvent* event) override;

    App& Application() const { return app_; }
    QString Text(std::int32_t message) const;
    QString Own(WindowText text) const { return OwnText(app_, text); }

    QLabel* AddRow(QFormLayout* form, std::int32_t label, QWidget* control, const QString& group);
    QPushButton* MakeButton(const char* name, const QString& text);
    QLineEdit* Line(const char* control) const { return findChild<QLineEdit*>(control); }
    QComboBox* Genre() const { return findChild<QComboBox*>("cmbGenre"); }
    /// The genre in the box of free text, as entry of the list when it is one.
    void ShowGenre(const QString& genre) const;

  private:
    void OKButton_Click();
    void CancelButton_Click() { reject(); }
    void Form_KeyDown(QKeyEvent* event);
    void cmbGenre_LostFocus() const;

    QLineEdit* MakeControl(const InformationField& field, QFormLayout* form, const QString& group);
    QComboBox* MakeGenre();
    void MakeNoteAndButtons(QLayout* bottom);
    void GuardYears();
    bool HasToBeLoadedAgain() const;
    SaveOutcome Save(const FileInformation& information);
    void ShowWriteNote();

    App& app_;
    std::string path_;
    std::int32_t kind_;
    FileInformation information_;
    /// A writer may have failed behind its first tag: what the file holds besides is ours then.
    bool hasWritten_ = false;
    std::vector<FieldBinding> fields_;
    std::vector<YearGuard*> years_;
    InfoLabel* lblFileInfo_ = nullptr;
    InfoLabel* lblEncoder_ = nullptr;
    QCheckBox* chkRemoveUnknownFrames_ = nullptr;
    QLabel* lblWriteNote_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
};

}  // namespace zefta
