#pragma once

#include <string>
#include <sys/types.h>

#include "support/TempFolder.h"

namespace zefta::test {

/// A message bus of its own for one test, on which anybody may have any name. Ends with the test.
class PrivateBus {
  public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// What one connects to; "" when the bus could not be started.
    const std::string& Address() const { return address_; }

  private:
    TempFolder folder_;
    pid_t daemon_ = -1;
    std::string address_;
};

}  // namespace zefta::test
