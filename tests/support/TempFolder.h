#pragma once

#include <string>
#include <string_view>

namespace zefta::test {

/// An empty folder of its own for one test, gone with all it holds when the test ends.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

    /// Writes a file; returns its path.
    std::string Write(std::string_view name, std::string_view bytes) const;
    std::string Read(std::string_view name) const;
    bool Exists(std::string_view name) const;

  private:
    std::string path_;
};

std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, std::string_view bytes);

}  // namespace zefta::test
