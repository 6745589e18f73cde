#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace zefta::test {

namespace {

std::string MakeTemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zefta-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return std::filesystem::canonical(pattern).string();
}

}  // namespace

TempFolder::TempFolder() : path_(MakeTemporaryFolder()) {}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
    const std::string path = *this / name;
    WriteWholeFile(path, bytes);
    return path;
}

std::string TempFolder::Read(std::string_view name) const {
    return ReadWholeFile(*this / name);
}

bool TempFolder::Exists(std::string_view name) const {
    return std::filesystem::symlink_status(*this / name).type() != std::filesystem::file_type::not_found;
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + path);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    std::ofstream stream(path, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) throw std::runtime_error("cannot write " + path);
}

}  // namespace zefta::test
