// The shape of the house: which folder may include which, and how large a file may be.

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zefta::test {
namespace {

const std::filesystem::path Sources = ZEFTA_SOURCES;

/// What each layer may include beside itself.
const std::map<std::string, std::set<std::string>> Allowed = {
    {"platform", {}},
    {"core", {"platform"}},
    {"tags", {"core", "platform"}},
    {"wave", {"tags", "core", "platform"}},
    {"encoding", {"wave", "tags", "core", "platform"}},
    {"app", {"encoding", "wave", "tags", "core", "platform"}},
};

struct SourceFile {
    std::filesystem::path path;
    std::string layer;
    std::vector<std::string> lines;
};

std::vector<SourceFile> AllSources() {
    std::vector<SourceFile> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Sources)) {
        const auto extension = entry.path().extension();
        if (extension != ".cpp" && extension != ".h") continue;
        SourceFile file{entry.path(), std::filesystem::relative(entry.path(), Sources).begin()->string(), {}};
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) file.lines.push_back(line);
        files.push_back(file);
    }
    return files;
}

TEST(Layers, Includes_OnlyPointDown) {
    const std::regex include("^#include \"([a-z]+)/");
    std::size_t seen = 0;
    for (const SourceFile& file : AllSources()) {
        if (file.layer == "main.cpp") continue;
        ASSERT_TRUE(Allowed.contains(file.layer)) << "a layer without a row: " << file.path;
        for (const std::string& line : file.lines) {
            std::smatch match;
            if (!std::regex_search(line, match, include)) continue;
            ++seen;
            const std::string target = match[1];
            EXPECT_TRUE(target == file.layer || Allowed.at(file.layer).contains(target))
                << file.path << ": " << line;
        }
    }
    EXPECT_GT(seen, 200U);
}

TEST(Layers, SystemHeadersAndPlatformSwitches_StandInThePlatformLayerOnly) {
    const std::regex system("^#include <(unistd|fcntl|dirent|iconv|sys/|sched|signal|fstream|filesystem)");
    const std::regex platformSwitch("^#if.*(_WIN32|__linux__|__unix__|__APPLE__)");
    for (const SourceFile& file : AllSources()) {
        for (const std::string& line : file.lines) {
            EXPECT_FALSE(std::regex_search(line, platformSwitch)) << file.path << ": " << line;
            if (file.layer == "platform") continue;
            EXPECT_FALSE(std::regex_search(line, system)) << file.path << ": " << line;
        }
    }
}

TEST(Layers, Files_HaveOneSubject) {
    for (const SourceFile& file : AllSources()) EXPECT_LE(file.lines.size(), 500U) << file.path;
}

}  // namespace
}  // namespace zefta::test
