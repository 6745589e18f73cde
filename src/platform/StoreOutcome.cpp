#include "platform/StoreOutcome.h"

namespace zefta {

void ExpectStored(const SettingsStore& store) {
    const auto* outcome = dynamic_cast<const StoreOutcome*>(&store);
    if (outcome == nullptr) return;
    if (const auto failure = outcome->Failure()) throw RuntimeError(*failure);
}

}  // namespace zefta
