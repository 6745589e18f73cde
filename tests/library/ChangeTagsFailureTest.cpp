// Writers and file systems that fail.

#include <filesystem>

#include "library/ChangeTagsStage.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST_F(ChangeTagsTest, WriterFails_GoesUpWithThePath) {
    // More bytes to fill up than the writer counts; the frames stand.
    app.folder.Write("a.mp3", Id3v2("", 40000) + Mp3().Size(2000).Bytes());
    try {
        Change("a.mp3", {.Artist = "New "});
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), 6);
        EXPECT_NE(error.Text().find(app.folder / "a.mp3"), std::string::npos);
    }
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.Artist, "New");
    EXPECT_TRUE(app.folder.Read("a.mp3").find(Mp3().Size(2000).Bytes()) == 40010);
}

TEST_F(ChangeTagsTest, OldTagThatReachesBeyondTheFile_LeavesBothTagsAlone) {
    const std::string bytes = Id3v2(TextFrame("TPE1", "A"), 1000).substr(0, 200) + Id3v1{"T"}.Bytes();
    app.folder.Write("a.mp3", bytes);
    EXPECT_EQ(RuntimeErrorOf([&] { Change("a.mp3", {.Artist = "New "}); }), 5);
    EXPECT_TRUE(app.folder.Read("a.mp3") == bytes);
}

TEST_F(ChangeTagsTest, NoPlaceForTheNewFile_LeavesTheEndAlone) {
    // A folder has the name that the new file would have.
    for (const std::string& end : {""s, Id3v1{"T"}.Bytes()}) {
        const std::string bytes = Mp3().Size(2000).Bytes() + end;
        app.folder.Write("a.mp3", bytes);
        std::filesystem::create_directory(app.folder / "a.mp3.tmp");
        Change("a.mp3", {.Artist = "New "});
        EXPECT_TRUE(app.folder.Read("a.mp3") == bytes);
        std::filesystem::remove(app.folder / "a.mp3.tmp");
    }
}

/// Whether the change went through in the tag at the start and in the one at the end.
bool HasBothTags(TestApp& app, const std::string& name) {
    const ID3Tag tag = app.defaultWaveFile->GetMP3FileInfo(app.folder / name);
    return tag.Artist == "New Artist" && tag.ID3v2Extension.Artist == "New Artist";
}

TEST(ChangeTagsFaults, EveryOperationFailing_LeavesTheAudioWholeAndNoCopyBehind) {
    const std::string audio = Mp3().Size(2000).Bytes();
    const std::pair<std::string, std::string> files[] = {
        {"a.mp3", Id3v2(TextFrame("TPE1", "A"), 300) + audio + Id3v1{"T"}.Bytes()},
        {"b.mp3", audio},
        {"a.ogg", Ogg().Bytes()},
        {"a.mpc", Mpc8(MpcStreamHeader{}, 3000) + Ape().Item("Artist", "A").Item("X", "y").Bytes()},
    };
    for (const auto& [name, bytes] : files) {
        PosixFileSystem real;
        FaultInjectingFileSystem failing(real);
        TestApp app(&failing);
        WaveFile wave(app);
        app.defaultWaveFile = &wave;
        for (int n = 1;; ++n) {
            app.folder.Write(name, bytes);
            failing.faults.operations = 0;
            failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { ChangeTagsOfFile(app, {app.folder / name, name}, All); });
            const bool failed = failing.faults.operations >= n;
            failing.faults.plan = {};
            const std::string now = app.folder.Read(name);
            const std::string sound = name.ends_with("mp3")   ? audio.substr(0, 1800)
                                      : name.ends_with("mpc") ? bytes.substr(0, 3000)
                                                              : ""s;
            EXPECT_NE(now.find(sound), std::string::npos) << name << " " << n;
            EXPECT_GE(now.size() + 128, bytes.size()) << name << " " << n;
            EXPECT_FALSE(app.folder.Exists(name + ".tmp")) << name << " " << n;
            const bool isWhole = !name.ends_with("mp3") || now == bytes || HasBothTags(app, name);
            EXPECT_TRUE(isWhole) << name << " " << n;
            if (!failed) break;
            ASSERT_LT(n, 200);
        }
    }
}

}  // namespace
}  // namespace zefta::test
