#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "library/Selection.h"
#include "platform/CommandText.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// A folder of which rows are selected, and a watch that keeps what it hears.
class SelectionStage : public ::testing::Test {
  protected:
    SelectionStage() { app.defaultWaveFile = &wave; }

    using Texts = std::vector<std::string>;

    /// Writes the file and selects its row, or selects the folder or "..".
    void Select(const std::string& name, const std::string& bytes = "x") {
        const auto kind = ListKindOf(name);
        const RowIcon icon = name == ".."                  ? RowIcon::Up
                             : !kind                       ? RowIcon::Folder
                             : *kind == ListKind::Playlist ? RowIcon::Playlist
                             : *kind == ListKind::Wave     ? RowIcon::Wave
                                                           : RowIcon::Compressed;
        if (icon == RowIcon::Folder) std::filesystem::create_directories(app.folder / name);
        if (kind) app.folder.Write(name, bytes);
        selection.rows.push_back({icon, name});
    }

    void AnswerYes(std::size_t times = 1) { app.desktop.answers.assign(times, true); }

    std::string Question(std::size_t index = 0) const {
        const auto& question = app.desktop.questions.at(index);
        return question.caption + ": " + question.text;
    }

    std::string Message(std::int32_t id, const std::string& p1 = {}) {
        return app.messages.GetMessage(id, p1);
    }

    SelectionWatch Watch() {
        return {[this](const std::string& text) { statuses.push_back(text); },
                [this](const std::string& name) { done.push_back(name); }};
    }

    TestApp app;
    WaveFile wave{app};
    Selection selection{app.folder.Path(), {}};
    Texts statuses;
    Texts done;
};

}  // namespace zefta::test
