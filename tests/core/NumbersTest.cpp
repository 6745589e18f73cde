#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST(Numbers, Narrowing_RoundsHalfToEven) {
    EXPECT_EQ(ToI32(0.5), 0);
    EXPECT_EQ(ToI32(1.5), 2);
    EXPECT_EQ(ToI32(2.5), 2);
    EXPECT_EQ(ToI32(-2.5), -2);
    EXPECT_EQ(ToI16(32767.4), 32767);
    EXPECT_EQ(ToByte(254.5), 254);
}

TEST(Numbers, Narrowing_OutOfRange_Fails6) {
    EXPECT_EQ(RuntimeErrorOf([] { ToI32(2147483647.5); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ToI16(32767.5); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ToByte(-0.6); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ToByte(std::int64_t{256}); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ToI32(std::nan("")); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ToI32(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(Numbers, Arithmetic_ThatDoesNotFit_Fails6) {
    constexpr std::int32_t Largest = 2147483647;
    EXPECT_EQ(Add(Largest, -1), Largest - 1);
    EXPECT_EQ(RuntimeErrorOf([] { Add(Largest, 1); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { Subtract(-2, Largest); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { Multiply(65536, 32768); }), 6);
}

TEST(Numbers, LeadingNumber_TakesWhatFits) {
    const std::pair<const char*, double> rows[] = {
        {"12abc", 12}, {"abc", 0}, {"", 0},        {"  7", 7}, {"-3.5x", -3.5}, {"+4", 4}, {".5", 0.5},
        {"5.", 5},     {"-", 0},   {"1.2.3", 1.2}, {"1e5", 1}, {"0x10", 0},     {"- 5", 0}};
    for (const auto& [text, number] : rows) EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(Numbers, LeadingNumber_BeyondAllNumbers_IsNeverTakenForZero) {
    const std::string nines(400, '9');
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(LeadingNumber(nines), Infinity);
    EXPECT_EQ(LeadingNumber("-" + nines + ".5x"), -Infinity);
    EXPECT_EQ(LeadingNumber("0" + nines), Infinity);
    EXPECT_EQ(RuntimeErrorOf([&] { WholeNumber(nines); }), 6);
    EXPECT_EQ(RuntimeErrorOf([&] { ToI32(LeadingNumber("-" + nines)); }), 6);
}

TEST(Numbers, LeadingNumber_TooSmallToTell_IsZero) {
    const std::string zeros(400, '0');
    EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0);
    EXPECT_EQ(LeadingNumber("-." + zeros + "1"), 0);
    EXPECT_EQ(LeadingNumber(zeros + "7"), 7);
    EXPECT_EQ(WholeNumber(zeros + "." + zeros + "1"), 0);
}

TEST(Numbers, WholeNumber_RefusesWhatIsNone) {
    EXPECT_EQ(WholeNumber(" 12 "), 12);
    EXPECT_EQ(WholeNumber("-2.5"), -2);
    for (const char* text : {"", "abc", "12abc", "1 2"})
        EXPECT_EQ(RuntimeErrorOf([&] { WholeNumber(text); }), 13) << text;
    EXPECT_EQ(RuntimeErrorOf([] { WholeNumber("99999999999"); }), 6);
}

TEST(Numbers, NumberText_IsTheShortestDecimalFormAndReadsBack) {
    const std::pair<double, const char*> rows[] = {{7, "7"},
                                                   {7.5, "7.5"},
                                                   {0, "0"},
                                                   {-0.0, "0"},
                                                   {-1.25, "-1.25"},
                                                   {0.0000001, "0.0000001"},
                                                   {1e15, "1000000000000000"}};
    for (const auto& [number, text] : rows) EXPECT_EQ(NumberText(number), text);
    using Limits = std::numeric_limits<double>;
    for (const double extreme : {Limits::lowest(), Limits::max(), Limits::min(), -Limits::denorm_min()})
        EXPECT_EQ(LeadingNumber(NumberText(extreme)), extreme);
}

TEST(ByteCodec, ToLong_ZeroExtendsShortRuns) {
    EXPECT_EQ(ByteCodec::ToLong("\xFF\xFF"), 65535);
    EXPECT_EQ(ByteCodec::ToLong("\x01\x02\x03\x04"), 0x04030201);
    EXPECT_EQ(ByteCodec::ToLong("\xFF\xFF\xFF\xFF"), -1);
    EXPECT_EQ(ByteCodec::ToLong(""), 0);
    EXPECT_EQ(ByteCodec::ToShort("\xFF\xFF"), -1);
    EXPECT_EQ(ByteCodec::ToShort("\x00\x80"s), -32768);
}

TEST(ByteCodec, FromLongAndShort_AreTheReverse) {
    EXPECT_EQ(ByteCodec::FromLong(0x04030201), "\x01\x02\x03\x04");
    EXPECT_EQ(ByteCodec::FromLong(-1), "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(ByteCodec::FromShort(-2), "\xFE\xFF");
}

TEST(ByteCodec, SyncSafe_SevenBitsAByte) {
    EXPECT_EQ(ByteCodec::SyncSafeToLong("\x00\x00\x02\x01"s), 257);
    EXPECT_EQ(ByteCodec::SyncSafeToLong("\x7F\x7F\x7F\x7F"), 268435455);
    EXPECT_EQ(ByteCodec::SyncSafeToLong("\xFF\xFF\xFF\xFF"), 268435455);
    EXPECT_EQ(ByteCodec::SyncSafeToLong("\x01"), 1 << 21);
    EXPECT_EQ(ByteCodec::LongToSyncSafe(257), "\x00\x00\x02\x01"s);
    EXPECT_EQ(RuntimeErrorOf([] { ByteCodec::LongToSyncSafe(268435456); }), 6);
    EXPECT_EQ(RuntimeErrorOf([] { ByteCodec::LongToSyncSafe(-1); }), 6);
}

TEST(ByteCodec, RatioToDb_IsAnAmplitudeRatio) {
    EXPECT_DOUBLE_EQ(ByteCodec::RatioToDb(10), 20);
    EXPECT_NEAR(ByteCodec::RatioToDb(0.5), -6.0206, 0.0001);
}

}  // namespace
}  // namespace zefta::test
