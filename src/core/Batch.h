#pragma once

#include <cstddef>

#include "core/App.h"

namespace zefta {

/// The one way for work on many files to tell the desktop how far it is, to let it paint and answer, and to
/// hear that the person wants it to end. Such work has a batch of its own, calls Next in front of each file
/// and ends behind the one at hand.
class Batch {
  public:
    explicit Batch(App& app, std::size_t items = 0) : app_(app), count_(items) {}
    /// The desktop hears that the batch has ended.
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    /// So many more items have been found.
    void Expect(std::size_t items) { count_ += items; }

    /// Goes on to the next item, or by several that are done in one go. False when the person wants the batch
    /// to end: the item is not begun then, and no later one is.
    bool Next(std::size_t items = 1);

    /// Between items, where none may come for long: lets the desktop answer. False as that of Next, and the
    /// desktop answers all the same: work that has to be brought to its end can go on.
    bool Pause();

    /// Whether Next or Pause has said so.
    bool IsCancelled() const { return isCancelled_; }

  private:
    bool Answer(std::size_t item);

    App& app_;
    std::size_t item_ = 0;
    std::size_t count_;
    bool isShown_ = false;
    bool isCancelled_ = false;
};

}  // namespace zefta
