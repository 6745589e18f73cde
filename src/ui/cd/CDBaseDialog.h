#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "cd/CDInfoFile.h"
#include "cd/CdBase.h"
#include "cd/CompressCD.h"
#include "core/App.h"
#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"
#include "ui/WindowTexts.h"
#include "ui/cd/CDBaseControls.h"
#include "ui/desktop/BatchView.h"

namespace zefta {

/// What the dialog is given beside its App.
struct CDBaseServices {
    AudioDisc& disc;
    DiscDatabase& database;
    /// Counts down to the end of the machine's work.
    std::function<void()> powerOff;
};

/// frmCDBase: an audio CD, from its table of contents to tagged files. A ticked line of lstTracks is a
/// selected track. While it works nothing but cmdStop can be used; the window that is closed then ends the
/// work first. What was typed for an album goes only with the person's word until it is saved or compressed.
class CDBaseDialog : public QDialog, public BatchView {
    Q_OBJECT

  public:
    /// Starts from the CD information file that FileSpec names, if it names one. The services have to live as
    /// long.
    CDBaseDialog(App& app, const CDBaseServices& services, QWidget* parent = nullptr);

    void ShowBatch(std::size_t item, std::size_t count) override;
    bool IsCancelled() const override { return isCancelled_; }
    bool WantsToolEnded() override;

    void done(int result) override;
    /// While it works, the same as cmdStop.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Work;

    void Form_Load();
    void Form_Unload();
    /// Whether the key is one of the window's.
    bool Form_KeyDown(const QKeyEvent& event);
    bool ControlKeyDown(QObject* control, const QKeyEvent& event);
    void Connect();
    void LoadDrives();
    void LoadModes();
    void LoadSwitches();

    void cmdImportData_Click();
    void cmdCDDAE_Click();
    void cmdSimulateCD_Click();
    void cmdSave_Click();
    void cmdLoad_Click();
    void cmdOK_Click();
    void cmdStop_Click();
    void AskToEndTool();
    void ShowStopButton(bool endsTool);
    void cmdBrowseForImage_Click();
    void cmbBrowseForSourceFolder_Click();
    void cmdBrowseForTargetFolder_Click();
    void lstTracks_DblClick();
    void chkTrimSilence_Click();
    void chkNormalize_Click();
    void cmbBitRate_Click();
    void cmbGenre_LostFocus();

    void LoadFile(const std::string& path);
    void ReadInfo();
    void ReadTracks();
    void StoreChoice(const CompressCDJob& job);
    bool Compress(const CompressCDJob& job, int& results);
    bool HasFolders();
    /// False when the person goes back.
    bool AskForNames(CompressCDJob& job);
    /// Ahead of everything that puts another album in the place of this one.
    bool MayDiscard();
    void AlbumTyped() { isTyped_ = true; }
    void AlbumKept() { isTyped_ = false; }
    void CloseIfAsked();
    QString WordOfDatabase() const;

    CDInfo TakeInfo() const;
    CompressCDJob TakeJob() const;
    std::optional<std::int32_t> ModeCode() const;
    void ShowInfo(const CDInfo& info);
    void ShowDisc();
    void ShowTracks(const std::vector<QString>& lines);
    void AllowCompressing();
    void SetDrive(const std::string& path);
    std::string Drive() const;
    void BrowseInto(FolderLine* line, std::int32_t prompt);
    bool Wait();

    QString Text(std::int32_t message) const;
    QString Own(WindowText text) const { return OwnText(app_, text); }
    std::string Caption() const { return app_.messages.GetMessage(33001); }
    void Say(const QString& text);

    App& app_;
    CDBaseServices services_;
    CdBase cd_;
    CDBaseControls form_;
    bool isBusy_ = false;
    bool isCancelled_ = false;
    /// What cmdStop does once the person has cancelled, and whether it was done.
    bool offersToEndTool_ = false;
    bool endsTool_ = false;
    /// The progress is in thousandths, told by the reading itself.
    bool isReading_ = false;
    bool canCompress_ = false;
    /// The person has entered what is neither in a file nor in tracks.
    bool isTyped_ = false;
    /// The window is to close as soon as the work has ended.
    bool closesBehindWork_ = false;
    /// As bytes, while cmbDrive shows it.
    std::string drive_;
    /// The tick of chkReduceLevel while the encoder leaves no choice.
    bool wantsReducedLevel_ = false;
    QPointer<QWidget> focusBefore_;
};

}  // namespace zefta
