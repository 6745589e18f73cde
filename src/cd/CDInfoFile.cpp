#include "cd/CDInfoFile.h"

#include <algorithm>
#include <utility>

#include "cd/ProfileFile.h"
#include "core/FileNames.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::string_view Extension = ".zfc";
constexpr std::string_view SelectedValue = "-1";
constexpr std::string_view UnselectedValue = "0";
/// A count beyond all albums would only fill the memory with empty tracks.
constexpr std::int32_t MostTracks = 32767;

std::int32_t NumberOf(std::string_view value) {
    return ToI32(LeadingNumber(value));
}

template <auto Field>
std::string TextOf(const CDInfo& info) {
    return info.*Field;
}
template <auto Field>
void SetText(CDInfo& info, const std::string& value) {
    info.*Field = Trim(value);
}

template <auto Field>
std::string NumberTextOf(const CDInfo& info) {
    return std::to_string(info.*Field);
}
template <auto Field>
void SetNumber(CDInfo& info, const std::string& value) {
    info.*Field = NumberOf(value);
}

std::string TrackCountText(const CDInfo& info) {
    return std::to_string(info.Tracks.size());
}
void SetTrackCount(CDInfo& info, const std::string& value) {
    const std::int32_t count = NumberOf(value);
    if (count > MostTracks) throw RuntimeError(ErrorNumber::Overflow);
    info.Tracks.assign(static_cast<std::size_t>(std::max(count, 0)), {});
}

enum class Ending { None, Blank };
enum class Loading { Always, WhenGiven, Never };

/// A key of section "Options".
struct OptionKey {
    std::string_view name;
    /// The blank keeps the line of an empty value in files that other programs of the house write.
    Ending ending;
    Loading loading;
    std::string (*text)(const CDInfo&);
    void (*set)(CDInfo&, const std::string&);
};

constexpr OptionKey OptionKeys[] = {
    // clang-format off
    {"Artist",       Ending::Blank, Loading::Always,    TextOf<&CDInfo::Artist>,             SetText<&CDInfo::Artist>},
    {"Title",        Ending::Blank, Loading::Always,    TextOf<&CDInfo::Title>,              SetText<&CDInfo::Title>},
    {"Year",         Ending::Blank, Loading::Always,    TextOf<&CDInfo::Year>,               SetText<&CDInfo::Year>},
    {"Tracks",       Ending::Blank, Loading::Always,    TrackCountText,                      SetTrackCount},
    {"Length",       Ending::Blank, Loading::Always,    NumberTextOf<&CDInfo::Length>,       SetNumber<&CDInfo::Length>},
    {"Source",       Ending::Blank, Loading::WhenGiven, TextOf<&CDInfo::Source>,             SetText<&CDInfo::Source>},
    {"Target",       Ending::Blank, Loading::WhenGiven, TextOf<&CDInfo::Target>,             SetText<&CDInfo::Target>},
    {"BitrateIndex", Ending::Blank, Loading::Always,    NumberTextOf<&CDInfo::BitrateIndex>, SetNumber<&CDInfo::BitrateIndex>},
    {"BitrateText",  Ending::Blank, Loading::Never,     TextOf<&CDInfo::BitrateText>,        SetText<&CDInfo::BitrateText>},
    {"Compilation",  Ending::None,  Loading::Always,    NumberTextOf<&CDInfo::Compilation>,  SetNumber<&CDInfo::Compilation>},
    {"Genre",        Ending::Blank, Loading::Always,    TextOf<&CDInfo::Genre>,              SetText<&CDInfo::Genre>},
    // clang-format on
};

std::string TwoDigits(std::size_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

bool IsToBeSet(const OptionKey& key, std::string_view value) {
    return key.loading == Loading::Always || (key.loading == Loading::WhenGiven && !Trim(value).empty());
}

}  // namespace

std::string TrackKey(std::size_t number) {
    return TwoDigits(number);
}

void GetCDInfo(const ProfileFile& file, CDInfo& info) {
    CDInfo read = info;
    for (const OptionKey& key : OptionKeys) {
        const std::string value = file.ReadProfileValue(OptionsSection, key.name);
        if (IsToBeSet(key, value)) key.set(read, value);
    }
    for (std::size_t number = 1; number <= read.Tracks.size(); ++number) {
        const std::string key = TrackKey(number);
        CDTrack& track = read.Tracks[number - 1];
        track.Seconds = NumberOf(file.ReadProfileValue(TimesSection, key));
        track.Name = Trim(file.ReadProfileValue(NamesSection, key));
        track.Selected = LeadingNumber(file.ReadProfileValue(SelectedSection, key)) == -1;
    }
    info = std::move(read);
}

void PutCDInfo(const CDInfo& info, ProfileFile& file) {
    for (const OptionKey& key : OptionKeys) {
        const std::string ending = key.ending == Ending::Blank ? " " : "";
        file.WriteProfileValue(OptionsSection, key.name, key.text(info) + ending);
    }
    for (std::size_t number = 1; number <= info.Tracks.size(); ++number) {
        const std::string key = TrackKey(number);
        const CDTrack& track = info.Tracks[number - 1];
        file.WriteProfileValue(NamesSection, key, track.Name + " ");
        file.WriteProfileValue(TimesSection, key, std::to_string(track.Seconds));
        file.WriteProfileValue(SelectedSection, key, track.Selected ? SelectedValue : UnselectedValue);
    }
}

void LoadCDInfo(App& app, const std::string& path, CDInfo& info) {
    GetCDInfo(ReadProfileFile(app.files, app.ansi, path), info);
}

void SaveCDInfo(App& app, const std::string& path, const CDInfo& info) {
    ProfileFile file = ReadProfileFile(app.files, app.ansi, path);
    PutCDInfo(info, file);
    WriteProfileFile(app.files, path, file);
}

std::string SuggestedCDInfoName(std::string_view artist, std::string_view album) {
    return MakeFileName(std::string(artist) + " - " + std::string(album) + std::string(Extension));
}

std::string CDTimeText(std::int32_t seconds) {
    const auto positive = static_cast<std::size_t>(std::max(seconds, 0));
    return std::to_string(positive / 60) + ":" + TwoDigits(positive % 60);
}

std::string CDTrackLine(std::size_t number, const CDTrack& track) {
    return TwoDigits(number) + ". " + track.Name + " (" + CDTimeText(track.Seconds) + ")";
}

}  // namespace zefta
