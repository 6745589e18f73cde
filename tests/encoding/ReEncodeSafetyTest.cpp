// When the source goes, and what a file system that fails leaves.

#include <filesystem>

#include "encoding/ReEncodeStage.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

using Lines = std::vector<std::string>;

class ReEncodeDeleteTest : public ReEncodeStage {
  protected:
    ReEncodeDeleteTest() {
        app.state.DeleteAfterReCompress = true;
        folder.Write("a.mp3", Mp3Frames(200) + Id3v1{.title = "Song"}.Bytes());
        // 5.2 seconds.
        decoded = Wav().Tone(176400 * 5).Bytes();
        encoded = Mp3Frames(195);
    }

    const std::string kept = "a.mp3 is kept: a ().mp3 is not known to hold all of it";
};

TEST_F(ReEncodeDeleteTest, WholeNewFileWithTags_SourceGoes) {
    ReEncode("a.mp3");
    EXPECT_EQ(Names(), Lines{"a ().mp3"});
    EXPECT_EQ(wave.GetMP3FileInfo(folder / "a ().mp3").Title, "Song");
    EXPECT_EQ(app.desktop.notes, Lines{"a.mp3 -> a ().mp3: carried title"});
}

TEST_F(ReEncodeDeleteTest, SettingOff_SourceStays) {
    app.state.DeleteAfterReCompress = false;
    ReEncode("a.mp3");
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_EQ(app.desktop.notes.size(), 1U);
}

TEST_F(ReEncodeDeleteTest, OutputOfAnyOtherContent_SourceStays) {
    encoded = "no frames at all";
    ReEncode("a.mp3");
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_EQ(app.desktop.notes.back(), kept);
}

TEST_F(ReEncodeDeleteTest, OutputShorterThanTheDecodedFile_SourceStays) {
    encoded = Mp3Frames(100);
    ReEncode("a.mp3");
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_EQ(app.desktop.notes.back(), kept);
}

TEST_F(ReEncodeDeleteTest, DecodedFileMuchShorterThanTheSource_SourceStays) {
    folder.Write("a.mp3", Mp3Frames(2000));
    ReEncode("a.mp3");
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_EQ(app.desktop.notes.back(), kept);
}

TEST_F(ReEncodeDeleteTest, TagThatCannotBeWritten_SourceStays) {
    // A tag in the new file that reaches beyond its end.
    encoded = Id3v2("", 100).replace(6, 4, std::string("\x7F\x7F\x7F\x7F")) + Mp3Frames(195);
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 5);
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_TRUE(folder.Exists("a ().mp3"));
}

TEST_F(ReEncodeDeleteTest, ReadOnlySource_StaysWithAFailure) {
    app.files.SetReadOnly(folder / "a.mp3", true);
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 70);
    EXPECT_TRUE(folder.Exists("a.mp3"));
    EXPECT_TRUE(folder.Exists("a ().mp3"));
}

TEST_F(ReEncodeDeleteTest, SourceThatIsALink_OnlyTheLinkGoes) {
    std::filesystem::rename(folder / "a.mp3", folder / "real.bin");
    std::filesystem::create_symlink(folder / "real.bin", folder / "a.mp3");
    ReEncode("a.mp3");
    EXPECT_EQ(Names(), (Lines{"a ().mp3", "real.bin"}));
}

TEST_F(ReEncodeDeleteTest, SourceOfATemporaryName_Goes) {
    std::filesystem::rename(folder / "a.mp3", folder / "temp.mp3");
    ReEncode("temp.mp3");
    EXPECT_EQ(Names(), Lines{"temp ().mp3"});
}

TEST_F(ReEncodeDeleteTest, FailedEncoder_SourceStays) {
    encoded.clear();
    EXPECT_EQ(RuntimeErrorOf([&] { ReEncode("a.mp3"); }), 53);
    EXPECT_TRUE(folder.Exists("a.mp3"));
}

// A file system that fails.

struct FailingWorld {
    PosixFileSystem real;
    FaultInjectingFileSystem files{real};
};

class ReEncodeFaultsTest : private FailingWorld, public ReEncodeStage {
  protected:
    ReEncodeFaultsTest() : ReEncodeStage(&(FailingWorld::files)) {
        app.state.DeleteAfterReCompress = true;
        decoded = Wav().Tone(176400 * 2).Bytes();
        encoded = Mp3Frames(80);
    }

    FaultCounter& Faults() { return FailingWorld::files.faults; }

    void Arrange() {
        for (const std::string& name : Names()) std::filesystem::remove(folder / name);
        folder.Write("a.mp3", source);
        folder.Write("temp.wav", "my wave");
        folder.Write("temp.mp3", "my song");
        folder.Write("a.mp3.wav", "my other wave");
    }

    /// Whether a file of these bytes is there under any name.
    bool IsThere(const std::string& bytes) {
        for (const std::string& name : Names())
            if (folder.Read(name) == bytes) return true;
        return false;
    }

    bool NewFileIsWhole() {
        return folder.Exists("a ().mp3") && folder.Read("a ().mp3").find(encoded) != std::string::npos;
    }

    const std::string source = Mp3Frames(80) + Id3v1{.title = "Song"}.Bytes();
};

TEST_F(ReEncodeFaultsTest, EveryOperationThatFails_LosesNothing) {
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1; nth < 200; ++nth) {
            Arrange();
            Faults() = {};
            Faults().plan = {mode, nth, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { ReEncode("a.mp3"); });
            const bool failed = Faults().operations >= nth;
            Faults().plan = {};
            for (const char* mine : {"my wave", "my song", "my other wave"})
                EXPECT_TRUE(IsThere(mine)) << mine << " at " << nth;
            EXPECT_TRUE(IsThere(source) || NewFileIsWhole()) << nth;
            if (!failed) break;
            ASSERT_LT(nth, 190);
        }
    }
}

}  // namespace
}  // namespace zefta::test
