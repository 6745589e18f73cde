#include "library/ListedFile.h"

#include <new>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"
#include "wave/WaveInfo.h"

namespace zefta {

namespace {

/// Far more than any WAV file has; one that a recorder left full of zeros has millions, and the list waits.
constexpr int MostChunks = 100'000;

void ReadWave(const FileReading& reading, const std::string& path, ID3Tag& tag) {
    ReadWaveInfo(reading.files, path, tag, [chunks = 0]() mutable {
        if (++chunks > MostChunks) throw RuntimeError(ErrorNumber::Overflow);
    });
}

void ReadTag(const FileReading& reading, const std::string& path, ListKind kind, ID3Tag& tag) {
    switch (kind) {
        case ListKind::Wave:
            ReadWave(reading, path, tag);
            break;
        case ListKind::MP3:
            ReadMP3File(reading, path, tag);
            break;
        case ListKind::Ogg:
            ReadOGGFile(reading, path, tag);
            break;
        case ListKind::MPEGplus:
            ReadMPEGplusFile(reading, path, tag);
            break;
        default:
            break;
    }
}

bool KnowsTheLength(ListKind kind, const ID3Tag& tag) {
    const bool isCompressed = kind == ListKind::MP3 || kind == ListKind::Ogg || kind == ListKind::MPEGplus;
    return isCompressed && tag.Length > 0;
}

template <typename Step>
void Trapped(Step step) {
    try {
        step();
    } catch (const RuntimeError&) {
        // The row shows what is there.
    } catch (const std::bad_alloc&) {
    }
}

}  // namespace

ListedFile ReadListedFile(const FileReading& reading, const std::string& folder, const ListEntry& entry) {
    ListedFile file;
    if (entry.kind == ListKind::Folder) return file;
    const std::string path = JoinPath(folder, entry.name);
    Trapped([&] { ReadTag(reading, path, entry.kind, file.tag); });
    file.bytes = file.tag.Length;
    if (!KnowsTheLength(entry.kind, file.tag)) Trapped([&] { file.bytes = reading.files.FileSize(path); });
    return file;
}

}  // namespace zefta
