// How the program deals with its helper for discs; a script plays the helper.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"
#include "platform/posix/DiscHelperClient.h"
#include "support/FakeDisc.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

using Clock = std::chrono::steady_clock;

class DiscHelperClientTest : public ::testing::Test {
  protected:
    void PlayHelper(const std::string& script) {
        const std::string path = folder.Write("zefta-cd", "#!/bin/sh\n" + script + "\n");
        chmod(path.c_str(), 0755);
        disc = MakeAudioDisc(folder / "zefta");
        database = MakeDiscDatabase(folder / "zefta");
    }

    std::optional<DiscContents> Contents() { return disc->ReadContents("/dev/x y", GoesOn); }

    TrackReading ReadTrack(std::string& bytes) {
        return disc->ReadTrack(
            "/dev/x", 7,
            [&](std::span<const std::byte> piece) {
                bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
            },
            GoesOn);
    }

    TempFolder folder;
    std::unique_ptr<AudioDisc> disc;
    std::unique_ptr<DiscDatabase> database;
    const DatabaseAccess access = {"host", 8880, "EasyCD", "2.0.1", "me@home", 1};
};

TEST_F(DiscHelperClientTest, Helper_IsGivenItsWordsUntouched) {
    PlayHelper("printf '%s\\n' \"$@\" > '" + folder.Path() + "/words'; printf '1\\t150\\nend\\n'");
    EXPECT_EQ(Contents(), (DiscContents{1, {}, 150}));
    EXPECT_EQ(folder.Read("words"), "contents\n/dev/x y\n");
    database->Query(access, {1, {{true, 150, 10}, {true, 160, 20}}, 180}, GoesOn);
    EXPECT_EQ(folder.Read("words"), "query\nhost\n8880\nEasyCD\n2.0.1\nme@home\n1\n180\n150\n160\n");
    database->Read(access, {"rock", "0a", "", ""}, GoesOn);
    EXPECT_EQ(folder.Read("words"), "album\nhost\n8880\nEasyCD\n2.0.1\nme@home\n1\nrock\n0a\n");
}

TEST_F(DiscHelperClientTest, OutputThatBreaksOff_OrAHelperThatFails_IsNoDisc) {
    for (const char* script :
         {"printf '1\\t150\\n'", "printf '1\\t150\\nend\\n'; exit 1", "kill -SEGV $$", "exit 0"}) {
        PlayHelper(script);
        EXPECT_FALSE(Contents()) << script;
    }
}

TEST_F(DiscHelperClientTest, Track_IsWhatTheHelperWroteAndOnlyDoneWhenItSaysSo) {
    PlayHelper("head -c 300000 /dev/zero");
    std::string bytes;
    EXPECT_EQ(ReadTrack(bytes), TrackReading::Done);
    EXPECT_EQ(bytes.size(), 300000U);
    PlayHelper("head -c 100 /dev/zero; exit 1");
    bytes.clear();
    EXPECT_EQ(ReadTrack(bytes), TrackReading::Failed);
    EXPECT_EQ(bytes.size(), 100U);
}

TEST_F(DiscHelperClientTest, ReasonOfAFailure_IsWhatTheHelperWrote) {
    PlayHelper("printf 'no route'; exit 1");
    const auto reply = database->Query(access, {}, GoesOn);
    EXPECT_EQ(reply.End, DatabaseEnd::Failed);
    EXPECT_EQ(reply.Reason, "no route");
}

TEST_F(DiscHelperClientTest, HelperThatHangs_IsEndedWhenTheTimeIsUp) {
    PlayHelper("echo $$ > '" + folder.Path() + "/pid'; exec sleep 60");
    const auto start = Clock::now();
    EXPECT_EQ(database->Query(access, {}, GoesOn).End, DatabaseEnd::Failed);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
    EXPECT_NE(kill(std::stoi(folder.Read("pid")), 0), 0);
}

TEST_F(DiscHelperClientTest, Cancelled_EndsTheHelperAndServesTheWindowUntilThen) {
    PlayHelper("echo $$ > '" + folder.Path() + "/pid'; exec sleep 60");
    int steps = 0;
    EXPECT_FALSE(disc->ReadContents("x", [&] { return ++steps < 30 || !folder.Exists("pid"); }));
    EXPECT_GE(steps, 30);
    EXPECT_NE(kill(std::stoi(folder.Read("pid")), 0), 0);
}

TEST_F(DiscHelperClientTest, Drives_AreInRisingOrder) {
    PlayHelper("exit 1");
    const auto drives = disc->Drives();
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end()));
    for (const std::string& drive : drives) EXPECT_TRUE(drive.starts_with("/dev/sr")) << drive;
}

}  // namespace
}  // namespace zefta::test
