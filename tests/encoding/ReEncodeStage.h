#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/Strings.h"
#include "encoding/ReEncode.h"
#include "platform/CommandText.h"
#include "platform/Text.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// Frames of 128 kbps at 44100 Hz one behind the other: 417 bytes and 26 milliseconds each.
inline std::string Mp3Frames(int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += "\xFF\xFB\x90\x64" + std::string(413, 'x');
    return bytes;
}

/// Re-encoding with tools that are played: a decoder leaves `decoded` under the name that it finds itself, an
/// encoder `encoded`; "" leaves nothing at all.
class ReEncodeStage : public ::testing::Test {
  protected:
    explicit ReEncodeStage(FileSystem* files = nullptr) : app(files) {
        app.defaultWaveFile = &wave;
        app.state.Bitrate = 128;
        app.processes.tool = [this](const RecordingProcesses::Run& run) { Play(run.commandLine); };
    }

    void ReEncode(const std::string& name, bool toOgg = false, bool toMPEGplus = false) {
        ReEncodeFile(app, folder / name, toOgg, toMPEGplus);
    }

    /// The command lines, without the path of the folder.
    std::vector<std::string> Commands() const {
        std::vector<std::string> commands;
        for (const auto& run : app.processes.runs)
            commands.push_back(ReplaceAll(run.commandLine, folder.Path() + "/", "@/"));
        return commands;
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const FolderEntry& entry : app.TestWorld::files.List(folder.Path())) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }

    TestApp app;
    TempFolder& folder = app.folder;
    WaveFile wave{app};
    std::string decoded = Wav().Tone(1764).Bytes();
    std::string encoded = Mp3Frames(20);
    bool leavesEmptyFile = false;

  private:
    void Leave(const std::string& path, const std::string& bytes) {
        if (!bytes.empty() || leavesEmptyFile) WriteWholeFile(path, bytes);
    }

    void Play(const std::string& commandLine) {
        const auto arguments = SplitCommandLine(commandLine);
        const std::string& tool = arguments[0].text;
        const std::string& last = arguments.back().text;
        if (tool == app.processes.OwnPath() + ".exe") return;
        if (tool == "oggdec.exe") {
            Leave(last.substr(0, last.size() - 4) + ".wav", decoded);
        } else if (tool == "mppdec.exe") {
            Leave(last, decoded);
        } else if (arguments[1].text == "--mp3input") {
            Leave(last + ".wav", decoded);
        } else if (tool == "oggenc.exe") {
            Leave(arguments[2].text.substr(2), encoded);
        } else {
            Leave(last, encoded);
        }
    }
};

}  // namespace zefta::test
