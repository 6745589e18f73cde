// Ogg Vorbis files.

#include "library/ChangeTagsStage.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

TEST_F(ChangeTagsTest, Ogg_AllValues_AreWrittenAndTheRestIsCarried) {
    const Ogg old = Ogg().Comment("artist=Old").Comment("COMMENT=Stays").Comment("REPLAYGAIN=-3 dB");
    const std::string bytes = Changed("a.ogg", old.Bytes(), All);
    const std::vector<std::string> packets = PacketsOf(PagesOf(bytes));
    EXPECT_EQ(packets[1],
              CommentPacket("Test vendor 1.0", {"ARTIST=New Artist", "ALBUM=New Album", "TRACKNUMBER=7",
                                                "DATE=2001", "TITLE=New Title (New Mix)", "GENRE=Rock",
                                                "COMMENT=Stays", "REPLAYGAIN=-3 dB"}));
    const std::vector<std::string> before = PacketsOf(PagesOf(old.Bytes()));
    EXPECT_TRUE(std::equal(before.begin() + 2, before.end(), packets.begin() + 2, packets.end()));
}

TEST_F(ChangeTagsTest, Ogg_LoneBlanks_Clear) {
    app.folder.Write("a.ogg", Ogg().Comment("ENCODER=x").Bytes());
    Change("a.ogg", All);
    Change("a.ogg", Clear);
    const std::vector<std::string> packets = PacketsOf(PagesOf(app.folder.Read("a.ogg")));
    EXPECT_EQ(packets[1], CommentPacket("Test vendor 1.0", {"TRACKNUMBER=0", "ENCODER=x"}));
}

TEST_F(ChangeTagsTest, Ogg_WithoutAYear_TheWholeDateStays) {
    Changed("a.ogg", Ogg().Comment("DATE=2001-05-01").Bytes(), {.Artist = "A "});
    EXPECT_EQ(OggNow("a.ogg").OggVorbisExtension.DateTime, "2001-05-01");
    Changed("a.ogg", Ogg().Comment("DATE=2001-05-01").Bytes(), {.Year = "1999 "});
    EXPECT_EQ(OggNow("a.ogg").OggVorbisExtension.DateTime, "1999");
}

TEST_F(ChangeTagsTest, Ogg_CommentsThatAreReadCut_AreRefusedWithAWarning) {
    const std::string files[] = {
        Ogg().Comment("ARTIST=A").Comment("LONG=" + std::string(5000, 'x')).Comment("ALBUM=B").Bytes(),
        Ogg().Comment("ARTIST=A").Comment("PICTURE=" + std::string(100000, 'x')).Bytes(),
        Ogg().CommentHeader(CommentPacket("v", std::vector<std::string>(40000, "A=B"))).Bytes(),
        Ogg().Vendor(std::string(40000, 'v')).Bytes(),
    };
    std::size_t refused = 0;
    for (const std::string& bytes : files) {
        EXPECT_TRUE(Changed("a.ogg", bytes, All) == bytes);
        ASSERT_EQ(app.desktop.boxes.size(), ++refused);
        EXPECT_EQ(app.desktop.boxes.back().kind, BoxKind::Warning);
    }
    EXPECT_EQ(StepsOf("a.ogg", All), "refused: a.ogg: its tag holds more than can be carried over\n");
}

TEST_F(ChangeTagsTest, Ogg_CommentsThatJustFitTheBlock_AreWrittenWhole) {
    // The reader sees 4100 bytes; the last byte of the packet is the framing bit.
    for (const int more : {0, 1}) {
        std::string bytes;
        std::size_t length = 3500;
        std::size_t end = 0;
        for (; end < 4100U + static_cast<std::size_t>(more); ++length) {
            const std::string line = "LONG=" + std::string(length, 'x');
            bytes = Ogg().Comment(line).Bytes();
            end = bytes.find(line) + line.size() + 1;
        }
        Changed("a.ogg", bytes, {.Artist = "A "});
        EXPECT_EQ(app.desktop.boxes.size(), static_cast<std::size_t>(more));
        EXPECT_EQ(app.folder.Read("a.ogg") == bytes, more == 1);
        EXPECT_NE(app.folder.Read("a.ogg").find(std::string(length - 1, 'x')), std::string::npos);
    }
}

TEST_F(ChangeTagsTest, Ogg_CommentHeaderOnSmallPages_IsRefused) {
    std::vector<TestPage> pages = Ogg().Comment("LONG=" + std::string(2000, 'x')).Pages();
    TestPage first = pages[1];
    first.lacing.resize(4);
    first.body.resize(4 * 255);
    first.granule = -1;
    TestPage second = pages[1];
    second.lacing.erase(0, 4);
    second.body.erase(0, 4 * 255);
    second.flags = 1;
    pages[1] = first;
    pages.insert(pages.begin() + 2, second);
    for (std::size_t i = 2; i < pages.size(); ++i) pages[i].number = static_cast<std::uint32_t>(i);
    const std::string bytes = BytesOf(pages);
    EXPECT_TRUE(Changed("a.ogg", bytes, All) == bytes);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(ChangeTagsTest, OggStreamsThatTheWriterRefuses_AreToldAndStay) {
    const std::string whole = Ogg().Bytes();
    const std::pair<std::string, std::string> files[] = {
        {"chained.ogg", whole + whole},
        {"cut.ogg", whole.substr(0, whole.size() - 10)},
        {"none.ogg", Audio(2000)},
    };
    const std::size_t count = std::size(files);
    for (const auto& [name, bytes] : files) {
        EXPECT_TRUE(Changed(name, bytes, All) == bytes) << name;
        ASSERT_FALSE(app.desktop.boxes.empty()) << name;
        EXPECT_EQ(app.desktop.boxes.back().text,
                  "File \"" + (app.folder / name) +
                      "\"\nis no whole, sound and single Ogg Vorbis stream.\n\nIt stays as it is.");
        EXPECT_EQ(StepsOf(name, All),
                  "refused: " + name + ": it is no whole, sound and single Ogg Vorbis stream\n");
    }
    EXPECT_EQ(app.desktop.boxes.size(), 2 * count);
}

}  // namespace
}  // namespace zefta::test
