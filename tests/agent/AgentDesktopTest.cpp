#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <sstream>

#include <gtest/gtest.h>

#include "agent/AgentDesktop.h"
#include "ui/QtText.h"

namespace zefta::test {
namespace {

TEST(AgentDesktop, Box_IsWrittenAndShownAndNobodyWaitsForIt) {
    std::istringstream input;
    std::ostringstream error;
    AgentDesktop desktop(Language::Russian, input, error);
    desktop.ShowBox(BoxKind::Warning, "<b>No</b> tray", "Agent");
    EXPECT_EQ(error.str(), "Agent: <b>No</b> tray\n");
    const QWidgetList windows = QApplication::topLevelWidgets();
    ASSERT_EQ(windows.size(), 1);
    auto* box = qobject_cast<QMessageBox*>(windows.front());
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(box->isModal());
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(FromQt(box->text()), "<b>No</b> tray");
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(FromQt(box->button(QMessageBox::Ok)->text()), "ОК");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::topLevelWidgets().isEmpty(); }));
}

TEST(AgentDesktop, LongPath_IsBroken) {
    std::istringstream input;
    std::ostringstream error;
    AgentDesktop desktop(Language::English, input, error);
    desktop.ShowBox(BoxKind::Critical, "/music/" + std::string(600, 'x'), "Agent");
    auto* box = qobject_cast<QMessageBox*>(QApplication::topLevelWidgets().constFirst());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_LE(box->width(), QApplication::primaryScreen()->availableGeometry().width());
    box->close();
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::topLevelWidgets().isEmpty(); }));
}

}  // namespace
}  // namespace zefta::test
