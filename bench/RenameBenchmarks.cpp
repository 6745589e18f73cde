// What renaming does beside the reading of files: making and numbering names, the map of new names, and lists
// that learn them.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>

#include "core/TextLines.h"
#include "library/RenameByTags.h"
#include "library/RenamePlaylists.h"
#include "library/TextTarget.h"
#include "platform/console/ConsoleDesktop.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "wave/WaveFile.h"

namespace {

using namespace zefta;

constexpr int MapEntries = 50000;
constexpr int ListLines = 100000;

std::string OldName(int number) {
    return "Album " + std::to_string(number / 12) + "/Track " + std::to_string(number) + ".mp3";
}

std::string NewName(int number) {
    return "Artist number " + std::to_string(number % 97) + " - Title " + std::to_string(number) + ".MP3";
}

RenameMap MakeMap(const std::string& folder) {
    RenameMap map;
    for (int i = 0; i < MapEntries; ++i) map.Add(folder + "/" + OldName(i), NewName(i));
    return map;
}

void FillRenameMap(benchmark::State& state) {
    for ([[maybe_unused]] const auto round : state) benchmark::DoNotOptimize(MakeMap("/music").Count());
    state.SetItemsProcessed(state.iterations() * MapEntries);
}

BENCHMARK(FillRenameMap)->Unit(benchmark::kMillisecond);

void FindInRenameMap(benchmark::State& state) {
    const RenameMap map = MakeMap("/music");
    int number = 0;
    for ([[maybe_unused]] const auto round : state) {
        benchmark::DoNotOptimize(map.Find("/Music/" + OldName(number)));
        number = (number + 1) % MapEntries;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(FindInRenameMap);

/// A folder of its own, and all that a run needs.
class Stage {
  public:
    Stage() {
        app.defaultWaveFile = &wave;
        app.state.RenameFormat = 1;
        app.state.FileSpec = AllPlaylists;
    }
    ~Stage() { std::filesystem::remove_all(folder); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    const std::string folder = MakeFolder();
    const Machine machine;
    PosixFileSystem files;
    PosixProcesses processes;
    ConsoleDesktop desktop{std::cin, std::cerr, false};
    IniSettingsStore settings{folder + "/none.ini"};
    App app{machine, files, desktop, processes, settings, settings};
    WaveFile wave{app};

  private:
    static std::string MakeFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zefta-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        return pattern;
    }
};

/// A list with two lines for each entry of the map, half of them comments.
std::string ListWithComments() {
    std::string list = "#EXTM3U\r\n";
    for (int i = 0; i < ListLines / 2; ++i)
        list += "#EXTINF:215,Title\r\n" + OldName(i % MapEntries) + "\r\n";
    return list;
}

void LearnNewNames(benchmark::State& state) {
    Stage stage;
    const std::string list = ListWithComments();
    RenameRun run(stage.app, stage.folder);
    run.map.emplace(MakeMap(stage.folder));
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        TextTarget(stage.files, stage.folder + "/list.m3u").Put(list);
        state.ResumeTiming();
        RenamePlaylists(run, stage.folder, false);
    }
    state.SetItemsProcessed(state.iterations() * ListLines);
}

BENCHMARK(LearnNewNames)->Unit(benchmark::kMillisecond);

/// Each line is looked for in vain, in every case of its letters.
void RenameFilesOfAListThatAreGone(benchmark::State& state) {
    Stage stage;
    std::string list;
    for (int i = 0; i < ListLines; ++i) list += "Track " + std::to_string(i) + ".mp3\n";
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        TextTarget(stage.files, stage.folder + "/list.m3u").Put(list);
        RenameRun run(stage.app, stage.folder);
        state.ResumeTiming();
        RenamePlaylists(run, stage.folder, true);
    }
    state.SetItemsProcessed(state.iterations() * ListLines);
}

BENCHMARK(RenameFilesOfAListThatAreGone)->Unit(benchmark::kMillisecond);

/// The name and its numbers up to 98 are taken. Moving the file back counts too.
void NumberANameThatIsTaken(benchmark::State& state) {
    Stage stage;
    const std::string oldPath = stage.folder + "/old.mp3";
    TextTarget(stage.files, oldPath).Put({});
    TextTarget(stage.files, stage.folder + "/a.MP3").Put({});
    for (int i = 2; i < 99; ++i)
        TextTarget(stage.files, stage.folder + "/a {" + std::to_string(i) + "}.MP3").Put({});
    RenamePlan plan;
    plan.extension = ".MP3";
    plan.wanted.name = "a";
    for ([[maybe_unused]] const auto round : state) {
        std::string name = "old.mp3";
        RenameAsPlanned(stage.app, plan, stage.folder, name);
        if (name != "a {99}.MP3") state.SkipWithError("another name came out");
        stage.files.MoveFile(stage.folder + "/" + name, oldPath);
    }
}

BENCHMARK(NumberANameThatIsTaken)->Unit(benchmark::kMicrosecond);

void ExpandATemplate(benchmark::State& state) {
    const RenameFields fields = {.Artist = "Artist number 7",
                                 .Title = "The title of track 5713",
                                 .Mix = "Live",
                                 .Year = "1999",
                                 .Album = "Album",
                                 .Track = "12"};
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(ExpandTemplate("%N. %A - %T [%M] %W", fields));
}

BENCHMARK(ExpandATemplate);

}  // namespace
