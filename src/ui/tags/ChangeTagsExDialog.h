#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <string>
#include <vector>

#include "ui/tags/BatchDialog.h"
#include "ui/tags/ChangeTagsDialog.h"
#include "ui/tags/TagTable.h"

namespace zefta {

class DefaultsBox;
class TemplatesBox;

/// frmChangeTagsEx, the advanced tags update: a grid with a row of tags for each file, each written into its
/// own.
class ChangeTagsExDialog : public BatchDialog {
    Q_OBJECT

  public:
    /// `rows`: of files of the folder.
    ChangeTagsExDialog(App& app, std::string folder, const std::vector<TagRow>& rows, FileDone done,
                       QWidget* parent);

    /// Stores the window's place and the choices of the grid on the way out.
    void done(int result) override;

  protected:
    void OKButton_Click() override;
    bool HasUnsaved() const override;
    GridView* Grid() const override { return &table_.View(); }

  private:
    void cmdChangeCase_Click();
    void cmdRetrieveTags_Click();

    QGroupBox* MakeCaseBox();
    /// False when it was ended.
    bool Write(const std::vector<TagRow>& rows);
    void ShowLeft();

    std::string folder_;
    FileDone done_;
    DefaultsBox* defaults_;
    TemplatesBox* templates_;
    TagTable table_;
    QRadioButton* optFirstLetterCaps_ = nullptr;
    QRadioButton* optAllFirstLettersCaps_ = nullptr;
    QCheckBox* chkUpdateAllColumns_ = nullptr;
    /// The row at hand while rows are written.
    std::size_t row_ = 0;
    /// The rows that were to be written and could not be.
    std::vector<std::size_t> left_;
};

}  // namespace zefta
