#include "app/RenamePreview.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <ostream>
#include <streambuf>
#include <system_error>
#include <thread>
#include <utility>

#include "app/PreviewDesktop.h"
#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/overlay/OverlayFileSystem.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::string_view Arrow = " -> ";
constexpr std::string_view Colon = ": ";
constexpr std::string_view Playlists = "*.m3u";

/// Ends a run that nobody wants any more, wherever it is.
struct Abandoned {};

/// The desktop of a preview that can be abandoned.
class AbandonableDesktop : public PreviewDesktop {
  public:
    AbandonableDesktop(std::ostream& output, const std::atomic<bool>& isAbandoned)
        : PreviewDesktop(output), isAbandoned_(isAbandoned) {}

    void ServeEvents() override {
        if (isAbandoned_) throw Abandoned();
    }

  private:
    const std::atomic<bool>& isAbandoned_;
};

/// Hands on each line that is written to a stream.
class LineBuffer : public std::streambuf {
  public:
    explicit LineBuffer(std::function<void(const std::string&)> onLine) : onLine_(std::move(onLine)) {}

  protected:
    int_type overflow(int_type character) override {
        if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
        const char written = traits_type::to_char_type(character);
        if (written != '\n') {
            line_ += written;
        } else {
            onLine_(line_);
            line_.clear();
        }
        return character;
    }

  private:
    std::function<void(const std::string&)> onLine_;
    std::string line_;
};

bool TakePrefix(std::string_view& line, std::string_view prefix) {
    if (!line.starts_with(prefix)) return false;
    line.remove_prefix(prefix.size());
    return true;
}

}  // namespace

/// Names hold no separator as a rule, and where one does the name that is there tells.
std::size_t RenameSteps::EndOfName(std::string_view text, std::string_view separator) const {
    const std::size_t first = text.find(separator);
    for (std::size_t end = first; end != std::string_view::npos; end = text.find(separator, end + 1)) {
        const bool isOnly = end == first && text.find(separator, end + 1) == std::string_view::npos;
        if (isOnly || isFile_(Named(text.substr(0, end)))) return end;
    }
    return first;
}

std::string RenameSteps::Named(std::string_view name) const {
    return JoinPath(folder_, name);
}

std::optional<PreviewedRename> RenameSteps::Read(std::string_view line) {
    using Kind = PreviewedRename::Kind;
    if (TakePrefix(line, "in: ")) {
        folder_ = line == "." ? std::string_view() : line;
    } else if (TakePrefix(line, "collision: ")) {
        isTaken_ = true;
    } else if (TakePrefix(line, "rename: ")) {
        const std::size_t end = EndOfName(line, Arrow);
        if (end == std::string_view::npos) return std::nullopt;
        const Kind kind = std::exchange(isTaken_, false) ? Kind::Numbered : Kind::Renamed;
        return PreviewedRename{kind, Named(line.substr(0, end)), Named(line.substr(end + Arrow.size())), {}};
    } else if (TakePrefix(line, "refused: ")) {
        isTaken_ = false;
        const std::size_t end = EndOfName(line, Colon);
        if (end == std::string_view::npos) return std::nullopt;
        return PreviewedRename{
            Kind::Refused, Named(line.substr(0, end)), {}, std::string(line.substr(end + Colon.size()))};
    } else if (TakePrefix(line, "unchanged: ")) {
        // Playlists without a new name in them are nobody's concern.
        if (MatchesMask(line, Playlists)) return std::nullopt;
        return PreviewedRename{Kind::Unchanged, Named(line), Named(line), {}};
    } else if (TakePrefix(line, "playlist: ")) {
        const std::size_t end = line.rfind(Colon);
        if (end == std::string_view::npos) return std::nullopt;
        return PreviewedRename{
            Kind::Playlist, Named(line.substr(0, end)), {}, std::string(line.substr(end + Colon.size()))};
    }
    return std::nullopt;
}

/// One run with its thread.
struct RenamePreview::Run {
    Run(App& theApp, RenameForm theForm)
        : app(theApp), form(std::move(theForm)), state(theApp.state), ansi(theApp.ansi) {}

    ~Run() {
        isAbandoned = true;
        if (thread.joinable()) thread.join();
    }

    void Begin() {
        try {
            thread = std::thread([this] { Work(); });
        } catch (const std::system_error&) {
            // The machine has no thread to give.
            Work();
        }
    }

    void Work() {
        try {
            Rename();
        } catch (const Abandoned&) {
        } catch (const std::exception& error) {
            const std::lock_guard lock(mutex);
            failure = error.what();
        }
        hasEnded = true;
    }

    void Rename() {
        const std::string& folder = form.choice.folder;
        RenameSteps steps(
            [&](const std::string& name) { return app.files.FileExists(JoinPath(folder, name)); });
        LineBuffer buffer([&](const std::string& line) { Keep(steps.Read(line)); });
        std::ostream output(&buffer);
        OverlayFileSystem files(app.files);
        AbandonableDesktop desktop(output, isAbandoned);
        App preview(app.machine, files, desktop, app.processes, app.userSettings, app.machineSettings);
        WaveFile defaultWaveFile(preview);
        preview.defaultWaveFile = &defaultWaveFile;
        preview.state = state;
        preview.ansi = ansi;
        preview.steps = &output;
        ApplyRenameRule(preview.state, form);
        RenameExtended(preview, form.choice, [](const std::string&, const std::string&) {});
    }

    void Keep(std::optional<PreviewedRename> line) {
        if (!line) return;
        const std::lock_guard lock(mutex);
        lines.push_back(std::move(*line));
    }

    App& app;
    RenameForm form;
    /// As they were at the beginning: the App belongs to the other thread.
    AppState state;
    CodePage ansi;
    std::atomic<bool> isAbandoned = false;
    std::atomic<bool> hasEnded = false;
    std::mutex mutex;
    std::vector<PreviewedRename> lines;
    std::optional<std::string> failure;
    std::thread thread;
};

RenamePreview::RenamePreview(App& app) : app_(app) {}

RenamePreview::~RenamePreview() = default;

void RenamePreview::Begin(const RenameForm& form) {
    next_ = form;
    if (run_) run_->isAbandoned = true;
    Start();
}

void RenamePreview::Start() {
    if (!next_ || (run_ && !run_->hasEnded)) return;
    run_ = std::make_unique<Run>(app_, *std::exchange(next_, std::nullopt));
    run_->Begin();
}

void RenamePreview::Stop() {
    next_.reset();
    run_.reset();
}

bool RenamePreview::IsUnderWay() const {
    return next_ || (run_ && !run_->hasEnded);
}

std::vector<PreviewedRename> RenamePreview::Take() {
    if (next_) {
        Start();
        return {};
    }
    if (!run_) return {};
    const std::lock_guard lock(run_->mutex);
    return std::exchange(run_->lines, {});
}

std::optional<std::string> RenamePreview::Failure() const {
    if (!run_ || !run_->hasEnded) return std::nullopt;
    const std::lock_guard lock(run_->mutex);
    return run_->failure;
}

}  // namespace zefta
