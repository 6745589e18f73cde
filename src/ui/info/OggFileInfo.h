#pragma once

#include <QListWidget>

#include "ui/info/InformationDialog.h"

namespace zefta {

/// frmFileInfoOgg: an Ogg Vorbis file with its comments, the ones that have no field in a list.
class OggFileInfo : public InformationDialog {
    Q_OBJECT

  public:
    OggFileInfo(App& app, const std::string& path, QWidget* parent);

  protected:
    void ShowMore(const FileInformation& information) override;
    void TakeMore(FileInformation& information) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void cmdAddNewExCom_Click();
    void cmdRemoveExCom_Click();
    void lstExCom_DblClick();

    QGroupBox* MakeComments();
    QGroupBox* MakeExtendedComments();
    /// The line in the dialog of its own; nothing when that was cancelled.
    std::optional<std::string> EditLine(const std::string& line);
    void ShowLine(QListWidgetItem* item, const std::string& line) const;

    InfoLabel* lbllibVorbisVersion_ = nullptr;
    QListWidget* lstExCom_ = nullptr;
    QPushButton* cmdRemoveExCom_ = nullptr;
};

}  // namespace zefta
