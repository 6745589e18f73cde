#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "support/ExpectRuntimeError.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// Bytes that the passes over a file take at once.
inline constexpr std::size_t Block = WaveBlockSize;

struct RaisedEvent {
    std::string name;
    std::int32_t value;

    bool operator==(const RaisedEvent&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const RaisedEvent& event) {
        return stream << event.name << "(" << event.value << ")";
    }
};

using RaisedEvents = std::vector<RaisedEvent>;

/// Compares bytes and tells the first place where they differ: the bytes themselves fill pages.
inline testing::AssertionResult SameBytes(const std::string& found, const std::string& expected) {
    if (found == expected) return testing::AssertionSuccess();
    std::size_t at = 0;
    while (at < found.size() && at < expected.size() && found[at] == expected[at]) ++at;
    return testing::AssertionFailure() << found.size() << " bytes where " << expected.size()
                                       << " are expected; the first that differs is " << at;
}

/// An App in an empty folder with one WaveFile whose events are written down. Its bounds of silence are those
/// of the option /zx.
struct WaveStage {
    TestApp app;
    WaveFile wave{app};
    RaisedEvents events;

    explicit WaveStage(FileSystem* files = nullptr) : app(files) {
        wave.MinSample = 7;
        wave.MaxSample = 65528;
        Record(wave.StartOffset, "StartOffset");
        Record(wave.EndOffset, "EndOffset");
        Record(wave.MaxStatus, "MaxStatus");
        Record(wave.MinStatus, "MinStatus");
        Record(wave.Status, "Status");
    }

    /// Scans a file of these bytes, "a.wav".
    std::int32_t Scan(const std::string& bytes, bool askPeaks = false) {
        return wave.ScanWave(app.folder.Write("a.wav", bytes), askPeaks);
    }

  private:
    void Record(WaveFile::Event& event, const std::string& name) {
        event = [this, name](std::int32_t value) { events.push_back({name, value}); };
    }
};

}  // namespace zefta::test
