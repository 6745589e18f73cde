#include <gtest/gtest.h>

#include "core/Batch.h"
#include "core/FileWalk.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

using Shown = std::vector<std::pair<std::size_t, std::size_t>>;

TEST(Batch, EachItem_IsToldAndEventsAreServed) {
    TestApp app;
    {
        Batch batch(app, 2);
        EXPECT_TRUE(batch.Next());
        EXPECT_TRUE(batch.Next());
    }
    EXPECT_EQ(app.desktop.batches, (Shown{{1, 2}, {2, 2}, {0, 0}}));
    EXPECT_EQ(app.desktop.servedEvents, 2);
}

TEST(Batch, WithoutAnItem_TellsNothing) {
    TestApp app;
    { const Batch batch(app, 3); }
    EXPECT_TRUE(app.desktop.batches.empty());
}

TEST(Batch, ItemsThatAreFoundOnTheWay_AreCounted) {
    TestApp app;
    {
        Batch batch(app);
        batch.Expect(1);
        batch.Next();
        batch.Expect(2);
        batch.Next(2);
        batch.Next();
    }
    EXPECT_EQ(app.desktop.batches, (Shown{{1, 1}, {3, 3}, {4, 4}, {0, 0}}));
}

TEST(Batch, Pause_LetsTheDesktopAnswerAndCountsNothing) {
    TestApp app;
    {
        Batch batch(app);
        EXPECT_TRUE(batch.Pause());
        batch.Expect(2);
        batch.Next();
        EXPECT_TRUE(batch.Pause());
        app.desktop.cancelsFromItem = 1;
        EXPECT_FALSE(batch.Pause());
        EXPECT_FALSE(batch.Next());
        app.desktop.cancelsFromItem = 0;
        EXPECT_FALSE(batch.Pause()) << "for good";
    }
    EXPECT_EQ(app.desktop.batches, (Shown{{1, 1}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {0, 0}}));
    EXPECT_EQ(app.desktop.servedEvents, 5);
}

TEST(Batch, Cancelled_EndsForGood) {
    TestApp app;
    Batch batch(app, 3);
    EXPECT_TRUE(batch.Next());
    app.desktop.cancelsFromItem = 2;
    EXPECT_FALSE(batch.IsCancelled());
    EXPECT_FALSE(batch.Next());
    app.desktop.cancelsFromItem = 0;
    EXPECT_FALSE(batch.Next());
    EXPECT_TRUE(batch.IsCancelled());
}

TEST(Batch, WalkOverFiles_EndsBehindTheFileAtHand) {
    TestApp app;
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) app.folder.Write(name, "");
    app.state.FileSpec = "*.wav";
    app.desktop.cancelsFromItem = 3;
    int walked = 0;
    WalkFiles(app, [&](const std::string&, const std::string&) { ++walked; });
    EXPECT_EQ(walked, 2);
    EXPECT_EQ(app.desktop.batches, (Shown{{1, 3}, {2, 3}, {3, 3}, {0, 0}}));
}

}  // namespace
}  // namespace zefta::test
