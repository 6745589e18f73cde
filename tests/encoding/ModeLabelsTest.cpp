#include <gtest/gtest.h>

#include "encoding/ModeCatalogue.h"

namespace zefta::test {
namespace {

struct LabelRow {
    std::int32_t code;
    const char* label;
};

/// The whole list in its order, with every preset filled as NamedPresets fills it.
const LabelRow LabelRows[] = {
    {128, "LAME 128 kbps"},          {160, "LAME 160 kbps"},          {192, "LAME 192 kbps"},
    {256, "LAME 256 kbps"},          {320, "LAME 320 kbps"},          {555, "LAME VBR (max)"},
    {1128, "LAME ABR 128 kbps"},     {1160, "LAME ABR 160 kbps"},     {1192, "LAME ABR 192 kbps"},
    {1256, "LAME ABR 256 kbps"},     {9001, "LAME #1 lame one"},      {9002, "LAME #2 lame two"},
    {9003, "LAME #3 lame three"},    {2001, "Ogg Vorbis 112 kbps"},   {2002, "Ogg Vorbis 128 kbps"},
    {2003, "Ogg Vorbis 160 kbps"},   {2004, "Ogg Vorbis 192 kbps"},   {2005, "Ogg Vorbis 256 kbps"},
    {2006, "Ogg Vorbis 350 kbps"},   {2010, "Ogg Vorbis Q=0"},        {2011, "Ogg Vorbis Q=1"},
    {2012, "Ogg Vorbis Q=2"},        {2013, "Ogg Vorbis Q=3"},        {2014, "Ogg Vorbis Q=4"},
    {2015, "Ogg Vorbis Q=5"},        {2016, "Ogg Vorbis Q=6"},        {2017, "Ogg Vorbis Q=7"},
    {2018, "Ogg Vorbis Q=8"},        {2019, "Ogg Vorbis Q=9"},        {2020, "Ogg Vorbis Q=10"},
    {2031, "Ogg Vorbis #1 ogg one"}, {2032, "Ogg Vorbis #2 ogg two"}, {2033, "Ogg Vorbis #3 ogg three"},
    {3001, "MPEGplus Thumb"},        {3002, "MPEGplus Radio"},        {3003, "MPEGplus Standard"},
    {3004, "MPEGplus Xtreme"},       {3005, "MPEGplus Insane"},       {3006, "MPEGplus BrainDead"},
    {3011, "MPEGplus #1 mpc one"},   {3012, "MPEGplus #2 mpc two"},   {3013, "MPEGplus #3 mpc three"},
};

AppState NamedPresets() {
    AppState state;
    state.CustomLAMEPreset = {{{"lame one", "x"}, {"lame two", "x"}, {"lame three", "x"}}};
    state.CustomOGGPreset = {{{"ogg one", "x"}, {"ogg two", "x"}, {"ogg three", "x"}}};
    state.CustomMPCPreset = {{{"mpc one", "x"}, {"mpc two", "x"}, {"mpc three", "x"}}};
    return state;
}

TEST(ModeLabels, EveryMode_HasItsLabelInTheOrderOfTheList) {
    const ModeList list = FillEncodingModes(NamedPresets());
    ASSERT_EQ(list.items.size(), std::size(LabelRows));
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        EXPECT_EQ(list.items[i].code, LabelRows[i].code) << i;
        EXPECT_EQ(list.items[i].label, LabelRows[i].label) << i;
    }
}

TEST(ModeLabels, PresetWithoutAName_HasTheFixedTextAlone) {
    AppState state = NamedPresets();
    state.CustomLAMEPreset[0].Name.clear();
    EXPECT_EQ(FillEncodingModes(state).items[10].label, "LAME #1 ");
}

}  // namespace
}  // namespace zefta::test
