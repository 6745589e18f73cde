#include "core/CommandLine.h"

#include <algorithm>
#include <utility>

#include "core/Strings.h"

namespace zefta {

namespace {

// The count is also kept as a byte by those who build on it.
constexpr std::size_t MaximumTokens = 255;

}  // namespace

CommandLine::CommandLine(std::vector<std::string> tokens) : tokens_(std::move(tokens)) {
    tokens_.resize(std::min(tokens_.size(), MaximumTokens));
}

std::string CommandLine::Item(std::int32_t index) const {
    return AsciiLower(RawItem(index));
}

std::string CommandLine::RawItem(std::int32_t index) const {
    return index >= 1 && index <= Count() ? tokens_[static_cast<std::size_t>(index) - 1] : std::string();
}

}  // namespace zefta
