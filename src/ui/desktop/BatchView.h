#pragma once

#include <cstddef>

namespace zefta {

/// The window in which work on many files shows how far it is, and where the person ends it.
class BatchView {
  public:
    BatchView() = default;
    BatchView(const BatchView&) = delete;
    BatchView& operator=(const BatchView&) = delete;
    virtual ~BatchView() = default;

    /// As Desktop::ShowBatch.
    virtual void ShowBatch(std::size_t item, std::size_t count) = 0;
    /// As Desktop::IsCancelled.
    virtual bool IsCancelled() const = 0;
    /// As ToolWatch::WantsToolEnded: once the person has cancelled, the tool at hand may be ended too.
    virtual bool WantsToolEnded() { return false; }
};

}  // namespace zefta
