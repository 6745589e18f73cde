#include "jobs/JobCase.h"

#include <sstream>

#include "support/TempFolder.h"
#include "support/WavBuilder.h"

namespace zefta::test {

namespace {

std::string ReadIfThere(const std::filesystem::path& path) {
    return std::filesystem::exists(path) ? ReadWholeFile(path.string()) : std::string();
}

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::map<std::string, std::string> ReadFiles(const std::filesystem::path& folder, const std::string& what) {
    std::map<std::string, std::string> files;
    if (std::filesystem::exists(folder / what)) files = ReadTree(folder / what);
    for (const std::string& line : Lines(ReadIfThere(folder / (what + ".wavs")))) {
        std::istringstream stream(line);
        std::string name;
        std::size_t before = 0, tone = 0, after = 0;
        stream >> name >> before >> tone >> after;
        files[name] = Wav().Silence(before).Tone(tone).Silence(after).Bytes();
    }
    return files;
}

}  // namespace

std::map<std::string, std::string> ReadTree(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_directory()) continue;
        files[entry.path().lexically_relative(folder).string()] = ReadWholeFile(entry.path().string());
    }
    return files;
}

JobCase ReadJobCase(const std::filesystem::path& folder) {
    JobCase result;
    result.name = folder.filename().string();
    result.arguments = Lines(ReadIfThere(folder / "arguments"));
    for (const std::string& line : Lines(ReadIfThere(folder / "environment")))
        result.environment[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    result.typed = ReadIfThere(folder / "typed");
    result.input = ReadFiles(folder, "input");
    result.expected = ReadFiles(folder, "expected");
    result.tools = ReadIfThere(folder / "tools");
    result.output = ReadIfThere(folder / "stdout");
    result.error = ReadIfThere(folder / "stderr");
    const std::string status = ReadIfThere(folder / "status");
    result.status = status.empty() ? 0 : std::stoi(status);
    return result;
}

}  // namespace zefta::test
