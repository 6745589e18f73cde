#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

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

TEST(TrialRun, Attempt_RunsBesideThisProcess) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    TrialRun trial(
        [&] {
            char byte = 0;
            if (read(ends[0], &byte, 1) != 1) throw std::runtime_error("nothing to read");
        },
        Patience);
    TrialRun moved = std::move(trial);
    EXPECT_EQ(write(ends[1], "x", 1), 1);
    EXPECT_TRUE(moved.Succeeds());
    EXPECT_TRUE(moved.Succeeds()) << "asked again";
    EXPECT_FALSE(trial.Succeeds()) << "nothing is left of it";
    close(ends[0]);
    close(ends[1]);
}

TEST(TrialRun, NoAttempt_DoesNotSucceed) {
    EXPECT_FALSE(TrialRun().Succeeds());
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
