// What copies that were killed leave beside their tracks.

#include <gtest/gtest.h>

#include "library/CopyPlaylist.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class CopyLeftoversTest : public ::testing::Test {
  protected:
    CopyLeftoversTest() {
        app.files.CreateFolder("music");
        app.files.CreateFolder("usb");
        app.files.CreateFolder("usb/mix");
        app.folder.Write("music/a.mp3", track);
        app.desktop.answers = {true};
    }

    void Copy(const std::string& lines = "a.mp3\n") {
        app.folder.Write("music/mix.m3u", lines);
        CopyPlaylist(app, "music/mix.m3u", "usb");
        EXPECT_TRUE(app.desktop.boxes.empty());
    }

    TestApp app;
    const std::string track = std::string(100000, 'a') + "end";
    const std::string unfinished = "usb/mix/(001) a.mp3.tmp";
};

TEST_F(CopyLeftoversTest, BeginningOfTheSameTrack_Goes) {
    for (const std::size_t length : {0U, 1U, 44100U, 100003U}) {
        app.folder.Write(unfinished, track.substr(0, length));
        app.desktop.answers = {true};
        Copy();
        EXPECT_EQ(app.folder.Read("usb/mix/(001) a.mp3"), track);
        EXPECT_FALSE(app.folder.Exists(unfinished)) << length;
    }
}

TEST_F(CopyLeftoversTest, AnyOtherContent_Stays) {
    for (const std::string& bytes : {std::string("mine"), track + "more", std::string(50000, 'a') + "b"}) {
        app.folder.Write(unfinished, bytes);
        app.desktop.answers = {true};
        Copy();
        EXPECT_EQ(app.folder.Read("usb/mix/(001) a.mp3"), track);
        EXPECT_TRUE(app.folder.Read(unfinished) == bytes);
    }
}

TEST_F(CopyLeftoversTest, TrackThatIsStillToBeCopied_Stays) {
    app.folder.Write(unfinished, track);
    Copy("a.mp3\n../usb/mix/(001) a.mp3.tmp\n");
    EXPECT_EQ(app.folder.Read(unfinished), track);
    EXPECT_EQ(app.folder.Read("usb/mix/(002) (001) a.mp3.tmp"), track);
}

TEST_F(CopyLeftoversTest, NumberedNamesToo_AreInNobodysWay) {
    app.folder.Write(unfinished, "half");
    for (int number = 1; number <= 20; ++number)
        app.folder.Write("usb/mix/(001) a.mp3~" + std::to_string(number) + ".tmp", "half");
    Copy();
    EXPECT_EQ(app.folder.Read("usb/mix/(001) a.mp3"), track);
}

}  // namespace
}  // namespace zefta::test
