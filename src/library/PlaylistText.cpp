#include "library/PlaylistText.h"

#include "core/Steps.h"
#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "tags/TagText.h"

namespace zefta {

namespace {

/// Next line (C1), line separator, paragraph separator: line ends for some readers.
std::string WithoutLineEnds(std::string text) {
    if (IsAscii(text)) return text;
    for (const char* lineEnd : {"\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"})
        text = ReplaceAll(text, lineEnd, " ");
    return text;
}

/// The two kinds of bracket tell mix and comment apart.
std::string Tail(const ID3Tag& tag) {
    const std::string mix(ShownText(tag.ID3v2Extension.Mix));
    const std::string comment(ShownText(tag.Comment));
    if (!mix.empty()) return " (" + mix + ")";
    return comment.empty() ? std::string() : " [" + comment + "]";
}

}  // namespace

std::string DisplayText(const ID3Tag& tag, const CodePage& ansi) {
    const std::string artist = FirstShown(tag.ID3v2Extension.Artist, tag.Artist);
    const std::string title = FirstShown(tag.ID3v2Extension.TrackTitle, tag.Title);
    const bool hasNone = artist.empty() && title.empty();
    return WithoutLineEnds(
        OneLine(hasNone ? ansi.ToText(NamePart(tag.Path)) : artist + " - " + title + Tail(tag)));
}

std::string CommentLine(const ID3Tag& tag, const CodePage& ansi) {
    return "#EXTINF:" + std::to_string(tag.Seconds) + "," + DisplayText(tag, ansi);
}

std::string PlainPlaylist(const std::string& folder, const std::vector<std::string>& names) {
    const std::string prefix = WithClosingSeparator(folder);
    std::string text;
    for (const std::string& name : names) {
        const std::string entry = prefix + name;
        if (entry.find('\n') == std::string::npos) text += entry + "\n";
    }
    return text;
}

}  // namespace zefta
