// The writer of the jobs: frames never take a byte of what follows the old tag.

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/ID3v2.h"
#include "tags/MP3File.h"

namespace zefta::test {
namespace {

class ID3v2Room : public ::testing::Test {
  protected:
    using Writer = void (*)(FileSystem& files, const CodePage& ansi, ID3Tag& tag);

    struct Outcome {
        std::string bytes;
        int failure = 0;
    };

    Outcome Written(const std::string& old, const ID3v2Extension& extension, Writer write) {
        ID3Tag tag;
        tag.Path = folder.Write("a.mp3", old);
        tag.ID3v2Extension = extension;
        const int failure = RuntimeErrorOf([&] { write(files, ansi, tag); });
        return {folder.Read("a.mp3"), failure};
    }

    Outcome ByTheEstimate(const std::string& old, const ID3v2Extension& extension) {
        return Written(old, extension, SetID3v2);
    }

    Outcome WithRoom(const std::string& old, const ID3v2Extension& extension) {
        return Written(old, extension, SetID3v2WithRoom);
    }

    Outcome Whole(const std::string& old, const ID3v2Extension& extension) {
        return Written(old, extension, [](FileSystem& disk, const CodePage& codePage, ID3Tag& tag) {
            SetWholeID3v2(disk, disk.OpenRead(tag.Path), codePage, tag);
        });
    }

    ID3v2Extension Read() {
        ID3Tag tag;
        ReadMP3File({files, ansi}, folder / "a.mp3", tag);
        return tag.ID3v2Extension;
    }

    static ID3v2Extension Fields(std::size_t comment, std::size_t genre, std::size_t mix) {
        ID3v2Extension extension;
        extension.TrackTitle = "Title";
        extension.Comments = std::string(comment, 'c');
        extension.Genre = std::string(genre, 'g');
        extension.Mix = std::string(mix, 'm');
        return extension;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
};

TEST_F(ID3v2Room, EveryLengthOfFieldsAndOldTags_LeavesTheAudioWhole) {
    const std::string audio = Audio(2000);
    int overruns = 0;
    for (std::size_t comment = 0; comment < 700; comment += 23) {
        for (const std::size_t genre : {0U, 30U, 200U}) {
            for (const std::size_t mix : {0U, 40U}) {
                for (const std::int32_t oldSize : {-1, 120, 140, 160, 200, 400, 502, 700}) {
                    const ID3v2Extension extension = Fields(comment, genre, mix);
                    const std::string old = (oldSize < 0 ? "" : Id3v2("", oldSize)) + audio;
                    const Outcome estimated = ByTheEstimate(old, extension);
                    const Outcome roomy = WithRoom(old, extension);
                    SCOPED_TRACE(::testing::Message()
                                 << comment << " " << genre << " " << mix << " " << oldSize);
                    ASSERT_EQ(roomy.failure, 0);
                    ASSERT_TRUE(roomy.bytes.ends_with(audio));
                    ASSERT_EQ(roomy.bytes.size(),
                              10 + static_cast<std::size_t>(Read().TagSize) + audio.size());
                    ASSERT_EQ(Read().Comments, extension.Comments);
                    ASSERT_EQ(Read().Genre, extension.Genre);
                    ASSERT_EQ(Read().Mix, extension.Mix);
                    ASSERT_EQ(Read().EncodedBy, "");
                    ASSERT_TRUE(estimated.failure != 0 || roomy.bytes == estimated.bytes);
                    overruns += estimated.failure == 5 ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(overruns, 50);
}

TEST_F(ID3v2Room, FramesOneByteTooLongForTheOldPlace_GetATenthMoreThanTheyNeed) {
    // Twelve frames of 11 bytes, 4 of the comment, 1 of the address: 137, and 23 of the genre.
    ID3v2Extension extension;
    extension.Genre = std::string(23, 'g');
    const std::string fits = WithRoom(Id3v2("", 160) + Audio(500), extension).bytes;
    EXPECT_TRUE(fits == ByTheEstimate(Id3v2("", 160) + Audio(500), extension).bytes);
    EXPECT_EQ(fits.size(), 170U + 500U);
    const std::string grown = WithRoom(Id3v2("", 159) + Audio(500), extension).bytes;
    EXPECT_EQ(grown.size(), 512U + 500U);
    extension.Genre = std::string(490, 'g');
    const std::string big = WithRoom(Id3v2("", 400) + Audio(500), extension).bytes;
    EXPECT_EQ(big.size(), 701U + 500U);  // 637 and a tenth
    EXPECT_TRUE(big.ends_with(Audio(500)));
}

TEST_F(ID3v2Room, SecondWrite_ChangesNothing) {
    const ID3v2Extension extension = Fields(300, 200, 40);
    const std::string once = WithRoom(Id3v2("", 430) + Audio(2000), extension).bytes;
    EXPECT_TRUE(WithRoom(once, extension).bytes == once);
}

TEST_F(ID3v2Room, LargeFillAndTagBeyondTheFile_FailAsTheyDoByTheEstimate) {
    const ID3v2Extension extension = Fields(10, 0, 0);
    const std::string large = Id3v2("", 40000) + Audio(500);
    EXPECT_EQ(WithRoom(large, extension).failure, 6);
    EXPECT_TRUE(WithRoom(large, extension).bytes == ByTheEstimate(large, extension).bytes);
    const std::string beyond = Id3v2("", 400).substr(0, 300);
    EXPECT_EQ(WithRoom(beyond, extension).failure, 5);
    EXPECT_TRUE(WithRoom(beyond, extension).bytes == beyond);
}

TEST_F(ID3v2Room, LargeFill_OfAWholeTag_GivesItALengthOfItsOwn) {
    const ID3v2Extension extension = Fields(10, 0, 0);
    const Outcome fresh = WithRoom(Audio(500), extension);
    for (const std::int32_t oldSize : {33000, 40000, 1000000}) {
        const Outcome whole = Whole(Id3v2("", oldSize) + Audio(500), extension);
        EXPECT_EQ(whole.failure, 0) << oldSize;
        EXPECT_TRUE(whole.bytes == fresh.bytes) << oldSize;
    }
}

TEST_F(ID3v2Room, LargeFill_OfANewFile_IsWritten) {
    ID3v2Extension extension = Fields(10, 0, 0);
    extension.UnknownFrames = RawFrame("APIC", Audio(400000));
    for (const std::string& old : {Audio(500), Id3v2("", 1000) + Audio(500)}) {
        EXPECT_EQ(WithRoom(old, extension).failure, 6);
        const Outcome whole = Whole(old, extension);
        EXPECT_EQ(whole.failure, 0);
        EXPECT_TRUE(whole.bytes == WithRoom(old, extension).bytes);
        EXPECT_TRUE(whole.bytes.ends_with(Audio(500)));
        EXPECT_EQ(Read().UnknownFrames, extension.UnknownFrames);
    }
}

TEST_F(ID3v2Room, WholeTag_IsElseTheOneWithRoom) {
    for (const std::int32_t oldSize : {0, 100, 160, 502, 30000}) {
        const std::string old = Id3v2("", oldSize) + Audio(500);
        const ID3v2Extension extension = Fields(50, 20, 0);
        EXPECT_TRUE(Whole(old, extension).bytes == WithRoom(old, extension).bytes) << oldSize;
    }
    const std::string beyond = Id3v2("", 400).substr(0, 300);
    EXPECT_EQ(Whole(beyond, Fields(10, 0, 0)).failure, 5);
}

}  // namespace
}  // namespace zefta::test
