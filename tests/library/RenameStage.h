#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "library/RenameWalkers.h"
#include "support/ExpectRuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// An MP3 file with that artist and title.
inline std::string Song(const std::string& artist, const std::string& title) {
    Id3v1 tag;
    tag.artist = artist;
    tag.title = title;
    return Mp3().Behind(tag.Bytes()).Bytes();
}

/// One that the rename ends at with RuntimeError 13: "3/12" is no number.
inline std::string SongThatFails() {
    const std::string frames = TextFrame("TPE1", "A") + TextFrame("TIT2", "T") + TextFrame("TRCK", "3/12");
    Id3v1 tag;
    tag.artist = "A";
    tag.title = "T";
    return Mp3().InFront(Id3v2(frames, 200)).Behind(tag.Bytes()).Bytes();
}

/// A folder in which files are renamed by rule 1 ("Artist - Title") unless told.
class RenameStage : public ::testing::Test {
  protected:
    RenameStage() { Prepare(app); }

    void Prepare(TestApp& world) {
        world.defaultWaveFile = &wave;
        world.state.RenameFormat = 1;
        world.state.FileSpec = "*.*";
    }

    void Make(const std::string& name, const std::string& bytes) {
        std::filesystem::create_directories(std::filesystem::path(app.folder / name).parent_path());
        app.folder.Write(name, bytes);
    }

    /// A file that is to become "A - <title>.MP3".
    void MakeSong(const std::string& name, const std::string& title) { Make(name, Song("A", title)); }

    std::string Root() const { return app.folder.Path(); }

    /// The files of the folder and all below it, links included, by their paths in it, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Root())) {
            if (entry.is_symlink() || !entry.is_directory())
                names.push_back(entry.path().string().substr(Root().size() + 1));
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
    WaveFile wave = WaveFile(app);
    RenameRun run = RenameRun(app, app.folder.Path());
};

}  // namespace zefta::test
