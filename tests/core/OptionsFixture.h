#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "support/TestApp.h"

namespace zefta::test {

/// Parses command lines, each on a fresh state.
class OptionsTest : public ::testing::Test {
  protected:
    TestApp app;

    AppState& Parse(std::vector<std::string> tokens) {
        app.state = AppState();
        result = ParseCommandLine(app, CommandLine(std::move(tokens)));
        return app.state;
    }

    bool result = false;
};

}  // namespace zefta::test
