#include "core/TextInRuns.h"

#include <algorithm>
#include <future>
#include <optional>
#include <system_error>
#include <thread>

namespace zefta {

namespace {

constexpr std::size_t ThingsAtATime = 4096;
/// Fewer things are done before a thread has started.
constexpr std::size_t WorthAThread = 64;

/// Starts the step beside this thread; none when the machine has no second processor or no thread to give.
std::optional<std::future<std::string>> Beside(const std::function<std::string()>& step) {
    if (std::thread::hardware_concurrency() < 2) return std::nullopt;
    try {
        return std::async(std::launch::async, step);
    } catch (const std::system_error&) {
        return std::nullopt;
    }
}

}  // namespace

void MakeTextInRuns(std::size_t count, const std::function<std::string(IndexRun)>& textOf,
                    const std::function<void(const std::string&)>& take) {
    for (std::size_t done = 0; done < count;) {
        const std::size_t length = std::min(ThingsAtATime, count - done);
        const IndexRun first = {done, length / 2};
        const IndexRun second = {first.first + first.count, length - first.count};
        auto beside = length >= WorthAThread ? Beside([&] { return textOf(second); }) : std::nullopt;
        take(textOf(first));
        take(beside ? beside->get() : textOf(second));
        done += length;
    }
}

}  // namespace zefta
