#include <filesystem>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "support/FaultInjectingFileSystem.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

/// A file that says of itself that it is longer than what can be read.
class ShrunkFile : public BinaryFile {
  public:
    ShrunkFile(std::unique_ptr<BinaryFile> real, std::int32_t size) : real_(std::move(real)), size_(size) {}

    using BinaryFile::Write;
    std::size_t Read(std::span<std::byte> into) override { return real_->Read(into); }
    void Write(std::span<const std::byte> bytes) override { real_->Write(bytes); }
    bool Seek(std::int32_t distance, SeekFrom from) override { return real_->Seek(distance, from); }
    std::int32_t Position() const override { return real_->Position(); }
    std::int32_t Size() const override { return size_; }
    bool IsReadOnly() const override { return real_->IsReadOnly(); }
    void SetEnd() override { real_->SetEnd(); }
    void Flush() override { real_->Flush(); }

  private:
    std::unique_ptr<BinaryFile> real_;
    std::int32_t size_;
};

/// Every file that is opened to be read shrinks as soon as its size was asked for.
class ShrinkingFileSystem : public FaultInjectingFileSystem {
  public:
    ShrinkingFileSystem(FileSystem& real, std::int32_t size) : FaultInjectingFileSystem(real), size_(size) {}

    std::unique_ptr<BinaryFile> OpenRead(const std::string& path) override {
        return std::make_unique<ShrunkFile>(FaultInjectingFileSystem::OpenRead(path), size_);
    }
    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
        return std::make_unique<ShrunkFile>(FaultInjectingFileSystem::OpenReadOnly(path), size_);
    }

  private:
    std::int32_t size_;
};

}  // namespace

TEST(CopyWave, Copy_MissingSource_Is1) {
    WaveStage stage;
    EXPECT_EQ(stage.wave.CopyWave("absent", "copy"), 1);
    EXPECT_FALSE(stage.app.folder.Exists("copy"));
    EXPECT_TRUE(stage.events.empty());
}

TEST(CopyWave, Copy_DestinationThatCannotBeCreated_Is2) {
    WaveStage stage;
    stage.app.folder.Write("a", "content");
    EXPECT_EQ(stage.wave.CopyWave("a", "no folder/copy"), 2);
    EXPECT_TRUE(stage.events.empty());
}

TEST(CopyWave, Copy_OntoItself_Is2AndKeepsTheContent) {
    WaveStage stage;
    stage.app.folder.Write("a", "content");
    std::filesystem::create_symlink("a", "link");
    for (const std::string destination : {"a", "A", "./a", "link"}) {
        EXPECT_EQ(stage.wave.CopyWave("a", destination), 2) << destination;
        EXPECT_EQ(stage.app.folder.Read("a"), "content");
    }
}

TEST(CopyWave, Copy_AnySize_GivesTheSameBytes) {
    for (const std::size_t size : {std::size_t{1}, Block - 1, Block, Block + 1, 2 * Block, 3 * Block + 7}) {
        WaveStage stage;
        const std::string content = Wav().Tone(size).AudioBytes();
        stage.app.folder.Write("a", content);
        stage.app.folder.Write("copy", std::string(4 * Block, 'x'));
        EXPECT_EQ(stage.wave.CopyWave("a", "copy"), 0);
        EXPECT_TRUE(SameBytes(stage.app.folder.Read("copy"), content));
    }
}

TEST(CopyWave, Copy_EmptyFile_MakesOneRound) {
    WaveStage stage;
    stage.app.folder.Write("a", "");
    EXPECT_EQ(stage.wave.CopyWave("a", "copy"), 0);
    EXPECT_EQ(stage.app.folder.Read("copy"), "");
    EXPECT_EQ(
        stage.events,
        (RaisedEvents{{"MinStatus", 0}, {"Status", 0}, {"MaxStatus", 0}, {"Status", 0}, {"Status", 0}}));
    EXPECT_EQ(stage.app.desktop.servedEvents, 1);
}

TEST(CopyWave, Copy_ExactlyOneBlock_MakesTwoRounds) {
    WaveStage stage;
    stage.app.folder.Write("a", std::string(Block, 'x'));
    EXPECT_EQ(stage.wave.CopyWave("a", "copy"), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"MinStatus", 0},
                                          {"Status", 0},
                                          {"MaxStatus", 44100},
                                          {"Status", 44100},
                                          {"Status", 44100},
                                          {"Status", 44100}}));
    EXPECT_EQ(stage.app.desktop.servedEvents, 2);
}

TEST(CopyWave, Copy_BlocksAndARest_TellsTheProgress) {
    WaveStage stage;
    stage.app.folder.Write("a", std::string(2 * Block + 5, 'x'));
    EXPECT_EQ(stage.wave.CopyWave("a", "copy"), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"MinStatus", 0},
                                          {"Status", 0},
                                          {"MaxStatus", 88205},
                                          {"Status", 44100},
                                          {"Status", 88200},
                                          {"Status", 88205},
                                          {"Status", 88205}}));
}

TEST(CopyWave, Copy_SourceThatShrank_WritesTheLastPieceTwiceAndSaysSo) {
    PosixFileSystem real;
    ShrinkingFileSystem files(real, 3 * WaveBlockSize);
    WaveStage stage(&files);
    const std::string content = Wav().Tone(Block + 10).AudioBytes();
    stage.app.folder.Write("a", content);
    EXPECT_EQ(stage.wave.CopyWave("a", "copy"), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("copy"), content + content.substr(Block)));
    ASSERT_EQ(stage.app.desktop.boxes.size(), 1U);
    EXPECT_EQ(stage.app.desktop.boxes[0].kind, BoxKind::Plain);
    EXPECT_EQ(stage.app.desktop.boxes[0].text, "Read Error!");
    EXPECT_EQ(
        stage.events,
        (RaisedEvents{
            {"MinStatus", 0}, {"Status", 0}, {"MaxStatus", 132300}, {"Status", 44100}, {"Status", 132300}}));
}

TEST(CopyWave, Copy_MoreThan32767Blocks_IsAnOverflow) {
    WaveStage stage;
    std::filesystem::resize_file(stage.app.folder.Write("a", ""), 32768LL * WaveBlockSize);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.CopyWave("a", "copy"); }), 6);
    EXPECT_EQ(stage.app.folder.Read("copy"), "");
}

TEST(CopyWave, Copy_FullDisk_IsAFailureAndTheSourceStays) {
    PosixFileSystem real;
    FaultInjectingFileSystem files(real);
    WaveStage stage(&files);
    stage.app.folder.Write("a", std::string(2 * Block, 'x'));
    files.faults.plan = {FaultPlan::Mode::FromTheNthOn, 4, ErrorNumber::DiskFull};
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.CopyWave("a", "copy"); }), 61);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a"), std::string(2 * Block, 'x')));
}

}  // namespace zefta::test
