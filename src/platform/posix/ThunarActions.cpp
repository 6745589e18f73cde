#include "platform/posix/ThunarActions.h"

#include <algorithm>
#include <vector>

namespace zefta {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

/// A piece of the file, from its first byte to behind its last.
struct Piece {
    std::size_t start;
    std::size_t end;
};

/// What the file holds, as far as we are concerned.
struct Actions {
    std::vector<Piece> actions;
    /// Where "</actions>" begins.
    std::optional<std::size_t> closing;
};

/// Behind `ending`, or the end of the text when there is none.
std::size_t Behind(std::string_view text, std::string_view ending, std::size_t from) {
    const std::size_t found = text.find(ending, from);
    return found == std::string_view::npos ? text.size() : found + ending.size();
}

/// The end of what stands at a "<" and is no element: comments and the like may hold any text.
std::size_t EndOfMarkup(std::string_view text, std::size_t at) {
    const std::string_view rest = text.substr(at);
    if (rest.starts_with("<!--")) return Behind(text, "-->", at);
    if (rest.starts_with("<![CDATA[")) return Behind(text, "]]>", at);
    return Behind(text, ">", at);
}

bool IsTag(std::string_view markup, std::string_view name) {
    if (!markup.starts_with(name)) return false;
    const std::string_view rest = markup.substr(name.size());
    return !rest.empty() && (rest.front() == '>' || Blanks.find(rest.front()) != std::string_view::npos);
}

Actions ActionsOf(std::string_view text) {
    Actions found;
    constexpr std::size_t None = std::string_view::npos;
    std::size_t start = None;
    for (std::size_t at = text.find('<'); at < text.size(); at = text.find('<', at)) {
        const std::size_t end = EndOfMarkup(text, at);
        const std::string_view markup = text.substr(at, end - at);
        if (IsTag(markup, "<action")) start = at;
        if (IsTag(markup, "</action") && start != None) {
            found.actions.push_back({start, end});
            start = None;
        }
        if (IsTag(markup, "</actions")) found.closing = at;
        at = end;
    }
    return found;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool HasId(std::string_view action, std::string_view id) {
    constexpr std::string_view Opening = "<unique-id>";
    const std::size_t start = Behind(action, Opening, 0);
    const std::size_t end = std::min(action.find("</unique-id>", start), action.size());
    return Trimmed(action.substr(start, end - start)) == id;
}

std::vector<Piece> PiecesOf(std::string_view file, std::string_view id) {
    std::vector<Piece> pieces = ActionsOf(file).actions;
    std::erase_if(pieces, [&](const Piece& piece) {
        return !HasId(file.substr(piece.start, piece.end - piece.start), id);
    });
    return pieces;
}

constexpr std::string_view EmptyFile = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n</actions>\n";

}  // namespace

bool HoldsThunarAction(std::string_view file, std::string_view id) {
    return !PiecesOf(file, id).empty();
}

std::string WithoutThunarAction(std::string_view file, std::string_view id) {
    std::string rest(file);
    const std::vector<Piece> pieces = PiecesOf(file, id);
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        std::size_t end = piece->end;
        if (end < rest.size() && rest[end] == '\n') ++end;
        rest.erase(piece->start, end - piece->start);
    }
    return rest;
}

std::optional<std::string> WithThunarAction(std::string_view file, std::string_view id,
                                            std::string_view action) {
    std::string text = WithoutThunarAction(Trimmed(file).empty() ? EmptyFile : file, id);
    const auto closing = ActionsOf(text).closing;
    if (!closing) return std::nullopt;
    return text.insert(*closing, action);
}

}  // namespace zefta
