#include "agent/TrayWatch.h"

#include <utility>

namespace zefta {

TrayWatch::TrayWatch(std::function<bool()> isThere, Patience patience)
    : isThere_(std::move(isThere)), patience_(patience) {
    timer_.setInterval(patience_.millisecondsBetweenLooks);
    connect(&timer_, &QTimer::timeout, this, &TrayWatch::Look);
}

void TrayWatch::Begin() {
    timer_.start();
    Look();
}

void TrayWatch::Look() {
    if (isThere_()) {
        timer_.stop();
        emit Found();
        return;
    }
    if (looks_ < patience_.looksBeforeComplaint && ++looks_ == patience_.looksBeforeComplaint) emit Missing();
}

}  // namespace zefta
