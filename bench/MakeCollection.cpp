// Makes a folder of tagged files out of one MP3, one Ogg Vorbis and one MPEGplus file. Seven of ten are MP3;
// every tenth of those carries a picture.

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/App.h"
#include "core/ByteCodec.h"
#include "platform/console/ConsoleDesktop.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "wave/WaveFile.h"

namespace {

using namespace zefta;

/// A frame of an attached picture of that many bytes.
std::string PictureFrame(std::size_t size) {
    std::string body("\0image/jpeg\0\3\0", 14);
    body.append(size, '\x5A');
    return "APIC" + ByteCodec::LongToSyncSafe(static_cast<std::int32_t>(body.size())) + std::string(2, '\0') +
           body;
}

ID3Tag TagOf(const std::string& path, int number) {
    ID3Tag tag;
    tag.Path = path;
    tag.Artist = "Artist number " + std::to_string(number % 97);
    tag.Title = "The title of track " + std::to_string(number);
    tag.Album = "Album " + std::to_string(number / 12);
    tag.Year = std::to_string(1960 + number % 60);
    tag.TrackNumber = static_cast<std::uint8_t>(number % 12 + 1);
    tag.OggVorbisExtension.DateTime = tag.Year;
    tag.ID3v2Extension.Artist = tag.Artist;
    tag.ID3v2Extension.TrackTitle = tag.Title;
    tag.ID3v2Extension.AlbumTitle = tag.Album;
    tag.ID3v2Extension.Year = tag.Year;
    tag.ID3v2Extension.Genre = "Electronic";
    tag.ID3v2Extension.TrackNumber = std::to_string(tag.TrackNumber);
    return tag;
}

void WriteMP3Tags(WaveFile& writer, ID3Tag& tag, int number) {
    constexpr std::size_t PictureSize = 60000;
    if (number % 10 == 0) tag.ID3v2Extension.UnknownFrames = PictureFrame(PictureSize);
    writer.SetID3v1(tag);
    writer.SetID3v2(tag);
}

void MakeFile(WaveFile& writer, const std::vector<std::string>& models, const std::string& folder,
              int number) {
    const int kind = number % 10 < 7 ? 0 : number % 10 < 9 ? 1 : 2;
    const std::string& model = models[static_cast<std::size_t>(kind)];
    const std::string path = folder + "/Track " + std::to_string(100000 + number) +
                             std::filesystem::path(model).extension().string();
    std::filesystem::copy_file(model, path);
    ID3Tag tag = TagOf(path, number);
    if (kind == 0) WriteMP3Tags(writer, tag, number);
    if (kind == 1) writer.SetOggComments(tag);
    tag.TrackNumber = 0;
    if (kind == 2) writer.SetAPE2(tag);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 6) {
        std::cerr << "zefta_make_collection FOLDER COUNT MP3 OGG MPC\n";
        return 2;
    }
    const Machine machine;
    PosixFileSystem files;
    PosixProcesses processes;
    ConsoleDesktop desktop(std::cin, std::cerr, false);
    IniSettingsStore settings(std::string(arguments[1]) + "/none.ini");
    App app(machine, files, desktop, processes, settings, settings);
    WaveFile writer(app);
    const std::vector<std::string> models(arguments + 3, arguments + 6);
    const int count = std::stoi(arguments[2]);
    for (int number = 0; number < count; ++number) MakeFile(writer, models, arguments[1], number);
    return 0;
}
