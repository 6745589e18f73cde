#include <gtest/gtest.h>

#include "library/RenamesAhead.h"
#include "support/ExpectRuntimeError.h"
#include "support/TestApp.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"

namespace zefta::test {
namespace {

/// Files "0.mp3" and on, whose titles are their numbers.
class RenamesAheadTest : public ::testing::Test {
  protected:
    TestApp app;
    std::string folder = app.folder.Path();
    std::vector<std::string> names;
    FileReading reading = {app.files, app.ansi, UnknownContent::PassOver};
    RenameRule rule = {1, "", false};

    void MakeFiles(int count) {
        for (int i = 0; i < count; ++i) {
            names.push_back(std::to_string(i) + ".mp3");
            const std::string path = app.folder.Write(names.back(), std::string(200, 'a'));
            ID3v1Values values;
            values.Artist = "A";
            values.Title = std::to_string(i);
            SetID3(app.files, app.ansi, path, values);
        }
    }

    void GiveTrack(int number, const std::string& track) {
        ID3Tag tag;
        tag.Path = JoinPath(folder, names[static_cast<std::size_t>(number)]);
        tag.ID3v2Extension.TrackNumber = track;
        SetID3v2(app.files, app.ansi, tag);
    }
};

TEST_F(RenamesAheadTest, EveryNumber_HasThePlanOfItsFile) {
    for (const int count : {1, 64, 65, 200, 256}) {
        names.clear();
        MakeFiles(count);
        RenamesAhead ahead(reading, rule, folder, names);
        for (std::size_t i = 0; i < names.size(); ++i)
            EXPECT_EQ(ahead.Take(i).wanted.name, "A - " + std::to_string(i)) << count;
    }
}

TEST_F(RenamesAheadTest, NumbersLeftOut_AreNoMatter) {
    MakeFiles(300);
    RenamesAhead ahead(reading, rule, folder, names);
    for (const std::size_t i : {0U, 63U, 64U, 65U, 190U, 299U})
        EXPECT_EQ(ahead.Take(i).wanted.name, "A - " + std::to_string(i));
}

TEST_F(RenamesAheadTest, FileThatCannotBePlanned_FailsAtItsNumberAndNoOther) {
    MakeFiles(150);
    GiveTrack(100, "3/12");
    RenamesAhead ahead(reading, rule, folder, names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const int error = RuntimeErrorOf([&] { ahead.Take(i); });
        EXPECT_EQ(error, i == 100 ? 13 : 0) << i;
    }
}

TEST_F(RenamesAheadTest, LeftInTheMiddle_EndsItsThread) {
    MakeFiles(300);
    RenamesAhead ahead(reading, rule, folder, names);
    EXPECT_EQ(ahead.Take(0).wanted.name, "A - 0");
}

}  // namespace
}  // namespace zefta::test
