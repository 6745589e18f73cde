#include "core/OptionTable.h"

#include <algorithm>

#include "core/Folders.h"
#include "core/GenreTable.h"
#include "core/ModeWords.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

using Reader = OptionReader;

/// A job that works on files: code, mask when none is given, and the mask that may follow.
void SetJob(Reader& reader, std::int32_t code, std::string_view mask) {
    reader.app.state.JobCode = code;
    reader.app.state.FileSpec = mask;
}

void SetJobWithMask(Reader& reader, std::int32_t code, std::string_view mask) {
    SetJob(reader, code, mask);
    if (const auto value = reader.TakeValue()) reader.app.state.FileSpec = *value;
}

void SetJobWithWindows(Reader& reader, std::int32_t code, std::string_view mask) {
    reader.app.state.ShowExecuteWindows = true;
    SetJobWithMask(reader, code, mask);
}

/// A value is given even when it is empty: the blank behind it lets it clear a field.
std::string GivenText(const std::string& value) {
    return Trim(value) + " ";
}

void TakeText(Reader& reader, std::string AppState::*field) {
    if (const auto value = reader.TakeValue()) reader.app.state.*field = GivenText(*value);
}

void TakePerCent(Reader& reader, std::uint8_t AppState::*field) {
    const auto value = reader.TakeValue();
    if (!value) return;
    const double number = LeadingNumber(*value);
    if (number >= 0 && number <= 100) reader.app.state.*field = ToByte(number);
}

void TakeWholeNumber(Reader& reader, std::int32_t AppState::*field) {
    if (const auto value = reader.TakeValue()) reader.app.state.*field = WholeNumber(*value);
}

void TakeNumber(Reader& reader, std::int32_t AppState::*field) {
    if (const auto value = reader.TakeValue()) reader.app.state.*field = ToI32(LeadingNumber(*value));
}

void SetSilence(Reader& reader, std::int32_t minimum, std::int32_t maximum) {
    reader.app.state.SilenceMin = minimum;
    reader.app.state.SilenceMax = maximum;
}

/// Names by tags are made by two jobs only; their options must follow them.
bool IsRenameJob(const AppState& state) {
    return state.JobCode == 3 || state.JobCode == 1;
}

void ApplyChange(Reader& reader) {
    SetJob(reader, 4, "*.mp3");
    const auto value = reader.TakeValue();
    if (!value) return;
    const std::string path = reader.app.files.ToNativePath(*value);
    ChangeToFolder(reader.app.files, FolderPart(path));
    reader.app.state.FileSpec = NamePart(path);
}

void ApplyCopy(Reader& reader) {
    if (const auto value = reader.TakeValue()) SetJob(reader, 5, *value);
}

/// "abr" takes the next token only when it is a rate that LAME's ABR ranges know.
void ApplyAbr(Reader& reader) {
    const auto next = reader.PeekValue();
    const double rate = next ? LeadingNumber(*next) : 0;
    if (rate < 110 || rate > 310) return;
    reader.TakeValue();
    reader.app.state.UseVBR = true;
    reader.app.state.Bitrate = ToI16(rate);
}

void ApplyEncode(Reader& reader) {
    AppState& state = reader.app.state;
    SetJob(reader, 6, "*.wav");
    state.ShowExecuteWindows = true;
    state.Bitrate = 320;
    state.OggVorbisMode = 18;
    state.MPEGplusMode = 3;
    state.UseVBR = state.UseOggVorbis = state.UseMPEGplus = false;
    const auto word = reader.PeekValue();
    if (!word) return;
    if (*word == "abr") {
        reader.TakeValue();
        ApplyAbr(reader);
    } else if (ApplyModeWord(state, *word)) {
        reader.TakeValue();
    }
}

void ApplyTrack(Reader& reader) {
    const auto value = reader.TakeValue();
    if (!value) return;
    const double number = LeadingNumber(*value);
    if (number >= 0 && number <= 255) reader.app.state.OptTrack = NumberText(number);
}

void ApplyGenre(Reader& reader) {
    TakeText(reader, &AppState::OptGenre);
    if (!reader.app.state.OptGenre.empty())
        reader.app.state.OptGenreIndex = GenreIndexFromName(reader.app.state.OptGenre);
}

void ApplyTarget(Reader& reader) {
    if (const auto value = reader.TakeValue()) reader.app.state.TargetPath = Trim(*value);
}

void ApplyTemplate(Reader& reader) {
    const auto value = reader.TakeValue();
    if (!value || !IsRenameJob(reader.app.state)) return;
    reader.app.state.CustomRenameTemplate = Trim(*value);
    reader.app.state.RenameFormat = 6;
}

/// Alone it is a job; with a value it chooses the language of this run and the main window opens.
void ApplyLanguage(Reader& reader) {
    AppState& state = reader.app.state;
    state.JobCode = 21;
    const auto value = reader.TakeValue();
    if (!value) return;
    state.JobCode = 0;
    state.EnableExternalLanguage = *value != "0";
    if (!state.EnableExternalLanguage) return;
    state.ExternalLanguageFile = reader.app.files.ToNativePath(*value);
    state.EnableExternalLanguage = reader.app.files.FileExists(state.ExternalLanguageFile);
}

using enum OptionGroup;

constexpr Option Options[] = {
    // clang-format off
    {"/encode /e", Job, "[mode] [mask]", "encode WAV files", ApplyEncode},
    {"/decode /d", Job, "[mask]", "decode compressed files to WAV", [](Reader& r) { SetJobWithWindows(r, 7, "*.*"); }},
    {"/wavetrim /wt", Job, "[mask]", "trim silence from WAV files and normalise them", [](Reader& r) { SetJobWithWindows(r, 16, "*.wav"); }},
    {"/split", Job, "[file]", "split a file at /offset", [](Reader& r) { SetJobWithMask(r, 17, ""); }},
    {"/crop", Job, "[file]", "keep what lies between /start and /end", [](Reader& r) { SetJobWithMask(r, 19, ""); }},
    {"/fixheader", Job, "", "repair the headers of WAV files", [](Reader& r) { SetJob(r, 15, "*.wav"); }},
    {"/rename /r", Job, "[mask]", "rename files by their tags", [](Reader& r) { SetJobWithMask(r, 1, "*.*"); }},
    {"/rename2 /r2", Job, "[mask]", "rename files by their tags and update playlists", [](Reader& r) { SetJobWithMask(r, 2, "*.*"); }},
    {"/autorename /ar", Job, "[mask]", "rename the files of playlists", [](Reader& r) { SetJobWithMask(r, 3, "*.m3u"); }},
    {"/change /ch", Job, "[mask]", "change tags", ApplyChange},
    {"/makelist /mpl", Job, "", "make a playlist of the current folder", [](Reader& r) { r.app.state.JobCode = 8; }},
    {"/copy", Job, "playlist", "copy a playlist and its files to the folder of /to", ApplyCopy},
    {"/makezfc /zfc", Job, "[playlist]", "make a CD information file", [](Reader& r) { SetJobWithMask(r, 20, "*.m3u"); }},
    {"/compress_audio_cd /cdda", Job, "", "compress an audio CD", [](Reader& r) { r.app.state.JobCode = 14; }},
    {"/lng", Job, "[file|0]", "write zefta.lng, a template for translators; with a file, use its texts", ApplyLanguage},
    {"/setup", Job, "", "open the options", [](Reader& r) { r.app.state.JobCode = 9; }},
    {"/agent", Job, "", "start the agent", [](Reader& r) { r.app.state.JobCode = 13; }},
    {"/help /h /?", Job, "", "open the manual", [](Reader& r) { r.app.state.JobCode = 10; }},

    {"/s", Files, "", "with subfolders", [](Reader& r) { r.app.state.ProcessSubfolders = true; }},
    {"/to", Files, "path", "where the result goes", ApplyTarget},
    {"/paths", Files, "", "write paths into playlists", [](Reader& r) { r.app.state.UsePaths = true; }},
    {"/compilation /cmpl", Files, "", "the tracks are of several artists", [](Reader& r) { r.app.state.IsCompilation = true; }},
    {"/translate /tran", Files, "", "plain ASCII names; behind /rename or /autorename", [](Reader& r) { if (IsRenameJob(r.app.state)) r.app.state.TranslateNames = true; }},
    {"/template", Files, "text", "name template of %A artist, %T title, %M mix, %L album, %Y year, %N or %N3 track, %R plain letters, %W the same without blanks; behind /rename or /autorename", ApplyTemplate},
    {"/offset", Files, "bytes", "where /split divides", [](Reader& r) { TakeNumber(r, &AppState::SplitOffset); }},
    {"/start /start_offset", Files, "bytes", "where /crop begins", [](Reader& r) { TakeNumber(r, &AppState::CropStart); }},
    {"/end /end_offset", Files, "bytes", "where /crop ends", [](Reader& r) { TakeNumber(r, &AppState::CropEnd); }},
    {"/freq", Files, "Hz", "sample rate for /fixheader", [](Reader& r) { TakeNumber(r, &AppState::Frequency); }},

    {"/vbr", Encoding, "", "variable bitrate", [](Reader& r) { r.app.state.UseVBR = true; }},
    {"/trim", Encoding, "", "trim silence", [](Reader& r) { r.app.state.TrimSilence = true; }},
    {"/notrim", Encoding, "", "do not trim silence", [](Reader& r) { r.app.state.TrimSilence = false; }},
    {"/reducelevel /rdl", Encoding, "", "reduce the level by 0.5 dB", [](Reader& r) { r.app.state.ReduceLevel = true; }},

    {"/normalize /norm", Wave, "", "normalise", [](Reader& r) { r.app.state.Normalize = true; }},
    {"/norm_sep /norm_separately", Wave, "", "one gain for both channels when they differ by less than 0.5 dB", [](Reader& r) { r.app.state.NormalizeSeparately = true; }},
    {"/norm_level", Wave, "0-100", "normalise to this per cent of full scale", [](Reader& r) { TakePerCent(r, &AppState::NormalizeLevel); }},
    {"/norm_above", Wave, "0-100", "normalise when the peak level is at or above", [](Reader& r) { TakePerCent(r, &AppState::NormalizeAbove); }},
    {"/norm_below", Wave, "0-100", "normalise when the peak level is at or below", [](Reader& r) { TakePerCent(r, &AppState::NormalizeBelow); }},
    {"/z", Wave, "", "silence is -1 to 0", [](Reader& r) { SetSilence(r, 0, 65535); }},
    {"/zx", Wave, "", "silence is -8 to 7", [](Reader& r) { SetSilence(r, 7, 65528); }},
    {"/zxx", Wave, "", "silence is -256 to 255", [](Reader& r) { SetSilence(r, 255, 65280); }},
    {"/before", Wave, "frames", "silence to leave before the audio", [](Reader& r) { TakeWholeNumber(r, &AppState::BeforeGap); }},
    {"/after", Wave, "frames", "silence to leave behind the audio", [](Reader& r) { TakeWholeNumber(r, &AppState::AfterGap); }},
    {"/raw", Wave, "", "take files without a header as 16-bit stereo, 44100 Hz", [](Reader& r) { r.app.state.TreatAsRaw = true; }},
    {"/nf /noformat", Wave, "", "scan only", [](Reader& r) { r.app.state.NoFormat = true; }},
    {"/nb /nobackup", Wave, "", "keep no backup", [](Reader& r) { r.app.state.NoBackup = true; }},

    {"/a", Tags, "text", "artist", [](Reader& r) { TakeText(r, &AppState::OptArtist); }},
    {"/t", Tags, "text", "title", [](Reader& r) { TakeText(r, &AppState::OptTitle); }},
    {"/l", Tags, "text", "album", [](Reader& r) { TakeText(r, &AppState::OptAlbum); }},
    {"/y", Tags, "text", "year", [](Reader& r) { TakeText(r, &AppState::OptYear); }},
    {"/m", Tags, "text", "mix", [](Reader& r) { TakeText(r, &AppState::OptMix); }},
    {"/tn", Tags, "0-255", "track number", ApplyTrack},
    {"/genre", Tags, "text", "genre", ApplyGenre},

    {"/showexec", Run, "", "show the windows of outside tools", [](Reader& r) { r.app.state.ShowExecuteWindows = true; }},
    {"/dontshowexec", Run, "", "hide them", [](Reader& r) { r.app.state.ShowExecuteWindows = false; }},
    {"/idle", Run, "", "run outside tools at low priority", [](Reader& r) { r.app.state.PriorityClass = IdlePriority; }},
    {"/normal", Run, "", "at normal priority", [](Reader& r) { r.app.state.PriorityClass = NormalPriority; }},
    {"/high", Run, "", "at high priority", [](Reader& r) { r.app.state.PriorityClass = HighPriority; }},
    // clang-format on
};

/// Whether the blank-separated list holds the word.
bool HoldsWord(std::string_view list, std::string_view word) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(' '), list.size());
        if (list.substr(0, end) == word) return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

}  // namespace

std::span<const Option> OptionTable() {
    return Options;
}

const Option* FindOption(std::string_view name) {
    const auto found = std::find_if(std::begin(Options), std::end(Options),
                                    [&](const Option& option) { return HoldsWord(option.names, name); });
    return found == std::end(Options) ? nullptr : found;
}

bool IsFormatOption(std::string_view token) {
    return token.size() == 3 && EqualsIgnoringAsciiCase(token.substr(0, 2), "/f") && token[2] >= '0' &&
           token[2] <= '9';
}

bool BeginsWithSlash(const FileSystem& files, const std::string& token) {
    if (!token.starts_with('/')) return false;
    if (FindOption(AsciiLower(token)) != nullptr || IsFormatOption(token)) return true;
    const bool isPath =
        token.find('/', 1) != std::string::npos || files.FileExists(token) || files.FolderExists(token);
    return !isPath;
}

std::optional<std::string> OptionReader::TakeValue() {
    if (!PeekValue()) return std::nullopt;
    ++index_;
    return RawItem();
}

std::optional<std::string> OptionReader::PeekValue() const {
    if (index_ >= commandLine_.Count()) return std::nullopt;
    if (BeginsWithSlash(app.files, commandLine_.RawItem(index_ + 1))) return std::nullopt;
    return commandLine_.Item(index_ + 1);
}

}  // namespace zefta
