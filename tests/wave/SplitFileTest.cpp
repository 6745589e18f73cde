#include <filesystem>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "wave/ByteRange.h"
#include "wave/SplitFile.h"
#include "wave/WaveStage.h"

namespace zefta::test {
namespace {

constexpr std::size_t PartBlock = ByteRangeBlock;

/// The only box, with its path beside the folder of the test.
void ExpectOneWarning(const TestApp& app, const std::string& text) {
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, text);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
}

std::string CannotCreate(const TestApp& app, const std::string& name) {
    return "File \"" + app.files.CurrentFolder() + "/" + name + "\" could not be created.";
}

}  // namespace

TEST(SplitFile, AnyOffset_DividesAllBytes) {
    const std::string bytes = Audio(2 * PartBlock + 100);
    for (const std::size_t offset : {std::size_t{1}, PartBlock - 1, PartBlock, PartBlock + 1, 2 * PartBlock,
                                     bytes.size() - 1, bytes.size()}) {
        TestApp app;
        app.folder.Write("a.mp3", bytes);
        SplitFile(app, "a.mp3", static_cast<std::int32_t>(offset));
        EXPECT_TRUE(SameBytes(app.folder.Read("b_a.mp3"), bytes.substr(0, offset))) << offset;
        EXPECT_TRUE(SameBytes(app.folder.Read("e_a.mp3"), bytes.substr(offset))) << offset;
        EXPECT_TRUE(SameBytes(app.folder.Read("a.mp3"), bytes)) << offset;
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(SplitFile, OffsetOf0OrBelow_GivesAnEmptyBeginAndAFullEnd) {
    for (const std::int32_t offset : {0, -1, -20000}) {
        TestApp app;
        app.folder.Write("a.wav", Audio(PartBlock + 5));
        SplitFile(app, "a.wav", offset);
        EXPECT_TRUE(app.folder.Exists("b_a.wav"));
        EXPECT_EQ(app.folder.Read("b_a.wav"), "");
        EXPECT_TRUE(SameBytes(app.folder.Read("e_a.wav"), Audio(PartBlock + 5))) << offset;
    }
}

TEST(SplitFile, OffsetBeyondTheEnd_GivesAFullBeginAndAnEmptyEnd) {
    for (const std::int32_t offset : {1001, 50000, 500000000}) {
        TestApp app;
        app.folder.Write("a.wav", Audio(1000));
        SplitFile(app, "a.wav", offset);
        EXPECT_EQ(app.folder.Read("b_a.wav"), Audio(1000));
        EXPECT_TRUE(app.folder.Exists("e_a.wav"));
        EXPECT_EQ(app.folder.Read("e_a.wav"), "");
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(SplitFile, EmptyFile_GivesTwoEmptyParts) {
    TestApp app;
    app.folder.Write("a.wav", "");
    SplitFile(app, "a.wav", 10);
    EXPECT_TRUE(app.folder.Exists("b_a.wav") && app.folder.Exists("e_a.wav"));
    EXPECT_EQ(app.folder.Read("b_a.wav") + app.folder.Read("e_a.wav"), "");
}

TEST(SplitFile, EachBlock_ServesTheDesktop) {
    TestApp app;
    app.folder.Write("a.wav", Audio(3 * PartBlock + 1));
    SplitFile(app, "a.wav", static_cast<std::int32_t>(2 * PartBlock));
    EXPECT_EQ(app.desktop.servedEvents, 4);
}

TEST(SplitFile, MoreBlocksThanTheCounterHolds_Fails6BeforeAnythingIsWritten) {
    TestApp app;
    app.folder.Write("a.wav", Audio(1000));
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "a.wav", 32768 * 16384); }), 6);
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "a.wav", -32768 * 16384); }), 6);
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "a.wav", -2147483647 - 1); }), 6);
    std::filesystem::resize_file("a.wav", std::uintmax_t{32768} * 16384);
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "a.wav", 0); }), 6);
    EXPECT_FALSE(app.folder.Exists("b_a.wav"));
    EXPECT_FALSE(app.folder.Exists("e_a.wav"));
}

TEST(ByteCount, LargestThatTheCounterHolds_IsLetThrough) {
    EXPECT_EQ(RuntimeErrorOf([] { CheckByteCount(32768 * 16384 - 1); }), 0);
    EXPECT_EQ(RuntimeErrorOf([] { CheckByteCount(32768 * 16384); }), 6);
}

TEST(SplitFile, FileBeyond2GiB_Fails6BeforeAnythingIsWritten) {
    TestApp app;
    app.folder.Write("a.wav", "");
    std::filesystem::resize_file("a.wav", std::uintmax_t{1} << 32);
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "a.wav", 100); }), 6);
    EXPECT_FALSE(app.folder.Exists("b_a.wav"));
}

TEST(SplitFile, PathWithFolder_PutsThePartsThereAndMakesItCurrent) {
    TestApp app;
    app.files.CreateFolder("sub");
    app.folder.Write("sub/a.wav", "abcdef");
    SplitFile(app, "sub\\a.wav", 2);
    EXPECT_EQ(app.folder.Read("sub/b_a.wav"), "ab");
    EXPECT_EQ(app.folder.Read("sub/e_a.wav"), "cdef");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
}

TEST(SplitFile, MissingFolder_Fails76) {
    TestApp app;
    EXPECT_EQ(RuntimeErrorOf([&] { SplitFile(app, "absent/a.wav", 2); }), 76);
}

TEST(SplitFile, FileThatIsNotThere_IsToldAndNothingIsMade) {
    for (const std::string name : {"a.wav", ""}) {
        TestApp app;
        SplitFile(app, name, 2);
        ExpectOneWarning(app, "File \"" + app.folder.Path() + "/" + name + "\" could not be opened.");
        EXPECT_TRUE(std::filesystem::is_empty(app.folder.Path()));
    }
}

TEST(SplitFile, ReadOnlyFile_IsReadAllTheSame) {
    TestApp app;
    app.files.SetReadOnly(app.folder.Write("a.wav", "abcdef"), true);
    SplitFile(app, "a.wav", 2);
    EXPECT_EQ(app.folder.Read("e_a.wav"), "cdef");
    EXPECT_TRUE(app.files.IsReadOnly("a.wav"));
}

TEST(SplitFile, PartsOfAnEarlierRun_AreReplaced) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    app.folder.Write("b_a.wav", "something longer than the part");
    app.folder.Write("E_A.wav", "something longer than the part");
    SplitFile(app, "a.wav", 2);
    EXPECT_EQ(app.folder.Read("b_a.wav"), "ab");
    EXPECT_EQ(app.folder.Read("E_A.wav"), "cdef");
}

TEST(SplitFile, ReadOnlyBegin_IsToldAndNothingIsMade) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    app.files.SetReadOnly(app.folder.Write("b_a.wav", "kept"), true);
    SplitFile(app, "a.wav", 2);
    ExpectOneWarning(app, CannotCreate(app, "b_a.wav"));
    EXPECT_EQ(app.folder.Read("b_a.wav"), "kept");
    EXPECT_FALSE(app.folder.Exists("e_a.wav"));
}

TEST(SplitFile, ReadOnlyEnd_IsToldAndTheFirstFileStays) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    app.files.SetReadOnly(app.folder.Write("e_a.wav", "kept"), true);
    SplitFile(app, "a.wav", 2);
    ExpectOneWarning(app, CannotCreate(app, "e_a.wav"));
    EXPECT_EQ(app.folder.Read("e_a.wav"), "kept");
    EXPECT_TRUE(app.folder.Exists("b_a.wav"));
    EXPECT_EQ(app.folder.Read("b_a.wav"), "");
}

TEST(SplitFile, ReadOnlyEnd_LeavesAnOldBeginAsItIs) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    app.folder.Write("b_a.wav", "kept too");
    app.files.SetReadOnly(app.folder.Write("e_a.wav", "kept"), true);
    SplitFile(app, "a.wav", 2);
    ExpectOneWarning(app, CannotCreate(app, "e_a.wav"));
    EXPECT_EQ(app.folder.Read("b_a.wav"), "kept too");
    EXPECT_EQ(app.files.List(app.folder.Path()).size(), 3U);
}

TEST(SplitFile, LongestNameThatLeavesRoomForThePrefix_IsSplit) {
    TestApp app;
    const std::string name = std::string(249, 'x') + ".wav";
    app.folder.Write(name, "abcdef");
    SplitFile(app, name, 2);
    EXPECT_EQ(app.folder.Read("b_" + name), "ab");
    EXPECT_EQ(app.folder.Read("e_" + name), "cdef");
    EXPECT_EQ(app.files.List(app.folder.Path()).size(), 3U);
}

TEST(SplitFile, NameThatLeavesNoRoomForThePrefix_IsTold) {
    TestApp app;
    const std::string name = std::string(250, 'x') + ".wav";
    app.folder.Write(name, "abcdef");
    SplitFile(app, name, 2);
    ExpectOneWarning(app, CannotCreate(app, "b_" + name));
    EXPECT_EQ(app.folder.Read(name), "abcdef");
}

TEST(SplitFile, PartThatIsAnotherNameOfTheFile_IsNotEmptied) {
    for (const std::string part : {"b_a.wav", "e_a.wav"}) {
        for (const bool isSymbolic : {false, true}) {
            TestApp app;
            app.folder.Write("a.wav", "abcdef");
            if (isSymbolic) {
                std::filesystem::create_symlink("a.wav", part);
            } else {
                std::filesystem::create_hard_link("a.wav", part);
            }
            SplitFile(app, "a.wav", 2);
            ExpectOneWarning(app, CannotCreate(app, part));
            EXPECT_EQ(app.folder.Read("a.wav"), "abcdef");
        }
    }
}

TEST(SplitFile, EndThatLeadsToTheBegin_IsTold) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    std::filesystem::create_symlink("b_a.wav", "e_a.wav");
    SplitFile(app, "a.wav", 2);
    ExpectOneWarning(app, CannotCreate(app, "e_a.wav"));
}

TEST(SplitFile, NameThatIsNoText_IsKeptInThePartsAndShownThroughTheCodePage) {
    TestApp app;
    app.folder.Write("caf\xE9.wav", "abcdef");
    SplitFile(app, "caf\xE9.wav", 2);
    EXPECT_EQ(app.folder.Read("b_caf\xE9.wav"), "ab");
    EXPECT_EQ(app.folder.Read("e_caf\xE9.wav"), "cdef");
    SplitFile(app, "th\xE9.wav", 2);
    ExpectOneWarning(app, "File \"" + app.folder.Path() + "/th\xC3\xA9.wav\" could not be opened.");
}

TEST(SplitFile, FaultAtAnyOperation_LeavesTheFileAndNoHalfPart) {
    const std::string bytes = Audio(2 * PartBlock + 100);
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1;; ++nth) {
            PosixFileSystem real;
            FaultInjectingFileSystem files(real);
            TestApp app(&files);
            app.folder.Write("a.wav", bytes);
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            const int error =
                RuntimeErrorOf([&] { SplitFile(app, "a.wav", static_cast<std::int32_t>(PartBlock + 7)); });
            EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), bytes)) << nth;
            if (files.faults.operations < nth) break;
            // A temporary name that can't be had is not the last one.
            const bool isDone = app.folder.Exists("e_a.wav") &&
                                app.folder.Read("b_a.wav") + app.folder.Read("e_a.wav") == bytes;
            EXPECT_TRUE(error == 61 || app.desktop.HasComplained() || isDone) << nth;
            if (mode == FaultPlan::Mode::OnlyTheNth && error == 61) {
                EXPECT_FALSE(app.folder.Exists("b_a.wav") || app.folder.Exists("e_a.wav")) << nth;
            }
        }
    }
}

TEST(SplitFile, FaultAtAnyOperation_KeepsFilesOfTheNamesOfTheParts) {
    const std::string bytes = Audio(2 * PartBlock + 100);
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1;; ++nth) {
            PosixFileSystem real;
            FaultInjectingFileSystem files(real);
            TestApp app(&files);
            app.folder.Write("a.wav", bytes);
            app.folder.Write("b_a.wav", "old begin");
            app.folder.Write("e_a.wav", "old end");
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { SplitFile(app, "a.wav", static_cast<std::int32_t>(PartBlock)); });
            const std::string begin = app.folder.Read("b_a.wav");
            const std::string end = app.folder.Read("e_a.wav");
            EXPECT_TRUE(begin == "old begin" || SameBytes(begin, bytes.substr(0, PartBlock))) << nth;
            EXPECT_TRUE(end == "old end" || SameBytes(end, bytes.substr(PartBlock))) << nth;
            EXPECT_TRUE(end == "old end" || begin != "old begin") << nth;
            if (mode == FaultPlan::Mode::OnlyTheNth) {
                EXPECT_EQ(app.files.List(app.folder.Path()).size(), 3U) << nth;
            }
            if (files.faults.operations < nth) break;
        }
    }
}

TEST(SplitFileJob, Options_NameFileAndOffset) {
    TestApp app;
    app.folder.Write("a.wav", "abcdef");
    ASSERT_TRUE(ParseCommandLine(app, CommandLine({"/split", "a.wav", "/offset", "4"})));
    SplitFileJob(app);
    EXPECT_EQ(app.folder.Read("b_a.wav"), "abcd");
    EXPECT_EQ(app.folder.Read("e_a.wav"), "ef");
}

}  // namespace zefta::test
