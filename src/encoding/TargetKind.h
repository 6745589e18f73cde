#pragma once

namespace zefta {

/// What a compressed file is made into.
enum class TargetKind { MP3, OggVorbis, MPEGplus };

/// The kind that the two switches of an encoder's run choose: Ogg Vorbis before MPEGplus before MP3.
constexpr TargetKind KindOfTarget(bool toOggVorbis, bool toMPEGplus) {
    if (toOggVorbis) return TargetKind::OggVorbis;
    return toMPEGplus ? TargetKind::MPEGplus : TargetKind::MP3;
}

}  // namespace zefta
