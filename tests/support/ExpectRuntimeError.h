#pragma once

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace zefta::test {

/// The number of the run-time failure that the step ends in; 0 when it ends well.
template <typename Step>
int RuntimeErrorOf(Step step) {
    try {
        step();
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

}  // namespace zefta::test
