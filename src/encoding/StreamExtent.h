#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// How much audio a compressed file really holds. Encoders tell nothing about how they ended; one that was
/// ended too early, or whose disk was full, leaves a file that begins like a good one.
struct StreamExtent {
    double seconds = 0;
    /// Whether the stream comes to its end: the mark that its kind has for it, or the end of a frame.
    bool isWhole = false;
};

/// Walks the stream of the file, of the kind that its name tells. Nothing for a file that can't be read and
/// for content that is no such stream, or not enough of one to say anything: free format, streams chained
/// behind each other, MPEGplus before version 8. Tags behind an MPEGplus stream hide its end, which then is
/// not whole.
std::optional<StreamExtent> MeasureStream(FileSystem& files, const std::string& path);

}  // namespace zefta
