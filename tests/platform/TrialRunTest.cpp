#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/TrialRun.h"

namespace zefta::test {
namespace {

constexpr unsigned Patience = 60;

TEST(TrialRun, AttemptThatComesToItsEnd_SucceedsAndChangesNothingHere) {
    int value = 1;
    EXPECT_TRUE(SucceedsInOwnProcess([&] { value = 2; }, Patience));
    EXPECT_EQ(value, 1);
}

TEST(TrialRun, EveryOtherEnd_Fails) {
    EXPECT_FALSE(SucceedsInOwnProcess([] { std::abort(); }, Patience));
    EXPECT_FALSE(SucceedsInOwnProcess([] { std::_Exit(3); }, Patience));
    EXPECT_FALSE(SucceedsInOwnProcess([] { throw std::runtime_error("x"); }, Patience));
}

TEST(TrialRun, AttemptThatHangs_FailsWhenItsTimeIsOver) {
    EXPECT_FALSE(SucceedsInOwnProcess([] { pause(); }, 1));
}

TEST(TrialRun, WhatIsWritten_IsDiscarded) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_FALSE(SucceedsInOwnProcess(
        [] {
            std::cerr << "noise" << std::endl;
            std::cout << "noise" << std::endl;
            std::abort();
        },
        Patience));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
}  // namespace zefta::test
