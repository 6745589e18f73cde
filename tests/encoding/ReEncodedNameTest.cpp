#include <gtest/gtest.h>

#include "encoding/ModeCatalogue.h"
#include "encoding/ReEncodedName.h"

namespace zefta::test {
namespace {

std::string LameMode(std::int16_t bitrate, bool variable) {
    AppState state;
    state.Bitrate = bitrate;
    state.UseVBR = variable;
    return ModeInName(state, TargetKind::MP3);
}

TEST(ReEncodedName, LameModes_AreTheseWords) {
    EXPECT_EQ(LameMode(128, false), "");
    EXPECT_EQ(LameMode(320, false), "");
    EXPECT_EQ(LameMode(9000, false), "");
    EXPECT_EQ(LameMode(9001, false), "preset1");
    EXPECT_EQ(LameMode(9002, false), "preset2");
    EXPECT_EQ(LameMode(9003, false), "preset3");
    EXPECT_EQ(LameMode(9004, false), "");
    EXPECT_EQ(LameMode(192, true), "192 abr");
    EXPECT_EQ(LameMode(320, true), "vbr");
    EXPECT_EQ(LameMode(0, true), "0 abr");
}

TEST(ReEncodedName, OtherModes_AreNumberAndName) {
    AppState state;
    state.OggVorbisMode = 18;
    EXPECT_EQ(ModeInName(state, TargetKind::OggVorbis), "mode 18");
    state.MPEGplusMode = 6;
    EXPECT_EQ(ModeInName(state, TargetKind::MPEGplus), "braindead");
    state.CustomMPCPreset[1].Name = "a/b: c";
    state.MPEGplusMode = 12;
    EXPECT_EQ(ModeInName(state, TargetKind::MPEGplus), "a_b_ c");
    state.MPEGplusMode = 7;
    EXPECT_EQ(ModeInName(state, TargetKind::MPEGplus), "");
}

TEST(ReEncodedName, Names_LieInTheFolderOfTheSource) {
    AppState state;
    state.Bitrate = 128;
    const ReEncodeNames names = NamesForReEncoding(state, "/m.x/a.b.ogg", TargetKind::MP3);
    EXPECT_EQ(names.folder, "/m.x");
    EXPECT_EQ(names.decoded, "/m.x/a.b.ogg.wav");
    EXPECT_EQ(names.temporaryWave, "/m.x/temp.wav");
    EXPECT_EQ(names.temporaryOutput, "/m.x/temp.mp3");
    EXPECT_EQ(names.final, "/m.x/a.b ().mp3");
    EXPECT_EQ(NamesForReEncoding(state, "/a.mp3", TargetKind::OggVorbis).temporaryOutput, "/temp.ogg");
    EXPECT_EQ(NamesForReEncoding(state, "/a.mp3", TargetKind::MPEGplus).temporaryOutput, "/temp.mpc");
    EXPECT_EQ(NamesForReEncoding(state, "/m/xmp3", TargetKind::MP3).final, "/m/xmp3 ().mp3");
    EXPECT_EQ(NamesForReEncoding(state, "/m/.mp3", TargetKind::MP3).final, "/m/ ().mp3");
}

TEST(ReEncodedName, Target_IsOggBeforeMPEGplusBeforeMP3) {
    EXPECT_EQ(KindOfTarget(true, true), TargetKind::OggVorbis);
    EXPECT_EQ(KindOfTarget(false, true), TargetKind::MPEGplus);
    EXPECT_EQ(KindOfTarget(false, false), TargetKind::MP3);
}

}  // namespace
}  // namespace zefta::test
