#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace zefta {

/// Things of a numbered row, one behind the other.
struct IndexRun {
    std::size_t first = 0;
    std::size_t count = 0;
};

/// Makes the text of `count` things and hands it on in their order, in runs so short that memory stays flat
/// with their number. Two threads call `textOf` at once, which must ask for nothing but what several threads
/// may ask for at once; `take` is called by the caller's thread alone.
void MakeTextInRuns(std::size_t count, const std::function<std::string(IndexRun)>& textOf,
                    const std::function<void(const std::string&)>& take);

}  // namespace zefta
