// The walks of the job that changes tags.

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "library/ChangeTagsWalkers.h"
#include "support/Mp3Builder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

class ChangeTagsWalkersTest : public ::testing::Test {
  protected:
    ChangeTagsWalkersTest() {
        app.defaultWaveFile = &wave;
        app.state.FileSpec = "*.mp3";
        app.state.OptArtist = "New ";
    }

    void Write(const std::string& name) {
        std::filesystem::create_directories(std::filesystem::path(app.folder / name).parent_path());
        app.folder.Write(name, Mp3().Size(1000).Bytes());
    }

    bool IsChanged(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name).Artist == "New"; }

    TestApp app;
    WaveFile wave{app};
};

TEST_F(ChangeTagsWalkersTest, Folder_MatchingCompressedFilesInAnyCase) {
    for (const char* name : {"a.mp3", "B.MP3", "c.ogg", "d.mp3.txt", "sub/e.mp3", "xmp3"}) Write(name);
    app.state.FileSpec = "*.Mp3";
    ChangeFolderTags(app, app.folder.Path());
    for (const char* name : {"a.mp3", "B.MP3"}) EXPECT_TRUE(IsChanged(name)) << name;
    for (const char* name : {"c.ogg", "d.mp3.txt", "sub/e.mp3", "xmp3"})
        EXPECT_FALSE(IsChanged(name)) << name;
    EXPECT_EQ(app.desktop.servedEvents, 2);
}

TEST_F(ChangeTagsWalkersTest, Folder_NameInAnyCase_IsThatFile) {
    for (const char* name : {"Song [1].mp3", "Song 1.mp3"}) Write(name);
    app.state.FileSpec = "song [1].MP3";
    ChangeFolderTags(app, app.folder.Path());
    EXPECT_TRUE(IsChanged("Song [1].mp3"));
    EXPECT_FALSE(IsChanged("Song 1.mp3"));
}

TEST_F(ChangeTagsWalkersTest, Folder_OtherKindsThatTheMaskMeans_StayAsTheyAre) {
    for (const char* name : {"a.mp3", "b.txt", "c.wav"}) Write(name);
    app.state.FileSpec = "*.*";
    ChangeFolderTags(app, app.folder.Path());
    EXPECT_TRUE(IsChanged("a.mp3"));
    EXPECT_EQ(app.folder.Read("b.txt"), Mp3().Size(1000).Bytes());
    EXPECT_EQ(app.folder.Read("c.wav"), Mp3().Size(1000).Bytes());
}

TEST_F(ChangeTagsWalkersTest, Tree_LinksToParents_ComesToAnEnd) {
    for (const char* name : {"a.mp3", "one/b.mp3", "one/two/c.mp3", "ONE.mp3"}) Write(name);
    std::filesystem::create_directory_symlink(app.folder.Path(), app.folder / "one/up");
    std::filesystem::create_directory_symlink("..", app.folder / "one/two/parent");
    ChangeFolderTreeTags(app, app.folder.Path());
    for (const char* name : {"a.mp3", "one/b.mp3", "one/two/c.mp3", "ONE.mp3"})
        EXPECT_TRUE(IsChanged(name)) << name;
}

TEST_F(ChangeTagsWalkersTest, Tree_Steps_HaveTheSubfolderInFront) {
    for (const char* name : {"a.mp3", "one/two/c.mp3"}) Write(name);
    std::ostringstream steps;
    app.steps = &steps;
    ChangeFolderTreeTags(app, app.folder.Path());
    EXPECT_EQ(steps.str(),
              "tags: a.mp3: Artist \"\" -> \"New\"\ntags: one/two/c.mp3: Artist \"\" -> \"New\"\n");
}

TEST_F(ChangeTagsWalkersTest, FileWhoseWritingFails_IsToldAndTheOthersFollow) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) Write(name);
    // More bytes to fill up than the writer counts.
    app.folder.Write("b.mp3", Id3v2("", 40000) + Mp3().Size(1000).Bytes());
    app.state.OptGenre = std::string(200, 'g');
    ChangeFolderTags(app, app.folder.Path());
    EXPECT_TRUE(IsChanged("a.mp3"));
    EXPECT_TRUE(IsChanged("c.mp3"));
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_NE(app.desktop.boxes[0].text.find("Error #6"), std::string::npos);
    EXPECT_NE(app.desktop.boxes[0].text.find(app.folder / "b.mp3"), std::string::npos);
}

TEST_F(ChangeTagsWalkersTest, Job_WorksInTheFolderThatTheMaskNames) {
    for (const char* name : {"a.mp3", "one/b.mp3", "one/two/c.mp3"}) Write(name);
    app.state.FileSpec = "one\\*.mp3";
    ChangeTagsJob(app);
    EXPECT_FALSE(IsChanged("a.mp3"));
    EXPECT_TRUE(IsChanged("one/b.mp3"));
    EXPECT_FALSE(IsChanged("one/two/c.mp3"));
    app.state.ProcessSubfolders = true;
    app.state.FileSpec = "*.mp3";
    ChangeTagsJob(app);
    EXPECT_TRUE(IsChanged("a.mp3"));
    EXPECT_TRUE(IsChanged("one/two/c.mp3"));
}

TEST_F(ChangeTagsWalkersTest, Job_UnknownWordWithASlash_MeansNoFile) {
    Write("a.mp3");
    app.state.FileSpec = "/a.mp3";
    ChangeTagsJob(app);
    EXPECT_FALSE(IsChanged("a.mp3"));
}

TEST_F(ChangeTagsWalkersTest, LinkToAFile_TheFileBehindItIsWrittenAndTheLinkStays) {
    Write("store/real.mp3");
    std::filesystem::create_symlink("store/real.mp3", app.folder / "link.mp3");
    std::filesystem::create_symlink("nothing.mp3", app.folder / "dangling.mp3");
    ChangeFolderTags(app, app.folder.Path());
    EXPECT_TRUE(IsChanged("store/real.mp3"));
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "link.mp3"));
    EXPECT_FALSE(app.folder.Exists("nothing.mp3"));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

}  // namespace
}  // namespace zefta::test
