#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <set>
#include <string>
#include <vector>

#include "library/AdvancedEncoding.h"
#include "library/Selection.h"
#include "ui/tags/BatchDialog.h"
#include "ui/tags/TagTable.h"

namespace zefta {

class DefaultsBox;
class TemplatesBox;

/// frmEncode, the advanced encoding: a grid with a row of tags for each WAV file, which is encoded into its
/// folder.
class EncodeDialog : public BatchDialog {
    Q_OBJECT

  public:
    /// `names`: of WAV files of the folder.
    EncodeDialog(App& app, std::string folder, const std::vector<std::string>& names, SelectionWatch watch,
                 QWidget* parent);

    /// Whether files have been encoded, all of them, and the machine is to be powered off now.
    bool WantsPowerOff() const { return wantsPowerOff_; }

    /// Stores the window's place and the chosen template on the way out.
    void done(int result) override;

  protected:
    void OKButton_Click() override;
    bool HasUnsaved() const override;
    GridView* Grid() const override { return &table_.View(); }

  private:
    void cmbBitRate_Click() { UpdateBoxes(); }
    void cmdRetrieveTags_Click();
    void UpdateBoxes();

    QWidget* MakeOptions();
    QCheckBox* MakeBox(const char* name, std::int32_t text, bool isChecked);
    void FillModes();
    RunSwitches Checked() const;
    EncodingChoice Choice() const;
    bool Encode();
    /// Asks about files that bear the names of the outputs.
    bool MayReplace();

    std::string folder_;
    SelectionWatch watch_;
    QComboBox* cmbBitRate_ = nullptr;
    QCheckBox* chkTrimSilence_ = nullptr;
    QCheckBox* chkNormalize_ = nullptr;
    QCheckBox* chkNormalizeSeparately_ = nullptr;
    QCheckBox* chkReduceLevel_ = nullptr;
    QCheckBox* chkDeleteAfterCompress_ = nullptr;
    QCheckBox* chkShutdown_ = nullptr;
    DefaultsBox* defaults_;
    TemplatesBox* templates_;
    TagTable table_;
    /// Outputs of this dialog so far.
    std::set<std::string> made_;
    /// What was left behind by rows that are still here, or was allowed to be written over.
    std::set<std::string> outputsOfRuns_;
    bool wantsPowerOff_ = false;
};

}  // namespace zefta
