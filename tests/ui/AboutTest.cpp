#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include <gtest/gtest.h>

#include "core/Version.h"
#include "library/ReadableColour.h"
#include "support/TestApp.h"
#include "ui/QtText.h"
#include "ui/desktop/AboutDialog.h"

namespace zefta::test {
namespace {

class AboutTest : public ::testing::Test {
  protected:
    AboutTest() : dialog(app) {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        dialog.activateWindow();
    }

    QLabel& Label(const char* name) { return *dialog.findChild<QLabel*>(name); }

    /// The link label after having been reached by that key alone; null when it never is.
    QWidget* Reach(const char* name, Qt::Key key) {
        for (int i = 0; i < 10; ++i) {
            QWidget* at = dialog.focusWidget();
            if (at->objectName() == name) return at;
            QTest::keyClick(at, key);
        }
        return nullptr;
    }

    TestApp app;
    AboutDialog dialog;
};

struct Link {
    const char* name;
    std::int32_t message;
};

constexpr Link Links[] = {{"lblWWWKestrin", 5}, {"lblWWWProgram", 6}, {"lblWWWDownloads", 4}};

TEST_F(AboutTest, Shows_TitleAndVersion) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), "About");
    EXPECT_EQ(FromQt(Label("lblTitle").text()), ApplicationTitle());
    EXPECT_EQ(FromQt(Label("lblVersion").text()), VersionText());
}

TEST_F(AboutTest, EachLink_OpensItsAddressByTheMouse) {
    for (const Link& link : Links) {
        app.desktop.openedDocuments.clear();
        QLabel& label = Label(link.name);
        QTest::mouseClick(&label, Qt::LeftButton, {},
                          QPoint(label.fontMetrics().averageCharWidth() * 3, label.height() / 2));
        EXPECT_EQ(app.desktop.openedDocuments,
                  std::vector<std::string>{"http://" + app.messages.GetMessage(link.message)})
            << link.name;
    }
}

TEST_F(AboutTest, EachLink_OpensItsAddressByTheKeyboard) {
    for (const Qt::Key way : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (const Link& link : Links) {
            app.desktop.openedDocuments.clear();
            QWidget* label = Reach(link.name, way);
            ASSERT_NE(label, nullptr) << link.name;
            QTest::keyClick(label, Qt::Key_Return);
            EXPECT_EQ(app.desktop.openedDocuments,
                      std::vector<std::string>{"http://" + app.messages.GetMessage(link.message)})
                << link.name;
            EXPECT_TRUE(dialog.isVisible());
        }
    }
}

TEST_F(AboutTest, Addresses_HaveNoSchemeOfTheirOwn) {
    for (const Link& link : Links)
        EXPECT_EQ(app.messages.GetMessage(link.message).find("://"), std::string::npos) << link.message;
}

TEST_F(AboutTest, EachLink_HasANameForScreenReaders) {
    for (const Link& link : Links) {
        const std::string name = FromQt(Label(link.name).accessibleName());
        EXPECT_TRUE(name.ends_with(app.messages.GetMessage(link.message))) << name;
        EXPECT_EQ(name.find('&'), std::string::npos) << name;
    }
}

/// The contrast of what differs most from the background in the middle of the label.
double ContrastIn(QWidget& label) {
    const QImage picture = label.grab().toImage();
    const auto colourAt = [&](int x, int y) {
        const QColor colour = picture.pixelColor(x, y);
        return Colour{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                      static_cast<std::uint8_t>(colour.blue())};
    };
    double most = 1;
    for (int x = 2; x < picture.width() - 2; ++x) {
        for (int y = 2; y < picture.height() - 2; ++y)
            most = std::max(most, ContrastOf(colourAt(1, 1), colourAt(x, y)));
    }
    return most;
}

TEST_F(AboutTest, Links_CanBeReadOnEveryPalette) {
    for (const QColor window : {QColor(0x20, 0x20, 0x20), QColor(0xF0, 0xF0, 0xF0)}) {
        QPalette palette(window);
        palette.setColor(QPalette::Link, QColor(0, 0, 255));
        dialog.setPalette(palette);
        dialog.findChild<QPushButton*>("OKButton")->setFocus();
        for (const Link& link : Links) EXPECT_GE(ContrastIn(Label(link.name)), 4.4) << link.name;
    }
}

TEST_F(AboutTest, WithoutABrowser_TellsTheAddress) {
    app.desktop.canOpenDocuments = false;
    emit Label("lblWWWKestrin").linkActivated("a.example/");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "No program was found that opens web pages:\nhttp://a.example/");
}

TEST_F(AboutTest, OKButtonAndEscape_Close) {
    QTest::mouseClick(dialog.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace zefta::test
