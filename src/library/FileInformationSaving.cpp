// Loading and saving: what goes from the file into the information, and back.

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "encoding/LeftOut.h"
#include "library/FileInformation.h"
#include "platform/RuntimeError.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"
#include "tags/TrackNumber.h"
#include "wave/TagWriters.h"

namespace zefta {

namespace {

using Extended = ID3v2Extension;

/// The fields of ID3v1.
constexpr std::string ID3Tag::*OwnFields[] = {
    &ID3Tag::Title, &ID3Tag::Artist, &ID3Tag::Album, &ID3Tag::Year, &ID3Tag::Comment,
};

constexpr std::string Extended::*ExtendedFields[] = {
    &Extended::TrackTitle, &Extended::Artist,   &Extended::AlbumTitle, &Extended::Year,
    &Extended::Mix,        &Extended::Comments, &Extended::Composer,   &Extended::OriginalArtist,
    &Extended::Copyright,  &Extended::URL,      &Extended::EncodedBy,  &Extended::TrackNumber,
    &Extended::Genre,
};

/// What an APE tag holds beside the fields of the record itself.
constexpr std::string Extended::*ItemFields[] = {
    &Extended::TrackNumber, &Extended::Genre,     &Extended::Comments,
    &Extended::Composer,    &Extended::Copyright, &Extended::EncodedBy,
};

void PutExtended(ID3Tag& tag, const ID3Tag& values) {
    for (const auto field : ExtendedFields) tag.ID3v2Extension.*field = values.ID3v2Extension.*field;
}

void PutMP3(ID3Tag& tag, const FileInformation& information) {
    // The blank makes an empty text one that is given: it takes the place of the old value.
    for (const auto field : OwnFields) tag.*field = information.Tag.*field + " ";
    if (!information.TrackNumber.empty()) tag.TrackNumber = ToByte(LeadingNumber(information.TrackNumber));
    tag.Genre = information.Tag.Genre;
    if (information.EnableID3v2) PutExtended(tag, information.Tag);
}

void PutOgg(ID3Tag& tag, const FileInformation& information) {
    const ID3Tag& values = information.Tag;
    for (const auto field : {&ID3Tag::Title, &ID3Tag::Comment, &ID3Tag::Artist, &ID3Tag::Album})
        tag.*field = values.*field;
    for (const auto field :
         {&Extended::Comments, &Extended::Genre, &Extended::TrackNumber, &Extended::EncodedBy})
        tag.ID3v2Extension.*field = values.ID3v2Extension.*field;
    tag.OggVorbisExtension.DateTime = values.OggVorbisExtension.DateTime;
    tag.OggVorbisExtension.removeAllExCom();
    for (std::int32_t i = 1, count = values.OggVorbisExtension.getExComCount(); i <= count; ++i)
        tag.OggVorbisExtension.addExCom(values.OggVorbisExtension.getExComValue(ToI16(std::int64_t{i})));
}

/// The track number of the record stays: it counts the items that are carried.
void PutMPEGplus(ID3Tag& tag, const FileInformation& information) {
    for (const auto field : OwnFields) tag.*field = information.Tag.*field;
    for (const auto field : ItemFields) tag.ID3v2Extension.*field = information.Tag.ID3v2Extension.*field;
}

void PutInformation(ID3Tag& tag, const FileInformation& information) {
    if (IsMP3File(tag.Path)) {
        PutMP3(tag, information);
    } else if (IsOggFile(tag.Path)) {
        PutOgg(tag, information);
    } else {
        PutMPEGplus(tag, information);
    }
    if (information.RemoveUnknownFrames) tag.ID3v2Extension.UnknownFrames.clear();
}

/// Frames in front of the stream are no items of its APE tag, which takes their values over: these need not
/// fit into the code page.
void ReadMPEGplus(App& app, const std::string& path, ID3Tag& tag) {
    ReadMPEGplusFile({app.files, app.ansi, UnknownContent::Carry}, path, tag);
    if (!tag.ID3v2Present) return;
    std::string items = std::move(tag.ID3v2Extension.UnknownFrames);
    tag = {};
    ReadMPEGplusFile({app.files, app.ansi, UnknownContent::HandOver}, path, tag);
    tag.ID3v2Extension.UnknownFrames = std::move(items);
}

void ReadByKind(App& app, const std::string& path, ID3Tag& tag) {
    // As it goes back: what were not found here would be taken away there.
    const FileReading reading = {app.files, app.ansi, UnknownContent::Carry};
    if (IsMP3File(path)) {
        ReadMP3File(reading, path, tag);
    } else if (IsOggFile(path)) {
        ReadOGGFile(reading, path, tag);
    } else if (IsMPEGplusFile(path)) {
        ReadMPEGplus(app, path, tag);
    }
}

/// The record to put the values into. The stream of an MP3 file is not measured: one too long to be measured
/// can have its tags changed all the same.
ID3Tag ReadForSaving(App& app, const std::string& path) {
    ID3Tag tag;
    if (!IsMP3File(path)) {
        ReadByKind(app, path, tag);
    } else if (const auto file = ThroughTagWindows(app.files.OpenReadOnly(path))) {
        ReadMP3Tags(*file, app.ansi, tag);
    }
    tag.Path = path;
    return tag;
}

/// False when the file can't be opened or its tags can't be read.
bool ReadTagsAlone(App& app, const std::string& path, ID3Tag& tag) {
    try {
        const auto file = ThroughTagWindows(app.files.OpenReadOnly(path));
        if (file) ReadMP3Tags(*file, app.ansi, tag);
        return file != nullptr;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// The writer of Ogg Vorbis puts a new file in the place of one that is read-only too.
bool MayWrite(App& app, const ID3Tag& tag) {
    if (!tag.ReadOnly || IsOggFile(tag.Path)) return true;
    if (!AskYesNo(app, app.messages.GetMessage(10009, app.ansi.ToText(tag.Path)))) return false;
    app.files.SetReadOnly(tag.Path, false);
    return true;
}

/// The frames may have become much shorter, such as when a picture is removed: the tag is whole then too.
void WriteMP3(App& app, ID3Tag& tag, bool enableID3v2) {
    if (enableID3v2) {
        SetWholeMP3Tags(app.files, app.ansi, tag);
    } else {
        WriteTags(*app.defaultWaveFile, TagJob::FileInformationWithoutID3v2, tag);
    }
}

SaveOutcome WriteByKind(App& app, ID3Tag& tag, bool enableID3v2) {
    if (IsOggFile(tag.Path)) {
        const bool isThere = tag.AllowEdits;
        return SetOggComments(app, tag) == OggOutcome::Refused && isThere ? SaveOutcome::Refused
                                                                          : SaveOutcome::Done;
    }
    const std::string path = app.ansi.ToText(tag.Path);
    if (IsMP3File(tag.Path)) {
        WriteMP3(app, tag, enableID3v2);
    } else {
        WriteTags(*app.defaultWaveFile, TagJob::FileInformation, tag);
    }
    if (tag.Path.empty()) app.desktop.Note(path + " can't be opened for writing.");
    return SaveOutcome::Done;
}

bool ShowSameValues(const ID3Tag& one, const ID3Tag& other) {
    const auto sameOwn = [&](auto field) { return one.*field == other.*field; };
    const auto sameExtended = [&](auto field) {
        return one.ID3v2Extension.*field == other.ID3v2Extension.*field;
    };
    return std::all_of(std::begin(OwnFields), std::end(OwnFields), sameOwn) &&
           std::all_of(std::begin(ExtendedFields), std::end(ExtendedFields), sameExtended) &&
           one.TrackNumber == other.TrackNumber && one.Genre == other.Genre &&
           one.OggVorbisExtension.DateTime == other.OggVorbisExtension.DateTime &&
           ExtendedComments(one) == ExtendedComments(other);
}

/// Another program, or another window, may have saved the same file. One that is gone has nothing to lose.
bool HasChangedSince(const App& app, const std::string& path, const ID3Tag& tag,
                     const FileInformation* shown) {
    return shown != nullptr && app.files.FileExists(path) && !ShowSameValues(tag, shown->Tag);
}

bool GivesUpID3v2(const ID3Tag& tag, const FileInformation& information) {
    return IsMP3File(tag.Path) && !information.EnableID3v2;
}

SaveOutcome Save(App& app, const std::string& path, const FileInformation& information,
                 const SaveManner& manner) {
    ID3Tag tag = ReadForSaving(app, path);
    if (tag.ReadInPart && !manner.mayLose && !GivesUpID3v2(tag, information)) return SaveOutcome::WouldLose;
    if (HasChangedSince(app, path, tag, manner.shown)) return SaveOutcome::ChangedMeanwhile;
    PutInformation(tag, information);
    if (!MayWrite(app, tag)) return SaveOutcome::Open;
    if (manner.writing) manner.writing();
    return WriteByKind(app, tag, information.EnableID3v2);
}

}  // namespace

FileInformation LoadFileInformation(App& app, const std::string& path) {
    FileInformation information;
    const bool failed = CheckRuntimeError(app, [&] { ReadByKind(app, path, information.Tag); });
    information.IsWhole = !failed && !information.Tag.Path.empty();
    // A stream that can't be measured has its tags all the same.
    if (failed && IsMP3File(path)) information.IsWhole = ReadTagsAlone(app, path, information.Tag);
    information.TrackNumber = TrackTextOf(information.Tag);
    information.EnableID3v2 = information.Tag.ID3v2Present;
    return information;
}

SaveOutcome SaveFileInformation(App& app, const std::string& path, const FileInformation& information,
                                const SaveManner& manner) {
    SaveOutcome outcome = SaveOutcome::Open;
    CheckRuntimeError(app, [&] { outcome = Save(app, path, information, manner); });
    return outcome;
}

}  // namespace zefta
