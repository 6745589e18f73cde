#pragma once

#include <optional>

#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"

namespace zefta {

/// What a settings store on disk knows beside its values. Nearly everybody who saves goes on whatever came of
/// it, and is not bothered with it; it is for those few who say to a person that something is kept.
class StoreOutcome {
  public:
    StoreOutcome() = default;
    StoreOutcome(const StoreOutcome&) = delete;
    StoreOutcome& operator=(const StoreOutcome&) = delete;
    virtual ~StoreOutcome() = default;

    /// Why the last Apply left the disk as it was; nothing when it is on the disk.
    virtual std::optional<RuntimeError> Failure() const = 0;
};

/// The RuntimeError for which what was applied last is not on the disk. A store that can't tell is believed.
void ExpectStored(const SettingsStore& store);

}  // namespace zefta
