#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zefta {

/// The tokens of a command line, counted from 1. Only the first 255 can be reached.
class CommandLine {
  public:
    /// The tokens as the system handed them over: nothing is split or unquoted again.
    explicit CommandLine(std::vector<std::string> tokens);

    std::int32_t Count() const { return static_cast<std::int32_t>(tokens_.size()); }

    /// The token in lower case, for comparison; "" for an index out of range.
    std::string Item(std::int32_t index) const;

    /// The token as typed, for values; "" for an index out of range.
    std::string RawItem(std::int32_t index) const;

  private:
    std::vector<std::string> tokens_;
};

}  // namespace zefta
