// Streams and machines on which nothing may be written.

#include <gtest/gtest.h>

#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "tags/OggFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

ID3Tag SomeRecord() {
    ID3Tag record;
    record.Artist = "A";
    // Long enough to move the page numbers, so that every page is touched.
    record.ID3v2Extension.Comments = std::string(70000, 'c');
    return record;
}

/// The comment header goes on on a second page.
Ogg StreamOfTwoCommentPages() {
    return Ogg().Comment("X=" + std::string(70000, 'x'));
}

class OggRefusalsTest : public ::testing::Test {
  protected:
    /// Whether the file is as it was, with nothing beside it and nothing said.
    ::testing::AssertionResult IsRefused(const std::string& bytes) {
        ID3Tag record = SomeRecord();
        record.Path = app.folder.Write("a.ogg", bytes);
        SetOggComments(app, record);
        if (app.folder.Read("a.ogg") != bytes) return ::testing::AssertionFailure() << "written";
        if (app.folder.Exists("a.ogg.tmp")) return ::testing::AssertionFailure() << "a copy is left";
        if (!app.desktop.boxes.empty()) return ::testing::AssertionFailure() << app.desktop.boxes[0].text;
        return ::testing::AssertionSuccess();
    }

    ::testing::AssertionResult IsRefused(const std::vector<TestPage>& pages) {
        return IsRefused(BytesOf(pages));
    }
    ::testing::AssertionResult IsRefused(const Ogg& ogg) { return IsRefused(ogg.Bytes()); }

    TestApp app;
};

// Each of the tests below changes one thing of this stream.
TEST_F(OggRefusalsTest, SoundStream_IsWritten) {
    EXPECT_FALSE(IsRefused(Ogg()));
}

TEST_F(OggRefusalsTest, ChainedStreams_AreRefused) {
    EXPECT_TRUE(IsRefused(Ogg().Bytes() + Ogg().Serial(99).Bytes()));
    EXPECT_TRUE(IsRefused(Ogg().Bytes() + Ogg().Bytes()));
    std::vector<TestPage> withoutEnd = Ogg().Pages();
    withoutEnd.back().flags = 0;
    EXPECT_TRUE(IsRefused(BytesOf(withoutEnd) + Ogg().Serial(99).Bytes()));
    EXPECT_TRUE(IsRefused(BytesOf(withoutEnd) + Ogg().Bytes()));
    EXPECT_TRUE(IsRefused(Ogg().AudioPages(0).Bytes() + Ogg().Serial(99).Bytes()));
}

TEST_F(OggRefusalsTest, MultiplexedStreams_AreRefused) {
    const std::vector<TestPage> one = Ogg().Pages();
    const std::vector<TestPage> other = Ogg().Serial(99).Pages();
    std::vector<TestPage> mixed;
    for (std::size_t i = 0; i < one.size(); ++i) {
        mixed.push_back(one[i]);
        mixed.push_back(other[i]);
    }
    EXPECT_TRUE(IsRefused(mixed));
    for (std::size_t at = 0; at <= one.size(); ++at) {
        std::vector<TestPage> withForeignPage = one;
        withForeignPage.insert(withForeignPage.begin() + static_cast<std::ptrdiff_t>(at), other[3]);
        EXPECT_TRUE(IsRefused(withForeignPage)) << at;
    }
}

TEST_F(OggRefusalsTest, PagesBehindTheLastPage_AreRefused) {
    std::vector<TestPage> pages = Ogg().Pages();
    pages[3].flags |= 4;
    EXPECT_TRUE(IsRefused(pages));
    pages = Ogg().Pages();
    pages[1].flags |= 4;
    EXPECT_TRUE(IsRefused(pages));
    pages = StreamOfTwoCommentPages().Pages();
    pages[1].flags |= 4;
    EXPECT_TRUE(IsRefused(pages));
}

TEST_F(OggRefusalsTest, DamagedByteAnywhere_IsRefused) {
    const std::string bytes = Ogg().SetupLength(40).AudioPages(3).Bytes();
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x40);
        EXPECT_TRUE(IsRefused(damaged)) << at;
    }
}

TEST_F(OggRefusalsTest, CutAnywhereInsideAPage_IsRefused) {
    const std::vector<TestPage> pages = Ogg().SetupLength(40).AudioPages(2).Pages();
    std::string whole;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string page = pages[i].Bytes();
        for (std::size_t length = 1; length < page.size(); length += length < 30 ? 1 : 29)
            EXPECT_TRUE(IsRefused(whole + page.substr(0, length))) << i << " " << length;
        whole += page;
        // Between two audio pages nothing tells that there were more of them.
        if (i == 0) {
            EXPECT_TRUE(IsRefused(whole));
        }
    }
    EXPECT_TRUE(IsRefused(""s));
}

TEST_F(OggRefusalsTest, ForeignBytesAnywhere_AreRefused) {
    const std::vector<TestPage> pages = Ogg().Pages();
    for (const std::string& foreign : {"x"s, std::string(128, '\0'), Id3v1{"T"}.Bytes(), Id3v2("", 100)}) {
        std::string ahead;
        std::string behind = BytesOf(pages);
        for (const TestPage& page : pages) {
            EXPECT_TRUE(IsRefused(ahead + foreign + behind));
            ahead += page.Bytes();
            behind.erase(0, page.Bytes().size());
        }
        EXPECT_EQ(IsRefused(ahead + foreign), foreign != Id3v1{"T"}.Bytes());
    }
}

TEST_F(OggRefusalsTest, StreamThatIsNoVorbis_IsRefused) {
    EXPECT_TRUE(IsRefused("RIFF"s + Audio(5000)));
    EXPECT_TRUE(IsRefused(Ogg().Identification("OpusHead" + Audio(11))));
    EXPECT_TRUE(IsRefused(Ogg().Identification("\177FLAC" + Audio(46))));
    EXPECT_TRUE(IsRefused(Ogg().Identification("\3vorbis" + Audio(23))));
    EXPECT_TRUE(IsRefused(Ogg().CommentHeader("OpusTags" + Audio(46))));
    EXPECT_TRUE(IsRefused(Ogg().CommentHeader("\5vorbis" + Audio(46))));
    EXPECT_TRUE(IsRefused(Ogg().Setup("\3vorbis" + Audio(46))));
}

TEST_F(OggRefusalsTest, DamagedCommentHeader_IsRefused) {
    const std::string sound = CommentPacket("v", {"A=b", "C=d"});
    EXPECT_FALSE(IsRefused(Ogg().CommentHeader(sound)));
    for (std::size_t length = 1; length < sound.size(); ++length)
        EXPECT_TRUE(IsRefused(Ogg().CommentHeader(sound.substr(0, length)))) << length;
    std::string unframed = sound;
    unframed.back() = '\2';
    EXPECT_TRUE(IsRefused(Ogg().CommentHeader(unframed)));
    for (const std::size_t lengthAt : {7U, 12U, 16U, 23U}) {
        for (const std::string& number :
             {"\xFF\xFF\xFF\xFF"s, "\0\0\0\x80"s, "\xFF\xFF\xFF\x7F"s, "\x60\0\0\0"s}) {
            std::string damaged = sound;
            damaged.replace(lengthAt, 4, number);
            EXPECT_TRUE(IsRefused(Ogg().CommentHeader(damaged))) << lengthAt;
        }
    }
}

TEST_F(OggRefusalsTest, FirstPageThatHoldsMoreOrLess_IsRefused) {
    std::vector<TestPage> pages = Ogg().Pages();
    pages[0].lacing += '\1';
    pages[0].body += 'x';
    EXPECT_TRUE(IsRefused(pages));
    for (const int flags : {0, 1, 3, 4, 6}) {
        pages = Ogg().Pages();
        pages[0].flags = flags;
        EXPECT_TRUE(IsRefused(pages)) << flags;
    }
    pages = Ogg().Pages();
    pages[0].lacing = "\xFF";
    pages[0].body.resize(255, 'x');
    EXPECT_TRUE(IsRefused(pages));
    pages[0].lacing = "";
    pages[0].body = "";
    EXPECT_TRUE(IsRefused(pages));
}

TEST_F(OggRefusalsTest, AudioOnThePageOfTheSetupHeader_IsRefused) {
    std::vector<TestPage> pages = Ogg().Pages();
    pages[1].lacing += '\5';
    pages[1].body += "audio";
    EXPECT_TRUE(IsRefused(pages));
}

TEST_F(OggRefusalsTest, HeaderPagesThatDoNotFollowOneAnother_AreRefused) {
    std::vector<TestPage> pages = StreamOfTwoCommentPages().Pages();
    ASSERT_EQ(pages[2].flags, 1);
    pages[2].flags = 0;
    EXPECT_TRUE(IsRefused(pages));
    pages = Ogg().Pages();
    pages[1].flags = 1;
    EXPECT_TRUE(IsRefused(pages));
    pages = StreamOfTwoCommentPages().Pages();
    pages[2].number = 3;
    EXPECT_TRUE(IsRefused(pages));
    pages = Ogg().Pages();
    pages[1].flags = 2;
    EXPECT_TRUE(IsRefused(pages));
    pages.erase(pages.begin() + 1);
    EXPECT_TRUE(IsRefused(pages));
}

TEST_F(OggRefusalsTest, HeadersThatDoNotEnd_AreRefused) {
    std::vector<TestPage> pages = StreamOfTwoCommentPages().Pages();
    pages.resize(2);
    EXPECT_TRUE(IsRefused(pages));
    pages[1].flags = 4;
    EXPECT_TRUE(IsRefused(pages));
}

TEST_F(OggRefusalsTest, HeadersOfMoreThan64MiB_AreRefused) {
    constexpr std::size_t Limit = 64 * 1024 * 1024;
    EXPECT_TRUE(IsRefused(Ogg().Comment("X=" + std::string(Limit, 'x'))));
}

// Places.

TEST_F(OggRefusalsTest, CopyThatCantBeMade_ChangesNothingAndIsTold) {
    app.files.CreateFolder(app.folder / "a.ogg.tmp");
    for (int number = 1; number <= 999; ++number)
        app.files.CreateFolder(app.folder / ("a.ogg~" + std::to_string(number) + ".tmp"));
    ID3Tag record = SomeRecord();
    record.Path = app.folder.Write("a.ogg", Ogg().Bytes());
    SetOggComments(app, record);
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg().Bytes());
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text,
              "Permission denied on \"" + record.Path + "\". Other application uses this file.");
}

TEST_F(OggRefusalsTest, ID3v1TagBehindTheStream_StaysThere) {
    const std::string tag = "TAG" + std::string(125, 'x');
    ID3Tag record = SomeRecord();
    record.Path = app.folder.Write("a.ogg", Ogg().Bytes() + tag);
    SetOggComments(app, record);
    const std::string written = app.folder.Read("a.ogg");
    EXPECT_TRUE(written.ends_with(tag));
    EXPECT_NE(written, Ogg().Bytes() + tag);
    EXPECT_EQ(PacketsOf(PagesOf(written.substr(0, written.size() - tag.size()))).size(),
              PacketsOf(Ogg().Pages()).size());
}

/// Files on a machine that fails where it is told to.
class FailingWorld {
  public:
    explicit FailingWorld(FaultPlan plan) {
        failing_.faults.plan = plan;
        static const std::string stream = Ogg().AudioPages(800).Bytes();
        record_.Path = app.folder.Write("a.ogg", stream);
    }

    /// The number of the failure that went up, 0 for none.
    int Write() {
        return RuntimeErrorOf([&] { SetOggComments(app, record_); });
    }

    int Operations() const { return failing_.faults.operations; }
    const std::string& Path() const { return record_.Path; }

  private:
    PosixFileSystem real_;
    FaultInjectingFileSystem failing_{real_};
    ID3Tag record_ = SomeRecord();

  public:
    TestApp app{&failing_};
};

TEST(OggFailuresTest, EveryOperationFailing_LeavesTheOldFileOrTheNewOne) {
    FailingWorld sound({});
    const std::string before = ReadWholeFile(sound.Path());
    ASSERT_EQ(sound.Write(), 0);
    const std::string after = ReadWholeFile(sound.Path());
    ASSERT_TRUE(before != after);
    ASSERT_GT(sound.Operations(), 6);
    int creation = 0;
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int n = 1; n <= sound.Operations(); ++n) {
            FailingWorld world({mode, n, ErrorNumber::DiskFull});
            const int error = world.Write();
            const std::string now = ReadWholeFile(world.Path());
            const bool isWritten = now == after;
            EXPECT_TRUE(isWritten || now == before) << n;
            EXPECT_TRUE(error == 0 || error == 61) << n;
            // Only the creation of the copy is tried again, under another name.
            if (isWritten) {
                EXPECT_TRUE(mode == FaultPlan::Mode::OnlyTheNth && error == 0 && creation == 0) << n;
                creation = n;
            }
            const bool isTold = n == sound.Operations() || (n == creation && !isWritten);
            EXPECT_EQ(world.app.desktop.boxes.size(), isTold ? 1U : 0U) << n;
            // Where everything fails from there on, the copy can't be deleted either.
            if (mode == FaultPlan::Mode::OnlyTheNth) {
                EXPECT_FALSE(world.app.folder.Exists("a.ogg.tmp")) << n;
            }
        }
    }
    EXPECT_GT(creation, 0);
}

TEST(OggFailuresTest, PlaceThatCantBeTaken_IsToldByItsMessage) {
    FailingWorld sound({});
    sound.Write();
    const auto failing = [&](ErrorNumber error) {
        return FaultPlan{FaultPlan::Mode::OnlyTheNth, sound.Operations(), error};
    };
    FailingWorld denied(failing(ErrorNumber::PermissionDenied));
    EXPECT_EQ(denied.Write(), 0);
    ASSERT_EQ(denied.app.desktop.boxes.size(), 1U);
    EXPECT_EQ(denied.app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(denied.app.desktop.boxes[0].text,
              "Permission denied on \"" + denied.Path() + "\". Other application uses this file.");
    EXPECT_FALSE(denied.app.folder.Exists("a.ogg.tmp"));
    for (const auto error :
         {ErrorNumber::DiskFull, ErrorNumber::DeviceIoError, ErrorNumber::PathFileAccess}) {
        FailingWorld failed(failing(error));
        EXPECT_EQ(failed.Write(), 0);
        ASSERT_EQ(failed.app.desktop.boxes.size(), 1U);
        EXPECT_EQ(failed.app.desktop.boxes[0].text, "Error opening the file specified!");
        EXPECT_FALSE(failed.app.folder.Exists("a.ogg.tmp"));
    }
}

}  // namespace
}  // namespace zefta::test
