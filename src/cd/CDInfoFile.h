#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"

namespace zefta {

class ProfileFile;

/// The sections of a CD information file that have one key a track.
inline constexpr std::string_view NamesSection = "Names";
inline constexpr std::string_view TimesSection = "Times";
inline constexpr std::string_view SelectedSection = "Selected";
inline constexpr std::string_view OptionsSection = "Options";

struct CDTrack {
    std::string Name;
    std::int32_t Seconds = 0;
    /// Whether it is to be compressed.
    bool Selected = false;
};

/// An album and what is to be made of it: the content of a CD information file (".zfc").
struct CDInfo {
    std::string Artist;
    std::string Title;
    std::string Year;
    std::vector<CDTrack> Tracks;
    /// Seconds.
    std::int32_t Length = 0;
    /// Folder of the ripped tracks, and the one for the compressed files.
    std::string Source;
    std::string Target;
    /// Place in the list of encoding modes, and its text, which is there for the person who reads the file.
    std::int32_t BitrateIndex = 0;
    std::string BitrateText;
    /// 0 or 1.
    std::int32_t Compilation = 0;
    std::string Genre;
};

/// "01", "10", "100".
std::string TrackKey(std::size_t number);

/// Takes the values of the file into the record. Missing texts become "", missing numbers 0; Source, Target
/// stay as they are when the file names none, and BitrateText always. RuntimeError 6, and the record is as it
/// was, for a number that is out of range and for more than 32767 tracks.
void GetCDInfo(const ProfileFile& file, CDInfo& info);

/// Puts the record into the file, over the values that it has. Keys of tracks beyond the last one stay.
void PutCDInfo(const CDInfo& info, ProfileFile& file);

/// The same with the file at the path: what is not there reads as empty. Run-time failures are those of
/// reading and writing profile files, too; a file that can't be written stays as it was.
void LoadCDInfo(App& app, const std::string& path, CDInfo& info);
void SaveCDInfo(App& app, const std::string& path, const CDInfo& info);

/// "Artist - Album.zfc", made a name that every file system takes.
std::string SuggestedCDInfoName(std::string_view artist, std::string_view album);

/// Whole minutes and seconds in two digits: "3:05", "74:00".
std::string CDTimeText(std::int32_t seconds);

/// A track as the list shows it: "01. Name (3:05)". Numbers count from 1.
std::string CDTrackLine(std::size_t number, const CDTrack& track);

}  // namespace zefta
