#pragma once

#include <string>

namespace zefta {

/// What an exit from the system does; the values add up.
inline constexpr int ExitShutDown = 1;
inline constexpr int ExitPowerOff = 8;

/// Ends the work of the machine.
class PowerOff {
  public:
    PowerOff() = default;
    PowerOff(const PowerOff&) = delete;
    PowerOff& operator=(const PowerOff&) = delete;
    virtual ~PowerOff() = default;

    /// Asks the system to end as the flags say. "" when it takes the request, else its reason in words; the
    /// machine runs on then.
    virtual std::string ExitSystem(int flags) = 0;
};

}  // namespace zefta
