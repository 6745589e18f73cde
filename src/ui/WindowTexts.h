#pragma once

#include <QString>
#include <cstdint>

#include "core/App.h"

namespace zefta {

/// Texts of the windows that the numbered messages lack: tool tips, names for screen readers, notes in empty
/// places. One row of the table in WindowTexts.cpp for each, in this order; append at the end.
enum class WindowText : std::uint8_t {
    FolderIsEmpty,
    FolderIsUnreadable,
    FileList,
    FolderLabel,
    FolderBox,
    DriveBox,
    BrowseFolder,
    StatusProgress,
    StatusCount,
    StatusSize,
    StatusMore,
    KindUp,
    KindFolder,
    KindPlaylist,
    KindWave,
    KindMP3,
    KindOgg,
    KindMPEGplus,
    KindLqt,
    RawWave,
    RateHighest,
    RateHigh,
    RateMiddle,
    RateUsual,
    RateLow,
    ThisYear,
    LastYear,
    InfoFileName,
    InfoNoGenre,
    InfoEnableID3v2,
    InfoCopy1to2,
    InfoCopy2to1,
    InfoCopyLyricsto2,
    InfoLyrics3,
    InfoYearRule,
    InfoMeasures,
    InfoVendor,
    InfoExComKeys,
    InfoWouldLose,
    InfoRefusedOgg,
    ToolBar,
    CancelBatch,
    CancelBatchTip,
    NotInThisVersion,
    NoPlayer,
    NoNotificationArea,
    PowerOffRefused,
    NoBrowser,
    BoxOk,
    BoxYes,
    BoxNo,
    BoxCancel,
    ProgressCancelTip,
    ProgressEnding,
    ProgressFileName,
    ProgressOfFile,
    ProgressOfAll,
    TrimPicture,
    ToolOutput,
    InfoTooLong,
    // Audio CDs.
    CDDrive,
    CDDriveTip,
    CDFirstDrive,
    CDChooseImage,
    CDImages,
    CDTracks,
    CDTracksTip,
    CDStopTip,
    CDUnknown,
    CDDatabaseFailed,
    CDMatches,
    CDNoMatch,
    CDWholeNames,
    CDGrabbing,
    CDGrabbed,
    CDStopped,
    Count,
};

/// The text in the language of the program.
QString OwnText(const App& app, WindowText text);
QString OwnText(Language language, WindowText text);

}  // namespace zefta
