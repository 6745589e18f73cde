#include "wave/WaveTrim.h"

#include <set>
#include <string>
#include <vector>

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/Folders.h"
#include "platform/Paths.h"
#include "wave/Backup.h"
#include "wave/TrimProgress.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t ScanningMessage = 33817;
constexpr std::int32_t SavingMessage = 33818;

void SetProperties(WaveFile& wave, const AppState& state) {
    wave.Format = state.RenameFormat;
    wave.Before = state.BeforeGap;
    wave.After = state.AfterGap;
    wave.MinSample = state.SilenceMin;
    wave.MaxSample = state.SilenceMax;
    wave.RAW = state.TreatAsRaw;
    wave.SetNRLevel(state.NormalizeLevel);
    wave.SetNRAbove(state.NormalizeAbove);
    wave.SetNRBelow(state.NormalizeBelow);
}

/// The walk over the files of one folder.
class WaveTrim {
  public:
    explicit WaveTrim(App& app)
        : app_(app),
          wave_(app),
          progress_(app, wave_, app.state.ShowExecuteWindows ? app.desktop.OpenProgress() : nullptr) {
        SetProperties(wave_, app.state);
    }

    void Run() {
        const FolderAndMask work = SplitFileSpec(app_.files, app_.state.FileSpec);
        std::set<std::string> done;
        const std::vector<std::string> names = FilesOf(app_.files, work);
        Batch batch(app_, names.size());
        for (const std::string& name : names) {
            if (!batch.Next()) return;
            const std::string path = JoinPath(work.folder, name);
            // A rewritten file may show up again as a new entry: the walk has come round then.
            if (!done.insert(path).second) return;
            CheckRuntimeError(app_, [&] { TrimFile(path); });
        }
    }

  private:
    void TrimFile(const std::string& path) {
        progress_.ShowFile(path);
        progress_.ShowStatus(ScanningMessage);
        app_.desktop.ServeEvents();
        const std::int32_t scanCode = wave_.ScanWave(path, app_.state.Normalize);
        if (app_.state.NoFormat) {
            ShowPlainBox(app_, "OK");
        } else if (scanCode > 0) {
            Complain(1012, path, 1020 + scanCode);
        } else {
            Rewrite(path);
        }
    }

    void Rewrite(const std::string& path) {
        progress_.ShowStatus(SavingMessage);
        app_.desktop.ServeEvents();
        const std::int32_t code = wave_.ProcessWave(app_.state.Normalize);
        app_.desktop.ServeEvents();
        if (code > 0) {
            Complain(1011, path, 1030 + code);
        } else if (app_.state.NoBackup) {
            DropBackup(app_.files, path);
        }
    }

    void Complain(std::int32_t message, const std::string& path, std::int32_t reason) {
        ShowWarning(app_, app_.messages.GetMessage(message, app_.ansi.ToText(path),
                                                   app_.messages.GetMessage(reason)));
    }

    App& app_;
    WaveFile wave_;
    TrimProgress progress_;
};

}  // namespace

void WaveTrimJob(App& app) {
    WaveTrim(app).Run();
}

}  // namespace zefta
