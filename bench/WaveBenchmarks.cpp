// The routines that touch every byte of a file, each by itself.

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "core/BlockCopy.h"
#include "wave/Kernels.h"
#include "wave/Silence.h"

namespace {

using namespace zefta;

std::vector<std::byte> Noise() {
    std::mt19937 random(1);
    std::vector<std::byte> block(WaveBlockSize);
    for (std::byte& byte : block) byte = static_cast<std::byte>(random() & 0xFF);
    return block;
}

void CountBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * WaveBlockSize);
}

void Measure(benchmark::State& state, const Kernels& kernels) {
    const std::vector<std::byte> block = Noise();
    Peaks peaks;
    for ([[maybe_unused]] const auto round : state) {
        kernels.measure(block, peaks);
        benchmark::DoNotOptimize(peaks);
    }
    CountBytes(state);
}

void Amplify(benchmark::State& state, const Kernels& kernels) {
    const std::vector<std::byte> noise = Noise();
    std::vector<std::byte> block = noise;
    // As NormalizeGains gives them: single precision. Each round takes fresh samples, a copy that counts too.
    const Gains gains = {static_cast<double>(0.8765432F), static_cast<double>(0.7654321F)};
    for ([[maybe_unused]] const auto round : state) {
        std::copy(noise.begin(), noise.end(), block.begin());
        kernels.amplify(block, gains);
        benchmark::ClobberMemory();
    }
    CountBytes(state);
}

void SearchSilence(benchmark::State& state) {
    const std::vector<std::byte> block(WaveBlockSize);
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(FirstAudibleByte(block, WaveBlockSize, {7, 65528}));
    CountBytes(state);
}

BENCHMARK(SearchSilence);

/// One row for every form that this processor can run.
const bool AreRegistered = [] {
    for (const Kernels& kernels : AvailableKernels()) {
        const std::string name = kernels.name;
        benchmark::RegisterBenchmark(("Measure/" + name).c_str(),
                                     [&](auto& state) { Measure(state, kernels); });
        benchmark::RegisterBenchmark(("Amplify/" + name).c_str(),
                                     [&](auto& state) { Amplify(state, kernels); });
    }
    return true;
}();

}  // namespace
