#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// Header of an ID3v2 tag and of each of its frames (ID3v2.3 sections 3.1 and 3.3).
inline constexpr std::int32_t ID3v2HeaderSize = 10;

/// A frame that the program reads and writes.
struct ID3v2Frame {
    std::string_view identifier;
    /// Takes the body without its encoding byte, as UTF-8 text: language and description stand in front of a
    /// comment, the description in front of an address, each description with a NUL behind it.
    void (*read)(ID3v2Extension& tag, std::string_view body);
    /// Gives that body in the code page, as it stands on disk.
    std::string (*write)(const ID3v2Extension& tag, const CodePage& ansi);
};

/// The twelve frames in the order in which they are written.
std::span<const ID3v2Frame> ID3v2Frames();

/// The row of the identifier; null for a frame that is carried through unread.
const ID3v2Frame* FindID3v2Frame(std::string_view identifier);

/// The frame area of a tag: the twelve frames, empty ones too, and the unknown ones behind them.
std::string ID3v2FrameArea(const ID3v2Extension& tag, const CodePage& ansi);

}  // namespace zefta
