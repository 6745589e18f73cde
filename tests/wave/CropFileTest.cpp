#include <filesystem>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "wave/ByteRange.h"
#include "wave/CropFile.h"
#include "wave/WaveStage.h"

namespace zefta::test {
namespace {

constexpr std::size_t RangeBlock = ByteRangeBlock;

/// An App with the shared instance that serves tags.
struct CropStage : TestApp {
    WaveFile wave{*this};

    explicit CropStage(FileSystem* fileSystem = nullptr) : TestApp(fileSystem) { defaultWaveFile = &wave; }

    void Crop(const std::string& path, std::int32_t start, std::int32_t end) {
        CropFile(*this, path, start, end);
    }
};

/// All that the folder holds, by name.
std::map<std::string, std::string> FilesOf(const TempFolder& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        files[entry.path().filename().string()] = ReadWholeFile(entry.path().string());
    return files;
}

using Files = std::map<std::string, std::string>;

void ExpectOneBox(const TestApp& app, const std::string& text) {
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, text);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
}

const std::string OldTitle = "Title of more than thirty characters";

/// An MP3 file with both tags, of `TaggedSize` bytes: the audio stands between them.
constexpr std::size_t FrontTag = 10 + 600;
constexpr std::size_t TaggedSize = FrontTag + 3000 + 128;
std::string TaggedMp3() {
    const std::string frames =
        TextFrame("TIT2", OldTitle) + TextFrame("TPE1", "Artist") + RawFrame("PRIV", "kept as it is");
    return Mp3()
        .InFront(Id3v2(frames, 600))
        .Behind(Id3v1{.title = "Title", .artist = "Artist", .album = "Album", .track = 7}.Bytes())
        .Size(TaggedSize)
        .Bytes();
}

}  // namespace

TEST(CropFile, StartAndEnd_KeepTheBytesBetweenThem) {
    struct Row {
        std::int32_t start;
        std::int32_t end;
        std::size_t first;
        std::size_t behind;
    };
    constexpr std::size_t Size = 2 * RangeBlock + 100;
    const std::string bytes = Audio(Size);
    const std::vector<Row> rows = {
        {100, 0, 100, Size},
        {0, 100, 0, 100},
        {1, 2, 1, 2},
        {-5, 100, 0, 100},
        {100, -5, 100, Size},
        {7, 7 + RangeBlock, 7, 7 + RangeBlock},
        {0, Size, 0, Size},
        {Size - 1, 0, Size - 1, Size},
        {0, 2 * RangeBlock, 0, 2 * RangeBlock},
    };
    for (const Row& row : rows) {
        CropStage app;
        app.folder.Write("a.wav", bytes);
        app.Crop("a.wav", row.start, row.end);
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), bytes.substr(row.first, row.behind - row.first)))
            << row.start << " " << row.end;
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav.bak"), bytes));
        EXPECT_EQ(FilesOf(app.folder).size(), 2U);
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(CropFile, BothNumbers_ComeBackAsTheyWereUsed) {
    CropStage app;
    app.folder.Write("a.wav", Audio(1000));
    std::int32_t start = -3;
    std::int32_t end = 500;
    CropFile(app, "a.wav", start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 500);
    end = 0;
    start = 100;
    CropFile(app, "a.wav", start, end);
    EXPECT_EQ(end, 500);
}

TEST(CropFile, NeitherNumber_SaysSoAndLeavesTheDiskAlone) {
    CropStage app;
    app.folder.Write("a.wav", Audio(1000));
    app.folder.Write("a.wav.bak", "former");
    app.Crop("a.wav", 0, 0);
    app.Crop("a.wav", -1, -1);
    app.Crop("absent/a.wav", 0, 0);
    ASSERT_EQ(app.desktop.boxes.size(), 3U);
    for (const auto& box : app.desktop.boxes) EXPECT_EQ(box.text, "Error. Nothing to do!");
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", Audio(1000)}, {"a.wav.bak", "former"}}));
}

TEST(CropFile, FileThatIsNotThere_IsTold) {
    for (const std::string name : {"a.wav", ""}) {
        CropStage app;
        app.folder.Write("a.wav.bak", "former");
        app.Crop(name, 1, 2);
        ExpectOneBox(app, "File \"" + app.folder.Path() + "/" + name + "\" not found.");
        EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav.bak", "former"}}));
    }
}

TEST(CropFile, MissingFolder_Fails76) {
    CropStage app;
    EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("absent/a.wav", 1, 2); }), 76);
}

TEST(CropFile, RangeThatTheFileDoesNotHold_IsAReadErrorAndTheDiskIsAsBefore) {
    struct Row {
        std::int32_t start;
        std::int32_t end;
    };
    for (const Row row : {Row{0, 1001}, Row{0, 400000000}, Row{1001, 0}, Row{2000, 3000}, Row{500, 499},
                          Row{500, 1}, Row{1000, 999}, Row{100, 100}, Row{1000, 0}}) {
        CropStage app;
        app.folder.Write("a.wav", Audio(1000));
        app.folder.Write("a.wav.bak", "former");
        app.state.NoBackup = true;
        app.Crop("a.wav", row.start, row.end);
        ExpectOneBox(app, "Read Error!");
        EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", Audio(1000)}, {"a.wav.bak", "former"}}));
    }
}

TEST(CropFile, MoreBlocksThanTheCounterHolds_Fails6AndTheDiskIsAsBefore) {
    CropStage app;
    app.folder.Write("a.wav", "");
    std::filesystem::resize_file("a.wav", std::uintmax_t{32768} * 16384);
    EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("a.wav", 0, 32768 * 16384); }), 6);
    std::filesystem::resize_file("a.wav", std::uintmax_t{1} << 32);
    EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("a.wav", 100, 0); }), 6);
    EXPECT_EQ(std::filesystem::file_size("a.wav"), std::uintmax_t{1} << 32);
    EXPECT_FALSE(app.folder.Exists("a.wav.bak"));
}

TEST(CropFile, NoBackup_LeavesTheNewFileAlone) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    app.folder.Write("a.wav.bak", "former");
    app.state.NoBackup = true;
    app.Crop("a.wav", 2, 4);
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", "cd"}}));
}

TEST(CropFile, FormerBackup_IsReplacedWhateverItsCase) {
    for (const std::string former : {"a.wav.bak", "a.wav.BAK", "A.WAV.Bak"}) {
        CropStage app;
        app.folder.Write("a.wav", "abcdef");
        app.folder.Write(former, "former");
        app.Crop("a.wav", 2, 4);
        EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", "cd"}, {"a.wav.bak", "abcdef"}}));
    }
}

TEST(CropFile, ReadOnlyBackup_StaysAndNothingChanges) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    app.files.SetReadOnly(app.folder.Write("a.wav.BAK", "original"), true);
    EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("a.wav", 2, 4); }), 70);
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", "abcdef"}, {"a.wav.BAK", "original"}}));
}

TEST(CropFile, NamesThatDifferInCaseAlone_AreRefusedAndNothingChanges) {
    for (const std::string twin : {"A.wav", "a.wav.bak"}) {
        CropStage app;
        app.folder.Write("a.wav", "abcdef");
        app.folder.Write(twin, "one");
        app.folder.Write("a.wav.BAK", "two");
        const Files before = FilesOf(app.folder);
        EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("a.wav", 2, 4); }), 58);
        EXPECT_EQ(FilesOf(app.folder), before);
    }
}

TEST(CropFile, ReadOnlyFile_CannotBeOpenedAndStays) {
    CropStage app;
    app.files.SetReadOnly(app.folder.Write("a.wav", "abcdef"), true);
    app.folder.Write("a.wav.bak", "former");
    app.Crop("a.wav", 2, 4);
    ExpectOneBox(app, "File \"" + app.folder.Path() + "/a.wav.bak\" could not be created.");
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", "abcdef"}, {"a.wav.bak", "former"}}));
}

TEST(CropFile, NewFileThatCannotBeCreated_IsToldAndTheDiskIsAsBefore) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    for (int number = 1; number <= 999; ++number)
        app.files.CreateFolder("~" + std::to_string(number) + "a.wav");
    app.Crop("a.wav", 2, 4);
    ExpectOneBox(app, "Error. Nothing to do!");
    EXPECT_EQ(app.folder.Read("a.wav"), "abcdef");
    EXPECT_FALSE(app.folder.Exists("a.wav.bak"));
}

TEST(CropFile, FileOfTheSideName_IsLeftAlone) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    app.folder.Write("~1a.wav", "somebody's");
    app.Crop("a.wav", 2, 4);
    EXPECT_EQ(FilesOf(app.folder),
              (Files{{"a.wav", "cd"}, {"a.wav.bak", "abcdef"}, {"~1a.wav", "somebody's"}}));
}

TEST(CropFile, SideFilesOfKilledRuns_AreInNobodysWay) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    for (int number = 1; number <= 20; ++number)
        app.folder.Write("~" + std::to_string(number) + "a.wav", "left behind");
    app.Crop("a.wav", 2, 4);
    EXPECT_EQ(app.folder.Read("a.wav"), "cd");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(CropFile, EmptyFile_IsAReadErrorAndStays) {
    CropStage app;
    app.folder.Write("a.wav", "");
    app.Crop("a.wav", 1, 0);
    ExpectOneBox(app, "Read Error!");
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", ""}}));
}

TEST(CropFile, LinkedFileThatCannotBeOpened_IsToldWithItsRealBackup) {
    CropStage app;
    app.files.CreateFolder("music");
    app.files.SetReadOnly(app.folder.Write("music/real.dat", "abcdef"), true);
    std::filesystem::create_symlink("music/real.dat", "a.wav");
    app.Crop("a.wav", 2, 4);
    const std::string real = app.files.FollowLinks("music/real.dat");
    ExpectOneBox(app, "File \"" + real + ".bak\" could not be created.");
}

TEST(CropFile, NameThatLeavesNoRoomForTheBackup_FailsAndTheDiskIsAsBefore) {
    CropStage app;
    const std::string name = std::string(248, 'x') + ".wav";
    app.folder.Write(name, "abcdef");
    EXPECT_NE(RuntimeErrorOf([&] { app.Crop(name, 2, 4); }), 0);
    EXPECT_EQ(FilesOf(app.folder), (Files{{name, "abcdef"}}));
}

TEST(CropFile, LongestNameWithABackup_IsCropped) {
    CropStage app;
    const std::string name = std::string(247, 'x') + ".mp3";
    app.folder.Write(name, TaggedMp3());
    app.Crop(name, static_cast<std::int32_t>(FrontTag), 0);
    EXPECT_TRUE(SameBytes(app.folder.Read(name + ".bak"), TaggedMp3()));
    EXPECT_NE(app.folder.Read(name), TaggedMp3());
    EXPECT_EQ(FilesOf(app.folder).size(), 2U);
}

TEST(CropFile, PathWithFolderAndOtherCase_FindsTheFile) {
    CropStage app;
    app.files.CreateFolder("sub");
    app.folder.Write("sub/a.wav", "abcdef");
    app.Crop("Sub\\A.WAV", 2, 4);
    EXPECT_EQ(app.folder.Read("sub/a.wav"), "cd");
    EXPECT_EQ(app.folder.Read("sub/a.wav.bak"), "abcdef");
}

TEST(CropFile, LinkedFile_IsCroppedWhereItLies) {
    CropStage app;
    app.files.CreateFolder("music");
    app.folder.Write("music/real.dat", "abcdef");
    std::filesystem::create_symlink("music/real.dat", "a.wav");
    app.Crop("a.wav", 2, 4);
    EXPECT_TRUE(std::filesystem::is_symlink("a.wav"));
    EXPECT_EQ(app.folder.Read("music/real.dat"), "cd");
    EXPECT_EQ(app.folder.Read("music/real.dat.bak"), "abcdef");
}

TEST(CropFile, Permissions_AreThoseOfTheOldFile) {
    namespace fs = std::filesystem;
    CropStage app;
    const std::string path = app.folder.Write("a.wav", "abcdef");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    app.Crop("a.wav", 2, 4);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(CropFile, EachBlock_ServesTheDesktop) {
    CropStage app;
    app.folder.Write("a.wav", Audio(3 * RangeBlock));
    app.Crop("a.wav", 0, static_cast<std::int32_t>(2 * RangeBlock + 1));
    EXPECT_EQ(app.desktop.servedEvents, 3);
}

TEST(CropFile, Mp3CutAtBothEnds_HasItsTagsAgain) {
    CropStage app;
    app.folder.Write("a.mp3", TaggedMp3());
    app.Crop("a.mp3", FrontTag + 1000, FrontTag + 2000);
    const std::string cropped = app.folder.Read("a.mp3");
    const std::string audio = TaggedMp3().substr(FrontTag + 1000, 1000);
    EXPECT_EQ(cropped.substr(0, 3), "ID3");
    EXPECT_TRUE(SameBytes(cropped.substr(cropped.size() - 128 - 1000, 1000), audio));
    const ID3Tag tag = app.wave.GetMP3FileInfo("a.mp3");
    EXPECT_EQ(tag.Title, "Title");
    EXPECT_EQ(tag.Album, "Album");
    EXPECT_EQ(tag.TrackNumber, 7);
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, OldTitle);
    EXPECT_NE(tag.ID3v2Extension.UnknownFrames.find("kept as it is"), std::string::npos);
    EXPECT_TRUE(SameBytes(app.folder.Read("a.mp3.bak"), TaggedMp3()));
    EXPECT_EQ(FilesOf(app.folder).size(), 2U);
}

TEST(CropFile, Mp3CutAtTheEnd_KeepsItsFrontTagInPlace) {
    CropStage app;
    app.folder.Write("a.mp3", TaggedMp3());
    app.Crop("a.mp3", 0, FrontTag + 2000);
    const std::string cropped = app.folder.Read("a.mp3");
    EXPECT_EQ(cropped.size(), FrontTag + 2000 + 128);
    EXPECT_TRUE(SameBytes(cropped.substr(FrontTag, 2000), TaggedMp3().substr(FrontTag, 2000)));
    EXPECT_EQ(app.wave.GetMP3FileInfo("a.mp3").ID3v2Extension.TrackTitle, OldTitle);
}

TEST(CropFile, Mp3CutInsideItsFrontTag_FailsAndTheDiskIsAsBefore) {
    CropStage app;
    app.folder.Write("a.mp3", TaggedMp3());
    app.folder.Write("a.mp3.bak", "former");
    EXPECT_EQ(RuntimeErrorOf([&] { app.Crop("a.mp3", 0, 100); }), 5);
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.mp3", TaggedMp3()}, {"a.mp3.bak", "former"}}));
}

TEST(CropFile, OtherKinds_GetNoTag) {
    for (const std::string name : {"a.wav", "a.ogg", "a.mpc", "a.dat"}) {
        CropStage app;
        app.folder.Write(name, TaggedMp3());
        app.Crop(name, 1000, 2000);
        EXPECT_TRUE(SameBytes(app.folder.Read(name), TaggedMp3().substr(1000, 1000))) << name;
    }
}

TEST(CropFile, FaultAtAnyOperation_LeavesTheFileWholeUnderItsNameOrTheBackups) {
    for (const std::string name : {"a.wav", "a.mp3"}) {
        for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
            for (int nth = 1;; ++nth) {
                PosixFileSystem real;
                FaultInjectingFileSystem files(real);
                CropStage app(&files);
                app.folder.Write(name, TaggedMp3());
                files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
                const int error = RuntimeErrorOf([&] { app.Crop(name, FrontTag, FrontTag + 2000); });
                const Files after = FilesOf(app.folder);
                if (files.faults.operations < nth) break;
                const bool isDone = after.contains(name) && after.at(name) != TaggedMp3();
                const std::string whole = isDone || !after.contains(name) ? name + ".bak" : name;
                ASSERT_TRUE(after.contains(whole)) << name << nth;
                EXPECT_TRUE(SameBytes(after.at(whole), TaggedMp3())) << name << nth;
                EXPECT_TRUE(isDone || error != 0 || app.desktop.HasComplained()) << name << nth;
                if (mode == FaultPlan::Mode::OnlyTheNth && !isDone) {
                    EXPECT_EQ(after.size(), 1U) << name << nth;
                }
            }
        }
    }
}

TEST(CropFile, NoBackup_FaultAtAnyOperation_NeverLosesTheAudio) {
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1;; ++nth) {
            PosixFileSystem real;
            FaultInjectingFileSystem files(real);
            CropStage app(&files);
            app.folder.Write("a.wav", Audio(3 * RangeBlock));
            app.state.NoBackup = true;
            files.faults.plan = {mode, nth, ErrorNumber::DeviceIoError};
            RuntimeErrorOf([&] { app.Crop("a.wav", 100, 2 * RangeBlock); });
            if (files.faults.operations < nth) break;
            const Files after = FilesOf(app.folder);
            const auto holds = [&](const std::string& name, const std::string& bytes) {
                return after.contains(name) && after.at(name) == bytes;
            };
            EXPECT_TRUE(holds("a.wav", Audio(3 * RangeBlock)) || holds("a.wav.bak", Audio(3 * RangeBlock)) ||
                        holds("a.wav", Audio(3 * RangeBlock).substr(100, 2 * RangeBlock - 100)))
                << nth;
        }
    }
}

TEST(CropFileJob, Options_NameFileAndRange) {
    CropStage app;
    app.folder.Write("a.wav", "abcdef");
    ASSERT_TRUE(ParseCommandLine(
        app, CommandLine({"/crop", "a.wav", "/start_offset", "1", "/end_offset", "3", "/nb"})));
    CropFileJob(app);
    EXPECT_EQ(FilesOf(app.folder), (Files{{"a.wav", "bc"}}));
}

}  // namespace zefta::test
