#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "library/FileInformation.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// What the writer of ID3v1 puts into a field for a text from a control.
inline std::string Given(std::string text, std::size_t width) {
    text += ' ';
    text.resize(width, '\0');
    return text;
}

inline std::string WrittenId3v1(const Id3v1& values) {
    std::string bytes = "TAG";
    bytes += Given(values.title, 30) + Given(values.artist, 30) + Given(values.album, 30);
    bytes += Given(values.year, 4) + Given(values.comment, 28);
    bytes += '\0';
    bytes += static_cast<char>(std::max(values.track, 0));
    return bytes += static_cast<char>(values.genre);
}

class FileInformationSavingStage : public ::testing::Test {
  protected:
    FileInformationSavingStage() : wave(app) { app.defaultWaveFile = &wave; }

    /// Loads, lets the test change the values, saves.
    SaveOutcome Edit(const std::string& name, const std::function<void(FileInformation&)>& change,
                     const SaveManner& manner = {}) {
        FileInformation information = LoadFileInformation(app, app.folder / name);
        change(information);
        return SaveFileInformation(app, app.folder / name, information, manner);
    }

    SaveOutcome SaveAsItIs(const std::string& name) {
        return Edit(name, [](FileInformation&) {});
    }

    TestApp app;
    WaveFile wave;
};

}  // namespace zefta::test
