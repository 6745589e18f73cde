// The Ogg Vorbis decoder writes over "a.wav", whatever it is: what of the person's files stands where
// afterwards.

#include <algorithm>
#include <filesystem>
#include <map>
#include <unistd.h>

#include <gtest/gtest.h>

#include "encoding/Decode.h"
#include "encoding/SetAside.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

using Strings = std::vector<std::string>;
using Contents = std::map<std::string, std::string>;

Contents FilesOf(const std::string& folder) {
    Contents files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file())
            files[entry.path().filename().string()] = ReadWholeFile(entry.path().string());
    }
    return files;
}

class DecodeSetAsideTest : public ::testing::Test {
  protected:
    DecodeSetAsideTest() { app.state.TrimSilence = false; }

    /// The decoder leaves these bytes in a.wav, as the real one does: by opening it for writing.
    void PlayDecoder(const std::string& bytes) {
        app.processes.tool = [this, bytes](const auto&) { app.folder.Write("a.wav", bytes); };
    }

    void Decode() { DecodeFile(app, app.folder / "a.ogg"); }
    Contents Files() const { return FilesOf(app.folder.Path()); }

    TestApp app;
};

TEST_F(DecodeSetAsideTest, PersonsFile_ComesBackBesideTheDecodedOne) {
    app.folder.Write("a.wav", "mine");
    PlayDecoder("decoded");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", "decoded"}}));
}

TEST_F(DecodeSetAsideTest, DuringTheRun_TheFileHasANameThatAPersonFinds) {
    app.folder.Write("a.wav", "mine");
    Contents during;
    app.processes.tool = [&](const auto&) { during = Files(); };
    Decode();
    EXPECT_EQ(during, Contents({{"a (set aside).wav", "mine"}}));
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}}));
}

TEST_F(DecodeSetAsideTest, NameForAsideIsTaken_AnotherIsFound) {
    app.folder.Write("a.wav", "mine");
    app.folder.Write("a (set aside).wav", "left by a run that was killed");
    std::filesystem::create_directory(app.folder / "a (set aside 2).wav");
    Contents during;
    app.processes.tool = [&](const auto&) { during = Files(); };
    Decode();
    EXPECT_EQ(during["a (set aside 3).wav"], "mine");
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a (set aside).wav", "left by a run that was killed"}}));
}

TEST_F(DecodeSetAsideTest, ToolThatFails_TheFileComesBack) {
    app.folder.Write("a.wav", "mine");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}}));
}

TEST_F(DecodeSetAsideTest, ToolThatLeavesAnEmptyOrHalfFile_TheFileComesBack) {
    app.folder.Write("a.wav", "mine");
    PlayDecoder("");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", ""}}));
    PlayDecoder("dec");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", "dec"}}));
}

TEST_F(DecodeSetAsideTest, FailureInTheMiddle_TheFileComesBack) {
    app.folder.Write("a.wav", "mine");
    app.processes.tool = [](const auto&) { throw RuntimeError(ErrorNumber::OutOfMemory); };
    EXPECT_EQ(RuntimeErrorOf([&] { Decode(); }), 7);
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}}));
}

TEST_F(DecodeSetAsideTest, FormerDecodedFile_IsReplaced) {
    app.folder.Write("a.ogg.wav", "of a former run");
    PlayDecoder("decoded");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.ogg.wav", "decoded"}}));
    app.folder.Write("a.wav", "mine");
    PlayDecoder("decoded again");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", "decoded again"}}));
}

TEST_F(DecodeSetAsideTest, FormerDecodedFile_IsNotReplacedByAFailedRun) {
    app.folder.Write("a.ogg.wav", "of a former run");
    app.folder.Write("a.wav", "mine");
    for (const bool leavesEmptyFile : {true, false}) {
        app.processes.tool = nullptr;
        if (leavesEmptyFile) PlayDecoder("");
        Decode();
        EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", "of a former run"}}));
    }
}

TEST_F(DecodeSetAsideTest, ReadOnlyFormerFile_IsKeptAndTheDecodedOneHasAFreeName) {
    app.files.SetReadOnly(app.folder.Write("a.ogg.wav", "protected"), true);
    app.folder.Write("a.wav", "mine");
    PlayDecoder("decoded");
    EXPECT_EQ(RuntimeErrorOf([&] { Decode(); }), 70);
    EXPECT_EQ(Files(),
              Contents({{"a.wav", "mine"}, {"a.ogg.wav", "protected"}, {"a.ogg (decoded).wav", "decoded"}}));
}

TEST_F(DecodeSetAsideTest, FolderOfTheDecodedName_IsKeptAndTheDecodedOneHasAFreeName) {
    std::filesystem::create_directory(app.folder / "a.ogg.wav");
    PlayDecoder("decoded");
    EXPECT_EQ(RuntimeErrorOf([&] { Decode(); }), 58);
    EXPECT_EQ(Files(), Contents({{"a.ogg (decoded).wav", "decoded"}}));
}

TEST_F(DecodeSetAsideTest, FileInAnotherCase_KeepsItsSpellingAndIsNoOutput) {
    app.folder.Write("A.WAV", "mine");
    Decode();
    EXPECT_EQ(Files(), Contents({{"A.WAV", "mine"}}));
    PlayDecoder("decoded");
    Decode();
    EXPECT_EQ(Files(), Contents({{"A.WAV", "mine"}, {"a.ogg.wav", "decoded"}}));
}

TEST_F(DecodeSetAsideTest, TwoFilesThatDifferInCase_NothingIsRun) {
    app.folder.Write("A.WAV", "mine");
    app.folder.Write("a.wav", "mine too");
    PlayDecoder("decoded");
    EXPECT_EQ(RuntimeErrorOf([&] { Decode(); }), 58);
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(Files(), Contents({{"A.WAV", "mine"}, {"a.wav", "mine too"}}));
}

TEST_F(DecodeSetAsideTest, ReadOnlyFile_ComesBackReadOnly) {
    app.files.SetReadOnly(app.folder.Write("a.wav", "mine"), true);
    PlayDecoder("decoded");
    Decode();
    EXPECT_EQ(Files(), Contents({{"a.wav", "mine"}, {"a.ogg.wav", "decoded"}}));
    EXPECT_TRUE(app.files.IsReadOnly(app.folder / "a.wav"));
    EXPECT_FALSE(app.files.IsReadOnly(app.folder / "a.ogg.wav"));
}

TEST_F(DecodeSetAsideTest, Link_ComesBackAndIsNotWrittenThrough) {
    PlayDecoder("decoded");
    for (const char* target : {"far.wav", "nowhere.wav"}) {
        app.folder.Write("far.wav", "mine");
        std::filesystem::remove(app.folder / "a.wav");
        ASSERT_EQ(symlink(target, (app.folder / "a.wav").c_str()), 0);
        Decode();
        EXPECT_EQ(std::filesystem::read_symlink(app.folder / "a.wav"), target);
        EXPECT_EQ(app.folder.Read("far.wav"), "mine");
        EXPECT_EQ(app.folder.Read("a.ogg.wav"), "decoded");
        EXPECT_FALSE(std::filesystem::exists(app.folder / "nowhere.wav"));
    }
}

TEST_F(DecodeSetAsideTest, FolderOfThatName_Stays) {
    std::filesystem::create_directory(app.folder / "a.wav");
    app.folder.Write("a.wav/inside", "mine");
    Decode();
    EXPECT_EQ(app.folder.Read("a.wav/inside"), "mine");
}

TEST_F(DecodeSetAsideTest, OtherDecoders_LeaveTheFileWhereItIs) {
    app.folder.Write("a.wav", "mine");
    Contents during;
    app.processes.tool = [&](const auto&) { during = Files(); };
    for (const char* name : {"a.mp3", "a.mpc"}) {
        DecodeFile(app, app.folder / name);
        EXPECT_EQ(during, Contents({{"a.wav", "mine"}}));
    }
}

TEST_F(DecodeSetAsideTest, NameTooLongToSetAside_RunsNothing) {
    const std::string stem(250, 'a');
    app.folder.Write(stem + ".wav", "mine");
    EXPECT_NE(RuntimeErrorOf([&] { DecodeFile(app, app.folder / (stem + ".ogg")); }), 0);
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(Files(), Contents({{stem + ".wav", "mine"}}));
}

/// At whatever operation the disk begins to fail, all that is worth something is in the folder.
TEST(DecodeFaults, AnyOperationFails_NothingIsLost) {
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1; nth <= 6; ++nth) {
            PosixFileSystem disk;
            FaultInjectingFileSystem failing(disk);
            TestApp app(&failing);
            app.state.TrimSilence = false;
            app.folder.Write("a.wav", "mine");
            app.folder.Write("a.ogg.wav", "former");
            app.processes.tool = [&](const auto&) { app.folder.Write("a.wav", "decoded"); };
            failing.faults.plan = {mode, nth, ErrorNumber::DeviceIoError};
            const int error = RuntimeErrorOf([&] { DecodeFile(app, app.folder / "a.ogg"); });
            Strings found;
            for (const auto& file : FilesOf(app.folder.Path())) found.push_back(file.second);
            EXPECT_TRUE(std::count(found.begin(), found.end(), "mine") == 1) << nth;
            EXPECT_EQ(std::count(found.begin(), found.end(), "decoded"), app.processes.runs.size()) << nth;
            const bool failed = failing.faults.operations >= nth;
            EXPECT_EQ(error, failed ? 57 : 0) << nth;
            if (mode == FaultPlan::Mode::OnlyTheNth) {
                EXPECT_EQ(app.folder.Read("a.wav"), "mine") << nth;
            }
        }
    }
}

TEST(SetAside, PutBackThatFails_NamesTheFile) {
    TestApp app;
    app.folder.Write("a.wav", "mine");
    SetAside former(app.files);
    former.Take(app.folder / "a.wav");
    EXPECT_TRUE(former.IsAway());
    app.folder.Write("a.wav", "somebody else's");
    try {
        former.PutBack();
        FAIL() << "no failure";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(), "File already exists: " + (app.folder / "a (set aside).wav"));
    }
}

TEST(SetAside, RelativePath_CountsFromTheCurrentFolder) {
    TestApp app;
    app.folder.Write("a.wav", "mine");
    {
        SetAside former(app.files);
        former.Take("a.wav");
        EXPECT_FALSE(app.folder.Exists("a.wav"));
    }
    EXPECT_EQ(app.folder.Read("a.wav"), "mine");
}

TEST(FreePathBeside, LabelAndNumber_StandBeforeTheExtension) {
    TestApp app;
    EXPECT_EQ(FreePathBeside(app.files, "/m.x/a.b.wav", "new"), "/m.x/a.b (new).wav");
    EXPECT_EQ(FreePathBeside(app.files, "/m.x/a", "new"), "/m.x/a (new)");
    EXPECT_EQ(FreePathBeside(app.files, "a.wav", "new"), "a (new).wav");
    app.folder.Write("A (NEW).wav", "");
    EXPECT_EQ(FreePathBeside(app.files, "a.wav", "new"), "a (new 2).wav");
}

}  // namespace
}  // namespace zefta::test
