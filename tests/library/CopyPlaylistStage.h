#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "library/CopyPlaylist.h"
#include "support/TestApp.h"

namespace zefta::test {

/// Of several blocks, and no two of them are the same.
inline std::string BigFile() {
    std::string bytes(100000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 % 251);
    return bytes;
}

/// A folder with music, and another for copies of it.
class CopyPlaylistStage : public ::testing::Test {
  protected:
    CopyPlaylistStage() {
        app.files.CreateFolder("music");
        app.files.CreateFolder("usb");
    }

    void WriteTracks(const std::vector<std::string>& names) {
        for (const std::string& name : names) app.folder.Write("music/" + name, "bytes of " + name);
    }

    std::string Copy(const std::string& lines, const std::string& target = "usb") {
        app.folder.Write("music/mix.m3u", lines);
        return CopyPlaylist(app, "music/mix.m3u", target);
    }

    std::string NewList() { return app.folder.Read("usb/mix/mix.m3u"); }
    std::string Copied(const std::string& name) { return app.folder.Read("usb/mix/" + name); }
    std::size_t EntryCount(const std::string& folder) { return app.files.List(folder).size(); }

    std::vector<std::string> Boxes() {
        std::vector<std::string> texts;
        for (const auto& box : app.desktop.boxes) texts.push_back(box.text);
        return texts;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
};

}  // namespace zefta::test
