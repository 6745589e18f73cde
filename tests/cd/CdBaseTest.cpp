#include <gtest/gtest.h>

#include "cd/CDSettings.h"
#include "cd/CdBase.h"
#include "support/FakeDisc.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class CdBaseTest : public ::testing::Test {
  protected:
    CdBaseTest() {
        disc.AddTrack(true, 75 * 90);
        disc.AddTrack(true, 75 * 45 + 74);
        disc.AddTrack(false, 75 * 100);
        database.matches = {{"rock", "11111111", "Band", "Debut"}};
        database.albums["11111111"] = {"Band", "Debut", {"One", "Two / Live", "Video"}};
        database.albums["22222222"] = {"Other", "Second", {"Uno"}};
    }

    DiscEnd Read() { return cd.ReadDisc(watch); }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const CDTrack& track : cd.Tracks()) names.push_back(track.Name);
        return names;
    }

    TestApp app;
    FakeDisc disc;
    FakeDatabase database;
    CdBase cd{app, disc, database};
    DiscWatch watch;
};

TEST_F(CdBaseTest, Disc_GivesItsTracksAndTheDatabaseTheirNames) {
    cd.Source = "/dev/sr1";
    EXPECT_EQ(Read(), DiscEnd::Read);
    EXPECT_EQ(cd.Word(), DatabaseWord::Found);
    EXPECT_EQ(cd.Artist(), "Band");
    EXPECT_EQ(cd.Title(), "Debut");
    EXPECT_EQ(Names(), (std::vector<std::string>{"One", "Two / Live", "Video"}));
    EXPECT_EQ(cd.Length(), 135);
    EXPECT_EQ(cd.Tracks()[1].Seconds, 45);
    EXPECT_EQ(disc.sources, std::vector<std::string>{"/dev/sr1"});
}

TEST_F(CdBaseTest, Length_CountsTheSectorsBehindTheWholeSecondsOfTracks) {
    disc.contents = {};
    for (int i = 0; i < 4; ++i) disc.AddTrack(true, 75 * 10 + 60);
    Read();
    EXPECT_EQ(cd.Tracks()[0].Seconds, 10);
    EXPECT_EQ(cd.Length(), 43);
}

TEST_F(CdBaseTest, TrackOfData_IsThereAndNotSelected) {
    Read();
    EXPECT_TRUE(cd.Tracks()[0].Selected);
    EXPECT_FALSE(cd.Tracks()[2].Selected);
}

TEST_F(CdBaseTest, FirstNumberThatIsHigher_KeepsTheNumbersOfTheDisc) {
    disc.contents.FirstNumber = 3;
    Read();
    ASSERT_EQ(cd.Tracks().size(), 5U);
    EXPECT_FALSE(cd.Tracks()[1].Selected);
    EXPECT_EQ(cd.Tracks()[2].Name, "One");
}

TEST_F(CdBaseTest, NoDisc_LeavesWhatWasHeld) {
    Read();
    disc.isThere = false;
    EXPECT_EQ(Read(), DiscEnd::NoDisc);
    EXPECT_EQ(cd.Tracks().size(), 3U);
    EXPECT_EQ(database.asked.size(), 1U);
}

TEST_F(CdBaseTest, DiscOfDataAlone_IsNoAudioDisc) {
    disc.contents = {};
    disc.AddTrack(false, 1000);
    EXPECT_EQ(Read(), DiscEnd::NoDisc);
    EXPECT_TRUE(database.asked.empty());
}

TEST_F(CdBaseTest, UnknownDisc_HasEmptyNames) {
    database.matches.clear();
    EXPECT_EQ(Read(), DiscEnd::Read);
    EXPECT_EQ(cd.Word(), DatabaseWord::Unknown);
    EXPECT_EQ(Names(), (std::vector<std::string>{"", "", ""}));
    EXPECT_EQ(cd.Artist(), "");
}

TEST_F(CdBaseTest, DatabaseThatFails_SaysWhyAndTheTracksAreThere) {
    database.failure = "connection\nrefused";
    EXPECT_EQ(Read(), DiscEnd::Read);
    EXPECT_EQ(cd.Word(), DatabaseWord::Failed);
    EXPECT_EQ(cd.Reason(), "connection refused");
    EXPECT_EQ(cd.Tracks().size(), 3U);
}

TEST_F(CdBaseTest, EntryThatCannotBeRead_IsAFailureOfTheDatabase) {
    database.albums.clear();
    EXPECT_EQ(Read(), DiscEnd::Read);
    EXPECT_EQ(cd.Word(), DatabaseWord::Failed);
    EXPECT_EQ(cd.Reason(), "no such entry");
}

TEST_F(CdBaseTest, SeveralEntries_AreChosenFrom) {
    database.matches.push_back({"jazz", "22222222", "Other", "Second"});
    std::vector<DatabaseMatch> shown;
    watch.Choose = [&](const std::vector<DatabaseMatch>& matches) {
        shown = matches;
        return std::optional<std::size_t>(1);
    };
    Read();
    EXPECT_EQ(shown, database.matches);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Uno", "", ""}));
    watch.Choose = [](const std::vector<DatabaseMatch>&) { return std::optional<std::size_t>(); };
    Read();
    EXPECT_EQ(cd.Word(), DatabaseWord::Unknown);
    EXPECT_EQ(cd.Artist(), "");
    watch.Choose = {};
    Read();
    EXPECT_EQ(cd.Artist(), "Band");
}

TEST_F(CdBaseTest, OneEntry_IsNotAskedAbout) {
    watch.Choose = [](const std::vector<DatabaseMatch>&) -> std::optional<std::size_t> {
        ADD_FAILURE() << "asked";
        return std::nullopt;
    };
    Read();
    EXPECT_EQ(cd.Artist(), "Band");
}

TEST_F(CdBaseTest, Texts_AreUtf8OrOfTheCodePage) {
    database.albums["11111111"] = {"Bj\xF6rk",
                                   "D\xC3\xA9"
                                   "but",
                                   {"Caf\xE9\tOne"}};
    Read();
    EXPECT_EQ(cd.Artist(), "Björk");
    EXPECT_EQ(cd.Title(), "Début");
    EXPECT_EQ(cd.Tracks()[0].Name, "Café One");
}

TEST_F(CdBaseTest, Cancelled_AtTheDiscOrTheDatabaseChangesNothing) {
    watch.Wait = [] { return false; };
    EXPECT_EQ(Read(), DiscEnd::Cancelled);
    EXPECT_TRUE(database.asked.empty());
    bool goesOn = true;
    watch.Wait = [&] { return goesOn; };
    database.whileAsked = [&] { goesOn = false; };
    EXPECT_EQ(Read(), DiscEnd::Cancelled);
    EXPECT_TRUE(cd.Tracks().empty());
}

TEST_F(CdBaseTest, Tracks_CanBeAddedAndNamed) {
    cd.AddTrack("One", 60);
    cd.SetName(0, "Uno");
    cd.SetLength(60);
    EXPECT_EQ(cd.Tracks()[0].Name, "Uno");
    EXPECT_EQ(cd.Tracks()[0].Seconds, 60);
    EXPECT_TRUE(cd.Tracks()[0].Selected);
    EXPECT_EQ(cd.Length(), 60);
}

TEST_F(CdBaseTest, ClientVersion_HasNoBlanks) {
    EXPECT_EQ(cd.ClientVersion(), "2.0.1");
}

TEST(CDSettings, Database_IsTheUsualOneUnlessTheSettingsNameAnother) {
    TestApp app;
    const DatabaseAccess usual = DatabaseOfCD(app);
    EXPECT_EQ(usual.Server, "gnudb.gnudb.org");
    EXPECT_EQ(usual.Port, 8880);
    EXPECT_EQ(usual.ClientName, "EasyCD");
    EXPECT_NE(usual.UserAddress.find('@'), std::string::npos);
    EXPECT_EQ(usual.Seconds, 20);
    app.userSettings.values[{"Settings", "CompressCD_Server"}] = " 127.0.0.1 ";
    app.userSettings.values[{"Settings", "CompressCD_Port"}] = "1234";
    app.userSettings.values[{"Settings", "CompressCD_UserAddress"}] = "me@home";
    app.userSettings.values[{"Settings", "CompressCD_Timeout"}] = "3";
    const DatabaseAccess own = DatabaseOfCD(app);
    EXPECT_EQ(own.Server, "127.0.0.1");
    EXPECT_EQ(own.Port, 1234);
    EXPECT_EQ(own.UserAddress, "me@home");
    EXPECT_EQ(own.Seconds, 3);
}

TEST(CDSettings, NumbersThatCannotBeMeant_GiveTheUsualOnes) {
    TestApp app;
    for (const char* port : {"0", "-1", "65536", "x", "99999999999"}) {
        app.userSettings.values[{"Settings", "CompressCD_Port"}] = port;
        EXPECT_EQ(DatabaseOfCD(app).Port, 8880) << port;
    }
}

TEST(CDSettings, Device_IsKept) {
    TestApp app;
    EXPECT_EQ(DeviceOfCD(app), "");
    SaveDeviceOfCD(app, "/music/a.cue");
    EXPECT_EQ(DeviceOfCD(app), "/music/a.cue");
}

}  // namespace
}  // namespace zefta::test
