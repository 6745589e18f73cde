#pragma once

#include "platform/Desktop.h"

namespace zefta {

/// A progress dialog where nobody looks.
class NoProgress : public ProgressView {
  public:
    void Show(const ProgressReport&) override {}
};

}  // namespace zefta
