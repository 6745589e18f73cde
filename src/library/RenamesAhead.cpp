#include "library/RenamesAhead.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <utility>

namespace zefta {

namespace {

/// Fewer files are not worth a thread.
constexpr std::size_t FilesAtATime = 256;

/// In a thread of its own where the machine has a second processor and a thread to give, else when asked for.
template <typename Step>
auto Beside(Step step) {
    if (std::thread::hardware_concurrency() < 2) return std::async(std::launch::deferred, step);
    try {
        return std::async(std::launch::async, step);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, step);
    }
}

}  // namespace

RenamesAhead::RenamesAhead(const FileReading& reading, const RenameRule& rule, const std::string& folder,
                           const std::vector<std::string>& names)
    : reading_(reading), rule_(rule), folder_(folder), names_(names) {
    if (names_.size() > FilesAtATime) StartRun(0);
}

RenamesAhead::Reading RenamesAhead::Read(const std::string& name) const {
    try {
        return {ReadForRename(reading_, rule_, folder_, name), nullptr};
    } catch (...) {
        return {{}, std::current_exception()};
    }
}

RenamesAhead::Readings RenamesAhead::ReadRun(std::size_t first) const {
    Readings readings;
    for (std::size_t i = first; i < std::min(first + FilesAtATime, names_.size()); ++i)
        readings.push_back(Read(names_[i]));
    return readings;
}

void RenamesAhead::StartRun(std::size_t first) {
    next_ = Beside([this, first] { return ReadRun(first); });
}

RenamePlan RenamesAhead::Take(std::size_t number) {
    if (!next_.valid() && current_.empty()) return ReadForRename(reading_, rule_, folder_, names_[number]);
    while (number >= first_ + current_.size()) {
        first_ += current_.size();
        current_ = next_.get();
        if (first_ + current_.size() < names_.size()) StartRun(first_ + current_.size());
    }
    Reading& reading = current_[number - first_];
    if (reading.failure) std::rethrow_exception(reading.failure);
    return std::move(reading.plan);
}

}  // namespace zefta
