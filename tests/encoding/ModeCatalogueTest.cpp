#include <set>

#include <gtest/gtest.h>

#include "encoding/ModeCatalogue.h"

namespace zefta::test {
namespace {

AppState AllOff() {
    AppState state;
    static_cast<EnabledModes&>(state) = {false, false, false, false, false, false, false,
                                         false, false, false, {},    {},    {}};
    for (CustomPreset& preset : state.CustomLAMEPreset) preset.Code.clear();
    return state;
}

TEST(ModeCatalogue, Codes_AreUniqueAndFindable) {
    std::set<std::int32_t> codes;
    for (const EncodingMode& mode : ModeCatalogue()) {
        EXPECT_TRUE(codes.insert(mode.code).second) << mode.code;
        EXPECT_EQ(FindMode(mode.code), &mode);
    }
    EXPECT_EQ(codes.size(), 13U + 20U + 9U);
    EXPECT_EQ(FindMode(224), nullptr);
}

TEST(FillEncodingModes, FreshSettings_GiveAllFixedModesAndTheLamePresetsInOrder) {
    const ModeList list = FillEncodingModes(AppState());
    std::vector<std::int32_t> codes;
    for (const ModeList::Item& item : list.items) codes.push_back(item.code);
    EXPECT_EQ(codes, (std::vector<std::int32_t>{128,  160,  192,  256,  320,  555,  1128, 1160, 1192,
                                                1256, 9001, 9002, 9003, 2001, 2002, 2003, 2004, 2005,
                                                2006, 2010, 2011, 2012, 2013, 2014, 2015, 2016, 2017,
                                                2018, 2019, 2020, 3001, 3002, 3003, 3004, 3005, 3006}));
    EXPECT_EQ(list.items[11].label, "LAME #2 LAME 320 kbps with lowpass at 20kHz");
    EXPECT_EQ(list.items[5].label, "LAME VBR (max)");
    EXPECT_EQ(list.items[29].label, "Ogg Vorbis Q=10");
    EXPECT_EQ(list.selected, 4U);
}

TEST(FillEncodingModes, EveryEnableKey_LetsItsOwnModeIn) {
    std::size_t enabled = 0;
    for (const EncodingMode& mode : ModeCatalogue()) {
        AppState state = AllOff();
        EXPECT_FALSE(mode.enabled(state)) << mode.code;
        enabled += mode.enabled(AppState()) ? std::size_t{1} : std::size_t{0};
    }
    EXPECT_EQ(enabled, 36U);
    AppState state = AllOff();
    state.EnableOGGq[10] = true;
    state.EnableMPCm[5] = true;
    state.EnableLAME192ABR = true;
    const ModeList list = FillEncodingModes(state);
    ASSERT_EQ(list.items.size(), 3U);
    EXPECT_EQ(list.items[0].code, 1192);
    EXPECT_EQ(list.items[1].code, 2020);
    EXPECT_EQ(list.items[2].code, 3006);
}

TEST(FillEncodingModes, NothingEnabled_IsEmptyWithoutASelection) {
    const ModeList list = FillEncodingModes(AllOff());
    EXPECT_TRUE(list.items.empty());
    EXPECT_FALSE(list.selected);
}

TEST(FillEncodingModes, LastUsedMode_IsSelectedWhenItIsThere) {
    AppState state;
    state.CompressCD_Bitrate = 2012;
    EXPECT_EQ(FillEncodingModes(state).items[*FillEncodingModes(state).selected].code, 2012);
    state.EnableOGGq[2] = false;
    EXPECT_EQ(FillEncodingModes(state).items[*FillEncodingModes(state).selected].code, 320);
    state.EnableLAME320 = false;
    EXPECT_FALSE(FillEncodingModes(state).selected);
}

TEST(FillEncodingModes, PresetWithoutCode_IsNotListedWhateverItsName) {
    AppState state = AllOff();
    state.CustomOGGPreset[1] = {"Named", ""};
    state.CustomMPCPreset[2] = {"", "--x"};
    const ModeList list = FillEncodingModes(state);
    ASSERT_EQ(list.items.size(), 1U);
    EXPECT_EQ(list.items[0].label, "MPEGplus #3 ");
}

struct CodeRow {
    std::int32_t code;
    int bitrate;
    bool vbr, ogg, mpc;
    int oggMode, mpcMode;
};

TEST(ApplyModeCode, EveryRange) {
    for (const CodeRow& row : {CodeRow{555, 0, true, false, false, 5, 3},
                               {128, 128, false, false, false, 5, 3},
                               {999, 999, false, false, false, 5, 3},
                               {1128, 128, true, false, false, 5, 3},
                               {2001, 0, false, true, false, 1, 3},
                               {2033, 0, false, true, false, 33, 3},
                               {3013, 0, false, false, true, 5, 13},
                               {9001, 9001, false, false, false, 5, 3},
                               {0, 0, false, false, false, 5, 3},
                               {-5, 0, false, false, false, 5, 3},
                               {1000, 0, false, false, false, 5, 3},
                               {2000, 0, false, false, false, 5, 3},
                               {3000, 0, false, false, false, 5, 3},
                               {4000, 0, false, false, false, 5, 3},
                               {4500, 0, false, false, false, 5, 3},
                               {9000, 0, false, false, false, 5, 3}}) {
        AppState state;
        ApplyModeCode(state, row.code);
        EXPECT_EQ(state.Bitrate, row.bitrate) << row.code;
        EXPECT_EQ(state.UseVBR, row.vbr) << row.code;
        EXPECT_EQ(state.UseOggVorbis, row.ogg) << row.code;
        EXPECT_EQ(state.UseMPEGplus, row.mpc) << row.code;
        EXPECT_EQ(state.OggVorbisMode, row.oggMode) << row.code;
        EXPECT_EQ(state.MPEGplusMode, row.mpcMode) << row.code;
    }
}

TEST(ApplyModeCode, Flags_AreNeverCleared) {
    AppState state;
    state.UseVBR = state.UseOggVorbis = state.UseMPEGplus = true;
    ApplyModeCode(state, 128);
    EXPECT_TRUE(state.UseVBR && state.UseOggVorbis && state.UseMPEGplus);
}

TEST(GetMPEGplusModeName, EveryMode) {
    AppState state;
    state.CustomMPCPreset[1].Name = "My: preset";
    const char* names[] = {"", "thumb", "radio", "standard", "xtreme", "insane", "braindead", ""};
    for (int mode = 0; mode < 8; ++mode) EXPECT_EQ(GetMPEGplusModeName(state, mode), names[mode]);
    EXPECT_EQ(GetMPEGplusModeName(state, 11), "");
    EXPECT_EQ(GetMPEGplusModeName(state, 12), "My_ preset");
    EXPECT_EQ(GetMPEGplusModeName(state, 14), "");
}

}  // namespace
}  // namespace zefta::test
