#include <chrono>
#include <filesystem>

#include <gtest/gtest.h>

#include "library/ListedFile.h"
#include "support/CountingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

TEST(ReadListedFile, WaveFullOfZeros_IsGivenUpSoon) {
    using namespace std::chrono;
    TestApp app;
    const std::string head = std::string("RIFF\xFF\xFF\xFF\x7FWAVE", 12);
    constexpr std::uintmax_t Bytes = 1'500'000'000;
    std::filesystem::resize_file(app.folder.Write("broken.wav", head), Bytes);
    const auto start = steady_clock::now();
    const FileReading reading = {app.files, app.ansi, UnknownContent::PassOver};
    const ListedFile file = ReadListedFile(reading, app.folder.Path(), {"broken.wav", ListKind::Wave});
    EXPECT_LT(steady_clock::now() - start, seconds(1));
    EXPECT_EQ(file.bytes, static_cast<std::int64_t>(Bytes));
    EXPECT_EQ(file.tag.Bitrate, -1);
}

TEST(ReadListedFile, FileOfAnotherToolAndPlaylist_AreNeverOpened) {
    CountingFileSystem files;
    TestApp app(&files);
    const FileReading reading = {files, app.ansi, UnknownContent::PassOver};
    for (const auto& [name, kind] :
         {std::pair{"a.lqt", ListKind::Lqt}, std::pair{"a.m3u", ListKind::Playlist}}) {
        app.folder.Write(name, "TAG" + std::string(5000, 'x'));
        const ListedFile file = ReadListedFile(reading, app.folder.Path(), {name, kind});
        EXPECT_EQ(file.bytes, 5003) << name;
    }
    EXPECT_EQ(files.count.opens, 0);
    app.folder.Write("a.mp3", "x");
    ReadListedFile(reading, app.folder.Path(), {"a.mp3", ListKind::MP3});
    EXPECT_EQ(files.count.opens, 1) << "what the list reads";
}

}  // namespace
}  // namespace zefta::test
