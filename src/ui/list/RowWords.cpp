#include "ui/list/RowWords.h"

namespace zefta {

namespace {

std::optional<WindowText> RateText(RateClass rate) {
    switch (rate) {
        case RateClass::Low:
            return WindowText::RateLow;
        case RateClass::Usual:
            return WindowText::RateUsual;
        case RateClass::Middle:
            return WindowText::RateMiddle;
        case RateClass::High:
            return WindowText::RateHigh;
        case RateClass::Highest:
            return WindowText::RateHighest;
        default:
            return std::nullopt;
    }
}

}  // namespace

WindowText KindWords(ListKind kind) {
    switch (kind) {
        case ListKind::Folder:
            return WindowText::KindFolder;
        case ListKind::Playlist:
            return WindowText::KindPlaylist;
        case ListKind::Wave:
            return WindowText::KindWave;
        case ListKind::MP3:
            return WindowText::KindMP3;
        case ListKind::Ogg:
            return WindowText::KindOgg;
        case ListKind::MPEGplus:
            return WindowText::KindMPEGplus;
        default:
            return WindowText::KindLqt;
    }
}

QString BitrateWords(const App& app, ListKind kind, const RowColours& colours) {
    const bool isRawWave = kind == ListKind::Wave && colours.Bitrate.has_value();
    const auto text = isRawWave ? std::optional(WindowText::RawWave) : RateText(colours.RateIs);
    return text ? OwnText(app, *text) : QString();
}

QString YearWords(const App& app, const RowColours& colours) {
    if (colours.YearIs == YearClass::Other) return {};
    const bool isThisYear = colours.YearIs == YearClass::ThisYear;
    return OwnText(app, isThisYear ? WindowText::ThisYear : WindowText::LastYear);
}

}  // namespace zefta
