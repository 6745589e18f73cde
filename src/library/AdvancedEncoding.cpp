#include "library/AdvancedEncoding.h"

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/GenreTable.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/Encode.h"
#include "encoding/EncodedOutput.h"
#include "encoding/ModeCatalogue.h"
#include "encoding/StreamExtent.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t EncodeJobCode = 6;
constexpr std::int32_t ModeWithoutChoice = 320;

// The job.

/// Which encoder it is.
void SetMode(AppState& state, const EncodingChoice& choice) {
    state.UseOggVorbis = state.UseMPEGplus = state.UseVBR = false;
    ApplyModeCode(state, choice.Mode.value_or(ModeWithoutChoice));
}

void StoreChoice(App& app, const EncodingChoice& choice) {
    AppState& state = app.state;
    state.CompressCD_Bitrate = ToI16(std::int64_t{choice.Mode.value_or(ModeWithoutChoice)});
    SaveCompressCDSettings(app);
    state.JobCode = EncodeJobCode;
    static_cast<RunSwitches&>(state) = choice.Checked;
    state.NormalizeSeparately =
        choice.Checked.NormalizeSeparately && choice.Checked.Normalize && choice.Checked.TrimSilence;
    SetMode(state, choice);
    SaveMainSettings(app);
}

const std::string& CellOr(const std::string& cell, const std::string& standard) {
    return cell.empty() ? standard : cell;
}

void FillOptions(AppState& state, const TagRow& row, const TagDefaults& defaults) {
    state.OptTrack = Trim(row.Cells[TrackColumn]);
    state.OptArtist = Trim(CellOr(row.Cells[ArtistColumn], defaults.Artist));
    state.OptTitle = Trim(row.Cells[TitleColumn]);
    state.OptMix = Trim(row.Cells[MixColumn]);
    state.OptAlbum = Trim(CellOr(row.Cells[AlbumColumn], defaults.Album));
    state.OptYear = Trim(CellOr(row.Cells[YearColumn], defaults.Year));
    state.OptGenreIndex = defaults.Genre.value_or(NoGenre);
}

// The tags.

/// 0 for what is no number of a track in a record: there is room for a byte.
std::uint8_t TrackByte(const std::string& text) {
    constexpr double Largest = 255;
    const double number = LeadingNumber(text);
    return number >= 0 && number <= Largest ? ToByte(number) : std::uint8_t{0};
}

/// Kinds without a field for the mix take it behind the title: their writers see to that.
ID3Tag TagOfOptions(const AppState& state, const std::string& path) {
    ID3Tag tag;
    ID3v2Extension& extension = tag.ID3v2Extension;
    tag.Path = path;
    tag.Artist = extension.Artist = state.OptArtist;
    tag.Title = extension.TrackTitle = state.OptTitle;
    tag.Comment = extension.Mix = state.OptMix;
    tag.Album = extension.AlbumTitle = state.OptAlbum;
    tag.Year = extension.Year = tag.OggVorbisExtension.DateTime = state.OptYear;
    tag.TrackNumber = TrackByte(state.OptTrack);
    extension.TrackNumber = state.OptTrack;
    tag.Genre = state.OptGenreIndex;
    extension.Genre = GenreNameFromIndex(state.OptGenreIndex);
    extension.EncodedBy = ApplicationTitle() + " " + VersionText();
    return tag;
}

// One file.

/// Encoders tell nothing about how they ended; one that was ended too early, or whose disk was full, leaves a
/// file all the same. Why the source has to stay; "" when nothing speaks against its end. A stream whose
/// length can't be told is believed.
std::string ReasonToKeep(App& app, const std::string& source, const std::string& output) {
    constexpr double FrameSeconds = 1;
    const auto extent = MeasureStream(app.files, output);
    if (!extent) return {};
    if (!extent->isWhole) return "it breaks off";
    const ID3Tag wave = app.defaultWaveFile->GetWaveInfo(source);
    const bool isLengthKnown = !wave.Path.empty() && wave.Bitrate >= 0;
    return isLengthKnown && extent->seconds < wave.Seconds - FrameSeconds ? "it is shorter" : "";
}

void DeleteSource(App& app, const std::string& source, const std::string& output, const std::string& reason) {
    const auto shown = [&](const std::string& path) { return app.ansi.ToText(NamePart(path)); };
    if (reason.empty()) {
        app.files.DeleteFile(source, Force::No);
    } else {
        app.desktop.Note(shown(source) + " is kept; look at " + shown(output) + ": " + reason);
    }
}

/// One run over the rows.
class Encoding {
  public:
    Encoding(App& app, const std::string& folder, const EncodingChoice& choice)
        : app_(app), folder_(folder), choice_(choice), outputs_(choice.Made) {}

    /// False without an output.
    bool Encode(const TagRow& row) {
        const std::string& name = row.Cells[FileColumn];
        const std::string source = JoinPath(folder_, name);
        Claim(EncodedOutputPath(app_.state, folder_, name));
        FillOptions(app_.state, row, choice_.Defaults);
        const std::string output = EncodeInPlace(app_, folder_, name);
        if (output.empty()) return false;
        // Ahead of the tags: behind some streams they hide the end.
        std::string reason = choice_.DeleteSources ? ReasonToKeep(app_, source, output) : "";
        ID3Tag tag = TagOfOptions(app_.state, output);
        WriteTags(*app_.defaultWaveFile, TagJob::DetailedEncoding, tag);
        if (tag.Path.empty()) reason = "its tags could not be written";
        if (choice_.DeleteSources) DeleteSource(app_, source, output, reason);
        return true;
    }

  private:
    /// "a.wav" and "a.WAV" have one name for their outputs: the second would take the place of the first,
    /// whose source may be gone by then.
    void Claim(const std::string& output) {
        if (!output.empty() && !outputs_.insert(output).second)
            throw RuntimeError(ErrorNumber::FileAlreadyExists, app_.ansi.ToText(output));
    }

    App& app_;
    const std::string& folder_;
    const EncodingChoice& choice_;
    std::set<std::string> outputs_;
};

/// What this run alone has chosen ends with it.
class LevelOfRun {
  public:
    explicit LevelOfRun(AppState& state) : state_(state) {}
    ~LevelOfRun() { state_.ReduceLevel = state_.Saved.ReduceLevel; }
    LevelOfRun(const LevelOfRun&) = delete;
    LevelOfRun& operator=(const LevelOfRun&) = delete;

  private:
    AppState& state_;
};

bool EncodeAll(App& app, const std::string& folder, std::span<const TagRow> rows,
               const EncodingChoice& choice, const EncodingEvents& events) {
    Encoding encoding(app, folder, choice);
    Batch batch(app, rows.size());
    std::size_t number = 0;
    for (const TagRow& row : rows) {
        const std::string& name = row.Cells[FileColumn];
        if (events.Status) events.Status(ProgressText(++number, rows.size(), app.ansi.ToText(name)));
        if (!batch.Next() || (events.IsCancelled && events.IsCancelled())) return false;
        bool isEncoded = false;
        CheckRuntimeError(app, [&] { isEncoded = encoding.Encode(row); });
        if (isEncoded && events.Done) events.Done(name);
    }
    return true;
}

}  // namespace

std::vector<TagRow> RowsToEncode(std::span<const std::string> names) {
    std::vector<TagRow> rows;
    for (const std::string& name : names) {
        TagRow& row = rows.emplace_back();
        row.Cells[FileColumn] = name;
        row.Cells[TrackColumn] = std::to_string(rows.size());
    }
    return rows;
}

void RetrieveTagsToEncode(const App& app, const std::string& folder, int templateIndex, TagRow& row) {
    const TagRow before = row;
    RetrieveTags(app, folder, templateIndex, row);
    for (std::size_t column = TrackColumn; column < TagColumnCount; ++column) {
        const bool isNew = row.Cells[column] != before.Cells[column];
        if (isNew && row.Cells[column] == " ") row.Cells[column].clear();
    }
}

EncodingBoxes EnabledBoxes(const RunSwitches& checked, std::string_view modeLabel) {
    EncodingBoxes boxes;
    boxes.Normalize = checked.TrimSilence;
    boxes.NormalizeSeparately = checked.TrimSilence && checked.Normalize;
    const bool hasLevel = MatchesMask(modeLabel, "LAME*") || MatchesMask(modeLabel, "MPEGplus*");
    boxes.ReduceLevel = hasLevel && !checked.Normalize;
    return boxes;
}

std::vector<std::string> FilesToReplace(const App& app, const std::string& folder,
                                        std::span<const TagRow> rows, const EncodingChoice& choice) {
    AppState state = app.state;
    SetMode(state, choice);
    std::vector<std::string> names;
    for (const TagRow& row : rows) {
        const std::string output = EncodedOutputPath(state, folder, row.Cells[FileColumn]);
        if (output.empty() || choice.Made.contains(output) || !app.files.FileExists(output)) continue;
        names.push_back(NamePart(app.files.FollowLinks(output)));
    }
    return names;
}

bool EncodeRows(App& app, const std::string& folder, std::span<const TagRow> rows,
                const EncodingChoice& choice, const EncodingEvents& events) {
    const LevelOfRun level(app.state);
    StoreChoice(app, choice);
    // Tools that are told no folder write to the current one.
    const bool hasFailed = CheckRuntimeError(app, [&] { app.files.SetCurrentFolder(folder); });
    return !hasFailed && EncodeAll(app, folder, rows, choice, events);
}

}  // namespace zefta
