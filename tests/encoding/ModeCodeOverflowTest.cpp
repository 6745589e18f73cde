#include <limits>

#include <gtest/gtest.h>

#include "encoding/ModeCatalogue.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

TEST(ModeCodeOverflow, ModeBeyondItsField_Fails6AndSelectsNoEncoder) {
    for (const std::int32_t code : {2256, 2999, 3256, 3999}) {
        AppState state;
        EXPECT_EQ(RuntimeErrorOf([&] { ApplyModeCode(state, code); }), 6) << code;
        EXPECT_EQ(state.Bitrate, 0) << code;
        EXPECT_EQ(state.OggVorbisMode, 5) << code;
        EXPECT_EQ(state.MPEGplusMode, 3) << code;
        EXPECT_FALSE(state.UseVBR || state.UseOggVorbis || state.UseMPEGplus) << code;
    }
}

TEST(ModeCodeOverflow, BitrateBeyondItsField_Fails6) {
    for (const std::int32_t code : {32768, 40000, std::numeric_limits<std::int32_t>::max()}) {
        AppState state;
        EXPECT_EQ(RuntimeErrorOf([&] { ApplyModeCode(state, code); }), 6) << code;
        EXPECT_EQ(state.Bitrate, 0) << code;
    }
}

TEST(ModeCodeOverflow, LargestModesThatFit_AreTaken) {
    AppState state;
    ApplyModeCode(state, 2255);
    EXPECT_EQ(state.OggVorbisMode, 255);
    ApplyModeCode(state, 3255);
    EXPECT_EQ(state.MPEGplusMode, 255);
    ApplyModeCode(state, 32767);
    EXPECT_EQ(state.Bitrate, 32767);
    ApplyModeCode(state, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(state.Bitrate, 0);
}

}  // namespace
}  // namespace zefta::test
