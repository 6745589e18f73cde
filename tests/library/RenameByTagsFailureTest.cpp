#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/Version.h"
#include "library/RenameByTags.h"
#include "platform/Text.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using Mode = FaultPlan::Mode;

std::string SongWithoutFrames(const std::string& artist, const std::string& title) {
    return Mp3().Behind(Id3v1{.title = title, .artist = artist}.Bytes()).Bytes();
}

/// The moving half alone, so that the first operation that reaches the disk is the first move or, with a
/// folder, its making.
class RenameFailureTest : public ::testing::Test {
  protected:
    RenameFailureTest() {
        app.steps = &steps;
        app.folder.Write("old.mp3", "audio");
    }

    std::string Rename(const NewFileName& wanted, FaultPlan faults = {}) {
        files.faults.plan = faults;
        RenamePlan plan;
        plan.extension = ".MP3";
        plan.wanted = wanted;
        std::string name = "old.mp3";
        EXPECT_EQ(RenameAsPlanned(app, plan, app.folder.Path(), name).result, 0);
        return name;
    }

    void TakeNames(const std::string& name, int last) {
        app.folder.Write(name + ".MP3", "other");
        for (int i = 2; i <= last; ++i) app.folder.Write(name + " {" + std::to_string(i) + "}.MP3", "other");
    }

    bool IsAt(const std::string& name) const {
        return app.folder.Exists(name) && app.folder.Read(name) == "audio";
    }

    std::string Path(const std::string& name) const { return app.folder / name; }

    void ExpectFileQuestion(std::size_t index, const std::string& defaultAnswer) const {
        ASSERT_LT(index, app.desktop.questions.size());
        const ScriptedDesktop::Question& question = app.desktop.questions[index];
        EXPECT_EQ(question.text, "Operating system reports that the filename given is incorrect.");
        EXPECT_EQ(question.caption, "Incorrect filename");
        EXPECT_EQ(question.defaultAnswer, defaultAnswer);
    }

    void ExpectFolderQuestion(const std::string& defaultAnswer) const {
        ASSERT_FALSE(app.desktop.questions.empty());
        const ScriptedDesktop::Question& question = app.desktop.questions[0];
        EXPECT_EQ(question.text, "Operating system reports that the folder name given is incorrect.");
        EXPECT_EQ(question.caption, "Incorrect folder name");
        EXPECT_EQ(question.defaultAnswer, defaultAnswer);
    }

    void ExpectWarnings(const std::vector<std::string>& texts) const {
        std::vector<std::string> shown;
        for (const ScriptedDesktop::Box& box : app.desktop.boxes) {
            EXPECT_EQ(box.kind, BoxKind::Warning);
            EXPECT_EQ(box.caption, ApplicationTitle());
            shown.push_back(box.text);
        }
        EXPECT_EQ(shown, texts);
    }

    static std::string StillIncorrect(const std::string& name) {
        return "Operating system still reports that the filename given is incorrect: " + name +
               ". Please check the name and be sure this file isn't in use by any other application.";
    }

    PosixFileSystem disk;
    FaultInjectingFileSystem files{disk};
    TestApp app{&files};
    std::ostringstream steps;
};

TEST_F(RenameFailureTest, MoveFails_ThePersonGivesAName) {
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 1}), "b.MP3");
    EXPECT_TRUE(IsAt("b.MP3"));
    ExpectFileQuestion(0, "a");
    ExpectWarnings({});
    EXPECT_EQ(steps.str(), "rename: old.mp3 -> b.MP3\n");
}

TEST_F(RenameFailureTest, MoveFailsTwice_FileKeepsItsNameButForTheExtension) {
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "a"}, {Mode::FromTheNthOn, 1}), "old.MP3");
    EXPECT_TRUE(IsAt("old.mp3"));
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    ExpectWarnings({StillIncorrect("old.mp3")});
    EXPECT_EQ(steps.str(), "refused: old.mp3: Disk full: b.MP3\n");
}

TEST_F(RenameFailureTest, MoveFails_Cancel_IsAnEmptyName) {
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 1}), ".MP3");
    EXPECT_TRUE(IsAt(".MP3"));
    ExpectWarnings({});
}

TEST_F(RenameFailureTest, MoveFails_CancelAndTheEmptyNameIsTaken_FileStays) {
    app.folder.Write(".MP3", "other");
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 1}), "old.MP3");
    EXPECT_TRUE(IsAt("old.mp3"));
    EXPECT_EQ(app.folder.Read(".MP3"), "other");
    ExpectWarnings({StillIncorrect("old.mp3")});
}

TEST_F(RenameFailureTest, MoveFails_AnswerIsTaken_IsNotNumbered) {
    app.folder.Write("b.MP3", "other");
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 1}), "old.MP3");
    EXPECT_TRUE(IsAt("old.mp3"));
    EXPECT_FALSE(app.folder.Exists("b {2}.MP3"));
    ExpectWarnings({StillIncorrect("old.mp3")});
}

TEST_F(RenameFailureTest, FolderOfTheNameIsAbsent_ThePersonIsAsked) {
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "none/a"}), "b.MP3");
    ExpectFileQuestion(0, "none/a");
}

TEST_F(RenameFailureTest, NameTooLong_ThePersonIsAsked) {
    app.desktop.inputs = {"b"};
    const std::string name(252, 'x');
    EXPECT_EQ(Rename({"", name}), "b.MP3");
    ExpectFileQuestion(0, name);
}

TEST_F(RenameFailureTest, EveryError_LeadsToTheQuestion) {
    for (const ErrorNumber error :
         {ErrorNumber::BadFileName, ErrorNumber::FileNotFound, ErrorNumber::DeviceIoError,
          ErrorNumber::FileAlreadyExists, ErrorNumber::DiskFull, ErrorNumber::PermissionDenied,
          ErrorNumber::PathFileAccess, ErrorNumber::PathNotFound}) {
        app.desktop.inputs = {"b"};
        files.faults.operations = 0;
        EXPECT_EQ(Rename({"", "a"}, {Mode::FromTheNthOn, 1, error}), "old.MP3");
        EXPECT_TRUE(app.desktop.inputs.empty());
        EXPECT_TRUE(IsAt("old.mp3"));
    }
}

TEST_F(RenameFailureTest, NameTaken_GetsTheFirstFreeNumber) {
    TakeNames("a", 4);
    EXPECT_EQ(Rename({"", "a"}), "a {5}.MP3");
    EXPECT_TRUE(IsAt("a {5}.MP3"));
    EXPECT_EQ(steps.str(), "collision: a.MP3 is taken\nrename: old.mp3 -> a {5}.MP3\n");
}

TEST_F(RenameFailureTest, NumberUpTo99_IsGiven) {
    TakeNames("a", 98);
    EXPECT_EQ(Rename({"", "a"}), "a {99}.MP3");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameFailureTest, All99Taken_ThePersonIsAsked) {
    TakeNames("a", 99);
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "a"}), "b.MP3");
    EXPECT_TRUE(IsAt("b.MP3"));
    ExpectFileQuestion(0, "a");
    ExpectWarnings({});
}

TEST_F(RenameFailureTest, All99TakenAndTheAnswerToo_TheWholePathIsTold) {
    TakeNames("a", 99);
    app.desktop.inputs = {"a {7}"};
    EXPECT_EQ(Rename({"", "a"}), "old.MP3");
    EXPECT_TRUE(IsAt("old.mp3"));
    EXPECT_EQ(app.folder.Read("a {7}.MP3"), "other");
    ExpectWarnings({StillIncorrect(Path("a {7}.MP3"))});
}

TEST_F(RenameFailureTest, DiskFailsInTheCount_NameKeepsWhatItGained) {
    TakeNames("a", 1);
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 2}), "a {2} {3}.MP3");
    EXPECT_TRUE(IsAt("a {2} {3}.MP3"));
}

TEST_F(RenameFailureTest, DiskFailsInTheCount_LaterNamesThatAreTaken_ArePassedOver) {
    TakeNames("a", 2);
    app.folder.Write("a {3} {4}.MP3", "other");
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 2}), "a {3} {5}.MP3");
}

TEST_F(RenameFailureTest, DiskFailsForGood_TheLongNameIsTheDefaultAndFitsTheFileSystem) {
    TakeNames("a", 1);
    app.desktop.inputs = {"b"};
    EXPECT_EQ(Rename({"", "a"}, {Mode::FromTheNthOn, 2}), "old.MP3");
    EXPECT_EQ(files.faults.operations, 1 + 98 + 1);
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    const std::string offered = app.desktop.questions[0].defaultAnswer;
    EXPECT_TRUE(offered.starts_with("a {2} {3} {4}")) << offered;
    EXPECT_TRUE(offered.ends_with(" {99}")) << offered;
    EXPECT_LE(offered.size(), 251U);
    ExpectWarnings({StillIncorrect(Path("b.MP3"))});
}

TEST_F(RenameFailureTest, OldNameThatIsNoUtf8_IsToldAsText) {
    app.folder.Write("\xE9.mp3", "x");
    std::string name = "\xE9.mp3";
    RenamePlan plan;
    plan.extension = ".MP3";
    plan.wanted = {"", "none/a"};
    app.desktop.inputs = {"none/b"};
    EXPECT_EQ(RenameAsPlanned(app, plan, app.folder.Path(), name).result, 0);
    EXPECT_EQ(name, "\xE9.MP3");
    ExpectWarnings({StillIncorrect("é.mp3")});
}

TEST_F(RenameFailureTest, DeadLinkHasTheName_CountsAsTaken) {
    std::filesystem::create_symlink("nowhere", Path("a.MP3"));
    EXPECT_EQ(Rename({"", "a"}), "a {2}.MP3");
    EXPECT_TRUE(IsAt("a {2}.MP3"));
    EXPECT_TRUE(std::filesystem::is_symlink(Path("a.MP3")));
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameFailureTest, DeadLinkHasANumberedName_ItsNumberIsNotKept) {
    TakeNames("a", 1);
    std::filesystem::create_symlink("nowhere", Path("a {2}.MP3"));
    std::filesystem::create_symlink("nowhere", Path("A {3}.mp3"));
    EXPECT_EQ(Rename({"", "a"}), "a {4}.MP3");
    EXPECT_TRUE(IsAt("a {4}.MP3"));
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(RenameFailureTest, FolderIsThereInAnotherCase_TheNameHasTheSpellingOfTheDisk) {
    std::filesystem::create_directory(Path("abba"));
    EXPECT_EQ(Rename({"ABBA", "SongWithoutFrames"}), "abba/SongWithoutFrames.MP3");
    EXPECT_TRUE(IsAt("abba/SongWithoutFrames.MP3"));
}

TEST_F(RenameFailureTest, FolderIsALink_KeepsTheNameOfTheLink) {
    std::filesystem::create_directory(Path("elsewhere"));
    std::filesystem::create_directory_symlink("elsewhere", Path("ABBA"));
    EXPECT_EQ(Rename({"ABBA", "SongWithoutFrames"}), "ABBA/SongWithoutFrames.MP3");
    EXPECT_TRUE(IsAt("elsewhere/SongWithoutFrames.MP3"));
}

TEST_F(RenameFailureTest, FolderFails_AnswerInAnotherCase_HasTheSpellingOfTheDisk) {
    app.folder.Write("Artist", "x");
    std::filesystem::create_directory(Path("other"));
    app.desktop.inputs = {"OTHER"};
    EXPECT_EQ(Rename({"Artist", "Title"}), "other/Title.MP3");
}

TEST_F(RenameFailureTest, FolderFails_AnswerWithBackslash_IsAPath) {
    app.folder.Write("Artist", "x");
    std::filesystem::create_directory(Path("sub"));
    app.desktop.inputs = {"sub\\New"};
    EXPECT_EQ(Rename({"Artist", "Title"}), "sub/New/Title.MP3");
    EXPECT_TRUE(IsAt("sub/New/Title.MP3"));
}

TEST_F(RenameFailureTest, MoveFails_AnswerWithBackslash_IsAPath) {
    std::filesystem::create_directory(Path("sub"));
    app.desktop.inputs = {"sub\\b"};
    EXPECT_EQ(Rename({"", "a"}, {Mode::OnlyTheNth, 1}), "sub/b.MP3");
    EXPECT_TRUE(IsAt("sub/b.MP3"));
}

TEST_F(RenameFailureTest, MoveFails_NameOfferedIsConfirmed_KeepsItsBackslash) {
    app.desktop.inputs = {"a\\b"};
    EXPECT_EQ(Rename({"", "a\\b"}, {Mode::OnlyTheNth, 1}), "a\\b.MP3");
    EXPECT_TRUE(IsAt("a\\b.MP3"));
}

TEST_F(RenameFailureTest, FolderFails_ThePersonGivesAnother) {
    app.desktop.inputs = {"Other"};
    EXPECT_EQ(Rename({"Artist", "Title"}, {Mode::OnlyTheNth, 1}), "Other/Title.MP3");
    EXPECT_TRUE(IsAt("Other/Title.MP3"));
    EXPECT_FALSE(app.folder.Exists("Artist"));
    ExpectFolderQuestion("Artist");
    ExpectWarnings({});
    EXPECT_TRUE(steps.str().ends_with("folder: Other\nrename: old.mp3 -> Other/Title.MP3\n")) << steps.str();
}

TEST_F(RenameFailureTest, FolderFails_AnswerIsAFolderThatIsThere) {
    std::filesystem::create_directory(Path("Other"));
    app.desktop.inputs = {"Other"};
    EXPECT_EQ(Rename({"Artist", "Title"}, {Mode::OnlyTheNth, 1}), "Other/Title.MP3");
}

TEST_F(RenameFailureTest, FolderFails_Cancel_IsTheFolderItself) {
    EXPECT_EQ(Rename({"Artist", "Title"}, {Mode::OnlyTheNth, 1}), "Title.MP3");
    EXPECT_TRUE(IsAt("Title.MP3"));
}

TEST_F(RenameFailureTest, FolderIsAFile_ThePersonIsAsked) {
    app.folder.Write("Artist", "x");
    app.desktop.inputs = {"Other"};
    EXPECT_EQ(Rename({"Artist", "Title"}), "Other/Title.MP3");
    EXPECT_EQ(app.folder.Read("Artist"), "x");
}

TEST_F(RenameFailureTest, FolderFailsTwice_IsToldAndTheMoveIsTriedAllTheSame) {
    app.folder.Write("Artist", "x");
    app.desktop.inputs = {"none/Other", "Plain"};
    EXPECT_EQ(Rename({"Artist", "Title"}), "Plain.MP3");
    EXPECT_TRUE(IsAt("Plain.MP3"));
    ExpectFolderQuestion("Artist");
    ExpectFileQuestion(1, "Artist/Title");
    ExpectWarnings({"Operating system still reports that the folder name given is incorrect: none/Other"});
}

TEST_F(RenameFailureTest, EverythingRefused_FileStays) {
    app.desktop.inputs = {"Other", "Plain"};
    EXPECT_EQ(Rename({"Artist", "Title"}, {Mode::FromTheNthOn, 1}), "old.MP3");
    EXPECT_TRUE(IsAt("old.mp3"));
    EXPECT_EQ(app.desktop.boxes.size(), 2U);
}

/// Whole calls on files whose tags were made to do harm.
class RenameHostileTest : public ::testing::Test {
  protected:
    /// The new name of a file with that tag, which must lie where the name says, in the folder itself.
    std::string Renamed(const std::string& name, const std::string& bytes, int mode) {
        app.folder.Write(name, bytes);
        std::string newName = name;
        EXPECT_EQ(wave.RenameFileByTAGsData(app.folder.Path(), newName, mode), 0);
        EXPECT_EQ(app.folder.Read(newName), bytes) << newName;
        EXPECT_TRUE(app.desktop.questions.empty());
        EXPECT_TRUE(app.desktop.boxes.empty());
        return newName;
    }

    static std::string OggSong(const std::string& artist, const std::string& title) {
        return Ogg().Comment("ARTIST=" + artist).Comment("TITLE=" + title).Bytes();
    }

    TestApp app;
    WaveFile wave = WaveFile(app);
};

TEST_F(RenameHostileTest, NamesThatLeadElsewhere_StayInTheFolder) {
    EXPECT_EQ(Renamed("a.ogg", OggSong("..", "/etc/passwd"), 1), ".. - _etc_passwd.ogg");
    EXPECT_EQ(Renamed("a.ogg", OggSong("../", "..\\x"), 4), ".._/.._x.ogg");
    EXPECT_EQ(Renamed("a.ogg", OggSong("/", "/"), 5), "__-__.ogg");
}

TEST_F(RenameHostileTest, ControlCharacters_AreReplaced) {
    EXPECT_EQ(Renamed("a.ogg", OggSong("A\n\x1B[2J", "\u0085T\x7F"), 1), "A__[2J - _T_.ogg");
    EXPECT_EQ(Renamed("a.ogg", OggSong("A\r\n", "T\t"), 5), "A___-_T_.ogg");
}

TEST_F(RenameHostileTest, NamesOfDotsAndBlanks_AreNamesAllTheSame) {
    EXPECT_EQ(Renamed("a.ogg", OggSong("...", "..."), 1), "... -.ogg");
    EXPECT_EQ(Renamed("c.ogg", OggSong("....", "x"), 4), "x.ogg");
}

TEST_F(RenameHostileTest, NamesOfDevices_AreChanged) {
    EXPECT_EQ(Renamed("a.ogg", OggSong("A", "CON"), 3), "CON_.ogg");
    EXPECT_EQ(Renamed("a.ogg", OggSong("aux", "nul.x"), 4), "aux_/nul_.x.ogg");
}

TEST_F(RenameHostileTest, LongFields_AreCut) {
    const std::string mpc =
        Mpc7(100) +
        Ape().Item("Artist", std::string(10000, 'A')).Item("Title", std::string(10000, 'T')).Bytes();
    for (int mode = 1; mode <= 5; ++mode) {
        const std::string name = Renamed("a.mpc", mpc, mode);
        EXPECT_TRUE(name.ends_with(".mpc"));
        EXPECT_LE(name.substr(name.find('/') + 1).size(), 255U);
    }
    app.state.CustomRenameTemplate = "%A%T%A";
    Renamed("a.mpc", mpc, 6);
}

TEST_F(RenameHostileTest, BytesThatAreNoUtf8_GiveAValidName) {
    const std::string mpc = Mpc7(100) + Ape().Item("Artist", "A\xFF").Item("Title", "\xC3(").Bytes();
    for (int mode = 1; mode <= 5; ++mode) EXPECT_TRUE(IsValidUtf8(Renamed("a.mpc", mpc, mode)));
}

TEST_F(RenameHostileTest, EveryFileSystemFailure_LeavesTheFileUnderOneOfItsNames) {
    const std::string bytes = SongWithoutFrames("Artist", "Title");
    PosixFileSystem disk;
    for (int nth = 1; nth < 12; ++nth) {
        for (const Mode mode : {Mode::OnlyTheNth, Mode::FromTheNthOn}) {
            FaultInjectingFileSystem files(disk);
            TestApp world(&files);
            world.folder.Write("a.mp3", bytes);
            world.desktop.inputs = {"Folder", "Name"};
            files.faults.plan = {mode, nth, ErrorNumber::DeviceIoError};
            WaveFile file(world);
            std::string name = "a.mp3";
            RuntimeErrorOf([&] { file.RenameFileByTAGsData(world.folder.Path(), name, 4); });
            int found = 0;
            for (const auto& entry : std::filesystem::recursive_directory_iterator(world.folder.Path())) {
                if (entry.is_regular_file()) found += ReadWholeFile(entry.path()) == bytes;
            }
            EXPECT_EQ(found, 1) << nth;
        }
    }
}

}  // namespace
}  // namespace zefta::test
