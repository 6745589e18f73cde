#include <QApplication>
#include <QMessageBox>
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
    AgentDesktop desktop(input, error);
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
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::topLevelWidgets().isEmpty(); }));
}

}  // namespace
}  // namespace zefta::test
