#pragma once

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "library/ChangeTags.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {

inline const TagValues All = {"New Artist ", "New Title ", "New Mix ", "New Album ",
                              "2001 ",       "7",          "Rock ",    17};
inline const TagValues Clear = {" ", " ", " ", " ", " ", "0", " ", 0};

class ChangeTagsTest : public ::testing::Test {
  protected:
    ChangeTagsTest() { app.defaultWaveFile = &wave; }

    void Change(const std::string& name, const TagValues& values) {
        ChangeTagsOfFile(app, {app.folder / name, name}, values);
    }

    /// Bytes after a change.
    std::string Changed(const std::string& name, const std::string& bytes, const TagValues& values) {
        app.folder.Write(name, bytes);
        Change(name, values);
        return app.folder.Read(name);
    }

    ID3Tag Mp3Now(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name); }
    ID3Tag OggNow(const std::string& name) { return wave.GetOGGFileInfo(app.folder / name); }
    ID3Tag MpcNow(const std::string& name) { return wave.GetMPEGplusFileInfo(app.folder / name); }

    std::string StepsOf(const std::string& name, const TagValues& values) {
        std::ostringstream steps;
        app.steps = &steps;
        Change(name, values);
        app.steps = nullptr;
        return steps.str();
    }

    TestApp app;
    WaveFile wave{app};
};

}  // namespace zefta::test
