// Bytes of a file that others take the place of: nothing is written for nothing, and a refused write is
// undone.

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"
#include "tags/ID3v1.h"
#include "tags/Replacement.h"

namespace zefta::test {
namespace {

class ReplacementTest : public ::testing::Test {
  protected:
    std::string After(const std::string& bytes, const Replacement& replacement) {
        folder.Write("f", bytes);
        failing.faults.writes = 0;
        Replace(*failing.OpenRead(folder / "f"), replacement);
        return folder.Read("f");
    }

    /// The n-th write fails half done.
    std::string AfterFailure(const std::string& bytes, const Replacement& replacement, int nth) {
        folder.Write("f", bytes);
        const auto file = failing.OpenRead(folder / "f");
        failing.faults.operations = 0;
        failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, nth, ErrorNumber::DiskFull};
        EXPECT_EQ(RuntimeErrorOf([&] { Replace(*file, replacement); }), 61);
        failing.faults.plan = {};
        return folder.Read("f");
    }

    TempFolder folder;
    PosixFileSystem real;
    FaultInjectingFileSystem failing{real};
};

TEST_F(ReplacementTest, InPlaceAtTheEndAndBeyond) {
    EXPECT_EQ(After("abcdef", {1, "bc", "XY"}), "aXYdef");
    EXPECT_EQ(After("abcdef", {4, "ef", "XYZ"}), "abcdXYZ");
    EXPECT_EQ(After("abc", {3, "", "XYZ"}), "abcXYZ");
    EXPECT_EQ(After("abcdef", {1, "bc", "XY", true}), "aXY");
}

TEST_F(ReplacementTest, SameBytes_NothingIsWritten) {
    EXPECT_EQ(After("abcdef", {1, "bc", "bc"}), "abcdef");
    EXPECT_EQ(failing.faults.writes, 0);
    EXPECT_EQ(After("abcdef", {4, "ef", "ef", true}), "abcdef");
    EXPECT_EQ(failing.faults.writes, 0);
    EXPECT_EQ(After("abcdef", {1, "bc", "bc", true}), "abc");
}

TEST_F(ReplacementTest, RefusedWrite_OldBytesAndLengthComeBack) {
    EXPECT_EQ(AfterFailure("abcdef", {1, "bcde", "WXYZ"}, 1), "abcdef");
    EXPECT_EQ(AfterFailure("abcdef", {4, "ef", "WXYZWXYZ"}, 1), "abcdef");
    EXPECT_EQ(AfterFailure("abcdef", {6, "", "WXYZ"}, 1), "abcdef");
    EXPECT_EQ(AfterFailure("abcdef", {1, "bc", "XY", true}, 2), "abcdef");
}

TEST_F(ReplacementTest, SetID3_SameValues_WritesNothing) {
    folder.Write("a.mp3", std::string(500, 'x'));
    const CodePage ansi = LoadCodePage(1252);
    const ID3v1Values values = {
        .Artist = "A", .Album = "L", .Year = "1999", .Title = "T", .Comment = "C", .Genre = 17, .Track = 3};
    SetID3(failing, ansi, folder / "a.mp3", values);
    EXPECT_EQ(failing.faults.writes, 1);
    SetID3(failing, ansi, folder / "a.mp3", values);
    EXPECT_EQ(failing.faults.writes, 1);
}

TEST_F(ReplacementTest, SetID3v1_RefusedAppend_LeavesTheFileAsItWas) {
    folder.Write("a.mp3", std::string(500, 'x'));
    const CodePage ansi = LoadCodePage(1252);
    for (int n = 1;; ++n) {
        ID3Tag tag;
        tag.Path = folder / "a.mp3";
        tag.Title = "T";
        failing.faults.operations = 0;
        failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DiskFull};
        RuntimeErrorOf([&] { SetID3v1(failing, ansi, tag); });
        if (failing.faults.operations < n) break;
        EXPECT_EQ(folder.Read("a.mp3"), std::string(500, 'x')) << n;
    }
    EXPECT_EQ(folder.Read("a.mp3").size(), 628U);
}

}  // namespace
}  // namespace zefta::test
