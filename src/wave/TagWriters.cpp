#include "wave/TagWriters.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/FileKind.h"

namespace zefta {

namespace {

using TagWriter = void (*)(WaveFile& wave, ID3Tag& tag);

/// Every value of the ID3v1 tag, whatever stood there. Without a track number the comment has its full width.
void SetID3(WaveFile& wave, ID3Tag& tag) {
    const auto track = static_cast<std::int16_t>(tag.TrackNumber > 0 ? tag.TrackNumber : -1);
    wave.SetID3(tag.Path, {tag.Artist, tag.Album, tag.Year, tag.Title, tag.Comment, tag.Genre, track});
}

void SetID3v1(WaveFile& wave, ID3Tag& tag) {
    wave.SetID3v1(tag);
}

void SetMP3Tags(WaveFile& wave, ID3Tag& tag) {
    wave.SetMP3Tags(tag);
}

void SetID3v2WithRoom(WaveFile& wave, ID3Tag& tag) {
    wave.SetID3v2WithRoom(tag);
}

void RemoveID3v2(WaveFile& wave, ID3Tag& tag) {
    if (tag.ID3v2Present) wave.RemoveID3v2(tag);
}

void SetOggComments(WaveFile& wave, ID3Tag& tag) {
    wave.SetOggComments(tag);
}

void SetAPE2(WaveFile& wave, ID3Tag& tag) {
    wave.SetAPE2(tag);
}

/// The writers of one kind in their order; null where there are fewer.
using Writers = std::array<TagWriter, 2>;

struct JobRow {
    TagJob job;
    Writers mp3;
    Writers ogg;
    Writers mpegPlus;
};

constexpr JobRow JobRows[] = {
    // clang-format off
    // job                                  MP3                       Ogg Vorbis         MPEGplus
    {TagJob::FileInformation,             {{SetMP3Tags}},            {{SetOggComments}}, {{SetAPE2, RemoveID3v2}}},
    {TagJob::FileInformationWithoutID3v2, {{SetID3v1, RemoveID3v2}}, {{SetOggComments}}, {{SetAPE2, RemoveID3v2}}},
    {TagJob::ChangeTags,                  {{SetMP3Tags}},            {{SetOggComments}}, {{SetAPE2}}},
    {TagJob::Encoding,                    {{SetMP3Tags}},            {{SetOggComments}}, {{SetAPE2}}},
    {TagJob::DetailedEncoding,            {{SetID3, SetID3v2WithRoom}}, {{SetOggComments}}, {{SetAPE2}}},
    {TagJob::ReEncoding,                  {{SetMP3Tags}},            {{SetOggComments}}, {{SetAPE2}}},
    {TagJob::Crop,                        {{SetMP3Tags}},            {{}},               {{}}},
    // clang-format on
};

Writers WritersFor(TagJob job, std::string_view name) {
    const auto row = std::find_if(std::begin(JobRows), std::end(JobRows),
                                  [&](const JobRow& candidate) { return candidate.job == job; });
    if (row == std::end(JobRows)) return {};
    if (IsMP3File(name)) return row->mp3;
    if (IsOggFile(name)) return row->ogg;
    if (IsMPEGplusFile(name)) return row->mpegPlus;
    return {};
}

}  // namespace

void WriteTags(WaveFile& wave, TagJob job, ID3Tag& tag) {
    for (const TagWriter write : WritersFor(job, tag.Path)) {
        if (write != nullptr) write(wave, tag);
    }
}

}  // namespace zefta
