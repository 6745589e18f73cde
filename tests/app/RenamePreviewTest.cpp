#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "app/RenamePreview.h"
#include "library/RenameStage.h"

namespace zefta::test {
namespace {

using Kind = PreviewedRename::Kind;
using Lines = std::vector<PreviewedRename>;

class RenameStepsTest : public ::testing::Test {
  protected:
    std::vector<std::string> files;
    RenameSteps steps{[this](const std::string& name) {
        return std::find(files.begin(), files.end(), name) != files.end();
    }};
};

TEST_F(RenameStepsTest, Lines_BecomeWhatHappens) {
    EXPECT_EQ(steps.Read("rename: a.mp3 -> B.MP3"), (PreviewedRename{Kind::Renamed, "a.mp3", "B.MP3"}));
    EXPECT_EQ(steps.Read("collision: B.MP3 is taken"), std::nullopt);
    EXPECT_EQ(steps.Read("rename: c.mp3 -> B {2}.MP3"),
              (PreviewedRename{Kind::Numbered, "c.mp3", "B {2}.MP3"}));
    EXPECT_EQ(steps.Read("rename: d.mp3 -> D.MP3"), (PreviewedRename{Kind::Renamed, "d.mp3", "D.MP3"}));
    EXPECT_EQ(steps.Read("refused: e.mp3: can't be read"),
              (PreviewedRename{Kind::Refused, "e.mp3", "", "can't be read"}));
    EXPECT_EQ(steps.Read("unchanged: f.mp3"), (PreviewedRename{Kind::Unchanged, "f.mp3", "f.mp3"}));
    EXPECT_EQ(steps.Read("unchanged: x.m3u"), std::nullopt);
    EXPECT_EQ(steps.Read("playlist: x: y.m3u: 3 lines changed"),
              (PreviewedRename{Kind::Playlist, "x: y.m3u", "", "3 lines changed"}));
    for (const char* line : {"folder: A", "asks: name? -> a", "says: no", "", "rename: ", "refused: a", "x"})
        EXPECT_EQ(steps.Read(line), std::nullopt) << line;
}

TEST_F(RenameStepsTest, NamesOfSubfolders_AreToldWithThem) {
    EXPECT_EQ(steps.Read("in: one/two"), std::nullopt);
    EXPECT_EQ(steps.Read("rename: a.mp3 -> B.MP3"),
              (PreviewedRename{Kind::Renamed, "one/two/a.mp3", "one/two/B.MP3"}));
    steps.Read("in: .");
    EXPECT_EQ(steps.Read("unchanged: a.mp3"), (PreviewedRename{Kind::Unchanged, "a.mp3", "a.mp3"}));
}

TEST_F(RenameStepsTest, NamesThatHoldTheSeparator_AreToldApartByWhatIsThere) {
    files = {"a -> b.mp3", "x: y.mp3"};
    EXPECT_EQ(steps.Read("rename: a -> b.mp3 -> C -> D.MP3"),
              (PreviewedRename{Kind::Renamed, "a -> b.mp3", "C -> D.MP3"}));
    EXPECT_EQ(steps.Read("refused: x: y.mp3: File not found: z"),
              (PreviewedRename{Kind::Refused, "x: y.mp3", "", "File not found: z"}));
    EXPECT_EQ(steps.Read("rename: gone -> b -> c"), (PreviewedRename{Kind::Renamed, "gone", "b -> c"}));
}

class RenamePreviewTest : public RenameStage {
  protected:
    RenamePreviewTest() {
        form = LoadRenameForm(app);
        form.format = 1;
        form.choice.folder = Root();
    }

    /// All lines of the run that is under way, sorted by their old names.
    Lines Finish() {
        Lines all;
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        for (bool isUnderWay = true; isUnderWay && std::chrono::steady_clock::now() < end;) {
            isUnderWay = preview.IsUnderWay();
            for (PreviewedRename& line : preview.Take()) all.push_back(std::move(line));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_FALSE(preview.IsUnderWay());
        std::sort(all.begin(), all.end(), [](auto& a, auto& b) { return a.oldName < b.oldName; });
        return all;
    }

    Lines Preview() {
        preview.Begin(form);
        return Finish();
    }

    RenameForm form;
    RenamePreview preview{app};
};

TEST_F(RenamePreviewTest, Tells_WhatTheRenamingThenDoes) {
    MakeSong("a.mp3", "One");
    MakeSong("b.mp3", "One");
    MakeSong("sub/c.mp3", "Two");
    Make("d.mp3", Song("", ""));
    Make("list.m3u", "a.mp3\nb.mp3\n");
    form.choice.processSubfolders = true;
    const Texts before = Names();
    const AppState state = app.state;
    const Lines lines = Preview();
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(app.folder.Read("list.m3u"), "a.mp3\nb.mp3\n");
    EXPECT_EQ(app.state.RenameFormat, state.RenameFormat);
    EXPECT_EQ(app.state.FileSpec, state.FileSpec);
    EXPECT_EQ(preview.Failure(), std::nullopt);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](auto& l) { return l.kind == Kind::Numbered; }), 1);
    EXPECT_EQ(lines[2], (PreviewedRename{Kind::Refused, "d.mp3", "", "holds neither artist nor title"}));
    EXPECT_EQ(lines[3], (PreviewedRename{Kind::Playlist, "list.m3u", "", "2 lines changed"}));
    RunRenameForm(app, form, [](const std::string&, const std::string&) {});
    const Texts after = Names();
    for (const PreviewedRename& line : lines) {
        if (!line.newName.empty()) {
            EXPECT_EQ(std::count(after.begin(), after.end(), line.newName), 1) << line.newName;
        }
    }
}

TEST_F(RenamePreviewTest, SelectedFiles_AloneAreTold) {
    MakeSong("a.mp3", "One");
    MakeSong("b.mp3", "Two");
    form.choice.filter = ExtendedRename::Filter::SelectedFiles;
    form.choice.selected = {"b.mp3"};
    EXPECT_EQ(Preview(), (Lines{{Kind::Renamed, "b.mp3", "A - Two.MP3"}}));
}

TEST_F(RenamePreviewTest, Template_IsThatOfTheForm_AndTheAppKeepsItsOwn) {
    MakeSong("a.mp3", "One");
    form.format = 6;
    form.customTemplate = "%T";
    EXPECT_EQ(Preview(), (Lines{{Kind::Renamed, "a.mp3", "One.MP3"}}));
    EXPECT_EQ(app.state.CustomRenameTemplate, "%N. %A - %T [%M] %W");
}

TEST_F(RenamePreviewTest, RuleInPlainLetters_DoesNotLastBeyondThePreview) {
    Make("a.mp3", Song("\xC4", "One"));
    form.format = 5;
    Preview();
    EXPECT_FALSE(app.state.TranslateNames);
}

TEST_F(RenamePreviewTest, Failure_IsTold) {
    Make("a.mp3", SongThatFails());
    const Lines lines = Preview();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].kind, Kind::Refused);
    ASSERT_TRUE(preview.Failure());
    EXPECT_NE(preview.Failure()->find("a.mp3"), std::string::npos);
    Preview();
    form.choice.filter = ExtendedRename::Filter::SelectedFiles;
    Preview();
    EXPECT_EQ(preview.Failure(), std::nullopt);
}

TEST_F(RenamePreviewTest, BegunAnew_GivesTheLinesOfTheLastOneOnly) {
    constexpr int Files = 2000;
    for (int i = 0; i < Files; ++i) MakeSong(std::to_string(i) + ".mp3", "T" + std::to_string(i));
    for (int i = 0; i < 5; ++i) {
        const auto start = std::chrono::steady_clock::now();
        preview.Begin(form);
        // Nobody who types waits for the one before.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
        preview.Take();
    }
    form.format = 6;
    form.customTemplate = "last %T";
    const Lines lines = Preview();
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(Files));
    for (const PreviewedRename& line : lines) ASSERT_TRUE(line.newName.starts_with("last ")) << line.newName;
}

TEST_F(RenamePreviewTest, TreeWithoutFiles_IsLeftWhenNobodyWaits) {
    constexpr int Folders = 40;
    const std::filesystem::path tree = app.folder / "tree";
    for (int i = 0; i < Folders * Folders; ++i)
        std::filesystem::create_directories(tree / std::to_string(i / Folders) / std::to_string(i % Folders));
    form.choice.processSubfolders = true;
    form.choice.updatePlaylists = true;
    const auto begin = std::chrono::steady_clock::now();
    Preview();
    const auto whole = std::chrono::steady_clock::now() - begin;
    preview.Begin(form);
    const auto stopping = std::chrono::steady_clock::now();
    preview.Stop();
    EXPECT_LT(std::chrono::steady_clock::now() - stopping, whole / 3);
}

TEST_F(RenamePreviewTest, Stopped_GivesNothingMore) {
    for (int i = 0; i < 500; ++i) MakeSong(std::to_string(i) + ".mp3", "T" + std::to_string(i));
    preview.Begin(form);
    preview.Stop();
    EXPECT_FALSE(preview.IsUnderWay());
    EXPECT_TRUE(preview.Take().empty());
}

}  // namespace
}  // namespace zefta::test
