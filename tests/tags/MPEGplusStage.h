#pragma once

#include <string>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/MPEGplusFile.h"

namespace zefta::test {

/// The bytes, followed by others up to `length`.
inline std::string Filled(std::string bytes, std::size_t length) {
    bytes.resize(length, '\x55');
    return bytes;
}

/// Reads files that are given by their bytes.
class MPEGplusStage : public ::testing::Test {
  protected:
    /// The record as far as it was filled; `failure` is the number of the run-time failure, or 0.
    ID3Tag Read(const std::string& bytes) {
        ID3Tag tag;
        failure = RuntimeErrorOf([&] { ReadMPEGplusFile({files, ansi}, NewFile(bytes), tag); });
        return tag;
    }

    /// A new name each time: to write over a file that was just written is slow.
    std::string NewFile(const std::string& bytes) {
        return folder.Write(std::to_string(++filesWritten) + ".mpc", bytes);
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1251);
    int failure = 0;
    int filesWritten = 0;
    const std::string stream = Filled(Mpc7(1000, 160, 64), 40000);
};

}  // namespace zefta::test
