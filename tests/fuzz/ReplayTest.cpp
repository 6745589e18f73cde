// Every fuzz body over its corpus: what once was found stays mended.

#include <filesystem>

#include <gtest/gtest.h>

#include "fuzz/FuzzTargets.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

const std::filesystem::path Corpus = ZEFTA_FUZZ_CORPUS;

class Replay : public ::testing::TestWithParam<fuzz::FuzzTarget> {};

std::string NameOf(const ::testing::TestParamInfo<fuzz::FuzzTarget>& row) {
    return std::string(row.param.name);
}

INSTANTIATE_TEST_SUITE_P(Targets, Replay, ::testing::ValuesIn(fuzz::FuzzTargets()), NameOf);

TEST_P(Replay, Corpus_KeepsEveryPromise) {
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Corpus / GetParam().name)) {
        const std::string input = ReadWholeFile(entry.path().string());
        EXPECT_NO_THROW(GetParam().run(input)) << entry.path();
        ++inputs;
    }
    EXPECT_GT(inputs, 0);
}

TEST_P(Replay, CorpusCutShortAndDamaged_KeepsEveryPromise) {
    for (const auto& entry : std::filesystem::directory_iterator(Corpus / GetParam().name)) {
        const std::string input = ReadWholeFile(entry.path().string());
        const std::size_t step = std::max<std::size_t>(input.size() / 40, 1);
        for (std::size_t at = 0; at <= input.size(); at += step) {
            EXPECT_NO_THROW(GetParam().run(std::string_view(input).substr(0, at))) << entry.path() << at;
            std::string damaged = input;
            if (at < damaged.size()) damaged[at] = static_cast<char>(damaged[at] ^ 0x80);
            EXPECT_NO_THROW(GetParam().run(damaged)) << entry.path() << " changed at " << at;
        }
    }
}

TEST(Replay, EveryCorpus_HasItsTarget) {
    for (const auto& entry : std::filesystem::directory_iterator(Corpus))
        EXPECT_NE(fuzz::FindFuzzTarget(entry.path().filename().string()), nullptr) << entry.path();
}

}  // namespace
}  // namespace zefta::test
