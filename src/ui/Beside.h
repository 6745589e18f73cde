#pragma once

#include <functional>
#include <future>
#include <system_error>

namespace zefta {

/// Work in a second thread; by whoever asks next where the machine has none to give. Waited for by whoever
/// lets the result go.
inline std::future<void> Beside(const std::function<void()>& work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return {};
    }
}

}  // namespace zefta
