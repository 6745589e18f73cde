// The same change of tags by a well-known tag library: the artist of every MP3 file of a folder.

#include <filesystem>
#include <taglib/fileref.h>
#include <taglib/tag.h>
#include <vector>

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) return 2;
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[2])) paths.push_back(entry.path());
    for (const auto& path : paths) {
        TagLib::FileRef file(path.c_str(), false);
        if (file.isNull() || file.tag() == nullptr) return 1;
        file.tag()->setArtist(arguments[1]);
        if (!file.save()) return 1;
    }
    return 0;
}
