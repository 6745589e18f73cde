#include <new>

#include <gtest/gtest.h>

#include "core/Boxes.h"
#include "core/Folders.h"
#include "platform/RuntimeError.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class BoxesTest : public ::testing::Test {
  protected:
    TestApp app;
};

TEST_F(BoxesTest, EveryBox_HasItsKindAndTheTitleOfTheApplication) {
    ShowParamsError(app);
    ShowWarning(app, "careful");
    ShowPlainBox(app, "OK");
    ASSERT_EQ(app.desktop.boxes.size(), 3U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Critical);
    EXPECT_EQ(app.desktop.boxes[0].text, "Incorrect command line parameters!");
    EXPECT_EQ(app.desktop.boxes[1].kind, BoxKind::Warning);
    EXPECT_EQ(app.desktop.boxes[2].kind, BoxKind::Plain);
    for (const auto& box : app.desktop.boxes) EXPECT_EQ(box.caption, "Kestrin Zeftaworks");
}

TEST_F(BoxesTest, CheckRuntimeError_ShowsAndTakesTheFailure) {
    EXPECT_TRUE(CheckRuntimeError(app, [] { throw RuntimeError(ErrorNumber::Overflow); }));
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #6\r\n\r\nOverflow");
    EXPECT_FALSE(CheckRuntimeError(app, [] {}));
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(BoxesTest, CheckRuntimeError_PathThatIsNoUtf8_IsShownThroughTheCodePage) {
    EXPECT_TRUE(CheckRuntimeError(app, [] { throw RuntimeError(ErrorNumber::FileNotFound, "caf\xE9.wav"); }));
    EXPECT_EQ(app.desktop.boxes.back().text, "Error #53\r\n\r\nFile not found: café.wav");
}

TEST_F(BoxesTest, CheckRuntimeError_NoMemoryLeft_IsAFailureLikeAnyOther) {
    EXPECT_TRUE(CheckRuntimeError(app, [] { throw std::bad_alloc(); }));
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #7\r\n\r\nOut of memory");
}

TEST_F(BoxesTest, AskYesNo_TrueForYesOnly) {
    app.desktop.answers = {true, false};
    EXPECT_TRUE(AskYesNo(app, "Sure?"));
    EXPECT_FALSE(AskYesNo(app, "Sure?", "Title"));
    EXPECT_EQ(app.desktop.questions[0].caption, "Kestrin Zeftaworks");
    EXPECT_EQ(app.desktop.questions[1].caption, "Title");
}

TEST_F(BoxesTest, AskYesNo_DefaultSecond_MakesNoTheDefault) {
    AskYesNo(app, "Sure?");
    AskYesNo(app, "Sure?", "Title", true);
    AskYesNo(app, "Sure?", "", true);
    ASSERT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_FALSE(app.desktop.questions[0].noIsDefault);
    EXPECT_TRUE(app.desktop.questions[1].noIsDefault);
    EXPECT_TRUE(app.desktop.questions[2].noIsDefault);
    EXPECT_EQ(app.desktop.questions[2].text, "Sure?");
    EXPECT_EQ(app.desktop.questions[2].caption, "Kestrin Zeftaworks");
}

TEST_F(BoxesTest, ChangeToFolder_MissingOrEmpty_KeepsTheOld) {
    EXPECT_EQ(ChangeToFolder(app.files, app.folder / "none"), "");
    EXPECT_EQ(ChangeToFolder(app.files, ""), "");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder.Path());
    EXPECT_EQ(ChangeToFolder(app.files, "/"), "/");
    EXPECT_EQ(app.files.CurrentFolder(), "/");
}

TEST_F(BoxesTest, SplitFileSpec_IsAbsoluteInEveryForm) {
    const std::string here = app.folder.Path();
    const struct {
        std::string spec, folder, mask;
    } rows[] = {{"*.wav", here, "*.wav"},
                {"sub/*.wav", here + "/sub", "*.wav"},
                {"sub\\*.wav", here + "/sub", "*.wav"},
                {"/abs/*.wav", "/abs", "*.wav"},
                {"/x.wav", "/", "x.wav"},
                {"X:\\*.wav", "X:", "*.wav"},
                {"A: hits\\*.wav", here + "/A: hits", "*.wav"}};
    for (const auto& row : rows) {
        const FolderAndMask split = SplitFileSpec(app.files, row.spec);
        EXPECT_EQ(split.folder, row.folder) << row.spec;
        EXPECT_EQ(split.mask, row.mask) << row.spec;
    }
}

TEST_F(BoxesTest, ReleaseGlobals_EmptiesWhatTheRunGathered) {
    app.messages.LanguageStrings["1"] = "x";
    ReleaseGlobals(app);
    EXPECT_TRUE(app.messages.LanguageStrings.empty());
    EXPECT_EQ(app.defaultWaveFile, nullptr);
}

}  // namespace
}  // namespace zefta::test
