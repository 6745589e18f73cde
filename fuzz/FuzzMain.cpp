// What libFuzzer calls. The environment variable FUZZ_TARGET names the target, so that one program serves
// all.

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/FuzzTargets.h"

namespace {

const zefta::fuzz::FuzzTarget& Target() {
    static const zefta::fuzz::FuzzTarget* const target = [] {
        const char* name = std::getenv("FUZZ_TARGET");
        const auto* found = zefta::fuzz::FindFuzzTarget(name != nullptr ? name : "");
        if (found != nullptr) return found;
        std::cerr << "FUZZ_TARGET is to be one of:";
        for (const auto& row : zefta::fuzz::FuzzTargets()) std::cerr << ' ' << row.name;
        std::cerr << '\n';
        std::exit(2);
    }();
    return *target;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Target().run({reinterpret_cast<const char*>(data), size});
    return 0;
}
