#include <gtest/gtest.h>

#include "core/Settings.h"
#include "encoding/ModeCatalogue.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

struct EnableRow {
    const char* key;
    std::int32_t code;
};

const EnableRow EnableRows[] = {
    {"EnableLAME128", 128},     {"EnableLAME160", 160},     {"EnableLAME192", 192},
    {"EnableLAME256", 256},     {"EnableLAME320", 320},     {"EnableLAMEVBR", 555},
    {"EnableLAME128ABR", 1128}, {"EnableLAME160ABR", 1160}, {"EnableLAME192ABR", 1192},
    {"EnableLAME256ABR", 1256}, {"EnableOGGb1", 2001},      {"EnableOGGb2", 2002},
    {"EnableOGGb3", 2003},      {"EnableOGGb4", 2004},      {"EnableOGGb5", 2005},
    {"EnableOGGb6", 2006},      {"EnableOGGq0", 2010},      {"EnableOGGq1", 2011},
    {"EnableOGGq2", 2012},      {"EnableOGGq3", 2013},      {"EnableOGGq4", 2014},
    {"EnableOGGq5", 2015},      {"EnableOGGq6", 2016},      {"EnableOGGq7", 2017},
    {"EnableOGGq8", 2018},      {"EnableOGGq9", 2019},      {"EnableOGGq10", 2020},
    {"EnableMPCm1", 3001},      {"EnableMPCm2", 3002},      {"EnableMPCm3", 3003},
    {"EnableMPCm4", 3004},      {"EnableMPCm5", 3005},      {"EnableMPCm6", 3006},
};

const EnableRow PresetRows[] = {
    {"CustomLAMEPreset1_Code", 9001}, {"CustomLAMEPreset2_Code", 9002}, {"CustomLAMEPreset3_Code", 9003},
    {"CustomOGGPreset1_Code", 2031},  {"CustomOGGPreset2_Code", 2032},  {"CustomOGGPreset3_Code", 2033},
    {"CustomMPCPreset1_Code", 3011},  {"CustomMPCPreset2_Code", 3012},  {"CustomMPCPreset3_Code", 3013},
};

/// A store in which every mode is switched off.
class StoredEnableKeysTest : public ::testing::Test {
  protected:
    StoredEnableKeysTest() {
        for (const EnableRow& row : EnableRows) Store(row.key, "False");
        for (const EnableRow& row : PresetRows) Store(row.key, "");
    }

    void Store(const char* key, const std::string& text) {
        app.userSettings.values[{"Settings", key}] = text;
    }

    std::vector<std::int32_t> ListedCodes() {
        LoadSettings(app);
        std::vector<std::int32_t> codes;
        for (const ModeList::Item& item : FillEncodingModes(app.state).items) codes.push_back(item.code);
        return codes;
    }

    TestApp app;
};

TEST_F(StoredEnableKeysTest, AllOff_TheListIsEmptyAndNothingIsSelected) {
    EXPECT_TRUE(ListedCodes().empty());
    EXPECT_FALSE(FillEncodingModes(app.state).selected);
}

TEST_F(StoredEnableKeysTest, EveryKey_LetsItsOwnModeIntoTheListAndNoOther) {
    for (const EnableRow& row : EnableRows) {
        Store(row.key, "True");
        EXPECT_EQ(ListedCodes(), std::vector<std::int32_t>{row.code}) << row.key;
        Store(row.key, "False");
    }
}

TEST_F(StoredEnableKeysTest, EveryPreset_IsListedWhenItsCodeIsNotEmpty) {
    for (const EnableRow& row : PresetRows) {
        Store(row.key, "-x");
        EXPECT_EQ(ListedCodes(), std::vector<std::int32_t>{row.code}) << row.key;
        Store(row.key, "");
    }
}

TEST_F(StoredEnableKeysTest, KeyThatIsAbsent_LetsItsModeIn) {
    for (const EnableRow& row : EnableRows) {
        app.userSettings.values.erase({"Settings", row.key});
        EXPECT_EQ(ListedCodes(), std::vector<std::int32_t>{row.code}) << row.key;
        Store(row.key, "False");
    }
}

}  // namespace
}  // namespace zefta::test
