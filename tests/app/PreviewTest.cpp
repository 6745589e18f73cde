// "/preview" beside a job: the same job on a file system that keeps every change to itself.

#include <sstream>

#include <gtest/gtest.h>

#include "app/Entry.h"
#include "app/JobTable.h"
#include "app/Preview.h"
#include "app/PreviewDesktop.h"
#include "core/OptionTable.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "tags/ID3v1.h"

namespace zefta::test {
namespace {

class PreviewTest : public ::testing::Test {
  protected:
    int Run(const std::vector<std::string>& arguments) { return RunZefta(app, arguments, output); }

    void WriteTagged(const std::string& name, const std::string& artist, const std::string& title) {
        const std::string path = app.folder.Write(name, std::string(1000, 'a'));
        ID3v1Values values;
        values.Artist = artist;
        values.Title = title;
        SetID3(app.files, app.ansi, path, values);
    }

    std::map<std::string, std::string> Files() {
        std::map<std::string, std::string> contents;
        for (const FolderEntry& entry : app.files.List(app.folder.Path()))
            contents[entry.name] = entry.isFolder ? "" : app.folder.Read(entry.name);
        return contents;
    }

    TestApp app;
    std::ostringstream output;
};

TEST_F(PreviewTest, Arguments_LoseTheWordInAnyCase) {
    EXPECT_EQ(ArgumentsOfPreview({"/rename", "/PREVIEW", "*.mp3"}),
              (std::vector<std::string>{"/rename", "*.mp3"}));
    EXPECT_EQ(ArgumentsOfPreview({"/rename", "preview"}), std::nullopt);
}

TEST_F(PreviewTest, Rename_TellsWhatTheRealRunThenDoes) {
    WriteTagged("one.mp3", "Artist", "Title");
    WriteTagged("two.mp3", "Artist", "Title");
    WriteTagged("three.mp3", "", "");
    const auto before = Files();
    EXPECT_EQ(Run({"/rename", "/f1", "/preview"}), 0);
    EXPECT_EQ(Files(), before);
    const std::string told = output.str();
    EXPECT_NE(told.find("collision: Artist - Title.MP3 is taken\n"), std::string::npos) << told;
    EXPECT_NE(told.find("refused: three.mp3: holds neither artist nor title\n"), std::string::npos) << told;
    EXPECT_EQ(Run({"/rename", "/f1"}), 0);
    for (const auto& [name, content] : Files()) {
        if (name == "three.mp3") continue;
        EXPECT_NE(told.find(" -> " + name + "\n"), std::string::npos) << name;
    }
    EXPECT_EQ(output.str(), told);
}

TEST_F(PreviewTest, AJobThatCannotBePreviewed_IsRefusedWhereverTheWordStands) {
    const std::string path = app.folder.Write("a.wav", std::string(1000, 'a'));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"/preview", "/fixheader", "a.wav", "/freq", "48000"},
          {"/crop", "a.wav", "/preview", "/start", "100"},
          {"/wavetrim", "a.wav", "/preview"},
          {"/split", "a.wav", "/offset", "5", "/preview"}}) {
        app.desktop.boxes.clear();
        EXPECT_EQ(Run(arguments), 1) << arguments[1];
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_NE(app.desktop.boxes[0].text.find("has no preview"), std::string::npos);
    }
    EXPECT_EQ(Files(), (std::map<std::string, std::string>{{"a.wav", std::string(1000, 'a')}}));
}

TEST_F(PreviewTest, EveryJobWithAPreview_HasAWorker) {
    for (const int code : {1, 2, 3, 4, 5, 8, 20}) {
        ASSERT_NE(FindJob(code), nullptr) << code;
        EXPECT_TRUE(FindJob(code)->canPreview) << code;
        EXPECT_NE(FindJob(code)->run, nullptr) << code;
    }
}

TEST_F(PreviewTest, EveryJobWithAPreview_LeavesTheFolderAlone) {
    WriteTagged("one.mp3", "Artist", "Title");
    app.folder.Write("list.m3u", "one.mp3\n");
    const auto before = Files();
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"/rename", "/f4"},
                                                      {"/rename2", "/f1"},
                                                      {"/autorename", "/f1"},
                                                      {"/change", "*.mp3", "/a", "New"},
                                                      {"/copy", "list.m3u", "/to", "out"},
                                                      {"/makelist"},
                                                      {"/makezfc"}}) {
        std::vector<std::string> previewed = arguments;
        previewed.push_back("/preview");
        output.str("");
        EXPECT_EQ(Run(previewed), 0) << arguments[0];
        EXPECT_FALSE(output.str().empty()) << arguments[0];
        EXPECT_EQ(Files(), before) << arguments[0];
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(PreviewTest, ComplaintOfAPreview_IsToldAmongTheStepsAndInTheStatus) {
    EXPECT_EQ(Run({"/copy", "none.m3u", "/preview"}), 1);
    EXPECT_EQ(output.str().substr(0, 6), "says: ");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(PreviewDesktopTest, Questions_HaveTheAnswerOfTheEnterKey) {
    std::ostringstream output;
    PreviewDesktop desktop(output);
    EXPECT_TRUE(desktop.AskQuestion("Go\r\non?", "Title", false));
    EXPECT_FALSE(desktop.AskQuestion("Really?", "Title", true));
    EXPECT_EQ(desktop.AskInput("Name?", "Title", "old"), "old");
    EXPECT_EQ(desktop.ChooseFolder("Where?", "Title", "/music"), "/music");
    EXPECT_FALSE(desktop.HasComplained());
    desktop.ShowBox(BoxKind::Plain, "Done", "Title");
    EXPECT_FALSE(desktop.HasComplained());
    desktop.ShowBox(BoxKind::Warning, "Bad", "Title");
    EXPECT_TRUE(desktop.HasComplained());
    EXPECT_EQ(output.str(),
              "asks: Go on? -> Yes\nasks: Really? -> No\nasks: Name? -> old\nasks: Where? -> /music\n"
              "says: Done\nsays: Bad\n");
}

}  // namespace
}  // namespace zefta::test
