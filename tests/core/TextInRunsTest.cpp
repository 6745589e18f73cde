#include <algorithm>
#include <stdexcept>

#include <gtest/gtest.h>

#include "core/TextInRuns.h"

namespace zefta::test {
namespace {

std::string Numbers(IndexRun run) {
    std::string text;
    for (std::size_t i = run.first; i < run.first + run.count; ++i) text += std::to_string(i) + " ";
    return text;
}

std::string InRuns(std::size_t count) {
    std::string text;
    MakeTextInRuns(count, Numbers, [&](const std::string& piece) { text += piece; });
    return text;
}

TEST(TextInRuns, Text_OfAnyNumberOfThings_IsInOrder) {
    for (const std::size_t count : {0U, 1U, 2U, 63U, 64U, 65U, 4095U, 4096U, 4097U, 8193U, 20000U})
        EXPECT_EQ(InRuns(count), Numbers({0, count})) << count;
}

TEST(TextInRuns, Pieces_AreShort) {
    std::size_t longest = 0;
    MakeTextInRuns(
        100000, [](IndexRun run) { return std::string(run.count, 'x'); },
        [&](const std::string& piece) { longest = std::max(longest, piece.size()); });
    EXPECT_LE(longest, 4096U);
}

TEST(TextInRuns, Failure_InEitherHalf_ReachesTheCaller) {
    for (const std::size_t bad : {0U, 99U}) {
        const auto textOf = [&](IndexRun run) {
            if (run.first <= bad && bad < run.first + run.count) throw std::runtime_error("bad");
            return std::string();
        };
        EXPECT_THROW(MakeTextInRuns(100, textOf, [](const std::string&) {}), std::runtime_error) << bad;
    }
}

}  // namespace
}  // namespace zefta::test
