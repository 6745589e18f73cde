#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <string>

#include "platform/posix/PosixFileSystem.h"

namespace zefta::test {

/// Counts the files that are opened for reading, and holds whoever opens one whose name begins with "gate"
/// until the gate is opened.
class GatedFiles : public PosixFileSystem {
  public:
    std::atomic<int> opened = 0;

    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
        ++opened;
        if (path.find("/gate") != std::string::npos) {
            arrived_.set_value();
            isOpen_.get_future().wait();
        }
        return PosixFileSystem::OpenReadOnly(path);
    }

    /// Until somebody stands at the gate.
    void WaitForArrival() { arrived_.get_future().wait(); }
    void OpenGate() { isOpen_.set_value(); }

  private:
    std::promise<void> arrived_;
    std::promise<void> isOpen_;
};

}  // namespace zefta::test
