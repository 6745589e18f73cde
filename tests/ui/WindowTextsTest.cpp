#include <gtest/gtest.h>

#include "support/TestApp.h"
#include "ui/WindowTexts.h"

namespace zefta::test {
namespace {

TEST(OwnText, EveryText_StandsInBothLanguages) {
    for (int i = 0; i < static_cast<int>(WindowText::Count); ++i) {
        const auto text = static_cast<WindowText>(i);
        const QString english = OwnText(Language::English, text);
        const QString russian = OwnText(Language::Russian, text);
        EXPECT_FALSE(english.isEmpty()) << i;
        EXPECT_FALSE(russian.isEmpty()) << i;
        // Place holders and mnemonics belong to both.
        EXPECT_EQ(english.count('%'), russian.count('%')) << i;
        EXPECT_EQ(english.count('&'), russian.count('&')) << i;
    }
}

TEST(OwnText, OfAnApp_IsInItsLanguage) {
    TestApp app;
    EXPECT_EQ(OwnText(app, WindowText::KindFolder), OwnText(Language::English, WindowText::KindFolder));
}

}  // namespace
}  // namespace zefta::test
