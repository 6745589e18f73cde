#include "app/ListText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace zefta {

namespace {

struct Column {
    std::string_view header;
    std::string ListRow::*text;
};

constexpr std::array<Column, 8> Columns = {{
    {"File", &ListRow::File},
    {"Size", &ListRow::Size},
    {"Bitrate", &ListRow::Bitrate},
    {"Time", &ListRow::Time},
    {"Artist", &ListRow::Artist},
    {"Title", &ListRow::Title},
    {"Year", &ListRow::Year},
    {"Album", &ListRow::Album},
}};

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

std::string_view NameOf(ListKind kind) {
    switch (kind) {
        case ListKind::Folder:
            return "folder";
        case ListKind::Playlist:
            return "playlist";
        case ListKind::Wave:
            return "wav";
        case ListKind::MP3:
            return "mp3";
        case ListKind::Ogg:
            return "ogg";
        case ListKind::MPEGplus:
            return "mpc";
        case ListKind::Lqt:
            return "lqt";
    }
    return {};
}

void AppendEscaped(std::string& text, char character) {
    constexpr std::string_view Digits = "0123456789abcdef";
    if (character == '"' || character == '\\') {
        (text += '\\') += character;
    } else if (static_cast<unsigned char>(character) < 0x20) {
        const auto code = static_cast<std::size_t>(character);
        ((text += "\\u00") += Digits[code >> 4]) += Digits[code & 15];
    } else {
        text += character;
    }
}

void AppendKey(std::string& text, std::string_view key) {
    text += text.ends_with('{') ? "\"" : ",\"";
    (text += key) += "\":";
}

void AppendText(std::string& text, std::string_view key, std::string_view value) {
    AppendKey(text, key);
    text += '"';
    for (const char character : value) AppendEscaped(text, character);
    text += '"';
}

void AppendNumber(std::string& text, std::string_view key, std::int64_t value) {
    AppendKey(text, key);
    text += std::to_string(value);
}

void AppendFlag(std::string& text, std::string_view key, bool value) {
    AppendKey(text, key);
    text += value ? "true" : "false";
}

}  // namespace

std::string TableHeader() {
    std::string text;
    for (const Column& column : Columns) (text += text.empty() ? "" : "\t") += column.header;
    return text += '\n';
}

void AppendTableLine(std::string& text, const ListRow& row) {
    for (const Column& column : Columns) {
        const auto cell = static_cast<std::ptrdiff_t>(text.size());
        text += row.*column.text;
        std::replace_if(text.begin() + cell, text.end(), IsControl, ' ');
        text += '\t';
    }
    text.back() = '\n';
}

void AppendJsonLine(std::string& text, const ListRow& row, ListKind kind, const ListedFile& file) {
    text += '{';
    AppendText(text, "file", row.File);
    AppendText(text, "kind", NameOf(kind));
    AppendNumber(text, "bytes", file.bytes);
    AppendNumber(text, "bitrate", file.tag.Bitrate);
    AppendFlag(text, "vbr", file.tag.VBR);
    AppendNumber(text, "seconds", file.tag.Seconds);
    AppendNumber(text, "sampleRate", file.tag.SampleRate);
    AppendNumber(text, "channelMode", file.tag.ChannelMode);
    AppendText(text, "artist", row.Artist);
    AppendText(text, "title", row.Title);
    AppendText(text, "year", row.Year);
    AppendText(text, "album", row.Album);
    AppendText(text, "sortOrder", row.SortOrder);
    text += "}\n";
}

}  // namespace zefta
