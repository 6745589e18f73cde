#include "library/TagGrid.h"

#include <algorithm>
#include <iterator>

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "library/TagsFromFileName.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "tags/CompressedFile.h"
#include "tags/TrackNumber.h"

namespace zefta {

namespace {

/// What a column of text stands for.
struct ColumnRow {
    /// Number of the message with the heading; 0 for the text that is the same in all languages.
    int heading;
    std::string ID3Tag::*own;
    std::string ID3v2Extension::*extended;
};

constexpr std::array<ColumnRow, TagColumnCount> Columns = {{
    {33312, nullptr, nullptr},
    {0, nullptr, &ID3v2Extension::TrackNumber},
    {33306, &ID3Tag::Artist, &ID3v2Extension::Artist},
    {33313, &ID3Tag::Title, &ID3v2Extension::TrackTitle},
    {33314, &ID3Tag::Comment, &ID3v2Extension::Mix},
    {33307, &ID3Tag::Album, &ID3v2Extension::AlbumTitle},
    {33308, &ID3Tag::Year, &ID3v2Extension::Year},
}};

std::string CellOf(const ColumnRow& column, const ID3Tag& tag) {
    const std::string& extended = tag.ID3v2Extension.*column.extended;
    if (!extended.empty()) return extended;
    return column.own != nullptr ? tag.*column.own : TrackTextOf(tag);
}

bool IsWordCharacter(char32_t character) {
    constexpr char32_t TypographicApostrophe = 0x2019;
    const bool isDigit = character >= U'0' && character <= U'9';
    const bool isLetter =
        (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z');
    // Blanks and marks of other scripts are few, and nobody's titles are full of them.
    constexpr char32_t FirstLetterBeyondAscii = 0xC0;
    const bool isOther = character >= FirstLetterBeyondAscii && !(character >= 0x2000 && character <= 0x206F);
    return isDigit || isLetter || isOther || character == U'\'' || character == TypographicApostrophe;
}

/// A value as the writers take it: an empty cell becomes the blank that clears.
std::string Given(const std::string& text) {
    return text + " ";
}

const std::string& DefaultOr(const std::string& standard, const std::string& cell) {
    return standard.empty() ? cell : standard;
}

/// RuntimeError 6 for a track that is no byte.
TagValues ValuesOfRow(const TagRow& row, const TagDefaults& defaults) {
    TagValues values;
    values.Artist = Given(DefaultOr(defaults.Artist, row.Cells[ArtistColumn]));
    values.Title = Given(row.Cells[TitleColumn]);
    values.Mix = Given(row.Cells[MixColumn]);
    values.Album = Given(DefaultOr(defaults.Album, row.Cells[AlbumColumn]));
    values.Year = Given(DefaultOr(defaults.Year, row.Cells[YearColumn]));
    if (defaults.Genre) {
        values.Genre = GenreNameFromIndex(*defaults.Genre);
        values.GenreIndex = *defaults.Genre;
    }
    return values;
}

/// The row with what others have written into the file since it was made, where the person changed nothing.
TagRow RowOfNow(const TagRow& row, const ID3Tag& tag) {
    TagRow current = row;
    if (!row.Loaded) return current;
    const TagRow read = RowOfRecord(row.Cells[FileColumn], tag);
    for (std::size_t column = TrackColumn; column < TagColumnCount; ++column) {
        if (row.Cells[column] == (*row.Loaded)[column]) current.Cells[column] = read.Cells[column];
    }
    return current;
}

/// The text stands in the extension alone when its number is not 0. "A1", the side of a record, has none: it
/// stays where the file has it already.
void PutTrackCell(ID3Tag& tag, const std::string& cell) {
    const std::uint8_t number = ToByte(LeadingNumber(cell));
    if (number == 0 && cell == CellOf(Columns[TrackColumn], tag)) return;
    // The record of an MPEGplus file counts items there that are carried through.
    if (!tag.IsMpegPlusFile) tag.TrackNumber = number;
    tag.ID3v2Extension.TrackNumber = number == 0 ? std::string() : cell;
}

/// The year of a row is the date of an Ogg Vorbis file only where it is another one: a whole date that was
/// not touched stays whole.
void PutRow(ID3Tag& tag, const TagRow& row, const TagDefaults& defaults) {
    const std::string year = Trim(tag.Year);
    const std::string date = tag.OggVorbisExtension.DateTime;
    PutTrackCell(tag, row.Cells[TrackColumn]);
    const TagValues values = ValuesOfRow(row, defaults);
    PutValues(tag, values);
    if (Trim(values.Year) == year) tag.OggVorbisExtension.DateTime = date;
}

/// False when the file was not there to be written, or could not be.
bool WriteRow(App& app, const ChangedFile& file, const TagRow& row, const TagDefaults& defaults) {
    if (!row.IsRead) return false;
    std::optional<ReadFile> read;
    // A file that can't be made writable must not end the update of the others.
    if (CheckRuntimeError(app, [&] { read = ReadForChange(app, file); })) return false;
    if (!read) return app.files.FileExists(file.path);
    const ID3Tag before = IsPreview(app) ? read->tag : ID3Tag();
    PutRow(read->tag, RowOfNow(row, read->tag), defaults);
    const bool hasFailed = CheckRuntimeError(app, [&] { WriteChanged(app, file, before, *read); });
    return !hasFailed && !read->tag.Path.empty();
}

/// A run over many files, followed by its events and by the desktop.
class Update {
  public:
    Update(App& app, const UpdateEvents& events, std::size_t count)
        : events_(events), batch_(app, count), count_(count) {}

    /// False when the file is not to be begun.
    bool Begin(const std::string& name) {
        ++number_;
        if (events_.Progress) events_.Progress(number_, count_, name);
        return batch_.Next() && !(events_.IsCancelled && events_.IsCancelled());
    }

    void End(const std::string& name) const {
        if (events_.Done) events_.Done(name);
    }

  private:
    const UpdateEvents& events_;
    Batch batch_;
    std::size_t count_;
    std::size_t number_ = 0;
};

std::vector<std::string> CompressedOnes(std::span<const std::string> names) {
    std::vector<std::string> compressed;
    std::copy_if(names.begin(), names.end(), std::back_inserter(compressed),
                 [](const std::string& name) { return IsCompressedFile(name); });
    return compressed;
}

}  // namespace

std::string HeadingOf(App& app, TagColumn column) {
    const int message = Columns[column].heading;
    return message == 0 ? "No." : app.messages.GetMessage(message);
}

TagRow RowOfRecord(const std::string& name, const ID3Tag& tag) {
    TagRow row;
    row.Cells[FileColumn] = name;
    for (std::size_t column = TrackColumn; column < TagColumnCount; ++column)
        row.Cells[column] = CellOf(Columns[column], tag);
    return row;
}

std::optional<std::vector<TagRow>> LoadTagRows(App& app, const std::string& folder,
                                               std::span<const std::string> names) {
    std::vector<TagRow> rows;
    // As it will be read for writing: a value that were not found here would be cleared there.
    const FileReading reading = {app.files, app.ansi, UnknownContent::Carry};
    const std::vector<std::string> files = CompressedOnes(names);
    Batch batch(app, files.size());
    for (const std::string& name : files) {
        if (!batch.Next()) return std::nullopt;
        ID3Tag tag;
        try {
            tag = ReadCompressedFile(reading, JoinPath(folder, name));
        } catch (const RuntimeError&) {
            tag = ID3Tag();
        }
        rows.push_back(RowOfRecord(name, tag));
        rows.back().IsRead = !tag.Path.empty();
        rows.back().Loaded = rows.back().Cells;
    }
    return rows;
}

std::string CapitalizeFirst(std::string_view text) {
    std::size_t behindFirst = 0;
    if (text.empty()) return {};
    NextCharacter(text, behindFirst);
    return ToUpper(text.substr(0, behindFirst)) + ToLower(text.substr(behindFirst));
}

std::string CapitalizeWords(std::string_view text) {
    std::string words;
    bool inWord = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const auto character = NextCharacter(text, at);
        const std::string_view bytes = text.substr(start, at - start);
        words += inWord ? ToLower(bytes) : ToUpper(bytes);
        inWord = character && IsWordCharacter(*character);
    }
    return words;
}

void ChangeCase(std::span<TagRow> rows, std::string (*change)(std::string_view text),
                std::optional<TagColumn> column) {
    const std::size_t first = column ? std::size_t{*column} : std::size_t{TrackColumn};
    const std::size_t last = column ? std::size_t{*column} : std::size_t{AlbumColumn};
    if (first == FileColumn) return;
    for (TagRow& row : rows) {
        for (std::size_t i = first; i <= last; ++i) row.Cells[i] = change(row.Cells[i]);
    }
}

void RetrieveTags(const App& app, const std::string& folder, int templateIndex, TagRow& row) {
    const std::string path = app.ansi.ToText(JoinPath(folder, row.Cells[FileColumn]));
    const ID3Tag found = GetTagsFromFileName(path, templateIndex);
    if (found.Title.empty()) return;
    for (std::size_t column = TrackColumn; column < TagColumnCount; ++column) {
        const ColumnRow& place = Columns[column];
        const std::string& field = place.own != nullptr ? found.*place.own : found.ID3v2Extension.TrackNumber;
        if (!field.empty()) row.Cells[column] = field;
    }
}

std::string ProgressText(std::size_t number, std::size_t count, const std::string& name) {
    return "[" + std::to_string(number) + "/" + std::to_string(count) + "] " + name;
}

bool WriteTagRows(App& app, const std::string& folder, std::span<const TagRow> rows,
                  const TagDefaults& defaults, const UpdateEvents& events) {
    Update update(app, events, rows.size());
    for (const TagRow& row : rows) {
        const std::string& name = row.Cells[FileColumn];
        if (!update.Begin(name)) return false;
        const bool isDealtWith = WriteRow(app, {JoinPath(folder, name), name}, row, defaults);
        if (!isDealtWith && events.NotWritten) events.NotWritten(name);
        update.End(name);
    }
    return true;
}

bool UpdateTags(App& app, const std::string& folder, std::span<const std::string> names,
                const TagValues& values, const UpdateEvents& events) {
    if (!HasValue(values)) return true;
    const std::vector<std::string> files = CompressedOnes(names);
    Update update(app, events, files.size());
    for (const std::string& name : files) {
        if (!update.Begin(name)) return false;
        CheckRuntimeError(app, [&] { ChangeTagsOfFile(app, {JoinPath(folder, name), name}, values); });
        update.End(name);
    }
    return true;
}

std::vector<std::string> FilesToUpdate(App& app, std::span<const std::string> selected,
                                       std::span<const std::string> all) {
    const std::vector<std::string> chosen = CompressedOnes(selected);
    if (!chosen.empty()) return chosen;
    if (!AskYesNo(app, app.messages.GetMessage(34105), app.messages.GetMessage(34106))) return {};
    return CompressedOnes(all);
}

}  // namespace zefta
