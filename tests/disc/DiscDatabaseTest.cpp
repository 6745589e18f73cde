// Questions to a database of discs on the loopback, through the helper.

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "disc/CddbServer.h"
#include "platform/DiscDatabase.h"
#include "support/FakeDisc.h"

namespace zefta::test {
namespace {

using Texts = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

class DiscDatabaseTest : public ::testing::Test {
  protected:
    DiscDatabaseTest() {
        disc.Tracks = {{true, 150, 13500}, {true, 13650, 9000}};
        disc.LeadOut = 22650;
        access = {"127.0.0.1", server.Port(), "EasyCD", "2.0.1", "me@home", 5};
        server.answers["cddb query"] = {"200 rock 02012c02 Band / Debut"};
        server.answers["cddb read"] = Entry({"DTITLE=Band / Debut", "TTITLE0=One", "TTITLE1=Two"});
    }

    static Texts Entry(const Texts& lines) {
        Texts whole = {"210 rock 02012c02 CD database entry follows (until terminating `.')",
                       "# xmcd",
                       "#",
                       "# Track frame offsets:",
                       "#\t150",
                       "#\t13650",
                       "#",
                       "# Disc length: 302 seconds",
                       "#",
                       "# Revision: 3",
                       "# Submitted via: xmcd 2.0",
                       "#",
                       "DISCID=02012c02"};
        whole.insert(whole.end(), lines.begin(), lines.end());
        for (const char* line : {"EXTD=", "EXTT0=", "EXTT1=", "PLAYORDER=", "."}) whole.push_back(line);
        return whole;
    }

    auto Query() { return database->Query(access, disc, GoesOn); }
    auto Read() { return database->Read(access, {"rock", "02012c02", {}, {}}, GoesOn); }

    CddbServer server;
    DiscContents disc;
    DatabaseAccess access;
    std::unique_ptr<DiscDatabase> database = MakeDiscDatabase(ZEFTA_PROGRAM);
};

TEST_F(DiscDatabaseTest, Query_TellsWhoAsksAndTheDisc) {
    EXPECT_EQ(Query().End, DatabaseEnd::Answered);
    const Texts commands = server.Commands();
    ASSERT_GE(commands.size(), 2U);
    EXPECT_EQ(commands.front(), "cddb hello me home EasyCD 2.0.1");
    const auto query = std::find_if(commands.begin(), commands.end(), [](const std::string& command) {
        return command.starts_with("cddb query");
    });
    ASSERT_NE(query, commands.end());
    // Sum of the digits of 2 and 182 seconds, 300 seconds of music, 2 tracks.
    EXPECT_EQ(*query, "cddb query 0d012c02 2 150 13650  302");
}

TEST_F(DiscDatabaseTest, OneEntry) {
    const auto reply = Query();
    EXPECT_EQ(reply.End, DatabaseEnd::Answered);
    EXPECT_EQ(reply.Value, (std::vector<DatabaseMatch>{{"rock", "02012c02", "Band", "Debut"}}));
}

TEST_F(DiscDatabaseTest, SeveralEntries) {
    server.answers["cddb query"] = {"210 Found exact matches, list follows (until terminating `.')",
                                    "rock 02012c02 Band / Debut", "jazz 02012c03 Other / Second", "."};
    EXPECT_EQ(Query().Value, (std::vector<DatabaseMatch>{{"rock", "02012c02", "Band", "Debut"},
                                                         {"jazz", "02012c03", "Other", "Second"}}));
    server.answers["cddb query"][0] = "211 Found inexact matches, list follows (until terminating `.')";
    EXPECT_EQ(Query().Value.size(), 2U);
}

TEST_F(DiscDatabaseTest, NoEntry) {
    server.answers["cddb query"] = {"202 No match found."};
    const auto reply = Query();
    EXPECT_EQ(reply.End, DatabaseEnd::Answered);
    EXPECT_TRUE(reply.Value.empty());
}

TEST_F(DiscDatabaseTest, Album_WithItsNames) {
    const auto reply = Read();
    EXPECT_EQ(reply.End, DatabaseEnd::Answered);
    EXPECT_EQ(reply.Value, (DatabaseAlbum{"Band", "Debut", {"One", "Two"}}));
    EXPECT_EQ(server.Commands().at(0), "cddb hello me home EasyCD 2.0.1");
}

TEST_F(DiscDatabaseTest, Names_KeepTheirSlashes) {
    server.answers["cddb read"] =
        Entry({"DTITLE=Various / Mixed", "TTITLE0=Ann / Song", "TTITLE1=Various / Own name"});
    EXPECT_EQ(Read().Value.Names, (Texts{"Ann / Song", "Various / Own name"}));
    server.answers["cddb read"] =
        Entry({"DTITLE=Various / Mixed", "TTITLE0=Ann / Song / Live", "TTITLE1=x/y"});
    EXPECT_EQ(Read().Value.Names, (Texts{"Ann / Song / Live", "x/y"}));
}

TEST_F(DiscDatabaseTest, LongNames_ComeInSeveralLines) {
    server.answers["cddb read"] = Entry(
        {"DTITLE=Band / A very ", "DTITLE=long title", "TTITLE0=One ", "TTITLE0=and a half", "TTITLE1=Two"});
    const auto reply = Read();
    EXPECT_EQ(reply.Value.Title, "A very long title");
    EXPECT_EQ(reply.Value.Names.at(0), "One and a half");
}

TEST_F(DiscDatabaseTest, Texts_AreTheBytesOfTheServer) {
    server.answers["cddb read"] =
        Entry({"DTITLE=Bj\xF6rk / D\xE9"
               "but",
               "TTITLE0=Caf\xE9", "TTITLE1=b"});
    EXPECT_EQ(Read().Value, (DatabaseAlbum{"Bj\xF6rk",
                                           "D\xE9"
                                           "but",
                                           {"Caf\xE9", "b"}}));
    server.answers["cddb read"] = Entry({"DTITLE=Björk / Début", "TTITLE0=Café", "TTITLE1=Ж"});
    EXPECT_EQ(Read().Value, (DatabaseAlbum{"Björk", "Début", {"Café", "Ж"}}));
}

TEST_F(DiscDatabaseTest, EntryThatIsGone_IsAFailure) {
    server.answers["cddb read"] = {"401 rock 02012c02 No such CD entry in database."};
    const auto reply = Read();
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_NE(reply.Reason, "");
}

TEST_F(DiscDatabaseTest, RefusedHello_IsAFailureWithAReason) {
    server.answers["cddb hello"] = {"431 Handshake not successful, closing connection"};
    const auto reply = Query();
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_NE(reply.Reason, "");
}

TEST_F(DiscDatabaseTest, RefusedConnection_IsAFailureWithAReason) {
    server.greeting = "433 No connections allowed: X users allowed, Y currently active";
    EXPECT_EQ(Query().End, DatabaseEnd::Failed);
    access.Port = 1;
    const auto reply = Query();
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_NE(reply.Reason, "");
}

TEST_F(DiscDatabaseTest, DroppedConnection_IsAFailure) {
    for (const char* command : {"cddb hello", "cddb query"}) {
        server.dropsAt = command;
        EXPECT_EQ(Query().End, DatabaseEnd::Failed) << command;
    }
    server.dropsAt = "cddb read";
    EXPECT_EQ(Read().End, DatabaseEnd::Failed);
}

TEST_F(DiscDatabaseTest, EntryThatBreaksOff_IsAFailure) {
    server.answers["cddb read"] = {"210 rock 02012c02 CD database entry follows", "# xmcd", "#"};
    access.Seconds = 1;
    EXPECT_EQ(Read().End, DatabaseEnd::Failed);
}

TEST_F(DiscDatabaseTest, ServerThatNeverAnswers_IsGivenUpWhileTheWindowIsServed) {
    server.answers.erase("cddb query");
    access.Seconds = 1;
    int steps = 0;
    const auto start = Clock::now();
    const auto reply = database->Query(access, disc, [&] { return ++steps > 0; });
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(4));
    EXPECT_GT(steps, 20);
}

TEST_F(DiscDatabaseTest, ServerThatNeverAnswers_IsGivenItsTimeAlsoBesideATickOfTheClock) {
    server.answers.erase("cddb query");
    access.Seconds = 1;
    const auto isBesideTick = [] {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now).count() % 1000 >= 975;
    };
    while (!isBesideTick()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const auto start = Clock::now();
    const auto reply = Query();
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(900));
    EXPECT_EQ(reply.Reason, "");
}

TEST_F(DiscDatabaseTest, Cancelled_IsOverAtOnce) {
    server.greeting.clear();
    access.Seconds = 60;
    int steps = 0;
    const auto start = Clock::now();
    const auto reply = database->Query(access, disc, [&] { return ++steps < 5; });
    EXPECT_EQ(reply.End, DatabaseEnd::Cancelled);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(3));
}

TEST_F(DiscDatabaseTest, Garbage_IsAFailureOrNothing) {
    server.answers["cddb query"] = {"what?", std::string(3000, 'x'), "999 nothing of the kind"};
    access.Seconds = 1;
    EXPECT_TRUE(Query().Value.empty());
    server.answers["cddb read"] = {"210 ok", std::string(5000, '='), "TTITLE99999=x", "TTITLE-1=y", "."};
    EXPECT_TRUE(Read().Value.Names.empty());
}

TEST(DiscDatabaseHelper, BuildWithoutOne_FailsAtOnce) {
    const auto database = MakeDiscDatabase("/no/such/zefta");
    EXPECT_EQ(database->Query({}, {}, GoesOn).End, DatabaseEnd::Failed);
    EXPECT_FALSE(MakeAudioDisc("/no/such/zefta")->ReadContents("x", GoesOn));
}

}  // namespace
}  // namespace zefta::test
