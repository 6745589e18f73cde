#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/CodePage.h"

namespace zefta {

/// What an ID3v2 tag holds, and by the same fields an APE tag. Text is UTF-8.
struct ID3v2Extension {
    std::uint8_t MajorVersion = 0;
    std::uint8_t MinorVersion = 0;
    // Header flags, each 0 or its value in the flag byte.
    std::uint8_t bExperimentalIndicator = 0;  // 32
    std::uint8_t bExtendedHeader = 0;         // 64
    std::uint8_t bFooterPresent = 0;          // 16
    std::uint8_t bUnsynchronisation = 0;      // 128
    std::string TrackNumber;
    std::string EncodedBy;
    std::string Copyright;
    std::string OriginalArtist;
    std::string Composer;
    std::string Comments;
    std::string Year;
    std::string AlbumTitle;
    /// Without its mix suffix.
    std::string TrackTitle;
    std::string URL;
    std::string Artist;
    /// Bytes of the tag less its 10-byte header; for APE the size field of the footer.
    std::int32_t TagSize = 0;
    /// Bytes, no text: every frame or item that is not interpreted, header and body, in file order.
    std::string UnknownFrames;
    /// Text in the last pair of round brackets at the end of the title.
    std::string Mix;
    std::string Genre;

    /// Estimate of the frame area in bytes by which the ID3v2 writer decides whether a tag fits in its old
    /// place. Smaller than what is written: Genre, Mix and the encoding bytes don't count. Kept: where a
    /// tag lies and how long it is follows from this number.
    std::int32_t GetTagSize(const CodePage& ansi) const;
};

struct LyricsExtension {
    std::string Artist;
    std::string TrackTitle;
};

struct MPEGplusExtension {
    std::uint8_t StreamVersion = 0;
    /// 0 when unknown.
    std::uint8_t StreamProfile = 0;
};

class OggVorbisExtension {
  public:
    /// Vendor string of the comment header.
    std::string LibVorbisVersion;
    /// Page sequence number of the last page.
    std::int32_t PagesCount = 0;
    std::string DateTime;

    // The extended comments, each a whole "KEY=value" line, in the order read. Indexes count from 1.

    /// An empty text is ignored.
    void addExCom(const std::string& text);
    /// "" for an index out of range.
    std::string getExComValue(std::int16_t index) const;
    /// All lines with one NUL between two of them.
    std::string getExComInOneString() const;
    /// RuntimeError 6 when there are more than 32767.
    std::int16_t getExComCount() const;
    /// An index out of range does nothing.
    void removeExCom(std::int16_t index);
    void removeAllExCom();

  private:
    bool HasLine(std::int16_t index) const;

    std::vector<std::string> ExComs;
};

/// The one record through which every part of the program sees an audio file. A reader makes a fresh one;
/// writers take a filled one. The text fields of the record itself are what ID3v1 holds for an MP3 file; the
/// longer values of ID3v2 stand in their extension and are not merged. Text is UTF-8; "" means absent.
struct ID3Tag {
    std::string Artist;
    std::string Title;
    std::string Album;
    std::string Year;
    /// MP3: the ID3v1 comment. Ogg Vorbis and MPEGplus: the mix text.
    std::string Comment;
    /// "" after a reader or writer returned means that the file could not be opened.
    std::string Path;
    /// Bytes of the whole file.
    std::int32_t Length = 0;
    /// kbps; -1 marks a WAV file that is none.
    std::int16_t Bitrate = 0;
    std::int32_t Seconds = 0;
    bool VBR = false;
    /// MPEG audio frames.
    std::int32_t Frames = 0;
    /// First word of the encoder's name.
    std::string Encoder;
    zefta::OggVorbisExtension OggVorbisExtension;
    zefta::ID3v2Extension ID3v2Extension;
    std::int32_t SampleRate = 0;
    /// 0 stereo, 1 joint stereo, 2 dual channel, 3 mono, as in the MPEG header.
    std::int32_t ChannelMode = 0;
    bool ID3v2Present = false;
    zefta::LyricsExtension LyricsExtension;
    bool LyricsPresent = false;
    bool ReadOnly = false;
    /// Set by each reader that reached the end of its work.
    bool AllowEdits = false;
    /// The file's tag holds more than could be read: written back, the record would take it away.
    bool ReadInPart = false;
    /// Index into GenreTable, or NoGenre.
    std::uint8_t Genre = 255;
    bool IsOggVorbisFile = false;
    bool IsMpegPlusFile = false;
    zefta::MPEGplusExtension MPEGplusExtension;
    /// ID3v1.1 track; 0 means none.
    std::uint8_t TrackNumber = 0;

    /// Playing time as minutes and seconds: "2:05", "62:05".
    std::string Time() const;
    /// The same with two digits for the minutes: "02:05".
    std::string Time2x2() const;
};

}  // namespace zefta
