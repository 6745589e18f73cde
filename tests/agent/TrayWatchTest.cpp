#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "agent/TrayWatch.h"

namespace zefta::test {
namespace {

class TrayWatchTest : public ::testing::Test {
  protected:
    TrayWatchTest() : watch([this] { return ++looks, isThere; }, {1, 3}) {}

    bool isThere = false;
    int looks = 0;
    TrayWatch watch;
    QSignalSpy found{&watch, &TrayWatch::Found};
    QSignalSpy missing{&watch, &TrayWatch::Missing};
};

TEST_F(TrayWatchTest, AreaThatIsThere_IsFoundAtOnceAndNotLookedForAgain) {
    isThere = true;
    watch.Begin();
    EXPECT_EQ(found.count(), 1);
    QTest::qWait(30);
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(missing.count(), 0);
}

TEST_F(TrayWatchTest, AreaThatIsMissing_IsToldOnceBehindTheLastPatientLook) {
    watch.Begin();
    EXPECT_EQ(missing.count(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return looks >= 3; }));
    EXPECT_EQ(missing.count(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return looks >= 10; }));
    EXPECT_EQ(missing.count(), 1);
    EXPECT_EQ(found.count(), 0);
}

TEST_F(TrayWatchTest, AreaThatComesLate_IsFoundAllTheSame) {
    watch.Begin();
    EXPECT_TRUE(QTest::qWaitFor([&] { return missing.count() == 1; }));
    isThere = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return found.count() == 1; }));
}

}  // namespace
}  // namespace zefta::test
