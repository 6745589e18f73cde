#include "wave/WaveFile.h"

#include "tags/APE2.h"
#include "tags/ID3v2.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"

namespace zefta {

namespace {

void SetPerCent(std::uint8_t& field, std::uint8_t value) {
    if (value <= 100) field = value;
}

}  // namespace

void WaveFile::SetNRLevel(std::uint8_t value) {
    SetPerCent(nrLevel_, value);
}
void WaveFile::SetNRAbove(std::uint8_t value) {
    SetPerCent(nrAbove_, value);
}
void WaveFile::SetNRBelow(std::uint8_t value) {
    SetPerCent(nrBelow_, value);
}

std::uint8_t WaveFile::GetNRLevel() {
    nrAbove_ = nrLevel_;
    return 0;
}

ID3Tag WaveFile::GetMP3FileInfo(const std::string& path) {
    ID3Tag tag;
    ReadMP3File({app_.files, app_.ansi}, path, tag);
    return tag;
}

ID3Tag WaveFile::GetOGGFileInfo(const std::string& path) {
    ID3Tag tag;
    ReadOGGFile({app_.files, app_.ansi}, path, tag);
    return tag;
}

ID3Tag WaveFile::GetMPEGplusFileInfo(const std::string& path) {
    ID3Tag tag;
    ReadMPEGplusFile({app_.files, app_.ansi}, path, tag);
    return tag;
}

int WaveFile::SetID3(const std::string& path, const ID3v1Values& values) {
    return zefta::SetID3(app_.files, app_.ansi, path, values);
}

void WaveFile::SetID3v1(ID3Tag& tag) {
    zefta::SetID3v1(app_.files, app_.ansi, tag);
}

void WaveFile::SetID3v2(ID3Tag& tag) {
    zefta::SetID3v2(app_.files, app_.ansi, tag);
}

void WaveFile::SetID3v2WithRoom(ID3Tag& tag) {
    zefta::SetID3v2WithRoom(app_.files, app_.ansi, tag);
}

void WaveFile::SetMP3Tags(ID3Tag& tag) {
    zefta::SetMP3Tags(app_.files, app_.ansi, tag);
}

bool WaveFile::RemoveID3v2(const ID3Tag& tag) {
    return zefta::RemoveID3v2(app_.files, tag);
}

void WaveFile::SetOggComments(const ID3Tag& tag) {
    zefta::SetOggComments(app_, tag);
}

void WaveFile::SetAPE2(ID3Tag& tag) {
    zefta::SetAPE2(app_.files, tag);
}

}  // namespace zefta
