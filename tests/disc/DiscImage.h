#pragma once

#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace zefta::test {

/// A disc as people keep one in files: "disc.cue" and beside it "disc.bin" with all its sectors.
class DiscImage {
  public:
    /// A track of audio that no other sounds like.
    DiscImage& Audio(int sectors);
    DiscImage& Data(int sectors);

    /// Writes both files; the path of the first.
    std::string WriteTo(const TempFolder& folder) const;

    /// The sectors of a track, counted from 1.
    const std::string& BytesOf(std::size_t number) const { return tracks_.at(number - 1).bytes; }

  private:
    struct Track {
        bool isAudio;
        int start;
        std::string bytes;
    };

    void Add(bool isAudio, std::string bytes);

    std::vector<Track> tracks_;
    int sectors_ = 0;
};

}  // namespace zefta::test
