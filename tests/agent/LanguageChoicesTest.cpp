#include <filesystem>

#include <gtest/gtest.h>

#include "agent/LanguageChoices.h"
#include "core/Settings.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

class LanguageChoicesTest : public ::testing::Test {
  protected:
    LanguageChoicesTest() {
        app.processes.ownPath = app.folder / "zeftaa";
        std::filesystem::create_directory(app.folder / "Languages");
    }

    std::string AddLanguage(const std::string& name, const std::string& text) {
        return app.folder.Write("Languages/" + name, text);
    }

    std::vector<std::string> Captions() {
        std::vector<std::string> captions;
        for (const LanguageChoice& choice : LanguageChoices(app))
            captions.push_back((choice.isChosen ? "*" : "") + choice.caption);
        return captions;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
};

TEST_F(LanguageChoicesTest, Files_StandByNameBehindTheBuiltInLanguage) {
    AddLanguage("suomi.lng", "");
    AddLanguage("Deutsch.LNG", "");
    AddLanguage("notes.txt", "");
    AddLanguage(".lng", "");
    std::filesystem::create_directory(app.folder / "Languages/folder.lng");
    EXPECT_EQ(Captions(), (Texts{"*Default (English)", "Deutsch", "suomi"}));
}

TEST_F(LanguageChoicesTest, NoFolder_LeavesTheBuiltInLanguage) {
    app.processes.ownPath = app.folder / "elsewhere/zeftaa";
    EXPECT_EQ(Captions(), Texts{"*Default (English)"});
}

TEST_F(LanguageChoicesTest, FileInForce_IsMarkedAndListedWhereverItLies) {
    app.state.EnableExternalLanguage = true;
    app.state.ExternalLanguageFile = AddLanguage("suomi.lng", "1=x\n");
    EXPECT_EQ(Captions(), (Texts{"Default (English)", "*suomi"}));
    app.state.ExternalLanguageFile = "/home/me/own.lng";
    EXPECT_EQ(Captions(), (Texts{"Default (English)", "suomi", "*own"}));
    app.state.EnableExternalLanguage = false;
    EXPECT_EQ(Captions(), (Texts{"*Default (English)", "suomi"}));
}

TEST_F(LanguageChoicesTest, Choose_StoresTheFileAndItsTextsForTheAgent) {
    const std::string path = AddLanguage("suomi.lng", "33601=Avaa\n33604=Lopeta\n");
    ChooseLanguage(app, path);
    auto& values = app.userSettings.values;
    EXPECT_EQ((values[{"Settings", "ExternalLanguageFile"}]), path);
    EXPECT_EQ((values[{"Settings", "EnableExternalLanguage"}]), "True");
    EXPECT_EQ((values[{"Agent", "MSG_Open"}]), "Avaa");
    EXPECT_EQ((values[{"Agent", "MSG_Settings"}]), "Options");
    EXPECT_EQ(app.userSettings.applied, 1);
    LoadSettings(app);
    EXPECT_TRUE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.messages.GetMessage(33604), "Lopeta");
}

TEST_F(LanguageChoicesTest, Choose_BuiltIn_SwitchesTheFileOffAndRemembersIt) {
    const std::string path = AddLanguage("suomi.lng", "33601=Avaa\n");
    ChooseLanguage(app, path);
    ChooseLanguage(app, "");
    auto& values = app.userSettings.values;
    EXPECT_EQ((values[{"Settings", "EnableExternalLanguage"}]), "False");
    EXPECT_EQ((values[{"Settings", "ExternalLanguageFile"}]), path);
    EXPECT_EQ((values[{"Agent", "MSG_Open"}]), "Open");
}

}  // namespace
}  // namespace zefta::test
