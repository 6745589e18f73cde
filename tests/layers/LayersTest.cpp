// The shape of the house: which folder may include which, and how large a file may be.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
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
    {"disc", {"platform"}},
    {"core", {"platform"}},
    {"tags", {"core", "platform"}},
    {"wave", {"tags", "core", "platform"}},
    {"encoding", {"wave", "tags", "core", "platform"}},
    {"library", {"encoding", "wave", "tags", "core", "platform"}},
    {"cd", {"library", "encoding", "wave", "tags", "core", "platform"}},
    {"app", {"cd", "library", "encoding", "wave", "tags", "core", "platform"}},
    {"ui", {"app", "cd", "library", "encoding", "wave", "tags", "core", "platform"}},
    {"agent", {"ui", "app", "core", "platform"}},
    {"module", {"ui", "app"}},
};

/// Where a program is put together.
const std::set<std::string> Mains = {"main.cpp", "zeftaa.cpp", "zefta-cd.cpp"};

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

/// The layer that an include of ours names; "" for any other line.
std::string IncludedLayer(const std::string& line) {
    const std::string start = "#include \"";
    if (!line.starts_with(start)) return {};
    return line.substr(start.size(), line.find('/') - start.size());
}

bool HoldsAny(const std::string& line, const std::vector<std::string>& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string& word) { return line.find(word) != std::string::npos; });
}

TEST(Layers, Includes_OnlyPointDown) {
    std::size_t seen = 0;
    for (const SourceFile& file : AllSources()) {
        if (Mains.contains(file.layer)) continue;
        ASSERT_TRUE(Allowed.contains(file.layer)) << "a layer without a row: " << file.path;
        for (const std::string& line : file.lines) {
            const std::string target = IncludedLayer(line);
            if (target.empty()) continue;
            ++seen;
            EXPECT_TRUE(target == file.layer || Allowed.at(file.layer).contains(target))
                << file.path << ": " << line;
        }
    }
    EXPECT_GT(seen, 200U);
}

TEST(Layers, SystemHeadersAndPlatformSwitches_StandInThePlatformLayerOnly) {
    const std::vector<std::string> systemHeaders = {"<unistd", "<fcntl",   "<dirent",  "<iconv",     "<sys/",
                                                    "<sched",  "<csignal", "<fstream", "<filesystem"};
    const std::vector<std::string> platforms = {"_WIN32", "__linux__", "__unix__", "__APPLE__"};
    for (const SourceFile& file : AllSources()) {
        for (const std::string& line : file.lines) {
            EXPECT_FALSE(line.starts_with("#if") && HoldsAny(line, platforms)) << file.path << ": " << line;
            if (file.layer == "platform") continue;
            EXPECT_FALSE(line.starts_with("#include") && HoldsAny(line, systemHeaders))
                << file.path << ": " << line;
        }
    }
}

TEST(Layers, Files_HaveOneSubject) {
    for (const SourceFile& file : AllSources()) EXPECT_LE(file.lines.size(), 500U) << file.path;
}

}  // namespace
}  // namespace zefta::test
