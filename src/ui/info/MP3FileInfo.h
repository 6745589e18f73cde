#pragma once

#include "ui/info/InformationDialog.h"

namespace zefta {

/// frmFileInfo: an MP3 file with its tags ID3v1 and ID3v2, and what a Lyrics3 block names.
class MP3FileInfo : public InformationDialog {
    Q_OBJECT

  public:
    MP3FileInfo(App& app, const std::string& path, QWidget* parent);

  protected:
    void ShowMore(const FileInformation& information) override;
    void TakeMore(FileInformation& information) const override;

  private:
    void chkEnable_Click();
    void cmdCopy1to2_Click();
    void cmdCopy2to1_Click();
    void cmdCopyLyricsto2_Click();

    QBoxLayout* MakeOwnColumn();
    QGroupBox* MakeID3v1();
    QGroupBox* MakeLyrics();
    QGroupBox* MakeID3v2();

    QComboBox* cmbGenreWithIDs_ = nullptr;
    QGroupBox* fraLyrics_ = nullptr;
    QCheckBox* chkEnable_ = nullptr;
    QPushButton* cmdCopy2to1_ = nullptr;
    /// All of ID3v2 but the choice to have it.
    QWidget* controlsOfID3v2_ = nullptr;
};

}  // namespace zefta
