// Playlists of 100,000 lines: what making and copying them costs beside reading and copying the files.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>

#include <benchmark/benchmark.h>

#include "core/TextLines.h"
#include "library/CopyPlaylist.h"
#include "library/Playlist.h"
#include "library/PlaylistText.h"
#include "library/TextTarget.h"
#include "platform/console/ConsoleDesktop.h"
#include "platform/overlay/OverlayFileSystem.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"

namespace {

using namespace zefta;

constexpr int ListLines = 100000;
constexpr int Files = 1000;

/// A folder of its own that is the current one, and all that a job needs.
class PlaylistStage {
  public:
    PlaylistStage() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zefta-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        folder_ = pattern;
        files.SetCurrentFolder(folder_);
    }

    ~PlaylistStage() {
        files.SetCurrentFolder(former_);
        std::filesystem::remove_all(folder_);
    }

    PlaylistStage(const PlaylistStage&) = delete;
    PlaylistStage& operator=(const PlaylistStage&) = delete;

    void WriteFiles(int count, const std::string& extension) {
        for (int i = 0; i < count; ++i) TextTarget(files, Name(i) + extension).Put("");
    }

    static std::string Name(int number) { return "Artist - The title of track " + std::to_string(number); }

    PosixFileSystem files;
    ConsoleDesktop desktop{std::cin, std::cerr, false};
    PosixProcesses processes;
    Machine machine;

  private:
    std::string former_ = files.CurrentFolder();
    std::string folder_;
};

/// Every other line is a comment, as in the lists that are made.
std::string ListOfLines() {
    std::string text(PlaylistHeader);
    for (int i = 0; i < ListLines / 2; ++i)
        text += "\n#EXTINF:215,Artist - Title\n" + PlaylistStage::Name(i % Files) + ".mp3";
    return text + "\n";
}

/// Everything but the bytes of the tracks: a preview opens each of them and writes nothing.
void PlanCopyOfPlaylist(benchmark::State& state) {
    PlaylistStage stage;
    stage.WriteFiles(Files, ".mp3");
    TextTarget(stage.files, "mix.m3u").Put(ListOfLines());
    IniSettingsStore settings("none.ini");
    for ([[maybe_unused]] const auto round : state) {
        OverlayFileSystem overlay(stage.files);
        App app(stage.machine, overlay, stage.desktop, stage.processes, settings, settings);
        std::ostringstream steps;
        app.steps = &steps;
        benchmark::DoNotOptimize(CopyPlaylist(app, "mix.m3u", "target"));
    }
    state.SetItemsProcessed(state.iterations() * ListLines);
}

BENCHMARK(PlanCopyOfPlaylist)->Unit(benchmark::kMillisecond);

/// WAV files have no comment: what remains is listing, sorting and writing.
void MakeLongPlaylist(benchmark::State& state) {
    PlaylistStage stage;
    stage.WriteFiles(ListLines, ".wav");
    IniSettingsStore settings("none.ini");
    App app(stage.machine, stage.files, stage.desktop, stage.processes, settings, settings);
    for ([[maybe_unused]] const auto round : state) MakePlaylist(app);
    state.SetItemsProcessed(state.iterations() * ListLines);
}

BENCHMARK(MakeLongPlaylist)->Unit(benchmark::kMillisecond);

void MakeCommentLine(benchmark::State& state) {
    const CodePage ansi = LoadCodePage(1252);
    ID3Tag tag;
    tag.Seconds = 215;
    tag.ID3v2Extension.Artist = "Mot\u00F6rhead";
    tag.ID3v2Extension.TrackTitle = "The title of a track";
    tag.ID3v2Extension.Mix = "Club Mix";
    for ([[maybe_unused]] const auto round : state) benchmark::DoNotOptimize(CommentLine(tag, ansi));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(MakeCommentLine);

}  // namespace
