// What the buttons of frmCDBase that take their time do.

#include <algorithm>
#include <functional>

#include "cd/CDSettings.h"
#include "cd/GrabTracks.h"
#include "cd/TrackName.h"
#include "core/Boxes.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/cd/CDBaseDialog.h"
#include "ui/cd/MatchDialog.h"

namespace zefta {

namespace {

constexpr std::int32_t NoDiscText = 33104;
constexpr std::int32_t DefaultMode = 320;
/// As many as a CD information file may have.
constexpr std::int32_t MostTracks = 32767;

/// Nothing for a text that is no number of tracks.
std::optional<std::int32_t> CountOf(const std::string& text) {
    const std::string trimmed = Trim(text);
    const bool isNumber = !trimmed.empty() && trimmed.front() >= '0' && trimmed.front() <= '9';
    const double number = LeadingNumber(trimmed);
    if (!isNumber || number > MostTracks) return std::nullopt;
    return ToI32(number);
}

}  // namespace

/// Closes the dialog to everything but the end of the work, while it lives.
class CDBaseDialog::Work {
  public:
    Work(CDBaseDialog& dialog, bool isReading) : dialog_(dialog) {
        dialog_.isBusy_ = true;
        dialog_.isCancelled_ = dialog_.endsTool_ = false;
        dialog_.ShowStopButton(false);
        dialog_.isReading_ = isReading;
        dialog_.focusBefore_ = dialog_.focusWidget();
        dialog_.form_.pbProgress->setRange(0, 0);
        Apply();
        dialog_.form_.cmdStop->setFocus();
    }
    ~Work() {
        dialog_.isBusy_ = false;
        Apply();
        if (dialog_.focusBefore_) dialog_.focusBefore_->setFocus();
        dialog_.setWindowTitle(ToQt(dialog_.Caption()));
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

  private:
    void Apply() {
        const bool isBusy = dialog_.isBusy_;
        CDBaseControls& form = dialog_.form_;
        form.cmdStop->setEnabled(isBusy);
        form.cmdStop->setVisible(isBusy);
        form.pbProgress->setVisible(isBusy);
        form.whole->setEnabled(!isBusy);
        form.cmdLoad->setEnabled(!isBusy);
        form.cmdCancel->setEnabled(!isBusy);
        form.cmdSave->setEnabled(!isBusy && dialog_.canCompress_);
        form.cmdOK->setEnabled(!isBusy && dialog_.canCompress_);
    }

    CDBaseDialog& dialog_;
};

void CDBaseDialog::ShowBatch(std::size_t item, std::size_t count) {
    if (isReading_ || item == 0) return;
    form_.pbProgress->setRange(0, static_cast<int>(count));
    form_.pbProgress->setValue(static_cast<int>(item) - 1);
}

void CDBaseDialog::cmdStop_Click() {
    if (offersToEndTool_) return AskToEndTool();
    isCancelled_ = true;
    form_.cmdStop->setEnabled(false);
}

void CDBaseDialog::ShowStopButton(bool endsTool) {
    offersToEndTool_ = endsTool;
    form_.cmdStop->setText(Own(endsTool ? WindowText::EndTool : WindowText::CancelBatch));
    form_.cmdStop->setToolTip(Own(endsTool ? WindowText::EndToolTip : WindowText::CDStopTip));
}

/// The window can't be left before an encoder that hangs has ended.
void CDBaseDialog::AskToEndTool() {
    if (endsTool_ || !AskYesNo(app_, FromQt(Own(WindowText::EndToolQuestion)), Caption(), true)) return;
    endsTool_ = true;
    form_.cmdStop->setEnabled(false);
}

bool CDBaseDialog::WantsToolEnded() {
    if (isCancelled_ && !offersToEndTool_) {
        ShowStopButton(true);
        form_.cmdStop->setEnabled(true);
        form_.cmdStop->setFocus();
    }
    return endsTool_;
}

bool CDBaseDialog::Wait() {
    app_.desktop.ServeEvents();
    return !isCancelled_ && !app_.desktop.IsCancelled();
}

// The disc.

void CDBaseDialog::cmdImportData_Click() {
    if (!MayDiscard()) return;
    ReadInfo();
    CloseIfAsked();
}

void CDBaseDialog::ReadInfo() {
    cd_.Source = Drive();
    cd_.Access = DatabaseOfCD(app_);
    cd_.Access.ClientVersion = cd_.ClientVersion();
    DiscWatch watch;
    watch.Wait = [this] { return Wait(); };
    watch.Choose = [this](const std::vector<DatabaseMatch>& matches) {
        return ChooseMatch(app_, matches, this);
    };
    DiscEnd end = DiscEnd::NoDisc;
    {
        const Work work(*this, true);
        Say(Text(33103));
        end = cd_.ReadDisc(watch);
    }
    if (end != DiscEnd::Read) {
        Say(end == DiscEnd::Cancelled ? Own(WindowText::CDStopped) : QString());
        if (end == DiscEnd::NoDisc) ShowWarning(app_, app_.messages.GetMessage(NoDiscText));
        return;
    }
    Say(Text(33105));
    form_.txtArtist->setText(ToQt(cd_.Artist()));
    form_.txtAlbum->setText(ToQt(cd_.Title()));
    form_.txtYear->clear();
    ShowDisc();
    AllowCompressing();
    Say(WordOfDatabase());
}

QString CDBaseDialog::WordOfDatabase() const {
    if (cd_.Word() == DatabaseWord::Found) return {};
    if (cd_.Word() == DatabaseWord::Unknown) return Own(WindowText::CDUnknown);
    const QString reason = ToQt(cd_.Reason());
    return Own(WindowText::CDDatabaseFailed) + (reason.isEmpty() ? "" : " (" + reason + ")");
}

void CDBaseDialog::cmdSimulateCD_Click() {
    const auto count =
        CountOf(app_.desktop.AskInput(app_.messages.GetMessage(33111), app_.messages.GetMessage(33110), {}));
    const auto& tracks = cd_.Tracks();
    const bool hasNames =
        std::any_of(tracks.begin(), tracks.end(), [](const CDTrack& track) { return !track.Name.empty(); });
    if (!count || (hasNames && !MayDiscard())) return;
    cd_.SetLength(0);
    cd_.SetTracks({});
    std::vector<QString> lines;
    for (std::int32_t i = 0; i < *count; ++i) {
        cd_.AddTrack({}, 0);
        lines.push_back(ToQt(TrackKey(static_cast<std::size_t>(i) + 1) + ".  (00:00)"));
    }
    form_.txtLength->setText(ToQt(CDTimeText(0)));
    ShowTracks(lines);
    AllowCompressing();
    Say({});
}

/// A cancelled box and an empty answer are the same: a name goes by a blank.
void CDBaseDialog::lstTracks_DblClick() {
    const int row = form_.lstTracks->currentRow();
    if (row < 0) return;
    const auto track = static_cast<std::size_t>(row);
    const std::string answer =
        app_.desktop.AskInput(app_.messages.GetMessage(33112), ApplicationTitle(), cd_.Tracks()[track].Name);
    if (answer.empty()) return;
    cd_.SetName(track, answer == " " ? "" : answer);
    AlbumTyped();
    form_.lstTracks->item(row)->setText(ToQt(CDTrackLine(track + 1, cd_.Tracks()[track])));
}

// The grabber.

void CDBaseDialog::cmdCDDAE_Click() {
    if (form_.txtSourceFolder->Path().empty()) cmbBrowseForSourceFolder_Click();
    if (form_.txtSourceFolder->Path().empty()) return;
    bool isOutside = false;
    const bool hasFailed = CheckRuntimeError(
        app_, [&] { isOutside = StartOutsideGrabber(app_, form_.txtSourceFolder->Path()); });
    if (!hasFailed && !isOutside) ReadTracks();
    CloseIfAsked();
}

void CDBaseDialog::ReadTracks() {
    constexpr int Thousandths = 1000;
    GrabEnd end = GrabEnd::Stopped;
    {
        const Work work(*this, true);
        const auto progress = [this](std::int32_t track, std::int32_t last, std::int32_t done) {
            form_.pbProgress->setRange(0, Thousandths);
            form_.pbProgress->setValue(done);
            Say(Own(WindowText::CDGrabbing).arg(track).arg(last));
        };
        end = GrabTracks(app_, services_.disc, {Drive(), form_.txtSourceFolder->Path()}, progress);
    }
    Say(end == GrabEnd::Done     ? Own(WindowText::CDGrabbed)
        : end == GrabEnd::NoDisc ? QString()
                                 : Own(WindowText::CDStopped));
    if (end == GrabEnd::NoDisc) ShowWarning(app_, app_.messages.GetMessage(NoDiscText));
}

// The job.

/// Names without a division give files without a title, and what people and databases write is mostly so.
/// Escape says No to both questions, and must not begin what may delete the tracks.
bool CDBaseDialog::AskForNames(CompressCDJob& job) {
    constexpr int NamesToShow = 5;
    const TrackAlbum album = {.Artist = job.Info.Artist, .IsCompilation = job.Info.Compilation != 0};
    int count = 0;
    std::string names;
    for (const CDTrack& track : job.Info.Tracks) {
        if (!track.Selected || !IsFreeName(track.Name, album)) continue;
        if (++count <= NamesToShow) names += (names.empty() ? "" : "\n") + track.Name;
    }
    if (count == 0) return true;
    if (count > NamesToShow) names += "\n...";
    job.NamesAreFree =
        AskYesNo(app_, FromQt(Own(WindowText::CDFreeNames).replace("%1", ToQt(names))), Caption(), true);
    return job.NamesAreFree || AskYesNo(app_, FromQt(Own(WindowText::CDBeginWithout)), Caption(), true);
}

void CDBaseDialog::StoreChoice(const CompressCDJob& job) {
    app_.state.CompressCD_Bitrate = static_cast<std::int16_t>(job.ModeCode.value_or(DefaultMode));
    SetModeOfCD(app_.state, job);
    SaveMainSettings(app_);
}

bool CDBaseDialog::Compress(const CompressCDJob& job, int& results) {
    const Work work(*this, false);
    CompressCDWatch watch;
    watch.Progress = [this](const std::string& text) { setWindowTitle(ToQt(text)); };
    watch.Done = [&](std::size_t track, bool hasResult) {
        results += hasResult ? 1 : 0;
        form_.lstTracks->item(static_cast<int>(track))->setCheckState(Qt::Unchecked);
    };
    return CompressCD(app_, job, watch);
}

void CDBaseDialog::cmdOK_Click() {
    if (!HasFolders()) return;
    CompressCDJob job = TakeJob();
    if (!AskForNames(job)) return;
    StoreChoice(job);
    Say({});
    int results = 0;
    const bool isDone = Compress(job, results);
    // An encoder that fails and a WAV file that is not there are heard of nowhere else.
    const auto count =
        std::count_if(job.Info.Tracks.begin(), job.Info.Tracks.end(), std::mem_fn(&CDTrack::Selected));
    Say(isDone ? Own(WindowText::CDCompressed).arg(results).arg(count) : Own(WindowText::CDStopped));
    if (isDone && results == count) AlbumKept();
    // Who cancels during the last track wants to go on at the machine.
    if (isDone && !isCancelled_ && form_.chkShutdown->isChecked()) services_.powerOff();
    CloseIfAsked();
}

}  // namespace zefta
