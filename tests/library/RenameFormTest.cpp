#include "core/History.h"
#include "core/Settings.h"
#include "library/RenameForm.h"
#include "library/RenameStage.h"

namespace zefta::test {
namespace {

class RenameFormTest : public RenameStage {
  protected:
    RenameFormTest() {
        form = LoadRenameForm(app);
        form.choice.folder = Root();
    }

    void Run() {
        RunRenameForm(app, form, [this](const std::string& oldName, const std::string& newName) {
            told.push_back(oldName + " -> " + newName);
        });
    }

    std::string Stored(const std::string& key) {
        return app.userSettings.GetValue("Settings", "RenameAndTagging_" + key).value_or("nothing");
    }

    RenameForm form;
    Texts told;
};

TEST_F(RenameFormTest, FirstLoad_HasTheDefaults) {
    EXPECT_EQ(form.format, 2);
    EXPECT_EQ(form.customTemplate, "%N. %A - %T [%M] %W");
    EXPECT_EQ(form.choice.filter, ExtendedRename::Filter::AllFiles);
    EXPECT_EQ(form.choice.mask, "*.*");
    EXPECT_FALSE(form.choice.processSubfolders);
    EXPECT_TRUE(form.choice.updatePlaylists);
}

TEST_F(RenameFormTest, StoredNonsense_IsTheDefault) {
    for (const int format : {0, 7, 255}) {
        app.state.RenameAndTagging_Format = static_cast<std::uint8_t>(format);
        EXPECT_EQ(LoadRenameForm(app).format, 2);
    }
    app.state.RenameAndTagging_FilterType = 3;
    EXPECT_EQ(LoadRenameForm(app).choice.filter, ExtendedRename::Filter::AllFiles);
}

TEST_F(RenameFormTest, AllFiles_AreNamedAndTheChoiceSaved) {
    MakeSong("x.mp3", "T1");
    MakeSong("sub/y.mp3", "T2");
    form.format = 1;
    form.choice.processSubfolders = true;
    form.choice.mask = "*.ogg";
    Run();
    EXPECT_EQ(Names(), (Texts{"A - T1.MP3", "sub/A - T2.MP3"}));
    EXPECT_EQ(app.state.RenameFormat, 1);
    EXPECT_EQ(Stored("Format"), "1");
    EXPECT_EQ(Stored("ProcessSubfolders"), "True");
    EXPECT_EQ(Stored("UpdatePlaylists"), "True");
    EXPECT_EQ(Stored("FilterType"), "0");
    // Only a mask that was asked for is kept.
    EXPECT_EQ(Stored("Mask"), "*.*");
    EXPECT_EQ(LoadRenameTemplates(app.userSettings), Texts());
}

TEST_F(RenameFormTest, Mask_IsKept) {
    MakeSong("x.mp3", "T1");
    MakeSong("y.mp3", "T2");
    form.choice.filter = ExtendedRename::Filter::FilesByMask;
    form.choice.mask = "X.*";
    form.choice.updatePlaylists = false;
    Run();
    EXPECT_EQ(Names(), (Texts{"A - T1.MP3", "y.mp3"}));
    EXPECT_EQ(Stored("Mask"), "X.*");
    EXPECT_EQ(Stored("FilterType"), "2");
    EXPECT_EQ(Stored("UpdatePlaylists"), "False");
}

TEST_F(RenameFormTest, SelectedFiles_AreToldAndSubfoldersAreNotKept) {
    MakeSong("x.mp3", "T1");
    MakeSong("y.mp3", "T2");
    Make("list.m3u", "x.mp3\n");
    form.choice.filter = ExtendedRename::Filter::SelectedFiles;
    form.choice.selected = {"x.mp3", "list.m3u"};
    form.choice.processSubfolders = true;
    Run();
    EXPECT_EQ(told, (Texts{"x.mp3 -> A - T1.MP3", "list.m3u -> list.m3u"}));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - T1.MP3\n");
    EXPECT_EQ(Stored("ProcessSubfolders"), "False");
    EXPECT_EQ(Stored("FilterType"), "1");
}

TEST_F(RenameFormTest, FoldersOfArtists_LeaveSubfoldersAlone) {
    MakeSong("x.mp3", "T1");
    MakeSong("sub/y.mp3", "T2");
    form.format = 4;
    form.choice.processSubfolders = true;
    Run();
    EXPECT_EQ(Names(), (Texts{"A/T1.MP3", "sub/y.mp3"}));
    EXPECT_EQ(Stored("ProcessSubfolders"), "False");
}

TEST_F(RenameFormTest, NewTemplate_GoesToTheHistoryAndIntoForce) {
    SaveRenameTemplates(app.userSettings, {"%T"});
    MakeSong("x.mp3", "T1");
    form.format = 6;
    form.customTemplate = "%T by %A";
    Run();
    EXPECT_EQ(Names(), Texts{"T1 by A.MP3"});
    EXPECT_EQ(app.state.CustomRenameTemplate, "%T by %A");
    EXPECT_EQ(LoadRenameTemplates(app.userSettings), (Texts{"%T by %A", "%T"}));
    form.customTemplate = "%T";
    Run();
    EXPECT_EQ(LoadRenameTemplates(app.userSettings), (Texts{"%T by %A", "%T"}));
}

TEST_F(RenameFormTest, TemplateOfAnotherRule_IsNotTaken) {
    form.format = 1;
    form.customTemplate = "%T by %A";
    Run();
    EXPECT_EQ(app.state.CustomRenameTemplate, "%N. %A - %T [%M] %W");
}

TEST_F(RenameFormTest, Failure_IsThrownBehindTheSaving) {
    Make("x.mp3", SongThatFails());
    form.format = 3;
    EXPECT_EQ(RuntimeErrorOf([&] { Run(); }), 13);
    EXPECT_EQ(Stored("Format"), "3");
}

}  // namespace
}  // namespace zefta::test
