#include "library/ChangeTags.h"

#include <utility>

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "library/TagSteps.h"
#include "platform/RuntimeError.h"
#include "tags/CompressedFile.h"
#include "tags/MP3File.h"
#include "tags/OggFile.h"
#include "tags/TrackNumber.h"
#include "wave/TagWriters.h"

namespace zefta {

namespace {

using Extended = ID3v2Extension;

/// A text value, its place in the record and in the extension.
struct FieldRow {
    std::string TagValues::*value;
    std::string ID3Tag::*own;
    std::string Extended::*extended;
};

constexpr FieldRow ChangedFields[] = {
    {&TagValues::Artist, &ID3Tag::Artist, &Extended::Artist},
    {&TagValues::Title, &ID3Tag::Title, &Extended::TrackTitle},
    {&TagValues::Mix, &ID3Tag::Comment, &Extended::Mix},
    {&TagValues::Album, &ID3Tag::Album, &Extended::AlbumTitle},
    {&TagValues::Year, &ID3Tag::Year, &Extended::Year},
};

void TellRefusal(App& app, const ChangedFile& file, const std::string& reason) {
    TellStep(app, "refused: " + file.shownName + ": " + reason);
}

void RefuseStream(App& app, const ChangedFile& file) {
    TellRefusal(app, file, "it is no whole, sound and single Ogg Vorbis stream");
    ShowWarning(app, "File \"" + app.ansi.ToText(file.path) +
                         "\"\nis no whole, sound and single Ogg Vorbis stream.\n\nIt stays as it is.");
}

void RefusePart(App& app, const ChangedFile& file) {
    TellRefusal(app, file, "its tag holds more than can be carried over");
    ShowWarning(app, "File \"" + app.ansi.ToText(file.path) +
                         "\"\nholds more in its tag than can be carried over.\n\nIt stays as it is.");
}

/// An MP3 file that may be written is left open for that. An empty Path when there is nothing to read.
ReadFile OpenAndRead(App& app, const std::string& path) {
    ReadFile read;
    if (IsMP3File(path)) read.opened = ThroughTagWindows(app.files.OpenRead(path));
    if (read.opened) {
        read.tag.Path = PathOfRecord(path);
        ReadMP3Tags(*read.opened, app.ansi, read.tag);
    } else {
        read.tag = ReadCompressedFile({app.files, app.ansi, UnknownContent::Carry}, path);
    }
    return read;
}

/// Nothing when the file can't be opened or its reader fails: it is passed over without a word to answer.
std::optional<ReadFile> ReadWhole(App& app, const ChangedFile& file) {
    try {
        ReadFile read = OpenAndRead(app, file.path);
        if (!read.tag.Path.empty()) return read;
        TellRefusal(app, file, "it can't be opened");
    } catch (const RuntimeError& error) {
        // Comments of more than 16 bits of length or count are what people have: pictures.
        if (IsOggFile(file.path) && error.Kind() == ErrorNumber::Overflow) {
            RefusePart(app, file);
        } else {
            TellRefusal(app, file, "it can't be read: " + error.Text());
            app.desktop.Note(app.ansi.ToText(file.path) + " can't be read: " + error.Text());
        }
    }
    return std::nullopt;
}

bool MayWrite(App& app, const ChangedFile& file, ID3Tag& tag) {
    if (!tag.ReadOnly) return true;
    if (!AskYesNo(app, app.messages.GetMessage(10009, app.ansi.ToText(file.path)))) {
        TellRefusal(app, file, "read only");
        return false;
    }
    app.files.SetReadOnly(file.path, false);
    tag.ReadOnly = false;
    return true;
}

/// An APE tag takes the number from the extension alone; the field counts the items that are carried through
/// there, and another count would hide some of them.
void PutTrack(ID3Tag& tag, const std::string& track) {
    if (track.empty()) return;
    if (!tag.IsMpegPlusFile) tag.TrackNumber = ToByte(LeadingNumber(track));
    tag.ID3v2Extension.TrackNumber = track;
}

void FillFromRecord(ID3Tag& tag) {
    Extended& extension = tag.ID3v2Extension;
    for (const FieldRow& field : ChangedFields) {
        std::string& extended = extension.*field.extended;
        if (extended.empty()) extended = Trim(tag.*field.own);
    }
    if (extension.TrackNumber.empty()) extension.TrackNumber = TrackTextOf(tag);
    if (extension.Genre.empty()) extension.Genre = GenreNameFromIndex(tag.Genre);
    if (tag.OggVorbisExtension.DateTime.empty()) tag.OggVorbisExtension.DateTime = Trim(tag.Year);
}

/// False, and it is told, for a file that its writer refuses.
bool Write(App& app, const ChangedFile& file, ReadFile& changed) {
    if (changed.opened) {
        SetMP3Tags(app.files, std::move(changed.opened), app.ansi, changed.tag);
    } else if (!IsOggFile(file.path)) {
        WriteTags(*app.defaultWaveFile, TagJob::ChangeTags, changed.tag);
    } else if (SetOggComments(app, changed.tag) == OggOutcome::Refused) {
        RefuseStream(app, file);
        return false;
    }
    return true;
}

void TellChanges(App& app, const ChangedFile& file, const ID3Tag& before, const ID3Tag& after) {
    const std::string changes = IsMP3File(file.path) ? ChangesOfMP3(before, after)
                                                     : ChangesBetween(ShownTags(before), ShownTags(after));
    TellStep(app, "tags: " + file.shownName + ": " + (changes.empty() ? "the same values" : changes));
}

/// The failure with the path in its text, since many files are changed in one go. Where it is only the fill
/// of a tag that is too long, the frames stand.
bool WriteOrNameFile(App& app, const ChangedFile& file, const ID3Tag& before, ReadFile& changed) {
    try {
        return Write(app, file, changed);
    } catch (const RuntimeError& error) {
        if (error.Kind() == ErrorNumber::Overflow && IsMP3File(file.path)) {
            TellChanges(app, file, before, changed.tag);
        } else {
            TellRefusal(app, file, error.Text());
        }
        throw RuntimeError(error.Kind(), app.ansi.ToText(file.path));
    }
}

}  // namespace

bool HasValue(const TagValues& values) {
    return !(values.Artist.empty() && values.Title.empty() && values.Mix.empty() && values.Album.empty() &&
             values.Year.empty() && values.Track.empty() && values.Genre.empty());
}

TagValues ValuesOfOptions(const AppState& state) {
    return {state.OptArtist, state.OptTitle, state.OptMix,   state.OptAlbum,
            state.OptYear,   state.OptTrack, state.OptGenre, state.OptGenreIndex};
}

std::optional<ReadFile> ReadForChange(App& app, const ChangedFile& file) {
    std::optional<ReadFile> read = ReadWhole(app, file);
    if (!read) return std::nullopt;
    if (read->tag.ReadInPart) {
        RefusePart(app, file);
        return std::nullopt;
    }
    if (!MayWrite(app, file, read->tag)) return std::nullopt;
    return read;
}

void PutValues(ID3Tag& tag, const TagValues& values) {
    for (const FieldRow& field : ChangedFields) {
        if ((values.*field.value).empty()) continue;
        tag.*field.own = values.*field.value;
        tag.ID3v2Extension.*field.extended = values.*field.value;
    }
    if (!values.Year.empty()) tag.OggVorbisExtension.DateTime = values.Year;
    PutTrack(tag, values.Track);
    if (values.Genre.empty()) return;
    tag.Genre = values.GenreIndex;
    tag.ID3v2Extension.Genre = values.Genre;
}

void WriteChanged(App& app, const ChangedFile& file, const ID3Tag& before, ReadFile& changed) {
    ID3Tag& tag = changed.tag;
    FillFromRecord(tag);
    const std::string stamp = IsPreview(app) ? app.files.ContentStamp(file.path) : std::string();
    if (!WriteOrNameFile(app, file, before, changed)) return;
    if (tag.Path.empty()) {
        TellRefusal(app, file, "it can't be opened for writing");
        app.desktop.Note(app.ansi.ToText(file.path) + " can't be opened for writing.");
    } else if (IsPreview(app) && app.files.ContentStamp(file.path) == stamp) {
        TellStep(app, "unchanged: " + file.shownName);
    } else if (IsPreview(app)) {
        TellChanges(app, file, before, tag);
    }
}

void ChangeTagsOfFile(App& app, const ChangedFile& file, const TagValues& values) {
    std::optional<ReadFile> read = ReadForChange(app, file);
    if (!read) return;
    const ID3Tag before = IsPreview(app) ? read->tag : ID3Tag();
    PutValues(read->tag, values);
    WriteChanged(app, file, before, *read);
}

}  // namespace zefta
