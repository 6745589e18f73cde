#pragma once

#include <string>

#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "ui/FileInfoStage.h"
#include "ui/info/MP3FileInfo.h"

namespace zefta::test {

inline std::string Stream() {
    return Mp3().Block("Xing", 1000).Size(3000).Bytes();
}

/// A tag that the program itself wrote: all its frames, in their order.
inline std::string OwnFrames(const std::string& comment = "Comment") {
    using namespace std::string_literals;
    return TextFrame("TRCK", "3/12") + TextFrame("TIT2", "Song (Live)") + TextFrame("TPE1", "Ann") +
           TextFrame("TALB", "Debut") + TextFrame("TYER", "2001") + TextFrame("COMM", "eng\0"s + comment) +
           TextFrame("TCOM", "Bach") + TextFrame("TCON", "Rock") + TextFrame("TOPE", "Orig") +
           TextFrame("TCOP", "Copy") + TextFrame("TENC", "Me") + TextFrame("WXXX", "\0http://x"s);
}

inline std::string Lyrics(const std::string& title, const std::string& artist) {
    const auto field = [](const std::string& id, const std::string& text) {
        std::string length = std::to_string(text.size());
        return id + std::string(5 - length.size(), '0') + length + text;
    };
    const std::string block = "LYRICSBEGIN" + field("ETT", title) + field("EAR", artist) + "XXX00000";
    std::string size = std::to_string(block.size());
    return block + std::string(6 - size.size(), '0') + size + "LYRICS200";
}

inline const Id3v1 OldTag = {.title = "Old song",
                             .artist = "Old ann",
                             .album = "Old debut",
                             .year = "1999",
                             .comment = "Old mix",
                             .track = 9,
                             .genre = 17};

class FileInfoMP3Test : public FileInfoStage<MP3FileInfo> {
  protected:
    void OpenTagged() { Open("a.mp3", Id3v2(OwnFrames(), 600) + Stream() + OldTag.Bytes()); }
};

}  // namespace zefta::test
