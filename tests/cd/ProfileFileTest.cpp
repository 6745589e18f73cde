#include <chrono>
#include <filesystem>

#include <gtest/gtest.h>

#include "cd/ProfileFile.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

const CodePage& Ansi() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

std::string ValueIn(std::string_view bytes, std::string_view section, std::string_view key) {
    return ProfileFile(bytes, Ansi()).ReadProfileValue(section, key);
}

/// The file after one value was written.
std::string After(std::string_view bytes, std::string_view section, std::string_view key,
                  std::string_view value) {
    ProfileFile file(bytes, Ansi());
    file.WriteProfileValue(section, key, value);
    EXPECT_EQ(file.Bytes() != bytes, file.IsChanged());
    return file.Bytes();
}

}  // namespace

TEST(ReadProfileValue, AnyFile_GivesWhatStandsBehindTheFirstEqualsSign) {
    struct Row {
        std::string bytes;
        std::string value;
    };
    const std::vector<Row> rows = {
        {"[S]\nK=v\n", "v"},
        {"[S]\r\nK=v\r\n", "v"},
        {"[S]\nK=v", "v"},
        {"[S]\nK=a=b=c\n", "a=b=c"},
        {"[S]\nK=\n", ""},
        {"[S]\nK= v \n", " v "},
        {"[S]\n \tk \t=v\n", "v"},
        {"  [ s ] ; the section\nK=v\n", "v"},
        {"\xEF\xBB\xBF[S]\nK=v\n", "v"},
        {"[S]\nK=caf\xC3\xA9\n", "caf\xC3\xA9"},
        {"[S]\nK=caf\xE9\n", "caf\xC3\xA9"},
        {"[S]\nother=\xE9\nK=caf\xC3\xA9\n", "caf\xC3\xA9"},
        {"[S]\nK=first\nK=second\n", "first"},
        {"[S]\n[T]\nK=t\n[s]\nK=v\n", "v"},
        {"[S]\nK=\"quoted\"\n", "\"quoted\""},
        {"[S]\nK=v\tw\r\r\n", "v w "},
        // None of these has the key.
        {"", ""},
        {"\n", ""},
        {"K=v\n[S]\n", ""},
        {"[T]\nK=v\n", ""},
        {"[S\nK=v\n", ""},
        {"[S]\n;K=v\n#K=v\n", ""},
        {"[S]\nK\n", ""},
        {"[S]\n=v\n", ""},
        {"[S]\nKK=v\n", ""},
    };
    for (const Row& row : rows) EXPECT_EQ(ValueIn(row.bytes, "S", "K"), row.value) << row.bytes;
}

TEST(WriteProfileValue, KeyThatIsThere_IsReplacedInItsPlace) {
    EXPECT_EQ(After("[S]\nA=1\nK=old\nB=2\n", "S", "K", "new"), "[S]\nA=1\nK=new\nB=2\n");
    EXPECT_EQ(After("[S]\r\nK=old\r\n", "S", "K", "new "), "[S]\r\nK=new \r\n");
    EXPECT_EQ(After("[S]\nK=old", "S", "K", "new"), "[S]\nK=new");
    EXPECT_EQ(After("[s]\n  k =old\n", "S", "K", "new"), "[s]\n  k =new\n");
    EXPECT_EQ(After("[S]\nK=1\nK=2\n", "S", "K", "3"), "[S]\nK=3\nK=2\n");
    EXPECT_EQ(After("[S]\nK=caf\xE9\n", "S", "K", "x"), "[S]\nK=x\n");
}

TEST(WriteProfileValue, ValueThatIsThere_ChangesNothing) {
    EXPECT_EQ(After("[S]\nK=same\n", "S", "K", "same"), "[S]\nK=same\n");
    // In the code page as it was: another byte would be another form of the same text.
    EXPECT_EQ(After("[S]\nK=caf\xE9\n", "S", "K", "caf\xC3\xA9"), "[S]\nK=caf\xE9\n");
}

TEST(WriteProfileValue, NewKey_GoesBehindTheLastOfItsSection) {
    EXPECT_EQ(After("[S]\nA=1\n\n; of T\n[T]\nB=2\n", "S", "K", "v"), "[S]\nA=1\nK=v\n\n; of T\n[T]\nB=2\n");
    EXPECT_EQ(After("[S]\nA=1", "S", "K", "v"), "[S]\nA=1\nK=v\n");
    EXPECT_EQ(After("[S]", "S", "K", "v"), "[S]\nK=v\n");
    EXPECT_EQ(After("[S]\n\n", "s", "K", "v"), "[S]\nK=v\n\n");
    EXPECT_EQ(After("[S]\nA=1\n[T]\n[S]\nB=2\n", "S", "K", "v"), "[S]\nA=1\nK=v\n[T]\n[S]\nB=2\n");
}

TEST(WriteProfileValue, NewSection_GoesToTheEnd) {
    EXPECT_EQ(After("", "S", "K", "v"), "[S]\nK=v\n");
    EXPECT_EQ(After("[T]\nA=1\n", "S", "K", "v"), "[T]\nA=1\n[S]\nK=v\n");
    EXPECT_EQ(After("[T]\nA=1", "S", "K", "v"), "[T]\nA=1\n[S]\nK=v\n");
    EXPECT_EQ(After("[T]\n; last", "S", "K", "v"), "[T]\n; last\n[S]\nK=v\n");
    EXPECT_EQ(After("no heading", "S", "K", "v"), "no heading\n[S]\nK=v\n");
}

TEST(WriteProfileValue, LineEndsAndMark_AreThoseOfTheFile) {
    EXPECT_EQ(After("[S]\r\nA=1\r\n", "S", "K", "v"), "[S]\r\nA=1\r\nK=v\r\n");
    EXPECT_EQ(After("\xEF\xBB\xBF[S]\r\nA=1", "T", "K", "v"), "\xEF\xBB\xBF[S]\r\nA=1\r\n[T]\r\nK=v\r\n");
    EXPECT_EQ(After("[S]\nA=1\r\nB=2\n", "S", "A", "v"), "[S]\nA=v\r\nB=2\n");
    EXPECT_EQ(After("\xEF\xBB\xBF", "S", "K", "v"), "\xEF\xBB\xBF[S]\nK=v\n");
}

TEST(WriteProfileValue, WhatAPersonWrote_Stays) {
    const std::string bytes =
        "; by hand \xE9\n\nstray\n[Other]\nX = 1 \n\n[S]\n# why\nA=1\n[\n=\n[S]\nK=2\n\n\n";
    EXPECT_EQ(ProfileFile(bytes, Ansi()).Bytes(), bytes);
    EXPECT_EQ(After(bytes, "S", "K", "3"),
              "; by hand \xE9\n\nstray\n[Other]\nX = 1 \n\n[S]\n# why\nA=1\n[\n=\n[S]\nK=3\n\n\n");
}

TEST(WriteProfileValue, ControlCharacters_BecomeBlanks) {
    const std::string value("a\r\n[T]\nK=x\ty\0z\x7F", 15);
    ProfileFile file("", Ansi());
    file.WriteProfileValue("S", "K", value);
    EXPECT_EQ(file.Bytes(), "[S]\nK=a [T] K=x y z \n");
    EXPECT_EQ(ValueIn(file.Bytes(), "S", "K"), "a [T] K=x y z ");
    EXPECT_EQ(ValueIn(file.Bytes(), "T", "K"), "");
}

TEST(WriteProfileValue, AnyText_ComesBack) {
    for (const std::string value : {"", " ", "a=b", "[x]", "]", ";no comment", "#1", "\"q\"", "caf\xC3\xA9",
                                    "\xD0\x9A=\xF0\x9F\x8E\xB5", "  both ends  "}) {
        ProfileFile file("[S]\nK=old\n", Ansi());
        file.WriteProfileValue("S", "K", value);
        file.WriteProfileValue("S", "New", value);
        EXPECT_EQ(file.ReadProfileValue("S", "K"), value);
        EXPECT_EQ(ValueIn(file.Bytes(), "S", "K"), value);
        EXPECT_EQ(ValueIn(file.Bytes(), "S", "New"), value);
    }
}

TEST(ProfileFile, ManyKeys_TakeTimeInProportion) {
    const auto begin = std::chrono::steady_clock::now();
    ProfileFile file("[Names]\n" + std::string(200000, '\n') + "[Times]\n", Ansi());
    for (int i = 0; i < 100000; ++i) {
        file.WriteProfileValue("Names", std::to_string(i), "name");
        file.WriteProfileValue("Times", std::to_string(i), "7");
    }
    EXPECT_EQ(ValueIn(file.Bytes(), "Names", "99999"), "name");
    // In the square of the number it would be minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST(ReadProfileFile, FileThatIsNotThere_IsAnEmptyOne) {
    TestApp app;
    EXPECT_EQ(ReadProfileFile(app.files, app.ansi, "absent.zfc").Bytes(), "");
    app.files.CreateFolder("folder.zfc");
    EXPECT_EQ(ReadProfileFile(app.files, app.ansi, "folder.zfc").Bytes(), "");
}

TEST(ReadProfileFile, FileBeyondAllSizes_Fails7) {
    TestApp app;
    app.folder.Write("a.zfc", "[S]\nK=v\n");
    std::filesystem::resize_file("a.zfc", std::uintmax_t{16} * 1024 * 1024);
    EXPECT_EQ(ReadProfileFile(app.files, app.ansi, "a.zfc").ReadProfileValue("S", "K"), "v");
    std::filesystem::resize_file("a.zfc", std::uintmax_t{16} * 1024 * 1024 + 1);
    EXPECT_EQ(RuntimeErrorOf([&] { ReadProfileFile(app.files, app.ansi, "a.zfc"); }), 7);
    std::filesystem::resize_file("a.zfc", std::uintmax_t{1} << 33);
    EXPECT_EQ(RuntimeErrorOf([&] { ReadProfileFile(app.files, app.ansi, "a.zfc"); }), 7);
}

TEST(ReadProfileFile, Pipe_Fails70AndDoesNotWait) {
    TestApp app;
    ASSERT_EQ(std::system("mkfifo a.zfc"), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { ReadProfileFile(app.files, app.ansi, "a.zfc"); }), 70);
}

TEST(WriteProfileFile, NewFile_HoldsTheText) {
    TestApp app;
    ProfileFile file("", app.ansi);
    file.WriteProfileValue("S", "K", "v");
    WriteProfileFile(app.files, "a.zfc", file);
    EXPECT_EQ(app.folder.Read("a.zfc"), "[S]\nK=v\n");
    WriteProfileFile(app.files, "empty.zfc", ProfileFile("", app.ansi));
    EXPECT_TRUE(app.folder.Exists("empty.zfc"));
}

TEST(WriteProfileFile, OldFile_IsReplacedAndKeepsItsAttributes) {
    namespace fs = std::filesystem;
    TestApp app;
    app.files.CreateFolder("real");
    const std::string real = app.folder.Write("real/a.zfc", "[S]\nK=v\n");
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real/a.zfc", "a.zfc");
    ProfileFile file = ReadProfileFile(app.files, app.ansi, "A.ZFC");
    file.WriteProfileValue("S", "K", "w");
    WriteProfileFile(app.files, "A.ZFC", file);
    EXPECT_TRUE(fs::is_symlink("a.zfc"));
    EXPECT_EQ(app.folder.Read("real/a.zfc"), "[S]\nK=w\n");
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(app.folder.Exists("A.ZFC"));
}

TEST(WriteProfileFile, ReadOnlyFile_Fails70UnlessNothingChanges) {
    TestApp app;
    app.files.SetReadOnly(app.folder.Write("a.zfc", "[S]\nK=v\n"), true);
    ProfileFile file = ReadProfileFile(app.files, app.ansi, "a.zfc");
    EXPECT_EQ(RuntimeErrorOf([&] { WriteProfileFile(app.files, "a.zfc", file); }), 0);
    file.WriteProfileValue("S", "K", "w");
    EXPECT_EQ(RuntimeErrorOf([&] { WriteProfileFile(app.files, "a.zfc", file); }), 70);
    EXPECT_EQ(app.folder.Read("a.zfc"), "[S]\nK=v\n");
}

TEST(WriteProfileFile, FaultAtAnyOperation_LeavesTheOldOrTheNewFile) {
    for (const std::string old : {"[S]\nK=v\n", ""}) {
        for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
            for (int nth = 1;; ++nth) {
                PosixFileSystem real;
                FaultInjectingFileSystem files(real);
                TestApp app(&files);
                if (!old.empty()) app.folder.Write("a.zfc", old);
                ProfileFile file(old, app.ansi);
                file.WriteProfileValue("S", "K", "w");
                files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
                const int error = RuntimeErrorOf([&] { WriteProfileFile(files, "a.zfc", file); });
                if (files.faults.operations < nth) break;
                // A name for the new file that is refused makes way for another one.
                const bool isThere = app.folder.Exists("a.zfc");
                const std::string found = isThere ? app.folder.Read("a.zfc") : "";
                // Where deleting fails too, the beginning of a file that was not there before stays.
                if (old.empty() && error != 0 && mode == FaultPlan::Mode::FromTheNthOn) continue;
                EXPECT_EQ(found, error == 0 ? file.Bytes() : old) << nth;
                EXPECT_EQ(isThere, error == 0 || !old.empty()) << nth;
            }
        }
    }
}

}  // namespace zefta::test
