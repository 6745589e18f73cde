#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/Processes.h"

namespace zefta {

/// Name and command options of an encoding mode that the person made.
struct CustomPreset {
    std::string Name;
    std::string Code;
};

/// Switches that exist twice: as saved, which the options dialog edits and SaveSettings writes, and in
/// force for this run, which the command line changes and the encoders read.
struct RunSwitches {
    bool TrimSilence = true;
    bool ReduceLevel = false;
    bool Normalize = false;
    bool NormalizeSeparately = false;
};

/// Which encoding modes the lists offer.
struct EnabledModes {
    bool EnableLAME128 = true;
    bool EnableLAME160 = true;
    bool EnableLAME192 = true;
    bool EnableLAME256 = true;
    bool EnableLAME320 = true;
    bool EnableLAMEVBR = true;
    bool EnableLAME128ABR = true;
    bool EnableLAME160ABR = true;
    bool EnableLAME192ABR = true;
    bool EnableLAME256ABR = true;
    /// Fixed rates 1 to 6.
    std::array<bool, 6> EnableOGGb = {true, true, true, true, true, true};
    /// Qualities 0 to 10.
    std::array<bool, 11> EnableOGGq = {true, true, true, true, true, true, true, true, true, true, true};
    /// Profiles 1 to 6.
    std::array<bool, 6> EnableMPCm = {true, true, true, true, true, true};
};

/// The one record of a run: what the settings say, overridden by what the command line says.
/// The defaults here are those of an empty settings store.
struct AppState : RunSwitches, EnabledModes {
    // The job, set by ParseCommandLine.

    std::int32_t JobCode = 0;
    /// Mask or path that the job works on.
    std::string FileSpec;
    std::string TargetPath;
    /// Rename rule 1 to 6; for the trim job the layout of the silence, 0 to 5 and above.
    std::int16_t RenameFormat = 0;
    bool ProcessSubfolders = false;
    bool UsePaths = false;
    bool IsCompilation = false;
    bool TranslateNames = false;
    bool NoFormat = false;
    bool NoBackup = false;
    bool TreatAsRaw = false;
    /// Bounds of silence for samples read as 0 to 65535.
    std::int32_t SilenceMin = 0;
    std::int32_t SilenceMax = 65535;
    /// Silence to leave, in CD frames.
    std::int32_t BeforeGap = 0;
    std::int32_t AfterGap = 0;
    /// New tag values. "" leaves a field alone; a given value ends in a blank, so that a lone blank clears
    /// it.
    std::string OptArtist;
    std::string OptTitle;
    std::string OptAlbum;
    std::string OptYear;
    std::string OptMix;
    std::string OptTrack;
    std::string OptGenre;
    std::uint8_t OptGenreIndex = 255;
    /// Samples per second.
    std::int32_t Frequency = 44100;
    /// Byte positions.
    std::int32_t SplitOffset = 0;
    std::int32_t CropStart = 0;
    std::int32_t CropEnd = 0;
    /// Started by another program as its server: load, and end without a window.
    bool EmbeddingStart = false;

    // Settings, filled by LoadSettings.

    /// kbps, or 9001 to 9003 for a custom preset.
    std::int16_t Bitrate = 320;
    bool UseVBR = false;
    bool UseOggVorbis = false;
    /// 1 to 6 fixed rate, 10 to 20 quality 0 to 10, 31 to 33 custom preset.
    std::uint8_t OggVorbisMode = 5;
    bool UseMPEGplus = false;
    /// 1 to 6 the profile, 11 to 13 custom preset.
    std::uint8_t MPEGplusMode = 3;
    RunSwitches Saved;
    std::string CustomRenameTemplate = "%N. %A - %T [%M] %W";
    bool ShowExecuteWindows = true;
    /// Per cent of full scale, 0 to 100.
    std::uint8_t NormalizeLevel = 95;
    std::uint8_t NormalizeAbove = 98;
    std::uint8_t NormalizeBelow = 85;
    std::array<CustomPreset, 3> CustomLAMEPreset = {{
        {"Speech (64kbps ABR, 16kHz, mono)", "-m m -h --abr 64 --resample 16 --lowpass 8.000"},
        {"LAME 320 kbps with lowpass at 20kHz", "-m s -q0 -b 320 --lowpass 20.0"},
        {"LAME VBR for movies", "-m j -v -V 0 -h --lowpass 18.0 --resample 44"},
    }};
    std::array<CustomPreset, 3> CustomOGGPreset;
    std::array<CustomPreset, 3> CustomMPCPreset;
    std::string CurrentFolder;
    std::string StartupFolder;
    bool EnableStartupFolder = false;
    bool FilePropertiesOnDblClick = false;
    bool DeleteAfterCompress = false;
    bool DeleteAfterReCompress = false;
    std::string ExternalLanguageFile;
    bool EnableExternalLanguage = false;
    std::string CompressCD_SourceFolder;
    std::string CompressCD_TargetFolder;
    /// Last used mode code.
    std::int16_t CompressCD_Bitrate = 5;
    std::uint8_t RenameAndTagging_Format = 2;
    bool RenameAndTagging_ProcessSubfolders = false;
    bool RenameAndTagging_UpdatePlaylists = true;
    std::uint8_t RenameAndTagging_FilterType = 0;
    std::string RenameAndTagging_Mask = "*.*";
    bool ChangeTags_AllFirstCaps = true;
    bool ChangeTags_AllTags = true;
    std::int16_t ChangeTags_ReverseFormat = 3;
    int PriorityClass = NormalPriority;
};

}  // namespace zefta
