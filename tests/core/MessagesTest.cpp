#include <gtest/gtest.h>

#include "core/Messages.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class MessagesTest : public ::testing::Test {
  protected:
    void UseLanguageFile(std::string_view text) {
        app.state.ExternalLanguageFile = app.folder.Write("my.lng", text);
        app.state.EnableExternalLanguage = true;
        app.messages.LanguageStrings.clear();
    }

    std::string Message(int id) { return app.messages.GetMessage(id); }

    TestApp app;
};

TEST_F(MessagesTest, GetMessage_PutsParametersIn) {
    EXPECT_EQ(app.messages.GetMessage(1006, "a.mp3"), "File \"a.mp3\" could not be opened.");
    EXPECT_EQ(app.messages.GetMessage(1000, "5", "Text"), "Error #5\r\n\r\nText");
}

TEST_F(MessagesTest, GetMessage_AllOccurrencesOfAllFive_AreReplaced) {
    UseLanguageFile("1=%5%4%3%2%1 %1%2%3%4%5 %6 %0 %%1");
    EXPECT_EQ(app.messages.GetMessage(1, "a", "b", "c", "d", "e"), "edcba abcde %6 %0 %a");
    EXPECT_EQ(Message(1), "  %6 %0 %");
}

TEST_F(MessagesTest, GetMessage_ParametersAreReplacedOneAfterTheOther) {
    EXPECT_EQ(app.messages.GetMessage(1000, "%2", "x"), "Error #x\r\n\r\nx");
    EXPECT_EQ(app.messages.GetMessage(1000, "x", "%1"), "Error #x\r\n\r\n%1");
    EXPECT_EQ(app.messages.GetMessage(1000, "%1", "%2%3", "y"), "Error #%1\r\n\r\n%2y");
}

TEST_F(MessagesTest, GetMessage_LineBreakSignInAParameter_BecomesOne) {
    EXPECT_EQ(app.messages.GetMessage(1009, "music\\new.mp3"), "File \"music\r\new.mp3\" not found.");
}

TEST_F(MessagesTest, GetMessage_UnknownNumber_IsEmpty) {
    for (const int id : {7, -1, 65536, 2147483647}) {
        EXPECT_EQ(Message(id), "");
        EXPECT_EQ(app.messages.GetMessage(id, "a", "b", "c", "d", "e"), "");
    }
}

TEST_F(MessagesTest, GetMessage_WithALanguageFile_TakesItsTextsByNumber) {
    UseLanguageFile("; comment\r\n\r\n0001=Hello\r\n  1001  =  a = b %1\\n%2  \r\n1002 = \n");
    EXPECT_EQ(Message(1), "Hello");
    EXPECT_EQ(app.messages.GetMessage(1001, "x", "y"), "a = b x\r\ny");
    EXPECT_EQ(Message(1002), "This one is not a valid file!");
    EXPECT_EQ(Message(1003), "Error opening the file specified!");
    EXPECT_TRUE(app.state.EnableExternalLanguage);
}

TEST_F(MessagesTest, GetMessage_LanguageFileSwitchedOff_TakesTheBuiltInText) {
    UseLanguageFile("1=Hello");
    EXPECT_EQ(Message(1), "Hello");
    app.state.EnableExternalLanguage = false;
    EXPECT_EQ(Message(1), "zefta_eng.chm");
    app.state.EnableExternalLanguage = true;
    EXPECT_EQ(Message(1), "Hello");
}

}  // namespace
}  // namespace zefta::test
