// Which tags each job writes to a file of each kind.

#include <functional>

#include <gtest/gtest.h>

#include "support/ApeBuilder.h"
#include "support/ProgramRun.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/TagWriters.h"

namespace zefta::test {
namespace {

using Call = std::function<void(WaveFile& wave, ID3Tag& tag)>;

const Call Id3v1Writer = [](WaveFile& wave, ID3Tag& tag) { wave.SetID3v1(tag); };
const Call Id3v2Writer = [](WaveFile& wave, ID3Tag& tag) { wave.SetID3v2(tag); };
const Call Id3v2Remover = [](WaveFile& wave, ID3Tag& tag) { wave.RemoveID3v2(tag); };
const Call OggWriter = [](WaveFile& wave, ID3Tag& tag) { wave.SetOggComments(tag); };
const Call ApeWriter = [](WaveFile& wave, ID3Tag& tag) { wave.SetAPE2(tag); };
const Call WholeId3Writer = [](WaveFile& wave, ID3Tag& tag) {
    wave.SetID3(tag.Path, {.Artist = "New Artist",
                           .Album = "",
                           .Year = "2001",
                           .Title = "New Title",
                           .Comment = "A comment of thirty characters",
                           .Genre = 17,
                           .Track = 7});
};

class TagWritersTest : public ::testing::Test {
  protected:
    /// A file of the kind that its name tells, with old tags of every sort that the kind has.
    std::string OldBytes(const std::string& name) {
        if (name.ends_with("ogg")) return OggBytes();
        const std::string old = Id3v2(TextFrame("TPE1", "Old Artist"), 600);
        const Id3v1 end = {.title = "Old", .artist = "Old Artist", .album = "Old Album"};
        return old + "MP+\7" + Audio(3000) + end.Bytes();
    }

    const std::string& OggBytes() {
        if (ogg_.empty()) {
            const std::string source = app.folder.Write("source.wav", Wav().Tone(40000).Bytes());
            const std::string output = app.folder / "source.ogg";
            RunToEnd({"oggenc", {"-Q", "-c", "artist=Old Artist", "-o", output, source}, "", "", {}});
            ogg_ = ReadWholeFile(output);
        }
        return ogg_;
    }

    static ID3Tag NewRecord(const std::string& path) {
        ID3Tag tag;
        tag.Path = path;
        tag.Artist = "New Artist";
        tag.Title = "New Title";
        tag.Year = "2001";
        tag.Comment = "A comment of thirty characters";
        tag.TrackNumber = 7;
        tag.Genre = 17;
        tag.ID3v2Present = true;
        tag.ID3v2Extension.Artist = "New Artist";
        tag.ID3v2Extension.TrackTitle = "New Title";
        return tag;
    }

    std::string AfterCalls(const std::string& name, const std::vector<Call>& calls) {
        ID3Tag tag = NewRecord(app.folder.Write(name, OldBytes(name)));
        for (const Call& call : calls) call(wave, tag);
        return app.folder.Read(name);
    }

    std::string AfterJob(const std::string& name, TagJob job) {
        ID3Tag tag = NewRecord(app.folder.Write(name, OldBytes(name)));
        WriteTags(wave, job, tag);
        return app.folder.Read(name);
    }

    TestApp app;
    WaveFile wave{app};

  private:
    std::string ogg_;
};

struct JobRow {
    TagJob job;
    std::vector<Call> mp3;
    std::vector<Call> ogg;
    std::vector<Call> mpegPlus;
};

const JobRow JobRows[] = {
    {TagJob::FileInformation, {Id3v1Writer, Id3v2Writer}, {OggWriter}, {ApeWriter, Id3v2Remover}},
    {TagJob::FileInformationWithoutID3v2,
     {Id3v1Writer, Id3v2Remover},
     {OggWriter},
     {ApeWriter, Id3v2Remover}},
    {TagJob::ChangeTags, {Id3v1Writer, Id3v2Writer}, {OggWriter}, {ApeWriter}},
    {TagJob::Encoding, {Id3v1Writer, Id3v2Writer}, {OggWriter}, {ApeWriter}},
    {TagJob::DetailedEncoding, {WholeId3Writer, Id3v2Writer}, {OggWriter}, {ApeWriter}},
    {TagJob::ReEncoding, {Id3v1Writer, Id3v2Writer}, {OggWriter}, {ApeWriter}},
    {TagJob::Crop, {Id3v1Writer, Id3v2Writer}, {}, {}},
};

TEST_F(TagWritersTest, EveryJob_WritesTheTagsOfItsRow) {
    for (const JobRow& row : JobRows) {
        const std::pair<std::string, std::vector<Call>> kinds[] = {
            {"a.mp3", row.mp3}, {"a.ogg", row.ogg}, {"a.mpc", row.mpegPlus}, {"a.mp+", row.mpegPlus}};
        for (const auto& [name, calls] : kinds) {
            const std::string told = AfterCalls(name, calls);
            EXPECT_EQ(told == OldBytes(name), calls.empty()) << name;
            EXPECT_TRUE(AfterJob(name, row.job) == told) << name << ", job " << static_cast<int>(row.job);
        }
    }
}

TEST_F(TagWritersTest, Kind_IsToldByTheLastThreeLettersInAnyCase) {
    EXPECT_TRUE(AfterJob("A.MP3", TagJob::Encoding) == AfterCalls("a2.mp3", {Id3v1Writer, Id3v2Writer}));
    EXPECT_TRUE(AfterJob("xMp3", TagJob::Encoding) == AfterCalls("a3.mp3", {Id3v1Writer, Id3v2Writer}));
    EXPECT_TRUE(AfterJob("A.MPC", TagJob::Encoding) == AfterCalls("a2.mpc", {ApeWriter}));
}

TEST_F(TagWritersTest, FileOfNoKind_StaysAsItIs) {
    for (const char* name : {"a.wav", "a.txt", "mp", "a.mp3.bak"})
        EXPECT_TRUE(AfterJob(name, TagJob::FileInformation) == OldBytes(name)) << name;
}

TEST_F(TagWritersTest, WriterOfAnotherKind_ChangesNothing) {
    EXPECT_TRUE(AfterCalls("a.mp3", {OggWriter, ApeWriter}) == OldBytes("a.mp3"));
    EXPECT_TRUE(AfterCalls("a.ogg", {Id3v2Writer, ApeWriter}) == OldBytes("a.ogg"));
    EXPECT_TRUE(AfterCalls("a.mpc", {Id3v2Writer, OggWriter}) == OldBytes("a.mpc"));
}

TEST_F(TagWritersTest, SetID3v1OnAnOggFile_AppendsItsTag) {
    const std::string bytes = AfterCalls("a.ogg", {Id3v1Writer});
    EXPECT_EQ(bytes.size(), OldBytes("a.ogg").size() + 128);
    EXPECT_TRUE(bytes.starts_with(OldBytes("a.ogg")));
}

TEST_F(TagWritersTest, SwitchedOffID3v2_IsTakenOffAndID3v1Stays) {
    AfterJob("a.mp3", TagJob::FileInformationWithoutID3v2);
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_FALSE(tag.ID3v2Present);
    EXPECT_EQ(tag.Title, "New Title");
    EXPECT_EQ(tag.Album, "Old Album");
}

TEST_F(TagWritersTest, SwitchedOffID3v2_FileWithout_IsNotRebuilt) {
    ID3Tag tag = NewRecord(app.folder.Write("a.mp3", Audio(2000)));
    tag.ID3v2Present = false;
    WriteTags(wave, TagJob::FileInformationWithoutID3v2, tag);
    EXPECT_EQ(app.folder.Read("a.mp3").size(), 2128U);
    EXPECT_TRUE(app.folder.Read("a.mp3").starts_with(Audio(2000)));
}

TEST_F(TagWritersTest, MPEGplus_HasNoID3v1LeftAndEndsInTheFooter) {
    const std::string bytes = AfterJob("a.mpc", TagJob::ChangeTags);
    EXPECT_EQ(bytes.find("TAGOld"), std::string::npos);
    EXPECT_EQ(bytes.substr(bytes.size() - 32, 8), "APETAGEX");
    const ID3Tag tag = wave.GetMPEGplusFileInfo(app.folder / "a.mpc");
    EXPECT_EQ(tag.Artist, "New Artist");
    EXPECT_TRUE(tag.ID3v2Present);
}

TEST_F(TagWritersTest, MPEGplusInformation_LeavesOnlyTheApeTag) {
    const std::string bytes = AfterJob("a.mpc", TagJob::FileInformation);
    EXPECT_TRUE(bytes.starts_with("MP+\7" + Audio(3000) + "APETAGEX"));
    EXPECT_FALSE(wave.GetMPEGplusFileInfo(app.folder / "a.mpc").ID3v2Present);
}

TEST_F(TagWritersTest, Encoding_KeepsOldID3v1ValuesThatTheRecordLacks) {
    AfterJob("a.mp3", TagJob::Encoding);
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "a.mp3").Album, "Old Album");
}

TEST_F(TagWritersTest, DetailedEncoding_ReplacesEveryID3v1Value) {
    AfterJob("a.mp3", TagJob::DetailedEncoding);
    const ID3Tag tag = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_EQ(tag.Artist, "New Artist");
    EXPECT_EQ(tag.Album, "");
    EXPECT_EQ(tag.Year, "2001");
    EXPECT_EQ(tag.Comment, "A comment of thirty characte");
    EXPECT_EQ(tag.TrackNumber, 7);
    EXPECT_EQ(tag.Genre, 17);
}

TEST_F(TagWritersTest, DetailedEncoding_WithoutATrack_TheCommentKeepsItsWidth) {
    ID3Tag tag = NewRecord(app.folder.Write("a.mp3", Audio(2000)));
    tag.TrackNumber = 0;
    WriteTags(wave, TagJob::DetailedEncoding, tag);
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "a.mp3").Comment, "A comment of thirty characters");
}

TEST_F(TagWritersTest, Lyrics3_StaysInFrontOfTheTagThatIsWritten) {
    const std::string lyrics = "LYRICSBEGINETT00005Hello000024LYRICS200";
    const std::string audio = Audio(3000) + lyrics;
    for (const TagJob job : {TagJob::Encoding, TagJob::DetailedEncoding}) {
        ID3Tag tag = NewRecord(app.folder.Write("a.mp3", audio + Id3v1{.title = "Old"}.Bytes()));
        WriteTags(wave, job, tag);
        const std::string bytes = app.folder.Read("a.mp3");
        EXPECT_EQ(bytes.substr(bytes.size() - 128 - audio.size(), audio.size()), audio);
    }
    ID3Tag tag = NewRecord(app.folder.Write("a.mpc", audio + Id3v1{.title = "Old"}.Bytes()));
    WriteTags(wave, TagJob::ChangeTags, tag);
    EXPECT_TRUE(app.folder.Read("a.mpc").starts_with(audio + "APETAGEX"));
}

TEST_F(TagWritersTest, FileThatCannotBeOpened_EmptiesThePathAndLeavesTheFile) {
    for (const JobRow& row : JobRows) {
        for (const char* name : {"a.mp3", "a.mpc"}) {
            if (row.job == TagJob::Crop && std::string(name) == "a.mpc") continue;
            app.files.SetReadOnly(app.folder.Write(name, OldBytes(name)), true);
            ID3Tag tag = NewRecord(app.folder / name);
            WriteTags(wave, row.job, tag);
            EXPECT_EQ(tag.Path, "") << name << ", job " << static_cast<int>(row.job);
            EXPECT_TRUE(app.folder.Read(name) == OldBytes(name));
            app.files.SetReadOnly(app.folder / name, false);
        }
    }
    ID3Tag tag = NewRecord(app.folder / "none.mp3");
    WriteTags(wave, TagJob::Encoding, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(TagWritersTest, OggComments_AreReadByOthers) {
    AfterJob("a.ogg", TagJob::ChangeTags);
    const ProgramResult seen = RunToEnd({"vorbiscomment", {"-R", "-l", app.folder / "a.ogg"}, "", "", {}});
    EXPECT_NE(seen.output.find("=New Artist\n"), std::string::npos) << seen.output;
    EXPECT_EQ(seen.output.find("Old Artist"), std::string::npos);
}

}  // namespace
}  // namespace zefta::test
