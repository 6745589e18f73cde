#include "core/Settings.h"
#include "library/RenameForm.h"
#include "library/RenameStage.h"
#include "support/UnstorableApp.h"

namespace zefta::test {
namespace {

class UnstoredRename : public ::testing::Test {
  protected:
    UnstoredRename() {
        LoadSettings(app);
        app.defaultWaveFile = &wave;
        form = LoadRenameForm(app);
        form.format = 1;
        form.choice.folder = app.folder.Path();
        app.folder.Write("list.m3u", "x.mp3\n");
    }

    int Failure() {
        return RuntimeErrorOf(
            [&] { RunRenameForm(app, form, [](const std::string&, const std::string&) {}); });
    }

    UnstorableApp app;
    WaveFile wave{app};
    RenameForm form;
};

TEST_F(UnstoredRename, Choice_ThatIsNotStoredIsToldBehindTheWork) {
    app.folder.Write("x.mp3", Song("A", "One"));
    EXPECT_EQ(Failure(), 61);
    EXPECT_TRUE(app.folder.Exists("A - One.MP3"));
    EXPECT_EQ(app.folder.Read("list.m3u"), "A - One.MP3\n");
}

TEST_F(UnstoredRename, FailureOfTheWork_IsTheOneThatIsTold) {
    app.folder.Write("x.mp3", SongThatFails());
    EXPECT_EQ(Failure(), 13);
}

TEST_F(UnstoredRename, DiskWithRoom_SaysNothing) {
    app.folder.Write("x.mp3", Song("A", "One"));
    app.store.room = 10;
    EXPECT_EQ(Failure(), 0);
    EXPECT_EQ((app.store.onDisk[{"Settings", "RenameAndTagging_Format"}]), "1");
}

}  // namespace
}  // namespace zefta::test
