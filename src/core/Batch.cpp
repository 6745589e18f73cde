#include "core/Batch.h"

#include <algorithm>

namespace zefta {

Batch::~Batch() {
    if (isShown_) app_.desktop.ShowBatch(0, 0);
}

bool Batch::Next(std::size_t items) {
    if (isCancelled_) return false;
    item_ += items;
    return Answer(item_);
}

/// In front of the first item it stands for that: only a batch that is shown is under way to the desktop.
bool Batch::Pause() {
    return Answer(std::max<std::size_t>(item_, 1));
}

bool Batch::Answer(std::size_t item) {
    count_ = std::max(count_, item_);
    app_.desktop.ShowBatch(item, std::max(count_, item));
    isShown_ = isShown_ || item > 0;
    app_.desktop.ServeEvents();
    isCancelled_ = isCancelled_ || app_.desktop.IsCancelled();
    return !isCancelled_;
}

}  // namespace zefta
