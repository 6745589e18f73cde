#include "core/Batch.h"

#include <algorithm>

namespace zefta {

Batch::~Batch() {
    if (item_ > 0) app_.desktop.ShowBatch(0, 0);
}

bool Batch::Next(std::size_t items) {
    if (isCancelled_) return false;
    item_ += items;
    count_ = std::max(count_, item_);
    app_.desktop.ShowBatch(item_, count_);
    app_.desktop.ServeEvents();
    isCancelled_ = app_.desktop.IsCancelled();
    return !isCancelled_;
}

}  // namespace zefta
