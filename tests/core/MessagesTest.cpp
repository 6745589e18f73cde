#include "core/Messages.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/Boxes.h"
#include "core/Folders.h"
#include "core/LanguageFile.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class BothLanguages : public ::testing::TestWithParam<Language> {};
INSTANTIATE_TEST_SUITE_P(MessageTable, BothLanguages, ::testing::Values(Language::English, Language::Russian));

TEST_P(BothLanguages, Table_Has357RisingNumbersAndIsValidText) {
    const auto table = MessageTable(GetParam());
    EXPECT_EQ(table.size(), 357U);
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_TRUE(i == 0 || table[i - 1].id < table[i].id) << table[i].id;
        EXPECT_FALSE(table[i].text.empty()) << table[i].id;
        EXPECT_TRUE(IsValidUtf8(table[i].text)) << table[i].id;
    }
}

TEST(MessageTable, Russian_HasTheNumbersPlaceHoldersLineBreaksAndHeadingsOfEnglish) {
    const auto english = MessageTable(Language::English);
    const auto russian = MessageTable(Language::Russian);
    const auto count = [](std::string_view text, const std::string& what) {
        return (text.size() - ReplaceAll(text, what, "").size()) / what.size();
    };
    for (std::size_t i = 0; i < english.size(); ++i) {
        ASSERT_EQ(english[i].id, russian[i].id);
        for (const char* mark : {"%1", "%2", "%3", "\\n"})
            EXPECT_EQ(count(english[i].text, mark), count(russian[i].text, mark)) << english[i].id << mark;
        EXPECT_EQ(IsHeading(english[i].text), IsHeading(russian[i].text)) << english[i].id;
    }
}

TEST(MessageTable, OddSpellings_AreKept) {
    const std::pair<int, const char*> rows[] = {
        {0, "ENGLISH"},
        {3, "%1\\zeftaa.exe"},
        {1011, "An error occured while processing file \"%1\":\\n\\n%2."},
        {1032, "We can not created the file."},
        {10009, "File \"%1\"\\nis market as read only!\\n\\nContinue anyway?"},
        {10010, "File \"%1\"is not a valid WAVe file.\\n\\nReencode it to desired format?"},
        {32009, "Are you shure?"},
        {32014, "Enquee: %1"},
        {32019, "The fodler %1 is not empty! Delete anyway?"},
        {32175, "&Enquee all audio files "},
        {32196, "&Check fo new version"},
        {33201, "copying playlist "},
        {33204, " bytes"},
        {33731, "Separetely if difference is more than 0.5db"}};
    for (const auto& [id, text] : rows) EXPECT_EQ(FindMessage(Language::English, id), text);
    EXPECT_EQ(FindMessage(Language::Russian, 1), "zefta_rus.chm");
    EXPECT_EQ(FindMessage(Language::Russian, 2), "zeftarus.exe");
    EXPECT_EQ(FindMessage(Language::Russian, 3), "\"%1\\zeftaa.exe\" /r");
    EXPECT_EQ(FindMessage(Language::English, 7), std::nullopt);
}

TEST(MessageTable, LanguageOfTag_RussianForRussianOnly) {
    EXPECT_EQ(LanguageOfTag("ru_RU.UTF-8"), Language::Russian);
    for (const char* tag : {"", "C", "en_US", "uk_UA"}) EXPECT_EQ(LanguageOfTag(tag), Language::English);
}

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

TEST_F(MessagesTest, GetMessage_ParametersAreReplacedOneAfterTheOther) {
    EXPECT_EQ(app.messages.GetMessage(1000, "%2\\n", "x"), "Error #x\r\n\r\n\r\nx");
}

TEST_F(MessagesTest, GetMessage_UnknownNumber_IsEmpty) {
    for (const int id : {7, -1, 65536, 2147483647}) EXPECT_EQ(Message(id), "");
}

TEST_F(MessagesTest, LanguageFile_ReplacesByNumber) {
    UseLanguageFile("; comment\r\n\r\n0001=Hello\r\n  1001  =  a = b %1  \r\n1002 = \n");
    EXPECT_EQ(Message(1), "Hello");
    EXPECT_EQ(app.messages.GetMessage(1001, "x"), "a = b x");
    EXPECT_EQ(Message(1002), "This one is not a valid file!");
    EXPECT_EQ(Message(1003), "Error opening the file specified!");
}

TEST_F(MessagesTest, LanguageFile_KeyOfMoreThanEightCharacters_IsIgnored) {
    UseLanguageFile("123456789=x\n12345678=y\n1=z\n");
    EXPECT_EQ(app.messages.GetMessage(123456789), "");
    EXPECT_EQ(app.messages.GetMessage(12345678), "y");
    EXPECT_EQ(Message(1), "z");
}

TEST_F(MessagesTest, LanguageFile_DuplicateKeepsTheFirst_AndTheNextUsedLineIsLost) {
    UseLanguageFile("1=first\n1=second\n; comment\n2=lost\n0=kept\n");
    EXPECT_EQ(Message(1), "first");
    EXPECT_EQ(Message(2), "zefta.exe");
    EXPECT_EQ(Message(0), "kept");
}

TEST_F(MessagesTest, LanguageFile_EmptyKey_IsNumber0) {
    UseLanguageFile("=nameless\n");
    EXPECT_EQ(Message(0), "nameless");
}

TEST_F(MessagesTest, LanguageFile_CommentsOnly_SwitchesItselfOff) {
    UseLanguageFile("; nothing\n\nno entry\n");
    EXPECT_EQ(Message(0), "ENGLISH");
    EXPECT_FALSE(app.state.EnableExternalLanguage);
}

TEST_F(MessagesTest, LanguageFile_MissingOrUnnamed_SwitchesItselfOff) {
    for (const std::string& path : {std::string(), app.folder / "none.lng", app.folder.Path()}) {
        app.state.ExternalLanguageFile = path;
        app.state.EnableExternalLanguage = true;
        EXPECT_EQ(Message(0), "ENGLISH");
        EXPECT_FALSE(app.state.EnableExternalLanguage) << path;
    }
}

TEST_F(MessagesTest, LanguageFile_ByteOrderMarkAndOldCodePage_AreUnderstood) {
    UseLanguageFile("\xEF\xBB\xBF" "0=caf\xC3\xA9\n1=caf\xE9\n");
    EXPECT_EQ(Message(0), "café");
    EXPECT_EQ(Message(1), "café");
}

TEST_F(MessagesTest, LanguageFile_IsReadOnce) {
    UseLanguageFile("0=x\n");
    EXPECT_EQ(Message(0), "x");
    app.folder.Write("my.lng", "0=y\n");
    EXPECT_EQ(Message(0), "x");
}

TEST_F(MessagesTest, LanguageFile_Hostile_DoesNoHarm) {
    std::string hostile("\0\xFF=\0\n1e=\n-=-\n99999999=big\n", 26);
    hostile += std::string(1 << 20, '=') + "\n" + std::string(1 << 20, 'x');
    UseLanguageFile(hostile + "\n1=end");
    EXPECT_FALSE(Message(1001).empty());
}

TEST_F(MessagesTest, WriteLanguageTemplate_HasHeadAndEveryEntry) {
    app.folder.Write("zefta.lng", "old");
    WriteLanguageTemplate(app);
    const std::string text = app.folder.Read("zefta.lng");
    EXPECT_TRUE(text.starts_with("; Kestrin Zeftaworks v" + VersionText() +
                                 "\r\n; Copyright (C) 2026 Kestrin\r\n; Language resource file\r\n\r\n"
                                 "00000 = ENGLISH\r\n00001 = zefta_eng.chm\r\n"));
    EXPECT_NE(text.find("\r\n\r\n;*** ERROR MESSAGES ***\r\n01000 = Error #%1\\n\\n%2\r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\n;=> Audio\r\n32111 = &Audio\r\n"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 + 357 + 19);
}

TEST_F(MessagesTest, WriteLanguageTemplate_CannotCreate_SaysNothing) {
    app.folder.Write("zefta.lng", "kept");
    app.files.SetReadOnly("zefta.lng", true);
    WriteLanguageTemplate(app);
    EXPECT_EQ(app.folder.Read("zefta.lng"), "kept");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(MessagesTest, Template_UsedAsLanguageFile_GivesTheSameTextsButForBlanksAtTheEnds) {
    WriteLanguageTemplate(app);
    UseLanguageFile(app.folder.Read("zefta.lng"));
    for (const struct Message& message : MessageTable(Language::English)) {
        if (IsHeading(message.text)) continue;
        const std::string expected = ReplaceAll(Trim(message.text), "\\n", "\r\n");
        EXPECT_EQ(app.messages.GetMessage(message.id, "%1", "%2"), expected) << message.id;
    }
}

TEST_F(MessagesTest, CheckLanguageFile_WarnsOfEachMissingAndStoresTheAgentTexts) {
    WriteLanguageTemplate(app);
    std::string text = app.folder.Read("zefta.lng");
    text = ReplaceAll(text, "01001 = Unsupported file format!\r\n", "");
    UseLanguageFile(ReplaceAll(text, "33601 = Open\r\n", "33601 = Auf\r\n"));
    app.messages.LoadLanguageFile();
    EXPECT_TRUE(CheckLanguageFile(app));
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text,
              "\"" + app.state.ExternalLanguageFile +
                  "\" is corrupted!\r\nExternal language file doesn't have the resourse string with code "
                  "\"1001\"!\r\n\r\nPlease correct it. ZEFTA will use the default value for this "
                  "resource:\r\n\"Unsupported file format!\".");
    EXPECT_EQ(app.userSettings.GetValue("Agent", "MSG_Open"), "Auf");
    EXPECT_EQ(app.userSettings.values.size(), 8U);
}

TEST_F(MessagesTest, CheckLanguageFile_WholeFile_FindsNothing) {
    WriteLanguageTemplate(app);
    UseLanguageFile(app.folder.Read("zefta.lng"));
    app.messages.LoadLanguageFile();
    EXPECT_FALSE(CheckLanguageFile(app));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

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

TEST_F(BoxesTest, AskYesNo_TrueForYesOnly) {
    app.desktop.answers = {true, false};
    EXPECT_TRUE(AskYesNo(app, "Sure?"));
    EXPECT_FALSE(AskYesNo(app, "Sure?", "Title"));
    EXPECT_EQ(app.desktop.questions[0].caption, "Kestrin Zeftaworks");
    EXPECT_EQ(app.desktop.questions[1].caption, "Title");
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
                {"/x.wav", "/", "x.wav"}};
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
