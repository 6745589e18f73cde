#include <chrono>
#include <filesystem>

#include <gtest/gtest.h>

#include "library/ListedFile.h"
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

}  // namespace
}  // namespace zefta::test
