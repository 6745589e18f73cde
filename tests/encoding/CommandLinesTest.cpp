// The command lines of the outside tools, letter by letter.

#include <algorithm>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "encoding/CommandLines.h"
#include "encoding/ModeCatalogue.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

const EncodeSource Source = {"My Song.WAV", "/music/My Song.WAV", "/music"};

std::string CommandOfMode(std::int32_t code) {
    AppState state;
    for (CustomPreset& preset : state.CustomOGGPreset) preset = {"O", "-q 3 --managed"};
    for (CustomPreset& preset : state.CustomMPCPreset) preset = {"M", "--quality 4"};
    ApplyModeCode(state, code);
    return EncodeCommand(state, Source);
}

struct ModeRow {
    std::int32_t code;
    const char* command;
};

// clang-format off
const ModeRow ModeRows[] = {
    {128, R"(lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {160, R"(lame.exe -m s -h -b 160 --lowpass 18.0 --resample 44.1   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {192, R"(lame.exe -m s -h -b 192 --lowpass 19.0   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {224, R"(lame.exe -m s -h -b 224 --lowpass 19.5   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {256, R"(lame.exe -m s -h -b 256 --lowpass 20.0   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {320, R"(lame.exe -m s -q0 -b 320 --athtype 1 --lowpass 20.0   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {555, R"(lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0   "/music/My Song.WAV" "/music/My Song.MP3")"},
    {1128, R"(lame.exe -m j -h --lowpass 16.5 --resample 44.1 --abr 128  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {1160, R"(lame.exe -m s -h --lowpass 18.0 --resample 44.1 --abr 160  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {1192, R"(lame.exe -m s -h --lowpass 19.0 --abr 192  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {1256, R"(lame.exe -m s -q0 --lowpass 20.0 --abr 256  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {9001, R"(lame.exe -m m -h --abr 64 --resample 16 --lowpass 8.000  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {9002, R"(lame.exe -m s -q0 -b 320 --lowpass 20.0  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {9003, R"(lame.exe -m j -v -V 0 -h --lowpass 18.0 --resample 44  "/music/My Song.WAV" "/music/My Song.MP3")"},
    {2001, R"(oggenc.exe -b112kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2002, R"(oggenc.exe -b128kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2003, R"(oggenc.exe -b160kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2004, R"(oggenc.exe -b192kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2005, R"(oggenc.exe -b256kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2006, R"(oggenc.exe -b350kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2007, R"(oggenc.exe -b0kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2009, R"(oggenc.exe -b0kbps -n"My Song.ogg" "/music/My Song.WAV")"},
    {2010, R"(oggenc.exe -q0 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2011, R"(oggenc.exe -q1 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2012, R"(oggenc.exe -q2 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2013, R"(oggenc.exe -q3 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2014, R"(oggenc.exe -q4 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2015, R"(oggenc.exe -q5 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2016, R"(oggenc.exe -q6 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2017, R"(oggenc.exe -q7 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2018, R"(oggenc.exe -q8 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2019, R"(oggenc.exe -q9 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2020, R"(oggenc.exe -q10 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2021, R"(oggenc.exe -q8 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2034, R"(oggenc.exe -q8 -n"My Song.ogg" "/music/My Song.WAV")"},
    {2031, R"(oggenc.exe -q 3 --managed -n"My Song.ogg" "/music/My Song.WAV")"},
    {2032, R"(oggenc.exe -q 3 --managed -n"My Song.ogg" "/music/My Song.WAV")"},
    {2033, R"(oggenc.exe -q 3 --managed -n"My Song.ogg" "/music/My Song.WAV")"},
    {3001, R"(mppenc.exe  -v --overwrite --thumb -bw 16000 -ms 1  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3002, R"(mppenc.exe  -v --overwrite --radio -bw 18000 -ms 1  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3003, R"(mppenc.exe  -v --overwrite --standard -bw 20000 -ms 2  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3004, R"(mppenc.exe  -v --overwrite --xtreme -bw 20000 -ms 0  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3005, R"(mppenc.exe  -v --overwrite --insane -ltq fil -ms 0  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3006, R"(mppenc.exe  -v --overwrite --braindead -ltq fil -ms 0  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3007, R"(mppenc.exe  -v --overwrite --standard -bw 20000 -ms 2  "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3011, R"(mppenc.exe mppenc.exe --quality 4 "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3012, R"(mppenc.exe mppenc.exe --quality 4 "/music/My Song.WAV" "/music/My Song.mpc")"},
    {3013, R"(mppenc.exe mppenc.exe --quality 4 "/music/My Song.WAV" "/music/My Song.mpc")"},
    {1000, ""}, {4500, ""}, {127, ""}, {100, ""}, {9004, ""}, {0, ""},
};
// clang-format on

TEST(CommandLines, EveryModeCode_HasItsCommand) {
    for (const ModeRow& row : ModeRows) EXPECT_EQ(CommandOfMode(row.code), row.command) << row.code;
}

TEST(CommandLines, EveryCatalogueMode_StandsInTheTableAbove) {
    for (const EncodingMode& mode : ModeCatalogue()) {
        EXPECT_TRUE(std::any_of(std::begin(ModeRows), std::end(ModeRows), [&](const ModeRow& row) {
            return row.code == mode.code;
        })) << mode.code;
    }
}

TEST(CommandLines, AbrRates_ChooseTheirFragment) {
    const std::string paths = R"(  "/music/My Song.WAV" "/music/My Song.MP3")";
    const std::pair<int, std::string> rows[] = {
        {110, "lame.exe -m j -h --lowpass 16.5 --resample 44.1 --abr 110"},
        {139, "lame.exe -m j -h --lowpass 16.5 --resample 44.1 --abr 139"},
        {140, "lame.exe -m s -h --lowpass 18.0 --resample 44.1 --abr 140"},
        {174, "lame.exe -m s -h --lowpass 18.0 --resample 44.1 --abr 174"},
        {175, "lame.exe -m s -h --lowpass 19.0 --abr 175"},
        {209, "lame.exe -m s -h --lowpass 19.0 --abr 209"},
        {210, "lame.exe -m s -q0 --lowpass 20.0 --abr 210"},
        {310, "lame.exe -m s -q0 --lowpass 20.0 --abr 310"},
        {109, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 "},
        {311, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 "},
        {100, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 "},
        {320, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 "},
        {9001, "lame.exe -m s -h -v -V 0 -b 112 -B 320 --lowpass 20.0 "}};
    for (const auto& [rate, options] : rows) {
        AppState state;
        state.UseVBR = true;
        state.Bitrate = static_cast<std::int16_t>(rate);
        EXPECT_EQ(EncodeCommand(state, Source), options + paths) << rate;
    }
}

TEST(CommandLines, EveryModeWord_LeadsToItsCommand) {
    TestApp app;
    const std::pair<const char*, const char*> rows[] = {{"128", "lame.exe -m j -h -b 128 "},
                                                        {"224", "lame.exe -m s -h -b 224 "},
                                                        {"s1", "lame.exe -m m -h --abr 64 "},
                                                        {"112", "oggenc.exe -b112kbps "},
                                                        {"350", "oggenc.exe -b350kbps "},
                                                        {"ob3", "oggenc.exe -b160kbps "},
                                                        {"oq0", "oggenc.exe -q0 "},
                                                        {"oq10", "oggenc.exe -q10 "},
                                                        {"os1", "oggenc.exe -q8 "},
                                                        {"thumb", "mppenc.exe  -v --overwrite --thumb "},
                                                        {"m6", "mppenc.exe  -v --overwrite --braindead "},
                                                        {"ms1", "mppenc.exe  -v --overwrite --standard "},
                                                        {"abr", "lame.exe -m s -q0 -b 320 "}};
    for (const auto& [word, start] : rows) {
        app.state = AppState();
        ParseCommandLine(app, CommandLine({"/e", word}));
        EXPECT_TRUE(EncodeCommand(app.state, Source).starts_with(start)) << EncodeCommand(app.state, Source);
    }
}

TEST(CommandLines, ReduceLevel_IsAnOptionOfLameAndMppencOnly) {
    AppState state;
    state.ReduceLevel = true;
    state.Bitrate = 192;
    EXPECT_EQ(
        EncodeCommand(state, Source),
        R"(lame.exe -m s -h -b 192 --lowpass 19.0   --scale 0.95  "/music/My Song.WAV" "/music/My Song.MP3")");
    state.UseMPEGplus = true;
    EXPECT_EQ(
        EncodeCommand(state, Source),
        R"(mppenc.exe  -v --overwrite --standard -bw 20000 -ms 2   -scale 0.95 "/music/My Song.WAV" "/music/My Song.mpc")");
    state.UseOggVorbis = true;
    EXPECT_EQ(EncodeCommand(state, Source), R"(oggenc.exe -b256kbps -n"My Song.ogg" "/music/My Song.WAV")");
}

TEST(CommandLines, Names_AreReplacedAndQuoted) {
    AppState state;
    EXPECT_TRUE(
        EncodeCommand(state, {"a.wav.wav", "/a.wav.wav", ""}).ends_with(R"("/a.wav.wav" "a.MP3.MP3")"));
    EXPECT_TRUE(EncodeCommand(state, {"q\"x.wav", "/q\"x.wav", "/"}).ends_with(R"("/q\"x.wav" "/q\"x.MP3")"));
    EXPECT_TRUE(EncodeCommand(state, {"-x.wav", "/m/-x.wav", "/m/"}).ends_with(R"("/m/-x.wav" "/m/-x.MP3")"));
    state.UseOggVorbis = true;
    EXPECT_TRUE(
        EncodeCommand(state, {"100% a.WAV", "/100% a.WAV", ""}).ends_with(R"(-n"100% a.ogg" "/100% a.WAV")"));
}

TEST(CommandLines, TrimChild_NameWithADot_IsKept) {
    const AppState state;
    for (const char* path : {"/o/zefta-2.0", "/o/zefta-2.0.exe"})
        EXPECT_TRUE(
            TrimChildCommand(state, path, "/a.wav", false).starts_with("\"/o/zefta-2.0.exe\" /wavetrim "));
}

TEST(CommandLines, TrimChild_EverySwitch) {
    AppState state;
    EXPECT_EQ(TrimChildCommand(state, "/opt/z/zefta", "/m/a b.wav", false),
              R"("/opt/z/zefta.exe" /wavetrim "/m/a b.wav" /f0 /nb /zx /before 1 /after 1 /showexec)");
    state.ShowExecuteWindows = false;
    EXPECT_EQ(
        TrimChildCommand(state, "/opt/z/zefta", "/m/a.wav", true),
        R"("/opt/z/zefta.exe" /wavetrim "/m/a.wav" /f0 /nb /zx /before 1 /after 1 /norm /dontshowexec)");
}

}  // namespace
}  // namespace zefta::test
